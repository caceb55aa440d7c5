#pragma once

#include "CommonUILibExport.h"

#include <QFont>
#include <QString>

class QWidget;

/// \name Fonts of the console
/// All of the family "DejaVu Sans", without a size of their own: whoever uses one sets the pixel size.
/// @{
extern COMMONUILIB_EXPORT QFont const STANDARD_FONT;
extern COMMONUILIB_EXPORT QFont const STANDARD_BOLD_FONT;
extern COMMONUILIB_EXPORT QFont const CONDENSED_FONT;
extern COMMONUILIB_EXPORT QFont const CONDENSED_BOLD_FONT;
/// @}

/// Takes a size given in points as the same number of pixels. A font that is sized in pixels stays as it is.
COMMONUILIB_EXPORT void SetPixelSize(QFont& font);

/// Gives \a widget, which must not be null, the style \a style of its own font, where that is not empty, with
/// weight 75 when the style contains "Bold" in this spelling, and its size in pixels.
COMMONUILIB_EXPORT void SetupFont(QWidget* widget, QString const& style);

/// A font of \a family with the style rules of SetupFont(), of the default size.
COMMONUILIB_EXPORT QFont BuildFont(QString const& family, QString const& style);
