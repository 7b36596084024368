#include "engine/controller/TXEquationController.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "engine/controller/messages.h"
#include "engine/parser/characterClasses.h"
#include "engine/records/wellKnown.h"

namespace {

// Blanks of every width and tabs, but no line ends.
constexpr bool isTrimmed(char16_t character) {
    if (character > u' ' && character < u'\u00A0') {
        return false;
    }
    switch (character) {
        case u'\t':
        case u' ':
        case u'\u00A0':
        case u'\u1680':
        case u'\u202F':
        case u'\u205F':
        case u'\u3000': return true;
        default: return character >= u'\u2000' && character <= u'\u200A';
    }
}

// The value of a run of digits, or the largest number where it is larger.
std::int32_t saturatingInteger(std::u16string_view digits) {
    constexpr std::int64_t base = 10;
    constexpr std::int64_t largest = std::numeric_limits<std::int32_t>::max();
    std::int64_t value = 0;
    for (const char16_t digit : digits) {
        value = std::min(value * base + (digit - u'0'), largest);
    }
    return static_cast<std::int32_t>(value);
}

}  // namespace

TXEquationController::TXEquationController() : equationHasher_(*this), equationCalculator_(*this) {
    setInitialValues();
}

void TXEquationController::setInitialValues() {
    clearAll();
    useRadians_ = true;
    allowsMultipleEquationsOnSameLine_ = true;
    percentSignIsModulus_ = false;
    createFunctionDictionary();
    createReservedKeywordsDictionary();
    lastVariableAssignedIndex_ = -1;
}

void TXEquationController::clearAll() {
    equationHasher_.reset();  // neither must go on referring to an equation that is gone
    equationCalculator_.reset();
    equationsArray_.clear();
    memory_.release();
    variableArray_.clear();
    variableArray_.append(TXVariable::initWithName(piName, true, piValue)).setIsLocked(true);
    variableArray_.append(TXVariable::initWithName(answerName, false, 0.0)).setIsAutoCached(true);
    currentAnswerCacheName_ = {};
    currentAnswerCacheNumberBlacklist_.clear();
}

std::u16string_view TXEquationController::trimmed(std::u16string_view line) {
    while (!line.empty() && isTrimmed(line.front())) {
        line.remove_prefix(1);
    }
    while (!line.empty() && isTrimmed(line.back())) {
        line.remove_suffix(1);
    }
    return line;
}

TXResult* TXEquationController::addOneStringBlindly(std::u16string_view line) {
    const std::u16string_view text = trimmed(line);
    if (text.empty()) {
        return nullptr;
    }
    const auto index = static_cast<std::int32_t>(equationsArray_.size());
    // Stored first and worked on where it stays, so that the result given out lives in the stored equation.
    TXEquation& equation = equationsArray_.emplace_back(text, memory());
    equation.setEquationIndex(index);
    equationHasher_.hashEquation(equation);
    TXResult* result = equationCalculator_.calculateEquation(equation);
    if (!result->isErrorMessage()) {
        keepAnswer(*result, index);
    }
    return result;
}

void TXEquationController::keepAnswer(const TXResult& result, std::int32_t equationIndex) {
    if (result.variableToAssign() == -1) {
        lastVariableAssignedIndex_ = newAnswerVariable(result.number(), equationIndex);
    } else {
        TXVariable& variable = variableArray_[result.variableToAssign()];
        variable.setNumber(result.number());
        variable.setDefinedInEquationIndex(equationIndex);
        lastVariableAssignedIndex_ = result.variableToAssign();
        addNumbertoAutoIncrementBlacklistIfNecessary(lastVariableAssignedIndex_);
    }
    if (variableArray_.holds(answerPosition)) {
        variableArray_[answerPosition].setNumber(result.number());
    }
}

std::int32_t TXEquationController::newAnswerVariable(double number, std::int32_t equationIndex) {
    incrementAutoCacheNumber();
    const std::u16string_view name = currentAnswerCacheName_.text();
    TXVariable& variable = variableArray_.append(name, TXNameIndex::hash(name));
    variable.setNumber(number);
    variable.setIsAutoCached(true);
    variable.setDefinedInEquationIndex(equationIndex);
    return variable.variableIndex();
}

std::optional<std::vector<TXResult>> TXEquationController::addString(std::u16string_view text) const {
    if (text.empty()) {
        std::vector<TXResult> results;
        results.push_back(TXResult::initWithErrorMessage(std::u16string(controllerMessages::nothingToCalculate)));
        return results;
    }
    splitUpString(text);
    return std::nullopt;
}

std::vector<std::u16string> TXEquationController::splitUpString([[maybe_unused]] std::u16string_view text) const {
    return {};
}

TXResult TXEquationController::renameVariableAtIndex([[maybe_unused]] std::int32_t index,
                                                     [[maybe_unused]] std::u16string_view toNewName) {
    return {};
}

bool TXEquationController::isComment(std::u16string_view line) {
    // One slash is enough.
    return line.starts_with(u'/') || std::count(line.begin(), line.end(), u' ') >= 2;
}

TXResult* TXEquationController::lastResult() {
    return equationsArray_.empty() ? nullptr : equationsArray_.back().lastResult();
}

void TXEquationController::addNumbertoAutoIncrementBlacklistIfNecessary(std::int32_t position) {
    if (!variableArray_.holds(position)) {
        return;
    }
    const std::u16string_view name = variableArray_[position].variableName();
    // Two characters never equal three, so no number is ever reserved and ans7=3 does not disturb the numbering.
    if (name.size() <= answerName.size() || name.substr(0, 2) != answerName) {
        return;
    }
    const std::u16string_view digits = name.substr(answerName.size());
    if (!std::all_of(digits.begin(), digits.end(), isDigit)) {
        return;
    }
    const std::int32_t number = saturatingInteger(digits);
    if (number >= 1 && currentAnswerCacheNumber() < number) {
        currentAnswerCacheNumberBlacklist_.insert(number);
    }
}

void TXEquationController::incrementAutoCacheNumber() {
    do {
        currentAnswerCacheName_.countOn();
    } while (currentAnswerCacheNumberBlacklist_.contains(currentAnswerCacheNumber()));
}

void TXEquationController::hashEquationForDebug(std::u16string_view text) {
    constexpr double debugValue = 0.002377;
    variableArray_.append(TXVariable::initWithName(u"myVariable", true, debugValue));
    lastVariableAssignedIndex_ = 2;
    TXEquation equation = TXEquation::initWithEquationString(text);
    equationHasher_.hashEquation(equation);
    equationHasher_.reset();  // the equation ends here
}
