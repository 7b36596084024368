#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "engine/controller/TXEquationController.h"
#include "tests/models/LineWriter.h"
#include "tests/models/Outcome.h"
#include "tests/models/PlainSession.h"
#include "tests/models/Random.h"
#include "tests/models/models.h"
#include "tests/support/text.h"

namespace {

// A session starts anew after so many lines, so that early states (no answer yet) come up again and again.
constexpr std::uint64_t linesOfASession = 100;

using OutcomeCounts = std::array<std::uint64_t, outcomeNames.size()>;

// Which of all NaNs an operation gives, its sign included, is the processor's choice; nothing shows it.
bool isSame(double one, double other) {
    return std::bit_cast<std::uint64_t>(one) == std::bit_cast<std::uint64_t>(other) ||
           (std::isnan(one) && std::isnan(other));
}

std::string bitsOf(double number) {
    std::ostringstream text;
    text << number << " (bits " << std::hex << std::bit_cast<std::uint64_t>(number) << ")";
    return text.str();
}

/// One session, entered line by line into both.
class ComparedSession {
public:
    explicit ComparedSession(std::uint64_t seed) : random_(seed), writer_(random_) {}

    /// Whether nothing differed; else differences() says what did.
    bool enterLines(std::uint64_t count, OutcomeCounts& outcomes) {
        for (; count > 0 && differences_.empty(); --count) {
            changeSettings();
            enter(writer_.line(), outcomes);
        }
        compareVariables();
        return differences_.empty();
    }

    /// What was entered so far, one entry a line, and what differed after the last.
    void print(std::ostream& out) const {
        for (const std::string& entry : entries_) out << "  " << entry << "\n";
        for (const std::string& difference : differences_) out << "DIFFERENT: " << difference << "\n";
    }

private:
    void changeSettings() {
        if (random_.oneIn(20)) {
            const bool useRadians = random_.oneIn(2);
            entries_.emplace_back(useRadians ? "[radians]" : "[degrees]");
            controller_.setUseRadians(useRadians);
            plain_.setUseRadians(useRadians);
        }
        if (random_.oneIn(150)) {
            compareVariables();
            entries_.emplace_back("[clear all]");
            controller_.clearAll();
            plain_.clearAll();
        }
    }

    void enter(const std::u16string& line, OutcomeCounts& outcomes) {
        entries_.push_back(utf8(line));
        const TXResult* const result = controller_.addOneStringBlindly(line);
        const std::optional<PlainAnswer> answer = plain_.enter(line);
        ++outcomes.at(static_cast<std::size_t>(answer ? answer->outcome : Outcome::blank));
        compare("whether the line is blank", result == nullptr, !answer);
        if (result != nullptr && answer) compareAnswers(*result, *answer);
        compareCounters();
    }

    void compareAnswers(const TXResult& result, const PlainAnswer& answer) {
        compare("whether there is an error", result.isErrorMessage(), !answer.message.empty());
        compare("message", utf8(result.isErrorMessage() ? result.errorMessage() : u""), utf8(answer.message));
        compareNumbers("number", result.number(), answer.number);
        compare("variable that is assigned", result.variableToAssign(), answer.variable);
        compare("stored line", utf8(controller_.equationsArray().back().masterString()), utf8(answer.rewrittenLine));
    }

    void compareCounters() {
        const PlainNames& names = plain_.names();
        compare("number of variables", controller_.variableArray().size(), names.size());
        compare("variable assigned last", controller_.lastVariableAssignedIndex(), names.lastAssigned);
        compare("number of the newest answer", controller_.currentAnswerCacheNumber(), plain_.answerNumber());
    }

    void compareVariables() {
        const PlainNames& names = plain_.names();
        for (std::int32_t at = 0; at < std::min(names.size(), controller_.variableArray().size()); ++at) {
            const TXVariable& variable = controller_.variableArray()[at];
            const PlainVariable& plain = names.variables[static_cast<std::size_t>(at)];
            const std::string name = utf8(plain.name);
            compare("name", utf8(variable.variableName()), name);
            compare("whether defined, " + name, variable.isDefined(), plain.isDefined);
            compareNumbers("value of " + name, variable.number(), plain.number);
            compare("equation of " + name, variable.definedInEquationIndex(), plain.definedInEquation);
        }
    }

    void compareNumbers(const std::string& what, double engine, double model) {
        if (!isSame(engine, model)) compare(what, bitsOf(engine), bitsOf(model));
    }

    template <class Value>
    void compare(const std::string& what, const Value& engine, const Value& model) {
        if (engine == model) return;
        std::ostringstream text;
        text << what << "\n  engine: " << engine << "\n  model:  " << model;
        differences_.push_back(text.str());
    }

    Random random_;
    LineWriter writer_;
    TXEquationController controller_;
    PlainSession plain_;
    std::vector<std::string> entries_;
    std::vector<std::string> differences_;
};

}  // namespace

bool compareEvaluators(std::uint64_t count, std::uint64_t seed) {
    OutcomeCounts outcomes{};
    std::uint64_t sessions = 0;
    for (std::uint64_t entered = 0; entered < count; entered += linesOfASession, ++sessions) {
        ComparedSession session(seed + sessions);
        if (session.enterLines(std::min(linesOfASession, count - entered), outcomes)) continue;
        std::cout << "The session of seed " << seed + sessions << ":\n";
        session.print(std::cout);
        return false;
    }
    std::cout << "evaluator: " << count << " lines in " << sessions << " sessions, seeds " << seed << " to "
              << seed + sessions - 1 << ", no difference\n";
    bool areAllThere = true;
    for (std::size_t at = 0; at < outcomes.size(); ++at) {
        std::cout << std::setw(10) << outcomes.at(at) << "  " << outcomeNames.at(at) << "\n";
        areAllThere = areAllThere && outcomes.at(at) != 0;
    }
    if (!areAllThere) std::cout << "Some outcome never occurred.\n";
    return areAllThere;
}
