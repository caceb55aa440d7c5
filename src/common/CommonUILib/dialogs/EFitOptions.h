#pragma once

/// What a TShadowedLabel does with a text that is larger than the label.
enum EFitOptions
{
    FIT_NONE = 0,            ///< it is cut at the edge
    FIT_SHRINK = 1,          ///< the font shrinks, as far as TShadowedLabel::SetFitMinimumTextSize() lets it
    FIT_ELIDE = 2,           ///< it ends in an ellipsis
    FIT_SHRINK_AND_ELIDE = 3 ///< it shrinks first, and ends in an ellipsis if that is not enough
};
