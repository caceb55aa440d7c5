#pragma once

#include "PlatformCommonExport.h"

#include <QPoint>

class QWidget;

namespace KVN
{
/// Who knows where an annotation belongs: the list, the pad or the note that
/// MorvanePlatformInterface::ShowAnnotation() lays over the screen beside its source. Often the annotation
/// itself. GUI thread only.
class PLATFORMCOMMON_EXPORT IAnnotationHandler
{
public:
    virtual ~IAnnotationHandler() = default;

    /// Where the upper left corner of the annotation belongs, in the coordinates of \a reference, which is
    /// the parent that the annotation has while it is up. Asked after each showing and each
    /// PositionChanged().
    virtual QPoint Position(QWidget* reference) = 0;

    /// The source, or something above it, has another place or size. Called from within that change: what
    /// must see its end is to be queued. May hide the annotation and delete anything but what changes; of
    /// what it changes itself it is not told.
    virtual void PositionChanged() = 0;
};
} // namespace KVN
