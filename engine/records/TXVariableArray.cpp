#include "engine/records/TXVariableArray.h"

#include <utility>

TXVariable& TXVariableArray::append(TXVariable&& variable) {
    TXVariable& appended = variables_.emplace_back(std::move(variable));
    return settle(appended, TXNameIndex::hash(appended.variableName()));
}

TXVariable& TXVariableArray::append(std::u16string_view name, std::uint32_t nameHash) {
    TXVariable& appended = variables_.emplace_back();
    appended.setVariableName(name);
    return settle(appended, nameHash);
}

// Tells the variable at the end its position, and notes its name.
TXVariable& TXVariableArray::settle(TXVariable& variable, std::uint32_t nameHash) {
    const std::int32_t position = size_++;
    variable.setVariableIndex(position);
    index_.insert(variable.variableName(), nameHash, position, NameAt{*this});
    return variable;
}

void TXVariableArray::removeLast() {
    const std::u16string_view name = variables_.back().variableName();
    index_.removeLast(name, TXNameIndex::hash(name), size_ - 1, NameAt{*this});
    variables_.pop_back();
    --size_;
}

void TXVariableArray::clear() {
    variables_.clear();
    size_ = 0;
    ++timesCleared_;
    index_.clear();
}
