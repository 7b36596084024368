#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

/// A link from a block to a block list that it contains.
class TXBlockPointer {
public:
    /// A link to the block list with this index, without a title.
    static TXBlockPointer initWithBlockPointerID(std::int32_t blockPointerID);

    /// The index of the block list that the link leads to.
    std::int32_t blockPointerID() const { return blockPointerID_; }
    void setBlockPointerID(std::int32_t blockPointerID) { blockPointerID_ = blockPointerID; }

    /// An optional label.
    const std::optional<std::u16string>& title() const { return title_; }
    void setTitle(std::optional<std::u16string> title) { title_ = std::move(title); }

    /// One line for logging: "BlockPointer: id=2, title=(no title)".
    std::u16string description() const;

private:
    std::int32_t blockPointerID_ = 0;
    std::optional<std::u16string> title_;
};

/// The ordered links of one block: a group has one, a function call one for each argument, a matrix one for each
/// element in row order. A view of the block's own memory, good until the block changes; the links are made when asked
/// for, so that a title given to one is that link's alone.
class TXBlockPointerList {
public:
    TXBlockPointerList() = default;
    /// The links to the block lists with these indices, which are looked at and not copied.
    explicit TXBlockPointerList(std::span<const std::int32_t> blockPointerIDs) : ids_(blockPointerIDs) {}

    std::int32_t size() const { return static_cast<std::int32_t>(ids_.size()); }
    bool empty() const { return ids_.empty(); }

    /// The list's first index is 0; `index` must be below `size()`.
    TXBlockPointer operator[](std::int32_t index) const;

    /// The block list that the link at `index` leads to, without making the link.
    std::int32_t blockPointerIDAt(std::int32_t index) const { return ids_[static_cast<std::size_t>(index)]; }

    /// The descriptions of the links, as "(first, second)".
    std::u16string description() const;

private:
    std::span<const std::int32_t> ids_;
};
