#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>

namespace kivemu {

/// Remembers what was made last, by a text, up to a weight: beyond half of it, what was not asked
/// for since the half before is forgotten. Only saves time: what is made anew is the same.
template<typename Value>
class CRecent
{
public:
    explicit CRecent(size_t mostWeight) : m_most(mostWeight / 2) {}

    /// What is remembered, or null; it stays until the next add() or find().
    Value *find(const std::string &key)
    {
        if (const auto known = m_young.find(key); known != m_young.end())
            return known->second.value.get();
        const auto known = m_old.find(key);
        if (known == m_old.end())
            return nullptr;
        SEntry entry = std::move(known->second);
        m_old.erase(known);
        return keep(key, std::move(entry));
    }
    Value &add(const std::string &key, Value value, size_t weight)
    {
        return *keep(key, {std::make_unique<Value>(std::move(value)), weight + key.size()});
    }

private:
    struct SEntry
    {
        std::unique_ptr<Value> value;
        size_t weight = 0;
    };
    Value *keep(const std::string &key, SEntry entry)
    {
        constexpr size_t Own = 128; // what an entry takes besides
        if (m_weight > m_most) {
            m_old = std::move(m_young);
            m_young.clear();
            m_weight = 0;
        }
        m_weight += entry.weight + Own;
        SEntry &kept = m_young[key];
        kept = std::move(entry);
        return kept.value.get();
    }

    size_t m_most;
    size_t m_weight = 0; ///< of the young
    std::unordered_map<std::string, SEntry> m_young;
    std::unordered_map<std::string, SEntry> m_old;
};

} // namespace kivemu
