// From the entry line to the history, and back from the scrollback into the entry line.

#include "ui/document/MyDocument.h"

#include <QAccessible>
#include <QTextCharFormat>

#include "ui/document/MiniModeAnswerField.h"
#include "ui/document/TXFormulaEnteringMiniModeTextField.h"
#include "ui/document/TXHistoryViewerTextView.h"
#include "ui_MiniWindow.h"
#include "ui_MyDocument.h"

namespace {

using LineKind = TXHistoryViewerTextView::LineKind;

constexpr double answerPointSize = 18.0;
constexpr double errorPointSize = 12.0;

std::u16string_view viewOf(QStringView text) { return {text.utf16(), static_cast<std::size_t>(text.size())}; }

QString stringOf(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

QTextCharFormat colored(float red, float green, float blue) {
    QTextCharFormat attributes;
    attributes.setForeground(QColor::fromRgbF(red, green, blue, 1.0F));
    return attributes;
}

/// How the lines of the history look.
struct LineAttributes {
    QTextCharFormat answer = colored(0.094F, 0.094F, 0.83F);
    QTextCharFormat equation = colored(0.0F, 0.0F, 0.0F);
    QTextCharFormat error = colored(0.83F, 0.094F, 0.094F);
};

/// Lets a screen reader say what became of the line, where the focus stays.
void announce(QWidget& entry, const QString& answer) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    QAccessibleAnnouncementEvent announcement(&entry, answer);
    QAccessible::updateAccessibility(&announcement);
#else
    entry.setAccessibleDescription(answer);
#endif
}

}  // namespace

/// What is shown for a result.
struct MyDocument::Answer {
    QString historyLine;
    QString miniForm;
    bool isError = false;
    StoredAnswer stored{};
};

void MyDocument::equationEntered() {
    TXFormulaEnteringTextView* entry = activeFormulaTextView();
    const QString line = entry->text();
    const TXResult* result = documentEquationController_.addOneStringBlindly(viewOf(line));
    if (result == nullptr) return;
    const Answer answer = answerOf(*result);
    appendToHistory(answer);
    if (isSmallWindowShown_) showInMiniWindow(answer);
    reloadSidebar();
    documentFormulaScrollerController_.addCalculatedString(entry->text());
    entry->selectWholeText();
    announce(*entry, answer.miniForm);
    emit sessionChanged();
}

MyDocument::Answer MyDocument::answerOf(const TXResult& result) {
    if (result.isErrorMessage()) {
        const QString error = "Error: " + stringOf(result.errorMessage());
        return {"\t" + error, error, true};
    }
    const QString number = stringOf(documentNumberFormatter_.formattedViewForNumber(result.number()));
    const StoredAnswer stored{documentEquationController_.lastVariableAssignedIndex(), result.number()};
    if (result.variableToAssign() == -1) return {"\t= " + number, number, false, stored};
    const QString assignment = variableNameOf(result) + " = " + number;
    return {"\t" + assignment, assignment, false, stored};
}

// A list that was loaded need not know the session's variable.
QString MyDocument::variableNameOf(const TXResult& result) const {
    const std::int32_t position = result.variableToAssign();
    for (const TXVariableArray* variables : {variableArray_, &documentEquationController_.variableArray()}) {
        if (variables->holds(position)) return stringOf((*variables)[position].variableName());
    }
    return {};
}

void MyDocument::appendToHistory(const Answer& answer) {
    const LineAttributes attributes;
    const QString equation = stringOf(documentEquationController_.equationsArray().back().masterString());
    TXHistoryViewerTextView* history = mainField();
    forgetClearedHistory();
    history->setEditable(true);
    history->moveInsertionPointToEnd();
    if (!history->document()->isEmpty()) history->insertLineBreak();
    history->insertLine(equation, LineKind::equation, attributes.equation);
    if (answer.isError) {
        history->insertLine(answer.historyLine, LineKind::error, attributes.error);
    } else {
        history->insertLine(answer.historyLine, LineKind::answer, attributes.answer);
        history->setStoredAnswerOfLastLine(answer.stored);
    }
    history->setEditable(false);
    history->scrollToEnd();
}

void MyDocument::showInMiniWindow(const Answer& answer) const {
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(answer.isError ? errorPointSize : answerPointSize);
    MiniModeAnswerField* field = miniModeAnswerField();
    field->setFont(font);
    miniUi_->miniModeFormatLabel->setHidden(answer.isError);  // An error needs the room, and has no format.
    if (answer.isError) {
        field->showError(answer.miniForm);
    } else {
        field->showAnswer(answer.miniForm);
    }
}

// In the format of now, which need not be that of the history.
void MyDocument::showLastAnswerInMiniWindow() {
    const auto& equations = documentEquationController_.equationsArray();
    const TXResult* result = equations.empty() ? nullptr : equations.back().lastResult();
    showInMiniWindow(result != nullptr ? answerOf(*result) : Answer());
}

void MyDocument::insertTextIntoEnteringBox(const QString& text) const {
    formulaTextView()->insertText(text);
    formulaTextView()->setFocus();
}

void MyDocument::insertAtCaretOfEntry(const QString& text) const {
    activeFormulaTextView()->insertAtCaret(text);
    activeFormulaTextView()->setFocus();
}

QString MyDocument::nameOfVariableHolding(const StoredAnswer& stored) const {
    const TXVariableArray& variables = documentEquationController_.variableArray();
    if (!variables.holds(stored.variable)) return {};
    const TXVariable& variable = variables[stored.variable];
    // Two variables may share a name, which then means the first of them.
    const bool isMeant = variables.indexOf(variable.variableName()) == stored.variable;
    const bool holdsIt = variable.isDefined() && variable.number() == stored.number;
    return isMeant && holdsIt ? stringOf(variable.variableName()) : QString();
}

// After a calculation the line still shows the newest formula: the first step lands on it, the second moves past it.
void MyDocument::optionArrowMoveToPreviousFormula() {
    TXFormulaEnteringTextView* entry = activeFormulaTextView();
    const bool wasJustCalculated = entry->wasFormulaJustCalculated();
    const QString from = wasJustCalculated ? QString() : entry->text();
    auto formula = documentFormulaScrollerController_.stringForPreviousIndexFromString(from, true);
    if (wasJustCalculated && formula) {
        formula = documentFormulaScrollerController_.stringForPreviousIndexFromString(*formula, false);
    }
    if (formula) entry->setText(*formula);
}

void MyDocument::optionArrowMoveToNextFormula() {
    TXFormulaEnteringTextView* entry = activeFormulaTextView();
    std::optional<QString> formula;
    if (entry->wasFormulaJustCalculated()) {
        formula = QString();
        documentFormulaScrollerController_.incrementCurrentIndexToLastIndex();
        entry->setWasFormulaJustCalculated(false);
    } else {
        formula = documentFormulaScrollerController_.stringForNextIndexFromString(entry->text(), true);
    }
    if (formula) entry->setText(*formula);
}
