#pragma once

/// What a text may hold that the operator types. Any other value restricts nothing.
enum ETextRestrictionType : int
{
    TEXT_RESTRICTION_NONE = 0,
    TEXT_RESTRICTION_FILE_NAMES = 1 ///< what the drives of the console take as the name of a file
};
