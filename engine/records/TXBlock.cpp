#include "engine/records/TXBlock.h"

#include "engine/records/descriptionText.h"
#include "engine/records/filled.h"

static_assert(sizeof(TXBlock) <= 32, "a session keeps every block that it has parsed");

TXBlock TXBlock::initWithNumber(double number, char16_t andOperator) {
    TXBlock block;
    block.setNumber(number);
    block.setBlockOperator(andOperator);
    return block;
}

TXBlock TXBlock::initWithVariable(std::int32_t variable, char16_t andOperator) {
    TXBlock block;
    block.setVariableID(variable);
    block.setBlockOperator(andOperator);
    return block;
}

void TXBlock::setInitialValues() {
    std::unique_ptr<Details> kept;
    if (details_) {
        kept = std::make_unique<Details>();
        kept->plusTolerance = details_->plusTolerance;
        kept->minusTolerance = details_->minusTolerance;
    }
    *this = TXBlock();
    details_ = std::move(kept);
}

TXBlock::Details& TXBlock::details() {
    if (!details_) {
        details_ = std::make_unique<Details>();
    }
    return *details_;
}

double TXBlock::number() const {
    double value = number_;
    if (marks_.isResult) {
        value = details_ ? details_->result : 0.0;
    }
    return marks_.negative ? -value : value;
}

void TXBlock::setResultNumber(double result) {
    details().result = result;
    marks_.isResult = true;
}

void TXBlock::addFurtherBlockPointer(std::int32_t blockPointerID) {
    auto& all = details().blockPointerIDs;
    if (marks_.hasOnlyBlockPointer) {
        all.push_back(onlyBlockPointerID_);
        marks_.hasOnlyBlockPointer = false;
    }
    all.push_back(blockPointerID);
}

std::int32_t TXBlock::columns() const {
    if (rows() == 0) {
        return 0;
    }
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(numberOfElements()) /
                                     static_cast<std::uint32_t>(rows()));
}

void TXBlock::setToleranceIsUserDefined(bool isUserDefined) {
    marks_.toleranceIsUserDefined = isUserDefined;
    marks_.hasTolerance = isUserDefined;
}

std::u16string TXBlock::description() const {
    std::u16string text;
    if (blockOperator_ != 0) {
        text = filled(u"%C ", {characterText(blockOperator_)});
    }
    if (marks_.negative) {
        text += u"-";
    }
    text += operandDescription();
    return marks_.hasTolerance ? text + toleranceDescription() : text;
}

std::u16string TXBlock::operandDescription() const {
    if (functionID_ != -1) {
        return filled(u"(Function=%d, Pointers=%@) ", {integerText(functionID_), blockPointers().description()});
    }
    if (numberOfElements() > 0) {
        return filled(u"(blockPointers=%@)", {blockPointers().description()});
    }
    if (variableID_ == -1) {
        return fixedText(number_);
    }
    return filled(u"(TXVariablePointer=%d)", {integerText(variableID_)});
}

std::u16string TXBlock::toleranceDescription() const {
    const auto [plus, minus] = tolerance();
    if (plus == minus) {
        return filled(u" ±%f", {fixedText(plus)});
    }
    return filled(u" ±%f|%f", {fixedText(plus), fixedText(minus)});
}
