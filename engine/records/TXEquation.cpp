#include "engine/records/TXEquation.h"

#include "engine/records/descriptionText.h"
#include "engine/records/filled.h"

std::u16string TXEquation::description() const {
    return filled(u"TXEquation (%p): %@", {addressText(this), masterString_});
}
