// One list of operands, reduced from left to right: powers bind tighter than products and quotients, and these tighter
// than sums and differences.

#include "engine/calculator/TXECalculator.h"

#include <cmath>

#include "engine/calculator/messages.h"

namespace {

constexpr bool joinsTerm(char16_t blockOperator) {
    return blockOperator == u'*' || blockOperator == u'/' || blockOperator == u'^';
}

}  // namespace

double TXECalculator::signedNumber(std::int32_t position) const {
    const _TXBlockStruct& block = TXBlockValues_[static_cast<std::size_t>(position)];
    return block.isNegative ? -block.number : block.number;
}

// The operator in front of a block, 0 past the list's last one.
char16_t TXECalculator::operatorWithin(std::int32_t position, std::int32_t last) const {
    return position > last ? u'\0' : TXBlockValues_[static_cast<std::size_t>(position)].blockOperator;
}

void TXECalculator::calculateMDASInBlock(std::int32_t list) {
    if (!holdsList(list)) {
        return;
    }
    const TXBlockRange range = equationBlockPositions_[static_cast<std::size_t>(list)];
    const std::int32_t last = range.end() - 1;
    double sum = 0.0;
    for (std::int32_t position = range.start; position <= last; ++position) {
        if (!joinsTerm(operatorWithin(position + 1, last))) {
            sum += standaloneOperand(position);
            continue;
        }
        const char16_t termOperator = blockAt(position).blockOperator;
        const double term = termFrom(position, last);
        if (termOperator == u'+' || termOperator == 0) {
            sum += term;
        } else if (termOperator == u'-') {
            sum -= term;
        }  // A term behind any other operator does not count, and nothing is said about it.
    }
    equationBlockValues_[static_cast<std::size_t>(list)] = sum;
}

// What an operand between sums and differences adds to the sum.
double TXECalculator::standaloneOperand(std::int32_t position) {
    switch (blockAt(position).blockOperator) {
        case 0:
        case u'+': return signedNumber(position);
        case u'-': return -signedNumber(position);
        default: setErrorMessage(std::u16string(calculatorMessages::internalError)); return 0.0;
    }
}

// The products, quotients and powers that begin at `position`, which is left on the last operand taken.
double TXECalculator::termFrom(std::int32_t& position, std::int32_t last) {
    double term = signedNumber(position);
    for (char16_t next = operatorWithin(position + 1, last); joinsTerm(next);
         next = operatorWithin(position + 1, last)) {
        const bool beginsPower = next == u'^';
        if (beginsPower || operatorWithin(position + 2, last) == u'^') {
            const std::int32_t first = beginsPower ? position : position + 1;
            position = endOfChain(first, last);
            const double power = calculateExponentsFromIndex(first, position);
            const char16_t inFront = blockAt(first).blockOperator;
            term = inFront == u'*' ? term * power : inFront == u'/' ? term / power : power;
        } else {
            ++position;
            const double number = blockAt(position).number;
            const double changed = next == u'*' ? term * number : term / number;
            term = blockAt(position).isNegative ? -changed : changed;
        }
    }
    return term;
}

// The last block of the chain of powers that begins at `first`.
std::int32_t TXECalculator::endOfChain(std::int32_t first, std::int32_t last) const {
    std::int32_t end = first + 1;
    while (operatorWithin(end + 1, last) == u'^') {
        ++end;
    }
    return end;
}

double TXECalculator::calculateExponentsFromIndex(std::int32_t from, std::int32_t toIndex) {
    if (from < 0 || toIndex < from || static_cast<std::size_t>(toIndex) >= TXBlockValues_.size()) {
        return 0.0;
    }
    double value = signedNumber(toIndex);
    for (std::int32_t position = toIndex - 1; position >= from; --position) {
        // The sign is applied to the power, so -8^(1/3) is -2 and no invalid number.
        const double power = std::pow(blockAt(position).number, value);
        value = blockAt(position).isNegative ? -power : power;
    }
    if (std::isnan(value)) {
        setErrorMessage(std::u16string(calculatorMessages::exponentNaN));
        return 0.0;
    }
    if (std::isinf(value)) {
        setErrorMessage(std::u16string(calculatorMessages::exponentTooLarge));
        return 0.0;
    }
    return value;
}
