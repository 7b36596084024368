// What the entry line can ask of the session while it is typed. Nothing here changes the session.

#include "ui/document/MyDocument.h"

#include "ui/document/LiveAnswer.h"
#include "ui/document/NameSuggestions.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/engineText.h"
#include "ui/document/equationMarks.h"
#include "ui/document/functionMeanings.h"

void MyDocument::prepareHelp(TXFormulaEnteringTextView* entry, double sizeOfLiveAnswer) {
    auto* live = new LiveAnswer(*entry, sizeOfLiveAnswer);
    connect(this, &MyDocument::sessionChanged, live, &LiveAnswer::waitForRest);
    connect(this, &MyDocument::miniModeChanged, live, &LiveAnswer::waitForRest);
    connect(this, &MyDocument::entryOptionsChanged, live, &LiveAnswer::waitForRest);
    connect(this, &MyDocument::sessionChanged, entry, &TXFormulaEnteringTextView::refreshMarks);
    connect(this, &MyDocument::entryOptionsChanged, entry, &TXFormulaEnteringTextView::refreshMarks);
    connect(this, &MyDocument::entryOptionsChanged, entry, &TXFormulaEnteringTextView::closeSuggestions);
}

void MyDocument::setEntryOptions(const EntryOptions& options) {
    if (options == entryOptions_) return;
    entryOptions_ = options;
    emit entryOptionsChanged();
}

// The formatter is not the document's own, which still knows its last number.
QString MyDocument::formatted(double number) const {
    TXNumberFormatter formatter(&documentNumberFormatterSettings_);
    return stringOf(formatter.formattedViewForNumber(number));
}

QString MyDocument::previewOfLine(const QString& line) {
    const auto preview = documentEquationController_.previewOneString(viewOf(line));
    if (!preview || preview->result.isErrorMessage()) return {};
    const QString answer = "= " + formatted(preview->result.number());
    return preview->variableName.empty() ? answer : stringOf(preview->variableName) + u' ' + answer;
}

QString MyDocument::previewOfPart(const QString& part) {
    const auto preview = documentEquationController_.previewOneString(viewOf(part));
    if (!preview || preview->result.isErrorMessage() || !preview->variableName.empty()) return {};
    return part.trimmed() + " = " + formatted(preview->result.number());
}

QList<NameSuggestion> MyDocument::suggestionsFor(QStringView beginning, int most) const {
    QList<NameSuggestion> suggestions;
    suggestVariables(beginning, most, suggestions);
    for (const std::u16string_view function : documentEquationController_.nativeFunctionNames()) {
        if (suggestions.size() >= most) break;
        const QString meaning = meaningOfFunction(function);
        const bool fits = stringViewOf(function).startsWith(beginning, Qt::CaseInsensitive);
        if (fits && !meaning.isEmpty()) suggestions.append({stringOf(function), meaning, true});
    }
    return suggestions;
}

// What the user named and "ans" come before the numbered answers, and of those the newest first. Nothing is suggested
// that stands there already, or has no value.
void MyDocument::suggestVariables(QStringView beginning, int most, QList<NameSuggestion>& suggestions) const {
    const TXVariableArray& variables = documentEquationController_.variableArray();
    const auto suggest = [&](const TXVariable& variable, bool areAnswers) {
        const QStringView name = stringViewOf(variable.variableName());
        const bool isAnswer = variable.isAutoCached() && variable.variableIndex() != answerPosition;
        if (isAnswer != areAnswers || !variable.isDefined() || name == beginning) return;
        if (!name.startsWith(beginning, Qt::CaseInsensitive)) return;
        suggestions.append({name.toString(), formatted(variable.number())});
    };
    for (auto variable = variables.begin(); variable != variables.end() && suggestions.size() < most; ++variable) {
        suggest(*variable, false);
    }
    for (std::int32_t i = variables.size() - 1; i >= 0 && suggestions.size() < most; --i) suggest(variables[i], true);
}

std::optional<EquationPart> MyDocument::partOfName(QStringView name) const {
    if (!meaningOfFunction(viewOf(name)).isEmpty()) return EquationPart::function;
    const TXVariableArray& variables = documentEquationController_.variableArray();
    const std::int32_t position = variables.indexOf(viewOf(name));
    if (position == -1 || !variables[position].isDefined()) return std::nullopt;
    return EquationPart::variable;
}
