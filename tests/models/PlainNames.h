#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

struct PlainVariable {
    std::u16string name;
    bool isDefined = false;
    double number = 0.0;
    std::int32_t definedInEquation = 0;
};

/// The variables of a session, in the order in which they came, looked up one by one.
struct PlainNames {
    std::vector<PlainVariable> variables;
    std::int32_t lastAssigned = -1;  ///< What `ans` means; may lie past the end.

    std::int32_t size() const { return static_cast<std::int32_t>(variables.size()); }
    PlainVariable& at(std::int32_t position) { return variables.at(static_cast<std::size_t>(position)); }

    bool hasAnswer() const { return lastAssigned >= 0 && lastAssigned < size(); }

    /// The first variable of this name, or -1.
    std::int32_t find(std::u16string_view name) const {
        for (std::int32_t position = 0; position < size(); ++position) {
            if (variables[static_cast<std::size_t>(position)].name == name) return position;
        }
        return -1;
    }
    std::int32_t append(PlainVariable variable) {
        variables.push_back(std::move(variable));
        return size() - 1;
    }
};
