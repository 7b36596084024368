#include "engine/records/TXBlockPointer.h"

#include "engine/records/descriptionText.h"
#include "engine/records/filled.h"

TXBlockPointer TXBlockPointer::initWithBlockPointerID(std::int32_t blockPointerID) {
    TXBlockPointer pointer;
    pointer.setBlockPointerID(blockPointerID);
    return pointer;
}

std::u16string TXBlockPointer::description() const {
    return filled(u"BlockPointer: id=%d, title=%@",
                  {integerText(blockPointerID_), title_ ? std::u16string_view(*title_) : u"(no title)"});
}

TXBlockPointer TXBlockPointerList::operator[](std::int32_t index) const {
    return TXBlockPointer::initWithBlockPointerID(blockPointerIDAt(index));
}

std::u16string TXBlockPointerList::description() const {
    std::u16string text = u"(";
    for (std::int32_t index = 0; index < size(); ++index) {
        text += index == 0 ? u"" : u", ";
        text += (*this)[index].description();
    }
    return text + u")";
}
