// foundation/hashlist.h: a set of live objects by address, which any thread may ask whether an object still exists.
#pragma once

#include <cstddef>
#include <cstdint>
#include <mutex>
#include <vector>

/// A hash list of pointers with a number of buckets fixed at construction; owns nothing. Every operation takes the
/// list's own lock, so any thread may call it. An answer of contains() may be outdated by the time it is used, unless
/// only the asking thread removes.
template <typename T>
class hashlist
{
public:
    explicit hashlist(unsigned buckets) : m_buckets(buckets) {}
    hashlist(hashlist const&) = delete;
    hashlist& operator=(hashlist const&) = delete;

    void insert(T* object)
    {
        std::lock_guard<std::mutex> guard(m_lock);
        bucketOf(object).push_back(object);
        ++m_size;
    }

    /// Removes one entry of `object`; nothing when there is none.
    void remove(T const* object)
    {
        std::lock_guard<std::mutex> guard(m_lock);
        std::vector<T*>& bucket = bucketOf(object);
        // Newest first: what was made last usually dies first.
        for (std::size_t i = bucket.size(); i-- > 0;) {
            if (bucket[i] == object) {
                bucket[i] = bucket.back();
                bucket.pop_back();
                --m_size;
                return;
            }
        }
    }

    bool contains(T const* object) const
    {
        std::lock_guard<std::mutex> guard(m_lock);
        for (T* entry : m_buckets[indexOf(object)])
            if (entry == object)
                return true;
        return false;
    }

    std::size_t size() const
    {
        std::lock_guard<std::mutex> guard(m_lock);
        return m_size;
    }

    unsigned bucketCount() const { return static_cast<unsigned>(m_buckets.size()); }

private:
    std::size_t indexOf(T const* object) const
    {
        // Allocations are 16-byte aligned: the low four bits say nothing.
        return (reinterpret_cast<std::uintptr_t>(object) >> 4) % m_buckets.size();
    }
    std::vector<T*>& bucketOf(T const* object) { return m_buckets[indexOf(object)]; }

    mutable std::mutex m_lock;
    std::vector<std::vector<T*>> m_buckets; // guarded by m_lock
    std::size_t m_size = 0;                 // guarded by m_lock
};
