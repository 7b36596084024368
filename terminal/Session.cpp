#include "terminal/Session.h"

#include "terminal/utf8.h"

Session::Session(const SessionSettings& settings)
    : showsHistory_(settings.showsHistory), formatterSettings_(settings.numbers), formatter_(&formatterSettings_) {
    controller_.setUseRadians(settings.useRadians);
}

const Reply* Session::enter(std::string_view line) {
    line_.clear();
    appendUtf16(line, line_);
    return enter(std::u16string_view(line_));
}

const Reply* Session::enter(std::u16string_view line) {
    const TXResult* const result = controller_.addOneStringBlindly(line);
    if (result == nullptr) return nullptr;
    reply_.lead.clear();
    reply_.answer.clear();
    reply_.isError = result->isErrorMessage();
    hasErrors_ = hasErrors_ || reply_.isError;
    if (showsHistory_) writeLead();
    writeAnswer(*result);
    return &reply_;
}

/// Every entry of a history after the first stands below a blank line. The equation is shown as the session keeps it:
/// with the variable that `ans` meant.
void Session::writeLead() {
    if (controller_.equationsArray().size() > 1) reply_.lead += '\n';
    appendUtf8(controller_.equationsArray().back().masterString(), reply_.lead);
    reply_.lead += '\n';
}

/// A history's answer is indented and has its "=" also where no name stands before it.
void Session::writeAnswer(const TXResult& result) {
    std::string& text = reply_.answer;
    if (showsHistory_) text += '\t';
    if (result.isErrorMessage()) {
        text += "Error: ";
        appendUtf8(result.errorMessage(), text);
        return;
    }
    if (result.variableToAssign() != -1) {
        appendUtf8(controller_.variableArray()[result.variableToAssign()].variableName(), text);
        text += " = ";
    } else if (showsHistory_) {
        text += "= ";
    }
    appendUtf8(formatter_.formattedNumberForNumber(result.number()), text);
}
