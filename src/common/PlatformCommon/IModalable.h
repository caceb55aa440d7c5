#pragma once

#include "PlatformCommonExport.h"

class QWidget;

namespace KVN
{
struct ModalData;

/// A surface that modal windows lock: the screen, a canvas or a window.
class PLATFORMCOMMON_EXPORT IModalable
{
public:
    virtual ~IModalable() = default;

    /// \a data.widget locks this surface from now on.
    virtual void AddLockingWidget(ModalData const& data) = 0;

    /// \a widget no longer locks this surface; an unknown one is ignored.
    virtual void RemoveLockingWidget(QWidget* widget) = 0;
};
} // namespace KVN
