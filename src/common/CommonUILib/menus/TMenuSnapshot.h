#pragma once

#include "TMenuStateCopy.h"

#include <QtGlobal>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

/// All menus with their elements, for the decisions of a TMenuManagerPrivate. Most decisions need none of it,
/// so it may be given as a function that is called when it is asked for the first time.
class TMenuSnapshot
{
public:
    using Menus = std::vector<TMenuStateCopy>;

    TMenuSnapshot() = default;
    TMenuSnapshot(Menus menus)
        : m_Menus(std::move(menus))
    {
    }
    /// \a revision is another number whenever the menus have changed in a way that may open or close some.
    TMenuSnapshot(std::function<Menus()> take, quint64 revision)
        : m_Take(std::move(take))
        , m_Revision(revision)
    {
    }

    Menus const& Get() const
    {
        if (m_Take)
            m_Menus = std::exchange(m_Take, nullptr)();
        return m_Menus;
    }
    /// None if the menus were given as they are.
    std::optional<quint64> GetRevision() const { return m_Revision; }

private:
    mutable std::function<Menus()> m_Take;
    mutable Menus m_Menus;
    std::optional<quint64> m_Revision;
};
