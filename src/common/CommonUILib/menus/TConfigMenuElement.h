#pragma once

#include "TPushButton.h"

#include <array>

/// A button of a TConfigMenu: flat as long as it is not chosen, raised and coloured when it is, and lighter
/// in either look while a finger or the wheel is on it. Its text stands in one line, below the icon if there
/// is one, and grows with the element.
///
/// As any TPushButton it may be deleted by a slot of its signals. GUI thread only.
class COMMONUILIB_EXPORT TConfigMenuElement : public TPushButton
{
    Q_OBJECT

public:
    /// \a id is the one that Clicked() carries.
    TConfigMenuElement(QWidget* parent, QString const& text, int id);

    /// How wide an element of that height is, in pixels.
    static int WidthForHeight(int height);

    /// Whether it has the look of the chosen one. False at first.
    void SetSelected(bool selected);
    bool IsSelected() const;
    /// An inactive element is drawn in its opacity, and works as before. Active at first.
    void SetActive(bool active);
    bool IsActive() const;
    /// From 0 to 1, for as long as the element is inactive; what lies beyond is held to that. 1 at first.
    void SetOpacity(float opacity);
    float GetOpacity() const;

    using TPushButton::SetIcon;
    /// The icon \a name above the text, in the size that the element leaves it, whatever \a size says.
    void SetIcon(QString const& name, QSize const& size, bool enable) override;
    /// Does nothing: an element has icons by name alone. So has the form for an image.
    void SetIcon(QSharedPointer<QPixmap> icon, QSharedPointer<QPixmap> disabledIcon) override;
    void OnMMIHighlight() override;
    void OnMMIUnHighlight() override;
    void ResizeContents() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private Q_SLOTS:
    void OnPressed();
    void OnReleased();

private:
    enum ELook
    {
        LOOK_FLAT,
        LOOK_FLAT_PRESSED,
        LOOK_RAISED,
        LOOK_RAISED_PRESSED,
        LOOK_COUNT
    };

    ELook Look() const;
    float Opacity() const;
    int IconSide() const;
    QRect TextRect() const;
    int TextSize() const;
    void LetGroundThrough();
    void FitPictures();
    void PaintIcon(QPainter& painter) const;

    bool m_Selected = false;
    float m_Opacity = 1.0F;
    bool m_Active = true;
    bool m_Highlighted = false;
    QString m_IconName;
    std::array<QSharedPointer<QPixmap>, LOOK_COUNT> m_Bodies; // at the size of the element
    QSharedPointer<QPixmap> m_Icon;
    QSharedPointer<QPixmap> m_DisabledIcon;
};
