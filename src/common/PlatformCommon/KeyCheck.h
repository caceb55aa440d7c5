#pragma once

#include "PlatformCommonExport.h"

#include <QSharedPointer>
#include <QString>
#include <QWeakPointer>

namespace Keyboard_layouts_api
{
/// What may be typed on the on-screen keyboard: a field hands one in for as long as it is edited, and a
/// charset may bring its own. Keys that it refuses are dead. Its answers must depend on nothing but what is
/// asked; they are asked of every key whenever the keys change. GUI thread only.
///
/// A keyboard does not own its checks. One that dies while it is in force refuses nothing any more.
class PLATFORMCOMMON_EXPORT KeyCheck
{
public:
    KeyCheck();
    virtual ~KeyCheck();

    /// May a key type \a character.
    virtual bool IsCharacterAllowed(QChar character) const = 0;
    /// May a key type \a text, which is what stands on it. A key needs both answers.
    virtual bool IsStringAllowed(QString const& text) const = 0;
    /// What is left of a text that was not typed on keys, such as a pasted one. The base drops the characters
    /// that are refused.
    virtual QString Filtered(QString const& text) const;
    /// Ends with the check, so that whoever keeps a pointer to it can tell.
    QWeakPointer<KeyCheck const> Life() const;

    KeyCheck(KeyCheck const&) = delete;
    KeyCheck& operator=(KeyCheck const&) = delete;

private:
    QSharedPointer<KeyCheck const> m_Life;
};
} // namespace Keyboard_layouts_api
