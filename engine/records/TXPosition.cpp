#include "engine/records/TXPosition.h"

#include "engine/records/descriptionText.h"
#include "engine/records/filled.h"

std::u16string TXPosition::description() const {
    return filled(
        u"TXPosition (%p): currentIndex=%d, currentTXFunctionIndex=%d, currentTXFunctionSubIndex=%d, "
        u"currentlyParsingTXFunction=%d",
        {addressText(this), integerText(currentIndex_), integerText(currentTXFunctionIndex_),
         integerText(currentTXFunctionSubIndex_), integerText(currentlyParsingTXFunction_ ? 1 : 0)});
}
