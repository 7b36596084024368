#include "engine/parser/TXBlockListsBuilder.h"

#include <span>

void TXBlockListsBuilder::begin() {
    clear();
    onlyCounts_ = false;
    openList();
}

void TXBlockListsBuilder::clear() {
    blocks_.clear();
    blocks_.emplace_back();
    info_.clear();
}

TXBlock* TXBlockListsBuilder::block(std::int32_t list, std::int32_t index) {
    if (!holds(list) || index < 0) {
        return nullptr;
    }
    std::int32_t inList = info_[static_cast<std::size_t>(list)].blockRange().start;
    for (auto placed = blocks_.rbegin() + 1; inList > index; ++placed) {
        if (placed->list == list && --inList == index) {
            return &placed->block;
        }
    }
    return nullptr;
}

TXBlockLists TXBlockListsBuilder::finish(std::pmr::memory_resource* memory) {
    if (info_.empty()) {
        return {};
    }
    TXBlockLists lists(std::span(blocks_.data(), blocks_.size() - 1), info_, memory);
    info_.clear();
    workingBlock() = TXBlock();
    return lists;
}
