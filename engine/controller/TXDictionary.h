#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/records/TXNameIndex.h"

/// Values found by name in constant time. Names are compared exactly, upper and lower case apart.
template <class Value>
class TXDictionary {
public:
    std::int32_t size() const { return static_cast<std::int32_t>(entries_.size()); }

    /// The value stored under `key`, or nullptr. The pointer is good until the next `set`.
    const Value* find(std::u16string_view key) const { return find(key, TXNameIndex::hash(key)); }
    /// The same, for who knows the hash that `TXNameIndex::hash` gives for the key.
    const Value* find(std::u16string_view key, std::uint32_t keyHash) const {
        const std::int32_t position = indexOf(key, keyHash);
        return position == TXNameIndex::none ? nullptr : &entries_[static_cast<std::size_t>(position)].second;
    }
    /// Whether a value is stored under `key`.
    bool contains(std::u16string_view key) const { return find(key) != nullptr; }

    /// Stores `value` under `key`, in place of what was there.
    void set(std::u16string_view key, Value value) {
        const std::uint32_t keyHash = TXNameIndex::hash(key);
        const std::int32_t position = indexOf(key, keyHash);
        if (position == TXNameIndex::none) {
            index_.insert(key, keyHash, size(), KeyAt{entries_});
            entries_.emplace_back(key, std::move(value));
        } else {
            entries_[static_cast<std::size_t>(position)].second = std::move(value);
        }
    }

private:
    using Entries = std::vector<std::pair<std::u16string, Value>>;

    struct KeyAt {
        const Entries& entries;
        std::u16string_view operator()(std::int32_t position) const {
            return entries[static_cast<std::size_t>(position)].first;
        }
    };

    std::int32_t indexOf(std::u16string_view key, std::uint32_t keyHash) const {
        return index_.find(key, keyHash, KeyAt{entries_});
    }

    Entries entries_;
    TXNameIndex index_;
};
