#pragma once

#include <string>
#include <string_view>

#include "engine/controller/TXEquationController.h"
#include "format/TXNumberFormatter.h"
#include "format/TXNumberFormatterSettings.h"

/// What is answered to one line, as UTF-8.
struct Reply {
    std::string lead;    ///< What stands before the answer: whole lines, or nothing.
    std::string answer;  ///< The answer's line, without its line end.
    bool isError = false;
};

/// How a session calculates and answers.
struct SessionSettings {
    bool useRadians = true;
    bool showsHistory = false;  ///< Answers as the window's history has them, each below its equation.
    TXNumberFormatterSettings numbers;
};

/// One calculator session as text: a line in, its reply out.
///
///     session.enter(u"x=2+3*4")->answer  // "x = 14"
class Session {
public:
    explicit Session(const SessionSettings& settings);
    Session(const Session&) = delete;  // the formatter refers to the settings
    Session& operator=(const Session&) = delete;

    /// Enters one line. The reply stays readable until the next line; nullptr for a blank line, which changes nothing.
    const Reply* enter(std::u16string_view line);
    /// The same for a line of UTF-8, in which every error counts as U+FFFD.
    const Reply* enter(std::string_view line);

    /// Whether a line was answered with an error so far.
    bool hasErrors() const { return hasErrors_; }
    const TXEquationController& equationController() const { return controller_; }

private:
    void writeLead();
    void writeAnswer(const TXResult& result);

    bool showsHistory_;
    bool hasErrors_ = false;
    TXNumberFormatterSettings formatterSettings_;
    TXNumberFormatter formatter_;
    TXEquationController controller_;
    Reply reply_;
    std::u16string line_;  ///< A line on its way from UTF-8, kept from line to line.
};
