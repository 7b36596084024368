#include "format/TXNumberFormatterSettings.h"

#include "engine/records/descriptionText.h"
#include "engine/records/filled.h"

namespace {

// The digit menu: automatic, then 1 to 10 significant figures, then 0 to 10 decimal places.
constexpr unsigned int lastFiguresIndex = 10;
constexpr unsigned int noPlacesIndex = 11;
constexpr unsigned int lastPlacesIndex = 21;

}  // namespace

void TXNumberFormatterSettings::setSignificantFigures(std::int8_t figures) {
    decimalPlaces_ = automatic;
    significantFigures_ = figures == 0 ? automatic : figures;
}

void TXNumberFormatterSettings::setDecimalPlaces(std::int8_t places) {
    significantFigures_ = automatic;
    decimalPlaces_ = places;
}

unsigned int TXNumberFormatterSettings::digitIndexForSettingsController() const {
    if (significantFigures_ != automatic) {
        return static_cast<unsigned int>(significantFigures_);
    }
    return decimalPlaces_ == automatic ? 0 : static_cast<unsigned int>(decimalPlaces_) + noPlacesIndex;
}

void TXNumberFormatterSettings::setDigitsWithSettingsControllerIndex(unsigned int index) {
    significantFigures_ = automatic;
    decimalPlaces_ = automatic;
    if (index >= 1 && index <= lastFiguresIndex) {
        significantFigures_ = static_cast<std::int8_t>(index);
    } else if (index >= noPlacesIndex && index <= lastPlacesIndex) {
        decimalPlaces_ = static_cast<std::int8_t>(index - noPlacesIndex);
    }
}

std::u16string TXNumberFormatterSettings::description() const {
    return filled(
        u"TXNumberFormatterSettings formattingType=%d, significantFigures=%d, decimalPlaces=%d, "
        u"thousandsSeparators=%d, thousandsCharacter=%@, decimalCharacter=%@, exponentCharacter=%@",
        {integerText(formattingType_), integerText(significantFigures_), integerText(decimalPlaces_),
         integerText(thousandsSeparators_ ? 1 : 0), thousandsCharacter(), decimalCharacter(), exponentCharacter()});
}
