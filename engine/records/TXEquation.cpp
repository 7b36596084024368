#include "engine/records/TXEquation.h"

#include <utility>

#include "engine/records/descriptionText.h"
#include "engine/records/filled.h"

TXEquation TXEquation::initWithEquationString(std::u16string equationString) {
    TXEquation equation;
    equation.masterString_ = std::move(equationString);
    return equation;
}

std::u16string TXEquation::description() const {
    return filled(u"TXEquation (%p): %@", {addressText(this), masterString_});
}
