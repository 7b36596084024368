#include "engine/records/TXVariable.h"

#include "engine/records/descriptionText.h"
#include "engine/records/filled.h"

TXVariable TXVariable::initWithName(std::u16string name, bool isDefined, double value) {
    TXVariable variable;
    variable.variableName_ = std::move(name);
    if (isDefined) {
        variable.setNumber(value);
    }
    return variable;
}

void TXVariable::setNumber(double number) {
    number_ = number;
    isDefined_ = true;
    definedState_ = true;
}

std::u16string TXVariable::description() const {
    if (definedState_) {
        return filled(u"%@\t%f (defined)", {variableName_, fixedText(number_)});
    }
    return filled(u"%@ (undefined)", {variableName_});
}
