// The words that the language itself knows: the built-in functions and the reserved keywords.

#include "engine/controller/TXEquationController.h"

#include <array>

namespace {

// The order is the functions' ids, by which the evaluator knows them.
constexpr std::array<std::u16string_view, 22> functionNames = {
    u"abs", u"exp", u"sin", u"cos",  u"tan",  u"sqrt", u"sinh", u"cosh", u"ln",   u"log",   u"tanh",
    u"csc", u"sec", u"cot", u"csch", u"sech", u"coth", u"asin", u"acos", u"atan", u"atan2", u"cbrt",
};

constexpr std::array<std::u16string_view, 12> keywords = {
    u"delete", u"in",  u"function", u"default", u"return", u"if",
    u"else",   u"for", u"while",    u"switch",  u"case",   u"break",
};

}  // namespace

void TXEquationController::createFunctionDictionary() {
    nativeFunctionNames_.assign(functionNames.begin(), functionNames.end());
    functionDictionary_ = {};
    std::int32_t id = 0;
    for (const std::u16string_view name : nativeFunctionNames_) {
        functionDictionary_.set(name, TXFunction::initWithFunctionType(0, id));
        ++id;
    }
}

void TXEquationController::createReservedKeywordsDictionary() {
    reservedKeywords_ = {};
    for (const std::u16string_view keyword : keywords) {
        reservedKeywords_.set(keyword, u"");
    }
}
