#include "MorvaneID.h"

#include <algorithm>

namespace KVN
{
namespace
{
constexpr int UuidLength = 36;
constexpr int HexadecimalBase = 16;

bool IsHexadecimal(QChar c)
{
    ushort const lower = c.unicode() | 0x20;
    return (c.unicode() >= '0' && c.unicode() <= '9') || (lower >= 'a' && lower <= 'f');
}

bool IsHyphenPlace(int index)
{
    return index == 8 || index == 13 || index == 18 || index == 23;
}

// QUuid reads much more than it writes, so the form is looked at before it gets the text.
bool HasUuidForm(QString const& text)
{
    if (text.size() != UuidLength)
        return false;
    for (int i = 0; i < UuidLength; ++i)
    {
        if (IsHyphenPlace(i) ? text.at(i) != QLatin1Char('-') : !IsHexadecimal(text.at(i)))
            return false;
    }
    return true;
}

// The view behind the UUID: nothing stands for 0, which is therefore never written out.
bool ReadView(QString const& text, quint32& view)
{
    view = 0;
    if (text.isEmpty())
        return true;
    QString const digits = text.mid(1);
    if (text.at(0) != QLatin1Char('-') || digits.startsWith(QLatin1Char('0')) ||
        !std::all_of(digits.cbegin(), digits.cend(), IsHexadecimal))
        return false;
    bool valid = false;
    view = digits.toUInt(&valid, HexadecimalBase);
    return valid;
}
} // namespace

MorvaneID::MorvaneID(QUuid const& module, quint32 view)
    : m_Module(module)
    , m_View(module.isNull() ? 0 : view)
{
}

QString MorvaneID::ToString() const
{
    if (!IsValid())
        return {};
    QString text = m_Module.toString(QUuid::WithoutBraces);
    if (m_View != 0)
        text += QLatin1Char('-') + QString::number(m_View, HexadecimalBase);
    return text;
}

MorvaneID MorvaneID::FromString(QString const& text)
{
    bool const braced = text.startsWith(QLatin1Char('{'));
    if (braced && text.indexOf(QLatin1Char('}')) != UuidLength + 1)
        return {};
    QString const uuid = text.mid(braced ? 1 : 0, UuidLength);
    quint32 view = 0;
    if (!HasUuidForm(uuid) || !ReadView(text.mid(braced ? UuidLength + 2 : UuidLength), view))
        return {};
    return MorvaneID(QUuid(uuid), view);
}

bool MorvaneID::IsValid() const
{
    return !m_Module.isNull();
}

QUuid MorvaneID::GetModuleUID() const
{
    return m_Module;
}

quint32 MorvaneID::GetView() const
{
    return m_View;
}
} // namespace KVN
