#pragma once

#include <cstdint>
#include <memory_resource>
#include <new>
#include <span>
#include <utility>

#include "engine/records/TXBlock.h"
#include "engine/records/TXBlockInfo.h"

/// A block that has been read, and the list to which it belongs.
struct PlacedBlock {
    TXBlock block;
    std::int32_t list = 0;
};

/// The block lists of one side of an equation, with what is known of each.
///
/// List 0 is the side's top level; every other list is the inside of a group, a function argument or a matrix element,
/// and comes after the list that contains it. The blocks of all lists lie in one array, list after list.
///
///     2*(3+x) -> list 0: 2, * list 1;  list 1: 3, + x
///
/// A session keeps the lists of every line, so blocks and information share one piece of memory of exactly their size,
/// which a session takes from a memory resource that only grows.
class TXBlockLists {
public:
    TXBlockLists() = default;
    /// Takes over the blocks, which are left moved-from, and a copy of the information. The blocks of one list are in
    /// order. The ranges in `info` say how many blocks each list has; where they start is found here. The memory
    /// resource must outlive the lists.
    TXBlockLists(std::span<PlacedBlock> blocks, std::span<const TXBlockInfo> info,
                 std::pmr::memory_resource* memory = std::pmr::get_default_resource());
    TXBlockLists(const TXBlockLists&) = delete;
    TXBlockLists& operator=(const TXBlockLists&) = delete;
    /// Takes over the blocks; the other has none afterwards.
    TXBlockLists(TXBlockLists&& other) noexcept
        : memory_(other.memory_),
          blocks_(std::exchange(other.blocks_, nullptr)),
          blockCount_(std::exchange(other.blockCount_, 0)),
          listCount_(std::exchange(other.listCount_, 0)) {}
    /// Takes over the blocks; the other has those that were here.
    TXBlockLists& operator=(TXBlockLists&& other) noexcept {
        std::swap(memory_, other.memory_);
        std::swap(blocks_, other.blocks_);
        std::swap(blockCount_, other.blockCount_);
        std::swap(listCount_, other.listCount_);
        return *this;
    }
    ~TXBlockLists() {
        if (blocks_ != nullptr) {
            release();
        }
    }

    /// The number of lists. A side that exists has at least one.
    std::int32_t size() const { return listCount_; }
    bool empty() const { return listCount_ == 0; }

    /// The blocks of the list at `index`, in reading order; `index` must be below `size()`.
    std::span<const TXBlock> operator[](std::int32_t index) const {
        const TXBlockRange range = info()[static_cast<std::size_t>(index)].blockRange();
        return {blocks_ + range.start, static_cast<std::size_t>(range.length)};
    }
    /// The block at `subIndex` of the list at `index`, both of which must exist.
    TXBlock& block(std::int32_t index, std::int32_t subIndex) {
        return blocks_[info()[static_cast<std::size_t>(index)].blockRange().start + subIndex];
    }

    /// One record a list, in list order.
    std::span<const TXBlockInfo> info() const { return {infoMemory(), static_cast<std::size_t>(listCount_)}; }

    /// The blocks of all lists, list after list.
    std::span<const TXBlock> blocks() const { return {blocks_, static_cast<std::size_t>(blockCount_)}; }
    std::int32_t blockCount() const { return blockCount_; }

private:
    const TXBlockInfo* infoMemory() const {
        return blocks_ == nullptr
                   ? nullptr
                   : std::launder(static_cast<const TXBlockInfo*>(static_cast<const void*>(blocks_ + blockCount_)));
    }
    void release();

    std::pmr::memory_resource* memory_ = nullptr;
    TXBlock* blocks_ = nullptr;  ///< The blocks, and behind them the information.
    std::int32_t blockCount_ = 0;
    std::int32_t listCount_ = 0;
};
