// Runs of operator characters, with the parentheses, equals signs and blanks among them.
//
// A run is read to its end in one go, because what may come next depends on what came before it: `count` operators
// since the run began or a group opened, and the character before. Only three refusals end the run at once; after the
// others it goes on, so that the user hears of the last thing wrong with it.

#include "engine/parser/TXEHasher.h"

#include "engine/parser/characterClasses.h"
#include "engine/parser/messages.h"
#include "engine/records/filled.h"

namespace {

constexpr char16_t dotOperator = u'\u22C5';

}  // namespace

class TXEHasher::OperatorRun {
public:
    explicit OperatorRun(TXEHasher& hasher)
        : hasher_(hasher), character_(hasher.characterAt(hasher.equationPosition_)) {}

    /// Reads the run to its end, or to the character that ends it with a refusal.
    void read() {
        while (isOperator(character_)) {
            if (hasher_.equationPosition_ == hasher_.lastEquationPosition_ && character_ != u')') {
                report(hasher_, parserMessages::cannotEnd, character_);
            }
            if (!takeCharacter()) {
                return;
            }
            hasher_.skipBlanksAfterAdvancing();
            if (hasher_.equationPosition_ > hasher_.lastEquationPosition_) {
                break;
            }
            previous_ = character_;
            character_ = *hasher_.textFrom(hasher_.equationPosition_);
        }
        --hasher_.equationPosition_;
    }

private:
    // Takes one character; false when the run ends here and now.
    bool takeCharacter() {
        switch (character_) {
            case dotOperator: character_ = u'*'; [[fallthrough]];
            case u'*':
            case u'/':
            case u'^': return takePrecedenceOperator();
            case u'+':
            case u'-': return takeSigns();
            case u'(': return takeOpeningParenthesis();
            case u')': return takeClosingParenthesis();
            case u'=': return takeEquals();
            case u'[': return reportAndGoOn(parserMessages::openingBracket);
            case u']': return reportAndGoOn(parserMessages::closingBracket);
            default: report(hasher_, parserMessages::unsupportedOperator, character_); return false;
        }
    }

    bool takePrecedenceOperator() {
        if (hasher_.equationPosition_ == 0) {
            report(hasher_, parserMessages::cannotBegin, character_);
        } else if (previous_ == u'=') {
            reportCannotFollow();
        } else if (count_ != 0) {
            reportCannotFollow();
            return false;
        } else {
            hasher_.addOperatorToStack(character_);
        }
        ++count_;
        return true;
    }

    // A run of signs is the operator where there is none yet, and else the sign of the operand.
    bool takeSigns() {
        hasher_.parseNegativeSign();
        TXBlock& block = hasher_.workingTXBlock();
        if (block.blockOperator() == 0) {
            block.setBlockOperator(hasher_.parseNegativeNumber_ ? u'-' : u'+');
        } else if (hasher_.parseNegativeNumber_) {
            block.setNegative(true);
        }
        hasher_.parseNegativeNumber_ = false;
        ++count_;
        return true;
    }

    bool takeOpeningParenthesis() {
        hasher_.incrementBlockIndent();
        count_ = 0;
        return true;
    }

    bool takeClosingParenthesis() {
        if (count_ != 0 || previous_ == u'(' || previous_ == u'[' || previous_ == u'=') {
            reportCannotFollow();
        }
        hasher_.decrementBlockIndent();
        return true;
    }

    bool takeEquals() {
        if (count_ != 0 || std::u16string_view(u"()[]=").find(previous_) != std::u16string_view::npos) {
            reportCannotFollow();
        }
        if (hasher_.equationIndentLevel_ != 0) {
            // An operator block without an operand: the evaluator will not know it, but parsing lets it pass.
            hasher_.addOperatorToStack(u'=');
            hasher_.addWorkingBlockToStack();
            return true;
        }
        if (hasher_.equalsCount_ != 0) {
            hasher_.refuse(parserMessages::secondEquals);
            return false;
        }
        hasher_.prepareForHashOfRightSide();
        ++hasher_.equalsCount_;
        return true;
    }

    void reportCannotFollow() { report(hasher_, parserMessages::cannotFollow, character_, previous_); }

    bool reportAndGoOn(std::u16string_view message) {
        hasher_.refuse(message);
        return true;
    }

    // The characters are passed on by value, so that the run itself can live in registers.
    [[gnu::cold, gnu::noinline]] static void report(TXEHasher& hasher, std::u16string_view message, char16_t character,
                                                    char16_t previous = 0) {
        hasher.refuse(message, {characterText(character), characterText(previous)});
    }

    TXEHasher& hasher_;
    char16_t character_;
    char16_t previous_ = 0;   ///< The character before, the dot operator as "*".
    std::int32_t count_ = 0;  ///< The operators since the run began or a group opened.
};

// The short way for most runs: one operator behind an operand and in front of the next. False, with nothing done, for
// any other.
inline bool TXEHasher::parsePlainOperator() {
    if (equationPosition_ <= 0 || equationPosition_ >= lastEquationPosition_) {
        return false;
    }
    const char16_t* const text = textFrom(equationPosition_);
    if (!isPrecedenceOperator(*text) || *text == dotOperator || workingTXBlock().blockOperator() != 0) {
        return false;
    }
    const CharacterKind next = characterKind(text[1]);
    if (next != CharacterKind::number && next != CharacterKind::name) {
        return false;
    }
    addOperatorToStack(*text);
    return true;
}

void TXEHasher::parseOperator() {
    if (parsePlainOperator()) {
        return;
    }
    quotesLater_ = true;
    OperatorRun(*this).read();
    quotesLater_ = false;
    if (endOfQuotation_) {
        reportMissingOperator(*endOfQuotation_);
    }
}

void TXEHasher::parseNegativeSign() {
    parseNegativeNumber_ = false;
    for (; equationPosition_ <= lastEquationPosition_; ++equationPosition_) {
        switch (characterAt(equationPosition_)) {
            case u'-': parseNegativeNumber_ = !parseNegativeNumber_; break;
            case u'+':
            case u' ': break;
            default: --equationPosition_; return;
        }
    }
    const char16_t last = characterAt(lastEquationPosition_);
    refuse(parserMessages::cannotEnd, {characterText(last)});
    equationPosition_ = lastEquationPosition_;
}

// Quotes the previous token and this one as far as `end`. A run of parentheses can report this again and again, each
// time with a longer quotation; only the last is written, at the run's end, so that a line costs no more than its
// length.
void TXEHasher::reportMissingOperator(std::int32_t end) {
    if (quotesLater_) {
        refuse(parserMessages::operatorBetween);
        endOfQuotation_ = end;
        return;
    }
    refuse(parserMessages::operatorBetween,
           {textBetween(positionBeforePreviousHash_, positionBeforeHash_ - 1), textBetween(positionBeforeHash_, end)});
}
