#pragma once

#include "CommonUILibExport.h"
#include "IModalable.h"

#include <QRect>

class QWidget;
class TKeyboard;

/// What a widget may ask of the top-level window that it stands in. The screen is one; a window on another
/// display may be another.
class COMMONUILIB_EXPORT ITopLevelWindow : public KVN::IModalable
{
public:
    /// The part that windows may be placed in, in the window's own coordinates.
    virtual QRect GetUsableRect() = 0;
    /// The on-screen keyboard, null where there is none.
    virtual TKeyboard* GetKeyboard() = 0;
    /// The widget on which windows for \a widget are to be shown.
    virtual QWidget* GetTopLevelWidgetFor(QWidget* widget) = 0;
    /// True for a window on a display other than the console's own.
    virtual bool IsExternal() = 0;
    void AddLockingWidget(KVN::ModalData const& data) override = 0;
    void RemoveLockingWidget(QWidget* widget) override = 0;
};
