#include "engine/records/TXBlockLists.h"

#include <memory>
#include <type_traits>

static_assert(alignof(TXBlockInfo) <= alignof(TXBlock), "the information stands right behind the blocks");
static_assert(std::is_trivially_copyable_v<TXBlockInfo> && std::is_trivially_destructible_v<TXBlockInfo>);

namespace {

std::size_t bytesFor(std::size_t blocks, std::size_t lists) {
    return blocks * sizeof(TXBlock) + lists * sizeof(TXBlockInfo);
}

}  // namespace

TXBlockLists::TXBlockLists(std::span<PlacedBlock> blocks, std::span<const TXBlockInfo> info,
                           std::pmr::memory_resource* memory)
    : memory_(memory),
      blockCount_(static_cast<std::int32_t>(blocks.size())),
      listCount_(static_cast<std::int32_t>(info.size())) {
    void* const place = memory_->allocate(bytesFor(blocks.size(), info.size()), alignof(TXBlock));
    blocks_ = static_cast<TXBlock*>(place);
    auto* const lists = static_cast<TXBlockInfo*>(static_cast<void*>(blocks_ + blockCount_));
    std::int32_t start = 0;
    for (std::size_t list = 0; list < info.size(); ++list) {
        std::construct_at(lists + list, info[list])->setBlockRange({.start = start, .length = 0});
        start += info[list].blockRange().length;
    }
    for (PlacedBlock& placed : blocks) {
        TXBlockInfo& list = lists[placed.list];
        const TXBlockRange range = list.blockRange();
        std::construct_at(blocks_ + range.end(), std::move(placed.block));
        list.setBlockRange({.start = range.start, .length = range.length + 1});
    }
}

void TXBlockLists::release() {
    std::destroy_n(blocks_, blockCount_);
    memory_->deallocate(blocks_, bytesFor(static_cast<std::size_t>(blockCount_), static_cast<std::size_t>(listCount_)),
                        alignof(TXBlock));
}
