#pragma once

#include <cstdint>
#include <utility>
#include <vector>

#include "engine/records/TXBlockLists.h"

/// The block lists of one equation side while they are being parsed.
///
/// Lists open and close like parentheses, so the blocks of all open lists stand on one stack, each list's own in one
/// run; closing a list moves its run to where it stays. On top of the stack the next block is made, before it is known
/// which list it belongs to. The memory serves one equation after the other.
class TXBlockListsBuilder {
public:
    TXBlockListsBuilder() { clear(); }

    /// Drops what was there and opens list 0.
    void begin();
    /// Drops everything; there is no list then.
    void clear();

    /// The block that is being made. It is fresh after `begin`, `clear` and `append`.
    TXBlock& workingBlock() { return open_.back(); }

    /// Opens a new list inside those that are open, and gives its index. The block that leads to it may still be
    /// appended to the list around it, until the new list has a block of its own.
    std::int32_t openList();
    /// Closes the innermost list. The one around it can be appended to again.
    void closeList(std::int32_t list);

    /// Appends the working block to an open list, the innermost that has blocks or one inside it. `list` is what `info`
    /// gives.
    void append(TXBlockInfo& list) {
        const TXBlockRange range = list.blockRange();
        const std::int32_t start = range.length == 0 ? openCount() : range.start;
        list.setBlockRange({.start = start, .length = range.length + 1});
        if (onlyCounts_) {
            workingBlock() = TXBlock();
        } else {
            open_.emplace_back();
        }
    }

    std::int32_t size() const { return static_cast<std::int32_t>(info_.size()); }
    bool holds(std::int32_t list) const { return list >= 0 && list < size(); }
    /// The number of blocks in a list, 0 where there is no such list.
    std::int32_t count(std::int32_t list) const {
        return holds(list) ? info_[static_cast<std::size_t>(list)].blockRange().length : 0;
    }
    /// A block of an open list, nullptr where there is none.
    TXBlock* block(std::int32_t list, std::int32_t index);
    /// What is known of a list, nullptr where there is no such list.
    TXBlockInfo* info(std::int32_t list) { return holds(list) ? &info_[static_cast<std::size_t>(list)] : nullptr; }

    /// From now on blocks are only counted: the equation is refused, but later messages still ask how long lists are.
    void onlyCount() { onlyCounts_ = true; }

    /// The finished lists, exactly as large as they need to be. Leaves the builder without any.
    TXBlockLists finish();

private:
    /// The blocks that belong to a list, without the working block.
    std::int32_t openCount() const { return static_cast<std::int32_t>(open_.size()) - 1; }

    std::vector<TXBlock> open_;
    std::vector<TXBlock> closed_;
    std::vector<TXBlockInfo> info_;
    bool onlyCounts_ = false;
};
