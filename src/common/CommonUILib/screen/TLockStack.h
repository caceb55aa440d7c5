#pragma once

#include "ModalData.h"

#include <QPointer>
#include <QWidget>

#include <algorithm>
#include <vector>

/// The modal children that lock one window or canvas, in order of arrival. A widget that died without being
/// removed drops out by itself. Private to the room.
class TLockStack
{
public:
    /// False, and no effect, when the widget is in the stack already.
    bool Add(KVN::ModalData const& data)
    {
        DropDead();
        for (TLock const& lock : m_Locks)
        {
            if (lock.widget == data.widget)
                return false;
        }
        m_Locks.push_back({data.widget, data});
        return true;
    }

    /// Removes all entries of \a widget.
    void Remove(QWidget* widget)
    {
        DropDead();
        EraseIf([widget](TLock const& lock) { return lock.widget == widget; });
    }

    /// The living entry on top, null when there is none.
    KVN::ModalData const* Top()
    {
        DropDead();
        return m_Locks.empty() ? nullptr : &m_Locks.back().data;
    }

private:
    struct TLock
    {
        QPointer<QWidget> widget;
        KVN::ModalData data;
    };

    void DropDead()
    {
        EraseIf([](TLock const& lock) { return lock.widget.isNull(); });
    }

    template<typename Predicate>
    void EraseIf(Predicate const& predicate)
    {
        m_Locks.erase(std::remove_if(m_Locks.begin(), m_Locks.end(), predicate), m_Locks.end());
    }

    std::vector<TLock> m_Locks;
};
