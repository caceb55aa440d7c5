#pragma once

#include "ITopLevelWindow.h"
#include "Metrics.h"
#include "MMICapableWidget.h"
#include "TAnnotatingPlatform.h"
#include "TEditItem.h"
#include "TEditWidget.h"
#include "TestScreen.h"
#include "TListControl.h"
#include "TPushButton.h"
#include "TUnitsNumberPad.h"

#include <QtTest>

/// A window as large as the screen of which only a part may be used, as beside tool bars.
class TRoomWindow : public QWidget, public ITopLevelWindow
{
public:
    TRoomWindow() { resize(SCREEN_WIDTH, SCREEN_HEIGHT); }

    QRect GetUsableRect() override { return m_Usable; }
    TKeyboard* GetKeyboard() override { return nullptr; }
    QWidget* GetTopLevelWidgetFor(QWidget* widget) override
    {
        Q_UNUSED(widget)
        return this;
    }
    bool IsExternal() override { return m_IsExternal; }
    void AddLockingWidget(KVN::ModalData const& data) override { Q_UNUSED(data) }
    void RemoveLockingWidget(QWidget* widget) override { Q_UNUSED(widget) }

    QRect m_Usable{0, 0, SCREEN_WIDTH, SCREEN_HEIGHT};
    bool m_IsExternal = false;
};

/// An edit widget that shows its list to the test.
class TOpenEditWidget : public TEditWidget
{
public:
    explicit TOpenEditWidget(TEditItem const& item)
        : TEditWidget(nullptr, &item)
    {
    }
    using TEditWidget::GetList;
    using TEditWidget::GetListCancelButton;
    using TEditWidget::GetListOkButton;
    using TEditWidget::GetTitleBarHeight;
    using TEditWidget::SetExtraBoxHeight;
};

/// An edit widget over a source on a shown window.
class TEditPlacesStage
{
public:
    explicit TEditPlacesStage(TEditItem const& item)
        : platform(&window)
        , source(&window)
        , widget(new TOpenEditWidget(item))
    {
        window.show();
        source.show();
    }
    ~TEditPlacesStage() { delete widget.data(); }
    TEditPlacesStage(TEditPlacesStage const&) = delete;
    TEditPlacesStage& operator=(TEditPlacesStage const&) = delete;

    /// A list of \a rows rows whose texts are narrower than the smallest box.
    static TEditItem ListItem(int rows)
    {
        TEditItem item;
        item.kind = EDIT_KIND_TEXT_LIST;
        item.SetMinMaxInc(0, rows - 1, 1);
        for (int i = 0; i < rows; ++i)
            item.textItems.setAt(i, QStringLiteral("Row %1").arg(i));
        return item;
    }
    /// A number with plus and minus.
    static TEditItem NumberItem()
    {
        TEditItem item;
        item.SetMinMaxInc(0, 100, 1);
        item.value = 12;
        item.floatingButtons = true;
        return item;
    }
    /// A number with plus and minus on a pad.
    static TEditItem PadItem()
    {
        TEditItem item = NumberItem();
        item.useNumberPad = true;
        return item;
    }

    void OpenOver(QRect const& rect, QSize const& wish = QSize(-1, -1))
    {
        source.setGeometry(rect);
        widget->SetPosition(&source, wish);
        widget->Open();
    }
    /// The rectangle of the box around the list of an open widget.
    QRect Box() const
    {
        int const title = widget->GetTitleBarHeight();
        QRect const list = List()->geometry();
        int const height = title + list.height() + HeightBelowList;
        return {list.x() - LIST_BORDER, list.y() - title, list.width() + 2 * LIST_BORDER, height};
    }
    int Rows() const { return List()->height() / LIST_ROW_HEIGHT; }

    TListControl* List() const { return widget->GetList(); }
    TUnitsNumberPad* Pad() const { return widget->findChild<TUnitsNumberPad*>(); }
    TPushButton* Value() const
    {
        return Find([](TPushButton* button) { return button->GetMMIBehaviour() == MMI_EXCLUDED; });
    }
    TPushButton* Plus() const { return FindByTip(QStringLiteral("Increment Value")); }
    TPushButton* Minus() const { return FindByTip(QStringLiteral("Decrement Value")); }
    TPushButton* FloatingOk() const { return FindByTip(QStringLiteral("OK")); }
    TPushButton* FloatingCancel() const { return FindByTip(QStringLiteral("Cancel")); }
    TPushButton* ListOk() const { return widget->GetListOkButton(); }
    TPushButton* ListCancel() const { return widget->GetListCancelButton(); }

    QImage Picture() { return window.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    /// Gap, buttons, distance and border below a list.
    static constexpr int HeightBelowList = 3 + 69 + 8 + 20;

    TTestScreen screen;
    TRoomWindow window;
    TAnnotatingPlatform platform;
    QWidget source;
    QPointer<TOpenEditWidget> widget;

private:
    template<typename TMatch>
    TPushButton* Find(TMatch matches) const
    {
        auto const buttons = widget->findChildren<TPushButton*>(QString(), Qt::FindDirectChildrenOnly);
        for (TPushButton* const button : buttons)
        {
            if (matches(button) && button != ListOk() && button != ListCancel())
                return button;
        }
        return nullptr;
    }
    TPushButton* FindByTip(QString const& tip) const
    {
        return Find([&tip](TPushButton* button) { return button->GetToolTip() == tip; });
    }
};
