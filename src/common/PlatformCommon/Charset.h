#pragma once

#include "PlatformCommonExport.h"

#include <QString>

namespace Keyboard_layouts_api
{
/// Keyboard layouts that come from outside the toolkit, for scripts that its own tables do not cover. It is
/// asked whenever the keys are built, with indices below its own counts; what it answers is held to what fits
/// on the screen. GUI thread only.
class PLATFORMCOMMON_EXPORT Charset
{
public:
    Charset();
    virtual ~Charset();

    /// Layouts to choose from; without one the charset has no effect.
    virtual int GetLayoutCount() const = 0;
    /// How the operator knows the layout; translated.
    virtual QString GetLayoutName(int layout) const = 0;
    /// Rows of keys, the one with the space key included.
    virtual int GetRowCount(int layout) const = 0;
    /// The keys of a row from left to right, as they look with \a capitals and without. A character that is
    /// repeated makes one wider key, and U+FFFD a gap one key wide; so does what is no printable character of
    /// the basic plane. A blank is the space key, and nothing else can stand in its row.
    virtual QString GetRowText(int layout, int row, bool capitals) const = 0;

    Charset(Charset const&) = delete;
    Charset& operator=(Charset const&) = delete;
};
} // namespace Keyboard_layouts_api
