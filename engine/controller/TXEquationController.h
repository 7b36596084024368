#pragma once

#include <cstdint>
#include <deque>
#include <memory_resource>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "engine/calculator/TXECalculator.h"
#include "engine/controller/AnswerName.h"
#include "engine/controller/LinePreview.h"
#include "engine/controller/TXDictionary.h"
#include "engine/parser/TXEHasher.h"
#include "engine/records/TXEquation.h"
#include "engine/records/TXFunction.h"
#include "engine/records/TXVariableArray.h"

/// One session of the calculator: its variables, its equations, the numbering of its answers, and the parser and the
/// evaluator through which each line goes. A document owns one.
///
///     TXEquationController controller;
///     controller.addOneStringBlindly(u"x=2+3*4")->number();  // 14, and the variable x has it
///
/// The constant `pi` is always the variable at position 0 and the latest answer, `ans`, the one at position 1. Nothing
/// here fails: whatever is wrong with a line becomes the message of its result. To be used from one thread at a time.
class TXEquationController {
public:
    TXEquationController();
    // The parser and the evaluator refer back to their controller.
    TXEquationController(const TXEquationController&) = delete;
    TXEquationController& operator=(const TXEquationController&) = delete;

    /// Parses, evaluates and stores one line, trimmed of white space. A bare expression's answer becomes a new variable
    /// (ans1, ans2, ...), an assignment's goes to its variable; `ans` follows both. A refused line is stored too, but
    /// changes no value. Gives the line's result, which lives in its equation until `clearAll`; nullptr for a blank
    /// line. Takes time in proportion to the line, however long the session.
    TXResult* addOneStringBlindly(std::u16string_view line);

    /// What `addOneStringBlindly` would give for the line, which is not entered: variables, equations, numbering and
    /// `ans` stay exactly as they are, and so does what parser and evaluator know of the last line. Nothing for a blank
    /// line. Takes time and memory in proportion to the line, however long the session.
    std::optional<LinePreview> previewOneString(std::u16string_view line);

    /// An older entry: an error result for the empty text, nothing for any other.
    std::optional<std::vector<TXResult>> addString(std::u16string_view text) const;
    /// The place where a line of several equations would be divided. Gives none.
    std::vector<std::u16string> splitUpString(std::u16string_view text) const;
    /// The place where a variable would be renamed. Changes nothing and gives a fresh result.
    TXResult renameVariableAtIndex(std::int32_t index, std::u16string_view toNewName);

    /// Whether a line begins with "/" or has at least two blanks. Input lines are not asked: there are no comments.
    static bool isComment(std::u16string_view line);

    /// Forgets all equations, all variables but `pi` and `ans`, and the numbering. `lastVariableAssignedIndex` and the
    /// settings stay. Results given out before are gone.
    void clearAll();

    /// The result of the last equation, nullptr when there is none.
    TXResult* lastResult();

    /// The position of the first variable with exactly this name, or -1.
    std::int32_t getVariableIndexForString(std::u16string_view name) const { return variableArray_.indexOf(name); }

    /// Would reserve the number in a name such as "ans12" that the user has assigned ahead of the numbering. It
    /// compares the first two characters with "ans", so it never does.
    void addNumbertoAutoIncrementBlacklistIfNecessary(std::int32_t position);
    /// Goes on to the next answer number that is not reserved.
    void incrementAutoCacheNumber();

    /// A debugging aid: parses `text` beside a variable "myVariable" that it adds; evaluates and stores nothing.
    void hashEquationForDebug(std::u16string_view text);

    /// The list that the parser extends as names appear. The whole session refers to variables by position in it.
    TXVariableArray& variableArray() { return variableArray_; }
    const TXVariableArray& variableArray() const { return variableArray_; }
    /// Every line entered that was not blank, in order. Equations keep their addresses until `clearAll`.
    std::deque<TXEquation>& equationsArray() { return equationsArray_; }
    const std::deque<TXEquation>& equationsArray() const { return equationsArray_; }

    /// The names of the built-in functions. A function's id is its position here.
    const std::vector<std::u16string_view>& nativeFunctionNames() const { return nativeFunctionNames_; }
    const TXDictionary<TXFunction>& functionDictionary() const { return functionDictionary_; }
    /// The words that are no variable names; only the keys matter.
    const TXDictionary<std::u16string>& reservedKeywords() const { return reservedKeywords_; }

    /// The number of the newest numbered answer, 0 when there is none.
    std::int32_t currentAnswerCacheNumber() const { return currentAnswerCacheName_.number(); }
    /// The answer numbers that the numbering leaves out.
    const std::set<std::int32_t>& currentAnswerCacheNumberBlacklist() const {
        return currentAnswerCacheNumberBlacklist_;
    }

    /// The position of the variable that was given a value last, -1 at the start.
    std::int32_t lastVariableAssignedIndex() const { return lastVariableAssignedIndex_; }
    void setLastVariableAssignedIndex(std::int32_t position) { lastVariableAssignedIndex_ = position; }

    /// Whether trigonometric functions take and give radians, or else degrees. True at the start.
    bool useRadians() const { return useRadians_; }
    void setUseRadians(bool useRadians) { useRadians_ = useRadians; }

    /// Kept for the documents that ask; nothing depends on these two.
    bool percentSignIsModulus() const { return percentSignIsModulus_; }
    void setPercentSignIsModulus(bool isModulus) { percentSignIsModulus_ = isModulus; }
    bool allowsMultipleEquationsOnSameLine() const { return allowsMultipleEquationsOnSameLine_; }
    void setAllowsMultipleEquationsOnSameLine(bool allows) { allowsMultipleEquationsOnSameLine_ = allows; }

    /// The session's parser.
    TXEHasher& equationHasher() { return equationHasher_; }
    /// The session's evaluator.
    TXECalculator& equationCalculator() { return equationCalculator_; }

    /// Where texts and block lists of the session's equations lie. It only grows, until `clearAll` gives all of it
    /// back.
    std::pmr::memory_resource* memory() { return &memory_; }

    // The steps of construction.
    /// Makes the session a new one: cleared, its settings those of the start.
    void setInitialValues();
    /// Fills the list and the dictionary of the built-in functions anew.
    void createFunctionDictionary();
    /// Fills the dictionary of the words that are no variable names anew.
    void createReservedKeywordsDictionary();

private:
    static std::u16string_view trimmed(std::u16string_view line);
    void keepAnswer(const TXResult& result, std::int32_t equationIndex);
    std::int32_t newAnswerVariable(double number, std::int32_t equationIndex);

    TXVariableArray variableArray_;
    std::pmr::monotonic_buffer_resource memory_;
    std::deque<TXEquation> equationsArray_;
    std::vector<std::u16string> answerDescriptions_;  ///< Stays empty: answers have no descriptions.
    TXDictionary<TXFunction> functionDictionary_;
    std::vector<std::u16string_view> nativeFunctionNames_;
    TXDictionary<std::u16string> reservedKeywords_;
    AnswerName currentAnswerCacheName_;
    std::int32_t lastVariableAssignedIndex_ = -1;
    std::set<std::int32_t> currentAnswerCacheNumberBlacklist_;
    bool useRadians_ = true;
    bool percentSignIsModulus_ = false;
    bool allowsMultipleEquationsOnSameLine_ = true;
    TXEHasher equationHasher_;
    TXECalculator equationCalculator_;
};
