#pragma once

#include "TLruCache.h"

#include <QHash>
#include <QPixmap>
#include <QSharedPointer>
#include <QWeakPointer>

namespace KVN
{
/// Pixmaps by key. They are kept within a bound on their bytes, and beyond it as long as somebody holds them,
/// so that two users of one pixmap never have two copies of it.
template<typename TKey>
class TSharedPixmaps
{
public:
    explicit TSharedPixmaps(qint64 maxBytes)
        : m_Kept(maxBytes, MaxKept)
    {
    }

    /// The pixmap of \a key, made by \a make if it does not exist; a null pointer from it is passed on and
    /// not kept.
    template<typename TMake>
    QSharedPointer<QPixmap> Get(TKey const& key, TMake make)
    {
        if (QSharedPointer<QPixmap> const* const kept = m_Kept.Find(key))
            return *kept;
        QSharedPointer<QPixmap> pixmap = m_Living.value(key).toStrongRef();
        if (!pixmap)
        {
            pixmap = make();
            if (!pixmap)
                return pixmap;
            ForgetDead();
            m_Living.insert(key, pixmap);
        }
        m_Kept.Insert(key, pixmap, qint64(pixmap->width()) * pixmap->height() * pixmap->depth() / 8);
        return pixmap;
    }

    qint64 Bytes() const { return m_Kept.Bytes(); }

private:
    static constexpr std::size_t MaxKept = 4096;
    static constexpr int SmallestSweep = 64;

    // Swept when the number has doubled, so that each insertion pays a constant share of it.
    void ForgetDead()
    {
        if (m_Living.size() < m_NextSweep)
            return;
        for (auto entry = m_Living.begin(); entry != m_Living.end();)
            entry = entry.value().isNull() ? m_Living.erase(entry) : std::next(entry);
        m_NextSweep = qMax(SmallestSweep, 2 * m_Living.size());
    }

    TLruCache<TKey, QSharedPointer<QPixmap>> m_Kept;
    QHash<TKey, QWeakPointer<QPixmap>> m_Living;
    int m_NextSweep = SmallestSweep;
};
} // namespace KVN
