#include "engine/records/TXBlockLists.h"

#include <memory>
#include <new>
#include <type_traits>

static_assert(alignof(TXBlockInfo) <= alignof(TXBlock), "the information stands right behind the blocks");
static_assert(std::is_trivially_copyable_v<TXBlockInfo> && std::is_trivially_destructible_v<TXBlockInfo>);

TXBlockLists::TXBlockLists(std::span<TXBlock> first, std::span<TXBlock> second, std::span<const TXBlockInfo> info)
    : blockCount_(static_cast<std::int32_t>(first.size() + second.size())),
      listCount_(static_cast<std::int32_t>(info.size())) {
    void* const memory = ::operator new((first.size() + second.size()) * sizeof(TXBlock) + info.size_bytes());
    blocks_ = static_cast<TXBlock*>(memory);
    TXBlock* const middle = std::uninitialized_move(first.begin(), first.end(), blocks_);
    TXBlock* const end = std::uninitialized_move(second.begin(), second.end(), middle);
    std::uninitialized_copy(info.begin(), info.end(), static_cast<TXBlockInfo*>(static_cast<void*>(end)));
}

TXBlockLists& TXBlockLists::operator=(TXBlockLists&& other) noexcept {
    std::swap(blocks_, other.blocks_);
    std::swap(blockCount_, other.blockCount_);
    std::swap(listCount_, other.listCount_);
    return *this;
}

const TXBlockInfo* TXBlockLists::infoMemory() const {
    if (blocks_ == nullptr) {
        return nullptr;
    }
    return std::launder(static_cast<const TXBlockInfo*>(static_cast<const void*>(blocks_ + blockCount_)));
}

void TXBlockLists::release() {
    std::destroy_n(blocks_, blockCount_);
    ::operator delete(blocks_);
}
