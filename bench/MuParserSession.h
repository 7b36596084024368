#pragma once

#include <array>
#include <cmath>
#include <string>

#include <muParser.h>

/// muParser as it stands beside the engine: one parser, which takes each line as a new expression and evaluates it
/// once. The variables x0 to x99 are there from the start. It keeps no line and writes no answer.
class MuParserSession {
public:
    MuParserSession() {
        parser_.DefineFun("cbrt", [](double number) { return std::cbrt(number); });
        for (std::size_t number = 0; number < variables_.size(); ++number) {
            parser_.DefineVar("x" + std::to_string(number), &variables_[number]);
        }
    }
    // The parser points to the variables.
    MuParserSession(const MuParserSession&) = delete;
    MuParserSession& operator=(const MuParserSession&) = delete;
    ~MuParserSession() = default;

    double valueOfLine(const std::string& line) {
        parser_.SetExpr(line);
        return parser_.Eval();
    }

private:
    std::array<double, 100> variables_{};
    mu::Parser parser_;
};
