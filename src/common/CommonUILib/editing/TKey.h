#pragma once

#include "CommonUILibExport.h"
#include "TPushButton.h"

#include <QPixmap>

#include <array>

/// One key of the on-screen keyboard or of the number pad: a button with a character or an icon, that knows
/// its place in the grid of keys.
///
/// A key that was given the ground it lies on is opaque, and shows the characters that were prepared for it
/// from pictures made beforehand: so that a whole keyboard changes its letters without laying out, scaling or
/// blending anything. It works without as well, as a plain button. A press leaves the focus with the text
/// that is being typed.
class COMMONUILIB_EXPORT TKey : public TPushButton
{
    Q_OBJECT

public:
    /// With \a useIcon the key shows the icon \a iconName, else \a character; the null character is none. \a
    /// large chooses the larger type. \a rows and \a columns are those of the grid, \a id is what Clicked()
    /// carries. The key has the looks of a standard key, and is called "Key Space" for a blank, "Key X" for
    /// another character, and after its icon without one.
    TKey(QWidget* parent, QChar const& character, QString const& iconName, bool useIcon, bool large, int rows,
         int columns, int id);
    ~TKey() override;

    /// What the key was made with, then the first letter of each text that it got; null for none.
    QChar GetCharacter() const;
    QString GetIconName() const;
    /// Whether the key types something, and is dead while nothing more may be typed. False at first.
    bool GetIsEditKey() const;
    void SetIsEditKey(bool isEditKey);

    /// \name Place in the grid
    /// @{
    /// Numbers below 1 count as 1.
    void SetRowsAndColumns(int rows, int columns);
    int GetRows() const;
    int GetColumns() const;
    /// The key becomes \a span units wide and one high, for good. The unit is \a width by \a height pixels;
    /// \a border is what the grid keeps free above its first row. Sizes below 1 count as 1, and no key is
    /// larger than any display.
    void SetCustomSize(int span, int width, int height, int border);
    /// Moves the key to its place in the parent; \a halfStep moves it half a unit to the right.
    void SetPosition(int row, int column, bool halfStep);
    /// The place number \a index, counted row by row.
    void SetPosition(int index);
    /// @}

    /// \name Look
    /// @{
    void SetLargeFont(bool large);
    /// The backgrounds of the key by their names: normal and while it is down.
    void SetLook(QString const& normal, QString const& down);
    /// Without it a press shows nothing, so that nobody can read along, and the wheel's selection shows as a
    /// glow. True at first.
    void SetPressVisible(bool visible);
    /// What lies below the key, in its size and opaque; a null pixmap for a key that shows what its parent
    /// has painted.
    void SetGround(QPixmap const& ground);
    /// Makes the pictures of two texts, which cost nothing to change to afterwards. They are good until the
    /// key changes its size, its ground or its look.
    void PrepareFaces(QString const& one, QString const& other);
    /// @}

    /// The character of the key is the first of \a text, and so is its name.
    void SetText(QString text, QString objectName, bool enable, QString secondLine,
                 bool useSecondLine) override;
    void SetIcon(QString const& name, QSize const& size, bool enable) override;
    using TPushButton::SetIcon;
    /// With the icon in its standard size, however small it is on the key.
    void ShowToolTip() override;
    void OnMMIHighlight() override;
    void OnMMIUnHighlight() override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct TFacePicture
    {
        QString text;
        QPixmap picture;
    };

    bool IsPlain() const;
    QPixmap MakePicture(QString const& text);
    void ForgetPictures();
    void FollowLook();
    void FollowGround();
    void SetCharacter(QChar character);

    QChar m_Character;
    QString m_IconName;
    int m_Rows = 1;
    int m_Columns = 1;
    int m_UnitWidth = 0;
    int m_UnitHeight = 0;
    int m_Border = 0;
    bool m_IsEditKey = false;
    bool m_HasSecondLine = false;
    bool m_LargeFont = true;
    bool m_PressVisible = true;
    bool m_Highlighted = false; // as the base keeps to itself
    QString m_NormalLook;
    QString m_DownLook;
    QPixmap m_Ground;
    std::array<TFacePicture, 2> m_Faces;
};
