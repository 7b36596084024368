#include "engine/records/TXVariable.h"

#include <algorithm>
#include <utility>

#include "engine/records/descriptionText.h"
#include "engine/records/filled.h"

static_assert(sizeof(TXVariable) <= 64, "a session keeps a variable for nearly every line");

TXVariable TXVariable::initWithName(std::u16string_view name, bool isDefined, double value) {
    TXVariable variable;
    variable.setVariableName(name);
    if (isDefined) {
        variable.setNumber(value);
    }
    return variable;
}

void TXVariable::setVariableName(std::u16string_view name) {
    if (name.size() <= longestShortName) {
        std::copy(name.begin(), name.end(), shortName_.begin());
        nameLength_ = static_cast<std::uint8_t>(name.size());
    } else {
        texts().longName = name;
        nameLength_ = isLongName;
    }
}

void TXVariable::setVariableDescription(std::u16string text) { texts().description = std::move(text); }

TXVariable::Texts& TXVariable::texts() {
    if (!texts_) {
        texts_ = std::make_unique<Texts>();
    }
    return *texts_;
}

std::u16string TXVariable::description() const {
    if (definedState_) {
        return filled(u"%@\t%f (defined)", {variableName(), fixedText(number_)});
    }
    return filled(u"%@ (undefined)", {variableName()});
}
