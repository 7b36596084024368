#pragma once

#include <cstdint>
#include <deque>
#include <string_view>

#include "engine/records/TXNameIndex.h"
#include "engine/records/TXVariable.h"

/// The variables of a session, in the order in which they came.
///
/// A variable's position and its address stay the same until `clear`, so both can stand for the variable. Two variables
/// may have the same name; looking the name up gives the first.
class TXVariableArray {
public:
    std::int32_t size() const { return size_; }
    /// Whether there is a variable at `position`; any number may be asked.
    bool holds(std::int32_t position) const { return position >= 0 && position < size(); }

    /// The variable at `position`, which the list must hold.
    TXVariable& operator[](std::int32_t position) { return variables_[static_cast<std::size_t>(position)]; }
    /// The same, to be looked at.
    const TXVariable& operator[](std::int32_t position) const { return variables_[static_cast<std::size_t>(position)]; }
    auto begin() const { return variables_.begin(); }
    auto end() const { return variables_.end(); }

    /// The position of the first variable with exactly this name, or -1. Takes constant time.
    std::int32_t indexOf(std::u16string_view name) const { return indexOf(name, TXNameIndex::hash(name)); }
    /// The same, for who knows the hash that `TXNameIndex::hash` gives for the name.
    std::int32_t indexOf(std::u16string_view name, std::uint32_t nameHash) const {
        return index_.find(name, nameHash, NameAt{*this});
    }

    /// Adds a variable at the end and tells it its position.
    TXVariable& append(TXVariable&& variable);
    /// Adds an undefined variable of this name, whose hash is `nameHash`.
    TXVariable& append(std::u16string_view name, std::uint32_t nameHash);

    /// Takes the last variable away, of which there must be one. Every other stays where it is.
    void removeLast();

    /// Takes all variables away, and with them what stood for them.
    void clear();
    /// How often the list was cleared. While the number stays, what stood at a position still stands there.
    std::uint32_t timesCleared() const { return timesCleared_; }

private:
    TXVariable& settle(TXVariable& variable, std::uint32_t nameHash);

    struct NameAt {
        const TXVariableArray& variables;
        std::u16string_view operator()(std::int32_t position) const { return variables[position].variableName(); }
    };

    std::deque<TXVariable> variables_;
    std::int32_t size_ = 0;  ///< Of the deque, which would have to work it out.
    std::uint32_t timesCleared_ = 0;
    TXNameIndex index_;
};
