#include "ui/document/functionMeanings.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr auto context = "functionMeanings";

constexpr std::array<std::pair<std::u16string_view, const char*>, 21> meanings{{
    {u"abs", QT_TRANSLATE_NOOP("functionMeanings", "absolute value")},
    {u"acos", QT_TRANSLATE_NOOP("functionMeanings", "inverse cosine")},
    {u"asin", QT_TRANSLATE_NOOP("functionMeanings", "inverse sine")},
    {u"atan", QT_TRANSLATE_NOOP("functionMeanings", "inverse tangent")},
    {u"cbrt", QT_TRANSLATE_NOOP("functionMeanings", "cube root")},
    {u"cos", QT_TRANSLATE_NOOP("functionMeanings", "cosine")},
    {u"cosh", QT_TRANSLATE_NOOP("functionMeanings", "hyperbolic cosine")},
    {u"cot", QT_TRANSLATE_NOOP("functionMeanings", "cotangent")},
    {u"coth", QT_TRANSLATE_NOOP("functionMeanings", "hyperbolic cotangent")},
    {u"csc", QT_TRANSLATE_NOOP("functionMeanings", "cosecant")},
    {u"csch", QT_TRANSLATE_NOOP("functionMeanings", "hyperbolic cosecant")},
    {u"exp", QT_TRANSLATE_NOOP("functionMeanings", "power of e")},
    {u"ln", QT_TRANSLATE_NOOP("functionMeanings", "natural logarithm")},
    {u"log", QT_TRANSLATE_NOOP("functionMeanings", "common logarithm")},
    {u"sec", QT_TRANSLATE_NOOP("functionMeanings", "secant")},
    {u"sech", QT_TRANSLATE_NOOP("functionMeanings", "hyperbolic secant")},
    {u"sin", QT_TRANSLATE_NOOP("functionMeanings", "sine")},
    {u"sinh", QT_TRANSLATE_NOOP("functionMeanings", "hyperbolic sine")},
    {u"sqrt", QT_TRANSLATE_NOOP("functionMeanings", "square root")},
    {u"tan", QT_TRANSLATE_NOOP("functionMeanings", "tangent")},
    {u"tanh", QT_TRANSLATE_NOOP("functionMeanings", "hyperbolic tangent")},
}};

}  // namespace

QString meaningOfFunction(std::u16string_view name) {
    const auto* const found =
        std::find_if(meanings.begin(), meanings.end(), [name](const auto& entry) { return entry.first == name; });
    return found != meanings.end() ? QCoreApplication::translate(context, found->second) : QString();
}
