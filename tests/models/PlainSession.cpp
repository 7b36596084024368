#include "tests/models/PlainSession.h"

#include <cmath>
#include <cstddef>
#include <utility>

#include "tests/models/PlainEvaluator.h"
#include "tests/models/PlainReader.h"

namespace {

constexpr std::u16string_view whiteSpace =
    u"\t \u00a0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008\u2009\u200a\u202f\u205f\u3000";

std::u16string_view trimmed(std::u16string_view line) {
    const std::size_t begin = line.find_first_not_of(whiteSpace);
    if (begin == std::u16string_view::npos) return {};
    return line.substr(begin, line.find_last_not_of(whiteSpace) + 1 - begin);
}

std::u16string withAnswersWrittenOut(std::u16string_view line, const PlainLine& read, std::u16string_view name) {
    std::u16string text;
    std::size_t from = 0;
    for (const std::size_t position : read.answerPositions) {
        text += line.substr(from, position - from);
        text += name;
        from = position + 3;
    }
    text += line.substr(from);
    return text;
}

Outcome outcomeOf(const PlainAnswer& answer) {
    if (std::isinf(answer.number)) return Outcome::infinite;
    if (std::isnan(answer.number)) return Outcome::notANumber;
    return answer.variable == -1 ? Outcome::number : Outcome::assignment;
}

}  // namespace

std::optional<PlainAnswer> PlainSession::enter(std::u16string_view line) {
    const std::u16string_view text = trimmed(line);
    if (text.empty()) return std::nullopt;
    PlainAnswer answer = answerTo(text);
    if (answer.message.empty()) keep(answer);
    ++equationCount_;
    return answer;
}

PlainAnswer PlainSession::answerTo(std::u16string_view line) {
    PlainLine read = PlainReader(line, names_).read();
    if (read.isRefused) {
        return {.outcome = read.refusal, .message = read.message, .rewrittenLine = std::u16string(line)};
    }
    PlainAnswer answer;
    answer.variable = read.target;
    answer.rewrittenLine = line;
    if (!read.answerPositions.empty()) {
        answer.rewrittenLine = withAnswersWrittenOut(line, read, names_.at(names_.lastAssigned).name);
    }
    PlainEvaluator evaluator(names_, useRadians_);
    const double value = evaluator.valueOf(read);
    answer.message = evaluator.message();
    if (answer.message.empty()) {
        answer.number = value;
        answer.outcome = outcomeOf(answer);
    } else {
        answer.outcome = evaluator.outcome();
    }
    return answer;
}

void PlainSession::keep(const PlainAnswer& answer) {
    std::int32_t position = answer.variable;
    if (position == -1) {
        const std::string digits = std::to_string(++answerNumber_);
        position = names_.append({.name = u"ans" + std::u16string(digits.begin(), digits.end())});
    }
    PlainVariable& variable = names_.at(position);
    variable.number = answer.number;
    variable.isDefined = true;
    variable.definedInEquation = equationCount_;
    names_.lastAssigned = position;

    PlainVariable& latest = names_.at(1);
    latest.number = answer.number;
    latest.isDefined = true;
}

// The last assigned position stays, so that `ans` may mean another variable, or none, until the next answer.
void PlainSession::clearAll() {
    names_.variables = {{.name = u"pi", .isDefined = true, .number = 3.141592653589793}, {.name = u"ans"}};
    answerNumber_ = 0;
    equationCount_ = 0;
}
