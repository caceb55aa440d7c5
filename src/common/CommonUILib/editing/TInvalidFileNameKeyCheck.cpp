#include "TInvalidFileNameKeyCheck.h"

#include "TFileSystemHelper.h"

#include <algorithm>

TInvalidFileNameKeyCheck::TInvalidFileNameKeyCheck()
    : m_Invalid(TFileSystemHelper::GetInvalidFileNameString())
{
}

TInvalidFileNameKeyCheck::~TInvalidFileNameKeyCheck() = default;

bool TInvalidFileNameKeyCheck::IsCharacterAllowed(QChar character) const
{
    return !m_Invalid.contains(character);
}

bool TInvalidFileNameKeyCheck::IsStringAllowed(QString const& text) const
{
    return std::all_of(text.begin(), text.end(),
                       [this](QChar character) { return IsCharacterAllowed(character); });
}
