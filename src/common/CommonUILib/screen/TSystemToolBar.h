#pragma once

#include "TBaseToolBar.h"

#include <QVector>

/// The small bar in the bottom right corner of the screen with the buttons that are there whatever the view.
/// It is as large as the buttons that it shows, and gone without any; the screen keeps it in its corner, see
/// TScreen::SetSystemToolBar(). Buttons that are needed rarely belong on TOffScreenButtons instead.
///
/// A press on the bar never falls through to the view behind it. GUI thread only.
class COMMONUILIB_EXPORT TSystemToolBar : public TBaseToolBar
{
    Q_OBJECT

public:
    using TBaseToolBar::ArrangeButtons;
    using TBaseToolBar::AssignButton;
    using TBaseToolBar::RemoveButton;

    /// Upright at first.
    explicit TSystemToolBar(QWidget* parent);
    /// Its screen lets go of it first, so that nobody meets half a bar.
    ~TSystemToolBar() override;

    /// As the base; the button carries \a id in its signals.
    void AssignButton(int id, QString const& icon, QString const& text, QString const& toolTip) override;
    /// How many buttons may show, -1 for all. A plain bar takes no notice; a module's own bar gives it a
    /// meaning, see TScreen::LimitVisibleSystemToolBarButtons().
    virtual void SetMaxButtonsVisible(int count);

    /// Lays the bar down or sets it up. The buttons stand in reverse either way, so that the first one is in
    /// the corner.
    void SetHorizontal(bool horizontal);
    bool IsHorizontal() const;

    /// Takes \a button as a child under an id of its own, which the button is not told. False for null and
    /// for one that is on the bar already. A button that dies, or that somebody else takes as a child, leaves
    /// the bar by itself.
    bool AddButton(TPushButton* button);
    /// Takes \a button off the bar, hidden and without a parent: the caller owns it. Nothing for an unknown
    /// one.
    void RemoveButton(TPushButton* button);
    void SetButtonVisible(TPushButton* button, bool visible);

Q_SIGNALS:
    /// The bar has another place or size.
    void GeometryChanged();

protected:
    TPushButton* GenerateButton(int id) override;
    void ArrangeButtons() override;
    void UpdateFixedSize() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void childEvent(QChildEvent* event) override;

private:
    bool LetGo(TPushButton* button);
    int ShownButtons();
    QSize SizeFor(int count) const;
    QSharedPointer<QPixmap> BackgroundFor(int count, QSize const& size) const;

    /// For one, two and three buttons.
    QVector<QSharedPointer<QPixmap>> m_Backgrounds;
};
