#include "ui/document/TXFormulaScrollerController.h"

#include "ui/document/beep.h"

void TXFormulaScrollerController::awakeFromNib() {
    masterScrollbackArray_.assign(1, QString());
    modifiedScrollbackArray_.clear();
    currentIndex_ = 0;
}

void TXFormulaScrollerController::addCalculatedString(const QString& string) {
    masterScrollbackArray_.back() = string;
    masterScrollbackArray_.emplace_back();
    currentIndex_ = lastIndex();
}

std::optional<QString> TXFormulaScrollerController::stringForPreviousIndexFromString(const QString& string,
                                                                                     bool withBeep) {
    return moved(-1, 0, string, withBeep);
}

std::optional<QString> TXFormulaScrollerController::stringForNextIndexFromString(const QString& string, bool withBeep) {
    return moved(1, lastIndex(), string, withBeep);
}

std::optional<QString> TXFormulaScrollerController::moved(std::int32_t step, std::int32_t end, const QString& string,
                                                          bool withBeep) {
    if (currentIndex_ == end) {
        if (withBeep) beep();
        return std::nullopt;
    }
    slotAt(currentIndex_) = string;
    currentIndex_ += step;
    return slotAt(currentIndex_);
}
