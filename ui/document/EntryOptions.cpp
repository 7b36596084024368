#include "ui/document/EntryOptions.h"

#include "ui/UserDefaults.h"

namespace {

constexpr auto showsAnswerKey = "showAnswerWhileTyping";
constexpr auto suggestsNamesKey = "suggestNames";
constexpr auto colorsEquationKey = "colorEquation";

}  // namespace

EntryOptions EntryOptions::stored() {
    const UserDefaults defaults;
    EntryOptions options;
    options.showsAnswer = defaults.interfaceBoolForKey(showsAnswerKey, options.showsAnswer);
    options.suggestsNames = defaults.interfaceBoolForKey(suggestsNamesKey, options.suggestsNames);
    options.colorsEquation = defaults.interfaceBoolForKey(colorsEquationKey, options.colorsEquation);
    return options;
}

void EntryOptions::store() const {
    UserDefaults defaults;
    defaults.setInterfaceValue(showsAnswer, showsAnswerKey);
    defaults.setInterfaceValue(suggestsNames, suggestsNamesKey);
    defaults.setInterfaceValue(colorsEquation, colorsEquationKey);
}
