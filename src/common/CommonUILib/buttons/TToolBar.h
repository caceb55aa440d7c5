#pragma once

#include "CommonUILibExport.h"

#include <QString>
#include <QWidget>

#include <array>

class TPushButton;

/// What an icon of a TToolBar stands for. For modules; all are drawn alike.
enum EIconType
{
    ICON_TYPE_STANDARD = 0
};

/// Five buttons in a row that hardware keys work as well as a finger. One bar answers one half of the number
/// row: the first key that it is asked for, 1 to 5 or 6 to 0, decides which. A button works as soon as it has
/// an icon.
///
/// Keys are codes of the characters "0" to "9". Any other key, and one of the other half, names no button and
/// does nothing. GUI thread only.
class COMMONUILIB_EXPORT TToolBar : public QWidget
{
    Q_OBJECT

public:
    explicit TToolBar(QWidget* parent);

    /// The button of \a key, null for a key that is not this bar's.
    TPushButton* GetButton(int key);
    void SetIcon(int key, QString const& name, EIconType type);
    void RemoveIcon(int key);
    void SetText(int key, QString const& text);
    /// Holds the button down, where it is enabled, until ButtonRelease().
    void ButtonPress(int key);
    /// Lets the button go, which clicks it when the event loop comes round.
    void ButtonRelease(int key);

protected:
    /// Paints nothing: what is behind shows between the buttons.
    void paintEvent(QPaintEvent* event) override;

private:
    enum EMode
    {
        MODE_UNSET = 0,
        MODE_FIRST_HALF = 1,
        MODE_SECOND_HALF = 2
    };
    static constexpr int ButtonCount = 5;

    EMode m_Mode = MODE_UNSET;
    std::array<TPushButton*, ButtonCount> m_Buttons{};
};
