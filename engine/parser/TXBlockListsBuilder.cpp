#include "engine/parser/TXBlockListsBuilder.h"

#include <iterator>
#include <span>
#include <utility>

void TXBlockListsBuilder::begin() {
    clear();
    onlyCounts_ = false;
    openList();
}

void TXBlockListsBuilder::clear() {
    open_.clear();
    open_.emplace_back();
    closed_.clear();
    info_.clear();
}

std::int32_t TXBlockListsBuilder::openList() {
    info_.emplace_back();
    return size() - 1;
}

void TXBlockListsBuilder::closeList(std::int32_t list) {
    if (onlyCounts_ || !holds(list)) {
        return;
    }
    const std::int32_t length = info(list)->blockRange().length;
    info(list)->setBlockRange({.start = static_cast<std::int32_t>(closed_.size()), .length = length});
    const auto working = open_.end() - 1;
    const auto first = working - length;
    closed_.insert(closed_.end(), std::make_move_iterator(first), std::make_move_iterator(working));
    if (first != working) {
        *first = std::move(*working);
        open_.erase(first + 1, open_.end());
    }
}

TXBlock* TXBlockListsBuilder::block(std::int32_t list, std::int32_t index) {
    if (index < 0 || index >= count(list)) {
        return nullptr;
    }
    const std::int32_t position = info(list)->blockRange().start + index;
    return position < openCount() ? &open_[static_cast<std::size_t>(position)] : nullptr;
}

TXBlockLists TXBlockListsBuilder::finish() {
    if (info_.empty()) {
        return {};
    }
    TXBlockInfo& top = info_.front();
    top.setBlockRange({.start = static_cast<std::int32_t>(closed_.size()), .length = top.blockRange().length});
    TXBlockLists lists(closed_, std::span(open_).first(open_.size() - 1), info_);
    clear();
    return lists;
}
