#include "engine/records/TXVariableArray.h"

#include <utility>

std::int32_t TXVariableArray::indexOf(std::u16string_view name, std::uint32_t nameHash) const {
    return index_.find(name, nameHash, [this](std::int32_t position) -> std::u16string_view {
        return (*this)[position].variableName();
    });
}

TXVariable& TXVariableArray::append(TXVariable&& variable) {
    const std::int32_t position = size();
    const std::uint32_t nameHash = TXNameIndex::hash(variable.variableName());
    if (indexOf(variable.variableName(), nameHash) == TXNameIndex::none) {
        index_.insert(nameHash, position);
    }
    variable.setVariableIndex(position);
    return variables_.emplace_back(std::move(variable));
}

void TXVariableArray::clear() {
    variables_.clear();
    index_.clear();
}
