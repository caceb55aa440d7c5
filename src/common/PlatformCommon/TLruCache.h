#pragma once

#include <QtGlobal>

#include <list>
#include <unordered_map>

namespace KVN
{
/// Values by key, within a bound on their bytes and on their number; the least recently used go first. The
/// key needs operator== and qHash(key).
template<typename TKey, typename TValue>
class TLruCache
{
public:
    TLruCache(qint64 maxBytes, std::size_t maxEntries)
        : m_MaxBytes(maxBytes)
        , m_MaxEntries(maxEntries)
    {
    }

    /// The value of \a key, which is now the most recently used, or null. It is valid until the next Insert()
    /// or Clear().
    TValue const* Find(TKey const& key)
    {
        auto const found = m_Index.find(key);
        if (found == m_Index.end())
            return nullptr;
        m_Entries.splice(m_Entries.begin(), m_Entries, found->second);
        return &found->second->value;
    }

    /// Adds or replaces. A value of more bytes than the bound is not kept.
    void Insert(TKey const& key, TValue const& value, qint64 bytes)
    {
        Remove(key);
        if (bytes > m_MaxBytes || m_MaxEntries == 0)
            return;
        while (m_Bytes + bytes > m_MaxBytes || m_Entries.size() >= m_MaxEntries)
            Remove(TKey(m_Entries.back().key));
        m_Entries.push_front(TEntry{key, value, bytes});
        m_Index.emplace(key, m_Entries.begin());
        m_Bytes += bytes;
    }

    void Remove(TKey const& key)
    {
        auto const found = m_Index.find(key);
        if (found == m_Index.end())
            return;
        m_Bytes -= found->second->bytes;
        m_Entries.erase(found->second);
        m_Index.erase(found);
    }

    void Clear()
    {
        m_Index.clear();
        m_Entries.clear();
        m_Bytes = 0;
    }

    qint64 Bytes() const { return m_Bytes; }

private:
    struct TEntry
    {
        TKey key;
        TValue value;
        qint64 bytes;
    };

    struct THash
    {
        std::size_t operator()(TKey const& key) const { return qHash(key); }
    };

    qint64 m_MaxBytes;
    std::size_t m_MaxEntries;
    qint64 m_Bytes = 0;
    std::list<TEntry> m_Entries; // the most recently used first
    std::unordered_map<TKey, typename std::list<TEntry>::iterator, THash> m_Index;
};
} // namespace KVN
