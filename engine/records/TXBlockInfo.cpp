#include "engine/records/TXBlockInfo.h"

#include "engine/records/descriptionText.h"
#include "engine/records/filled.h"

std::u16string TXBlockInfo::description() const {
    return filled(u"TXBlockInfo (%p): Parent=%d, parentSubIndex=%d, isDynamic=%d",
                  {addressText(this), integerText(parent_.parentIndex), integerText(parent_.parentSubIndex),
                   integerText(isDynamic_ ? 1 : 0)});
}
