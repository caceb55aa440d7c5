#pragma once

#include "TElementState.h"
#include "TTaskToolBar.h"

#include <QHash>
#include <QPair>

#include <vector>

class TMenuElementButton;

/// The bar of one menu, or of the shortcuts of several. It is as long as its buttons, but not longer than its
/// room: a finger and the wheel reach what is cut off.
class TMenuBar : public TTaskToolBar
{
    Q_OBJECT

public:
    struct TItem
    {
        int menuID;
        TElementState element;
        bool isMenuEnabled;
    };

    TMenuBar(QWidget* parent, bool isShortcuts);

    /// Buttons for these, in their order. One that stands for the same element as before stays. Whether the
    /// buttons have been laid out anew.
    bool SetItems(std::vector<TItem> const& items);
    /// The greatest height, in pixels.
    void SetRoom(int height);
    /// The height that all buttons take.
    int WantedHeight() const { return m_WantedHeight; }
    /// The height that the first \a buttons take, or as many as there are.
    int HeightOf(int buttons) const;

    /// Null for none.
    TMenuElementButton* ButtonOf(int menuID, int elementID) const;
    /// The bars of the menus that elements have open, by menu and element.
    void SetOpenedBars(QHash<QPair<int, int>, TMenuBar*> const& opened);

    bool OnMMIBack() override;
    bool GetMMIColumnFirst() override;

Q_SIGNALS:
    /// \a isByWheel: with the wheel's enter key.
    void ElementPressed(int menuID, int elementID, bool isByWheel);
    /// The back key, with the wheel in this bar.
    void BackPressed();
    /// The operator has chosen another size for buttons; the bar had to grow or shrink while it was painted.
    void HeightChanged();

protected:
    void ArrangeButtons() override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    struct TSlot
    {
        int buttonID;
        int menuID;
        int elementID;
    };

    TMenuElementButton* ButtonAt(TSlot const& slot) const;
    int TakeButtonFor(TItem const& item, std::vector<TSlot>& former);
    void OnClicked(int buttonID);
    bool FollowUserSize();
    int FirstButtonTop() const;
    void CutToRoom();

    bool const m_IsShortcuts;
    std::vector<TSlot> m_Slots;
    int m_NextButtonID = 0;
    int m_Room;
    int m_WantedHeight = 0;
    bool m_IsFilling = false;
    bool m_IsCutting = false;
};
