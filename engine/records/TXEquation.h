#pragma once

#include <cstdint>
#include <memory_resource>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "engine/records/TXBlockLists.h"
#include "engine/records/TXResult.h"

/// One entered line: its text, its outcome, and the block lists into which its sides were parsed.
class TXEquation {
public:
    /// An equation of this text, of which it keeps a copy, not yet parsed.
    static TXEquation initWithEquationString(std::u16string_view equationString) {
        return TXEquation(equationString, std::pmr::get_default_resource());
    }
    /// The memory resource, which must outlive the equation, holds its text and its block lists.
    TXEquation(std::u16string_view equationString, std::pmr::memory_resource* memory)
        : masterString_(equationString, memory) {}

    /// The text as entered. Parsing rewrites `ans` in it to the name of the variable that was meant.
    std::u16string_view masterString() const { return masterString_; }
    void setMasterString(std::u16string_view masterString) { masterString_ = masterString; }

    /// Where the text lies, and the block lists are to lie.
    std::pmr::memory_resource* memory() const { return masterString_.get_allocator().resource(); }

    /// The outcome of the last evaluation, nullptr before the first. It lives in the equation.
    TXResult* lastResult() { return lastResult_ ? &*lastResult_ : nullptr; }
    const TXResult* lastResult() const { return lastResult_ ? &*lastResult_ : nullptr; }
    void setLastResult(std::optional<TXResult> result) { lastResult_ = std::move(result); }
    /// Puts a fresh result in the place of the last one.
    TXResult& beginResult() { return lastResult_.emplace(); }

    /// The block lists of the left side (of the whole equation when there is no "="); nullptr when there are none. The
    /// information on the lists comes and goes with them.
    const TXBlockLists* leftEquationBlocks() const { return left_.empty() ? nullptr : &left_; }
    /// The same, to be changed.
    TXBlockLists* leftEquationBlocks() { return left_.empty() ? nullptr : &left_; }
    void setLeftEquationBlocks(TXBlockLists blocks) { left_ = std::move(blocks); }
    std::optional<std::span<const TXBlockInfo>> leftEquationBlockInfo() const { return infoOf(left_); }

    /// The same for the right side, which only an equation with "=" has.
    const TXBlockLists* rightEquationBlocks() const { return right_.empty() ? nullptr : &right_; }
    /// The same, to be changed.
    TXBlockLists* rightEquationBlocks() { return right_.empty() ? nullptr : &right_; }
    void setRightEquationBlocks(TXBlockLists blocks) { right_ = std::move(blocks); }
    std::optional<std::span<const TXBlockInfo>> rightEquationBlockInfo() const { return infoOf(right_); }

    std::int32_t scope() const { return scope_; }
    void setScope(std::int32_t scope) { scope_ = scope; }
    /// The equation's position in its controller.
    std::int32_t equationIndex() const { return equationIndex_; }
    void setEquationIndex(std::int32_t index) { equationIndex_ = index; }

    /// One line for logging: "TXEquation (0x5581): 2+3".
    std::u16string description() const;

private:
    static std::optional<std::span<const TXBlockInfo>> infoOf(const TXBlockLists& side) {
        return side.empty() ? std::nullopt : std::optional(side.info());
    }

    std::pmr::u16string masterString_;
    std::optional<TXResult> lastResult_;
    TXBlockLists left_;   ///< Empty means that there are none.
    TXBlockLists right_;  ///< Likewise.
    std::int32_t scope_ = 0;
    std::int32_t equationIndex_ = 0;
};
