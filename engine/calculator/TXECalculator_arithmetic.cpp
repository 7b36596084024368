// One list of operands, reduced from left to right: powers bind tighter than products and quotients, and these tighter
// than sums and differences.

#include "engine/calculator/TXECalculator.h"

#include <cmath>

#include "engine/calculator/messages.h"

namespace {

constexpr bool joinsTerm(char16_t blockOperator) {
    return blockOperator == u'*' || blockOperator == u'/' || blockOperator == u'^';
}

double signedNumber(const _TXBlockStruct& block) { return block.isNegative ? -block.number : block.number; }

// The operator of the block behind this one, 0 behind the list's last.
char16_t operatorBehind(const _TXBlockStruct* block, const _TXBlockStruct* last) {
    return block == last ? u'\0' : block[1].blockOperator;
}

}  // namespace

void TXECalculator::calculateMDASInBlock(std::int32_t list) {
    if (!holdsList(list)) {
        return;
    }
    const std::span<const _TXBlockStruct> blocks = blocksOfList(list);
    const _TXBlockStruct* const end = blocks.data() + blocks.size();
    double sum = 0.0;
    for (const _TXBlockStruct* block = blocks.data(); block != end; ++block) {
        if (!joinsTerm(operatorBehind(block, end - 1))) {
            sum += standaloneOperand(*block);
            continue;
        }
        const char16_t termOperator = block->blockOperator;
        const double term = termFrom(block, end - 1);
        if (termOperator == u'+' || termOperator == 0) {
            sum += term;
        } else if (termOperator == u'-') {
            sum -= term;
        }  // A term behind any other operator does not count, and nothing is said about it.
    }
    equationBlockValues_[static_cast<std::size_t>(list)] = sum;
}

// What an operand between sums and differences adds to the sum.
double TXECalculator::standaloneOperand(const _TXBlockStruct& block) {
    switch (block.blockOperator) {
        case 0:
        case u'+': return signedNumber(block);
        case u'-': return -signedNumber(block);
        default: setErrorMessage(std::u16string(calculatorMessages::internalError)); return 0.0;
    }
}

// The products, quotients and powers that begin at `block`, which is left on the last operand taken. `last` is the
// list's last.
double TXECalculator::termFrom(const _TXBlockStruct*& block, const _TXBlockStruct* last) {
    double term = signedNumber(*block);
    for (char16_t next = operatorBehind(block, last); joinsTerm(next); next = operatorBehind(block, last)) {
        const _TXBlockStruct& operand = next == u'^' ? *block : block[1];
        block = &operand;
        if (operatorBehind(block, last) == u'^') {
            const double power = powerFrom(block, last);
            const char16_t inFront = operand.blockOperator;
            term = inFront == u'*' ? term * power : inFront == u'/' ? term / power : power;
        } else {
            const double changed = next == u'*' ? term * operand.number : term / operand.number;
            term = operand.isNegative ? -changed : changed;
        }
    }
    return term;
}

// The chain of powers that begins at `block`, which is left on the chain's last operand.
double TXECalculator::powerFrom(const _TXBlockStruct*& block, const _TXBlockStruct* last) {
    const _TXBlockStruct* const first = block;
    do {
        ++block;
    } while (operatorBehind(block, last) == u'^');
    const _TXBlockStruct* const all = TXBlockValues_.data();
    return calculateExponentsFromIndex(static_cast<std::int32_t>(first - all), static_cast<std::int32_t>(block - all));
}

double TXECalculator::calculateExponentsFromIndex(std::int32_t from, std::int32_t toIndex) {
    if (from < 0 || toIndex < from || static_cast<std::size_t>(toIndex) >= TXBlockValues_.size()) {
        return 0.0;
    }
    const _TXBlockStruct* const first = TXBlockValues_.data() + from;
    const _TXBlockStruct* block = TXBlockValues_.data() + toIndex;
    double value = signedNumber(*block);
    while (block != first) {
        --block;
        // The sign is applied to the power, so -8^(1/3) is -2 and no invalid number.
        const double power = std::pow(block->number, value);
        value = block->isNegative ? -power : power;
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
