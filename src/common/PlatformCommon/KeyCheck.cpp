#include "KeyCheck.h"

#include <algorithm>
#include <iterator>

namespace Keyboard_layouts_api
{
// The pointer only tells of the life of its owner, and must not end it.
KeyCheck::KeyCheck()
    : m_Life(this, [](KeyCheck const*) {})
{
}

KeyCheck::~KeyCheck() = default;

QString KeyCheck::Filtered(QString const& text) const
{
    QString filtered;
    filtered.reserve(text.size());
    std::copy_if(text.begin(), text.end(), std::back_inserter(filtered),
                 [this](QChar character) { return IsCharacterAllowed(character); });
    return filtered;
}

QWeakPointer<KeyCheck const> KeyCheck::Life() const
{
    return m_Life;
}
} // namespace Keyboard_layouts_api
