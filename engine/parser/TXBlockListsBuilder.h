#pragma once

#include <cstdint>
#include <memory_resource>
#include <utility>
#include <vector>

#include "engine/records/TXBlockLists.h"

/// The block lists of one equation side while they are being parsed.
///
/// The blocks of all lists stand in one array in the order in which they come, each with the number of its list; only
/// finished lists are sorted apart. At the end of the array the next block is made, before it is known which list
/// it belongs to. The memory serves one equation after the other.
class TXBlockListsBuilder {
public:
    TXBlockListsBuilder() { clear(); }

    /// Drops what was there and opens list 0.
    void begin();
    /// Drops everything; there is no list then.
    void clear();

    /// The block that is being made. It is fresh after `begin`, `clear`, `append` and `finish`.
    TXBlock& workingBlock() { return blocks_.back().block; }

    /// Opens a new list inside `parent`, and gives its index.
    std::int32_t openList(_TXBlockInfoStruct parent = {}) {
        info_.emplace_back().setParentBlockInfoStruct(parent);
        return size() - 1;
    }

    /// Appends the working block to a list, which must exist.
    void append(std::int32_t list) {
        TXBlockInfo& info = info_[static_cast<std::size_t>(list)];
        const auto [stored, count] = info.blockRange();
        info.setBlockRange({.start = onlyCounts_ ? stored : stored + 1, .length = count + 1});
        if (onlyCounts_) {
            workingBlock() = TXBlock();
        } else {
            blocks_.back().list = list;
            blocks_.emplace_back();
        }
    }

    std::int32_t size() const { return static_cast<std::int32_t>(info_.size()); }
    /// Whether there is a list of this index; any number may be asked.
    bool holds(std::int32_t list) const { return list >= 0 && static_cast<std::size_t>(list) < info_.size(); }
    /// The number of blocks in a list, 0 where there is no such list.
    std::int32_t count(std::int32_t list) const {
        return holds(list) ? info_[static_cast<std::size_t>(list)].blockRange().length : 0;
    }
    /// A block of a list, nullptr where there is none. It is searched from the end.
    TXBlock* block(std::int32_t list, std::int32_t index);
    /// What is known of a list, nullptr where there is no such list.
    TXBlockInfo* info(std::int32_t list) { return holds(list) ? &info_[static_cast<std::size_t>(list)] : nullptr; }

    /// From now on blocks are only counted: the equation is refused, but later messages still ask how long lists are.
    void onlyCount() { onlyCounts_ = true; }

    /// The finished lists, in memory of exactly their size. Leaves the builder without any.
    TXBlockLists finish(std::pmr::memory_resource* memory = std::pmr::get_default_resource());

private:
    std::vector<PlacedBlock> blocks_;  ///< The last is the working block.
    std::vector<TXBlockInfo> info_;    ///< A range's start is here the number of blocks stored, not just counted.
    bool onlyCounts_ = false;
};
