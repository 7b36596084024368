#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/parser/TXBlockListsBuilder.h"
#include "engine/parser/characterClasses.h"
#include "engine/records/TXEquation.h"
#include "engine/records/TXPosition.h"

class TXEquationController;

/// The parser, which this system calls hashing: turns the text of one equation into the block lists of its left and
/// right side, or refuses it with a message for the user. It computes nothing.
///
/// It reads the text once, from left to right, in time proportional to its length, and never recurses. Every operation
/// that reads something leaves `equationPosition` on the last character that it took. Errors do not stop an operation
/// at once; the scan ends after the character run in which the first was set, and the last message set is the one that
/// stays.
///
/// One parser serves one controller, one equation at a time.
class TXEHasher {
public:
    /// The controller is referred to, not owned, and must outlive the parser.
    explicit TXEHasher(TXEquationController& controller);

    /// Parses the equation's `masterString` and stores the block lists and the result on the equation; the result given
    /// is the one that the equation holds, so the equation must stay as long as the parser is asked anything about it.
    /// A refused equation has no block lists. Names that were unknown become undefined variables of the controller,
    /// even where the equation is refused. `ans` in the text becomes the name that it means.
    TXResult* hashEquation(TXEquation& equation);

    // TXEHasher_numbers.cpp: literals

    /// Reads the literal that starts here and adds it as a number block.
    void parseNumber();
    /// The value of digits without their prefix; 0 and a message when one is no digit of the base.
    double doubleFromBinary(std::u16string_view digits);
    /// The same for octal digits.
    double doubleFromOctal(std::u16string_view digits);
    /// The same for hexadecimal digits, of which letters may be upper or lower case.
    double doubleFromHex(std::u16string_view digits);

    // TXEHasher_operators.cpp: runs of operators and signs, finished blocks

    /// Reads the run of operators and parentheses that starts here.
    void parseOperator();
    /// Reads a run of "+", "-" and blanks. `parseNegativeNumber` tells whether it is negative: an odd number of "-".
    void parseNegativeSign();
    bool parseNegativeNumber() const { return parseNegativeNumber_; }
    /// Puts the operator in front of the operand to come.
    void addOperatorToStack(char16_t blockOperator) { workingTXBlock().setBlockOperator(blockOperator); }
    /// Adds a literal, without its sign, as a number block.
    void addNumberToStack(double number) {
        workingTXBlock().setNumber(number);
        addWorkingBlockToStack();
    }
    /// Appends the working block to the current list and starts the next one. Refused without an operator in between.
    void addWorkingBlockToStack() {
        if (workingTXBlock().blockOperator() == 0 && equationBlocks_.count(currentIndex_) > 0) {
            reportMissingOperator(equationPosition_);
        } else if (equationBlocks_.holds(currentIndex_)) {
            equationBlocks_.append(currentIndex_);
        }
    }

    // TXEHasher_groups.cpp: opening and closing lists

    /// Makes the working block a group that leads to this block list, and appends it.
    void setCurrentBlockPointer(std::int32_t blockList);
    /// Makes the working block a call of this function, appends it, and lets the next group be its argument.
    void setBlockFunction(std::int32_t functionIndex);
    /// Opens a list one level deeper: the argument of the function that waits for it, or else a group.
    void incrementBlockIndent();
    /// Closes the list and goes on in the one around it. Where there is none, the equation is refused as unbalanced.
    void decrementBlockIndent();
    /// The openers of further arguments, of matrices and of their elements. The scan does not reach them: commas and
    /// square brackets are refused.
    void incrementFunctionArgument();
    /// Adds a matrix block and opens its first element.
    void parseMatrix();
    /// Goes on to the matrix's next element; does nothing outside of one.
    void incrementMatrixElement();
    /// Goes on to the first element of the matrix's next row; does nothing outside of one.
    void incrementMatrixRow();

    // TXEHasher_names.cpp: functions, variables, ans

    /// Reads the name that starts here and adds its block.
    void parseFunctionOrVariable();
    /// Why the name cannot be a variable's, 0 when it can: 1 starts with a digit, 2 is a function, 3 is a keyword, 4
    /// has no letter, 5 has a character that no name has, 6 is `ans` without an answer. The characters are read from
    /// the equation, where the name must end at `equationPosition`.
    std::int32_t validationCodeForVariableName(std::u16string_view name) const;
    /// The position of the first variable with this name, -1 for none.
    std::int32_t variableIndexForString(std::u16string_view name) const;
    /// The id of the built-in function with this name, -1 for none.
    std::int32_t functionIndexForString(std::u16string_view name) const;
    /// Adds a variable block. An unknown name becomes an undefined variable.
    void addVariableToStack(std::u16string_view name);
    /// Adds the value of `nil` and `undefined`.
    void addUndefinedVariableToStack();
    /// Writes into the equation's text what each bare `ans` in it stood for. A text that would become longer than 2^24
    /// characters, and than eight times what was typed, stays as typed.
    void replaceAnsVariableInMasterEquationString(TXEquation& equation);

    // TXEHasher_tolerances.cpp

    /// Reads the tolerance that may follow a number or a name into the working block.
    void parseTolerance();
    /// Reads one number of a tolerance; 0 and a message where it is refused.
    double parseToleranceNumber();

    // TXEHasher_validation.cpp

    /// Judges what only the whole equation shows: balance, and the target of an assignment.
    void checkForPostHashingErrors();

protected:
    // The steps of `hashEquation`. The controller resets the parser, too, when equations
    // go.
    friend class TXEquationController;
    /// Forgets the equation.
    void reset();
    /// Begins the lists of the left side.
    void prepareForHashOfLeftSide();
    /// Keeps the lists read so far as those of the left side, and begins those of the right.
    void prepareForHashOfRightSide();
    /// Begins a side: with list 0 on level 0. After an error its blocks are only counted.
    void prepareBlocks();
    /// Reads the run of blanks that starts here, if one does.
    void gobbleWhitespace();
    /// Reads the characters up to the next one that ends a name, and gives them. They are the equation's own.
    std::u16string_view getStringUpToOperator();
    /// Refuses the equation with this message, in place of an earlier one.
    void setErrorMessage(std::u16string message);
    /// Sets the message with `parts` filled in. Few lines are refused, so this is kept out of the way of the others.
    [[gnu::cold, gnu::noinline]] void refuse(std::u16string_view message,
                                             std::initializer_list<std::u16string_view> parts = {});

    /// Looks at the equation's text, and gives the equation the fresh result that is filled from here on. A text of
    /// more than 2^27 characters is refused.
    void load(TXEquation& equation);
    /// Reads from this text, behind which there must be a zero.
    void lookAt(std::u16string_view text) {
        unicharEquation_ = text;
        equationLength_ = static_cast<std::int32_t>(text.size());
        lastEquationPosition_ = equationLength_ - 1;
    }
    /// Reads the text from its first character to its last, or to the first error.
    void scan();
    /// Reads what starts with this character, the one here.
    void hashCharacter(char16_t character);
    /// Stores the lists of both sides on the equation, or takes away those of a refused one.
    void handOver(TXEquation& equation);

    /// The character at `position`, zero where the text has none.
    char16_t characterAt(std::int32_t position) const {
        return static_cast<std::uint32_t>(position) < static_cast<std::uint32_t>(equationLength_)
                   ? unicharEquation_[static_cast<std::size_t>(position)]
                   : u'\0';
    }
    /// The block being made: it receives an operator, then an operand, and is then appended to the current list.
    TXBlock& workingTXBlock() { return equationBlocks_.workingBlock(); }

    /// The characters from `first` on, with a zero behind the last.
    const char16_t* textFrom(std::int32_t first) const { return unicharEquation_.data() + first; }
    /// The characters from `first` to `last`, both included.
    std::u16string_view textBetween(std::int32_t first, std::int32_t last) const;

    TXEquationController* equationController_;
    std::u16string_view unicharEquation_;            ///< The equation's own text, with a zero behind it.
    std::vector<TXPosition> equationIndentTracker_;  ///< One entry for each level; entry 0 is the side's top level.
    TXResult* currentEquationResult_ = nullptr;
    bool isThereAnError_ = false;
    std::pmr::memory_resource* memory_ = std::pmr::get_default_resource();  ///< That of the equation.
    TXBlockListsBuilder equationBlocks_;  ///< The lists of the side being parsed, with their information.
    TXBlockLists leftEquationBlocks_;     ///< The left side, once "=" has ended it.
    std::int32_t indexOfEquationToHash_ = 0;
    std::vector<std::int32_t> positionsOfAnsVariable_;  ///< Ascending.
    bool overloadedAnsBeforeEquals_ = false;
    std::int32_t currentIndex_ = 0;
    std::int32_t equationIndentLevel_ = 0;
    std::int32_t equalsCount_ = 0;
    std::int32_t equationPosition_ = 0;
    std::int32_t equationLength_ = 0;
    std::int32_t lastEquationPosition_ = -1;
    std::int32_t positionBeforePreviousHash_ = 0;
    std::int32_t positionBeforeHash_ = 0;
    bool parseNegativeNumber_ = false;
    bool quotesLater_ = false;  ///< An operator run is being read, and quotations are written at its end.
    std::optional<std::int32_t> endOfQuotation_;  ///< Set while the message of a missing operator lacks its quotations.
    std::int32_t namePosition_ = 0;               ///< Where the name being read begins.
    std::u16string_view undefinedWord_;           ///< The word typed for the undefined value before any "=".

private:
    // numbers
    struct DecimalLiteral;
    bool parsePlainNumber();
    enum class Radix : std::int32_t;
    static Radix radixOfPrefix(char16_t first, char16_t second);
    static std::u16string_view kindWord(Radix radix);
    void parsePrefixedNumber(std::int32_t start, Radix radix);
    void parseDecimalNumber(std::int32_t start);
    DecimalLiteral scanDecimal(std::int32_t start);
    void scanExponentSign(DecimalLiteral& literal);
    std::u16string_view faultIn(const DecimalLiteral& literal) const;
    double valueOf(const DecimalLiteral& literal) const;
    double integerFromDigits(std::u16string_view digits, Radix radix, std::u16string_view badDigitMessage);
    void finishNumber(double value, std::u16string_view mantissa);

    // operators
    class OperatorRun;
    bool parsePlainOperator();
    [[gnu::cold, gnu::noinline]] void reportMissingOperator(std::int32_t end);

    // groups
    TXPosition* positionAtLevel(std::int32_t level);
    TXBlock* pendingBlock(const TXPosition& position);
    void enterLevel(std::int32_t level);
    void openArgument(std::int32_t list, std::int32_t subIndex);

    // names
    static bool isUndefinedWord(std::u16string_view name);
    bool hasAnswer() const;
    std::int32_t codeForName(std::u16string_view name, std::uint32_t nameHash) const;
    std::int32_t codeForCharacters(std::u16string_view name) const;
    void addVariable(std::u16string_view name, std::uint32_t nameHash);
    std::int32_t positionOfAns();
    void addVariableBlock(std::int32_t variable);

    // tolerances
    struct ToleranceLiteral;
    bool atTolerance();
    bool readTolerance();
    void skipBlanksAfterAdvancing() {
        ++equationPosition_;
        while (isWhitespace(characterAt(equationPosition_))) {
            ++equationPosition_;
        }
    }
    std::u16string_view unsupportedTolerance() const;
    std::u16string_view scanToleranceNumber(ToleranceLiteral& literal);
    bool scanToleranceExponent(ToleranceLiteral& literal);

    // validation
    bool isSingleVariableOnTheLeft() const;
    std::u16string refusalOfTarget(std::int32_t variable) const;
};
