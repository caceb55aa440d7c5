#pragma once

#include "TPushButton.h"

#include <QFont>

/// A button with a title at its top, in a type of its own, and a text below, beside a small icon. The two
/// texts stand apart from the lines of the base, which it does not draw.
class COMMONUILIB_EXPORT TTitleButton : public TPushButton
{
    Q_OBJECT

public:
    using TPushButton::SetIcon;
    using TPushButton::SetText;

    /// Without skins.
    TTitleButton(QWidget* parent, int id);
    TTitleButton(QWidget* parent, QString const& icon, QString const& background,
                 QString const& selectedBackground, int id);

    /// Three quarters of STANDARD_ICON_SIZE at a place of its own, whatever \a size says; and the button is
    /// enabled whatever \a enable says, also when a resize brings the icon back.
    void SetIcon(QString const& name, QSize const& size, bool enable) override;
    void SetTitle(QString const& title);
    /// In the type of the first line, which SetFontProperties() sets.
    void SetText(QString const& text);
    /// White bold condensed type of 14 pixels at first. The arguments are those of SetFontProperties().
    void SetTitleFontProperties(QColor const& colour, int pixelSize, bool bold, bool wrap, bool shadow,
                                int alignment);

    /// 150 pixels wide with a title or a text, 0 without.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QRect TextArea() const;
    void PaintTitle(QPainter& painter, QRect const& rect) const;

    QString m_Title;
    QString m_Text;
    QFont m_TitleFont;
    QColor m_TitleColour = Qt::white;
    bool m_TitleWrap = true;
    bool m_TitleShadow = false;
    int m_TitleAlignment;
};
