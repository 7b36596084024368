#include "tests/monkey/DocumentWitness.h"

#include <QTextBlock>
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "format/TXNumberFormatter.h"
#include "ui/document/MyDocument.h"
#include "ui/document/TXFormulaEnteringMiniModeTextField.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui/document/TXHistoryViewerTextView.h"
#include "ui/document/engineText.h"

namespace {

bool isSame(double one, double other) {
    return std::bit_cast<std::uint64_t>(one) == std::bit_cast<std::uint64_t>(other) ||
           (std::isnan(one) && std::isnan(other));
}

bool isSame(const TXResult* one, const TXResult* other) {
    if (one == nullptr || other == nullptr) return one == other;
    if (one->isErrorMessage() || other->isErrorMessage()) {
        return one->isErrorMessage() == other->isErrorMessage() && one->errorMessage() == other->errorMessage();
    }
    return isSame(one->number(), other->number()) && one->variableToAssign() == other->variableToAssign();
}

bool isSame(const TXVariable& one, const TXVariable& other) {
    return one.variableName() == other.variableName() && one.isDefined() == other.isDefined() &&
           isSame(one.number(), other.number());
}

QString difference(const QString& what, const QString& shown, const QString& expected) {
    return QStringLiteral("%1 is \"%2\" and should be \"%3\"").arg(what, shown, expected);
}

bool endsLine(QChar character) {
    static const QString lineEnds = QStringLiteral("\n\v\f\r\u0085\u2028\u2029") + QChar(0xFDD0) + QChar(0xFDD1);
    return lineEnds.contains(character);
}

QString entryComplaint(const TXFormulaEnteringTextView& entry) {
    if (entry.document()->blockCount() != 1) return QStringLiteral("the entry has several lines");
    const QString text = entry.document()->toRawText();
    if (std::any_of(text.begin(), text.end(), endsLine)) return difference("the entry", text, "one line");
    return text == entry.text() ? QString() : difference("the entry's text", entry.text(), text);
}

}  // namespace

DocumentWitness::DocumentWitness(MyDocument& document, LineCounts& lines)
    : QObject(&document), document_(document), lines_(lines) {
    connect(&document, &MyDocument::sessionChanged, this, &DocumentWitness::followSession);
    connect(&document, &MyDocument::canUndoClearHistoryChanged, this, &DocumentWitness::followClearing);
}

void DocumentWitness::followSession() {
    const std::size_t count = document_.documentEquationController().equationsArray().size();
    if (count < settings_.size()) begin();
    if (count == settings_.size() + 1) noteLine();
}

void DocumentWitness::begin() {
    session_.clearAll();
    settings_.clear();
    firstShown_ = 0;
}

// The line still stands in the entry.
void DocumentWitness::noteLine() {
    settings_.push_back(document_.documentNumberFormatterSettings());
    session_.setUseRadians(document_.documentEquationController().useRadians());
    const QString line = document_.activeFormulaTextView()->text();
    const TXResult* result = session_.addOneStringBlindly(viewOf(line));
    ++lines_.entered;
    if (result != nullptr && result->isErrorMessage()) ++lines_.refused;
    const QString complaint = equationComplaint(settings_.size() - 1);
    if (surprise_.isEmpty()) surprise_ = complaint;
}

// The history that was cleared comes back, or is forgotten with the next line that is typed or entered.
void DocumentWitness::followClearing() {
    const std::size_t count = document_.documentEquationController().equationsArray().size();
    const QString line = document_.activeFormulaTextView()->text();
    if (document_.canUndoClearHistory()) {
        firstShownBefore_ = firstShown_;
        firstShown_ = count;
        lineWhenCleared_ = line;
    } else if (count == settings_.size() && line == lineWhenCleared_) {
        firstShown_ = firstShownBefore_;
    }
}

QString DocumentWitness::complaint() const {
    if (!surprise_.isEmpty()) return surprise_;
    for (const auto look :
         {&DocumentWitness::sessionComplaint, &DocumentWitness::historyComplaint, &DocumentWitness::sidebarComplaint,
          &DocumentWitness::rowsComplaint, &DocumentWitness::entriesComplaint}) {
        QString found = (this->*look)();
        if (!found.isEmpty()) return found;
    }
    return {};
}

QString DocumentWitness::sessionComplaint() const {
    const std::size_t count = document_.documentEquationController().equationsArray().size();
    if (count != settings_.size() || count != session_.equationsArray().size()) {
        return QStringLiteral("there are %1 equations and not %2").arg(count).arg(settings_.size());
    }
    for (std::size_t position = 0; position < count; ++position) {
        QString found = equationComplaint(position);
        if (!found.isEmpty()) return found;
    }
    return variablesComplaint();
}

QString DocumentWitness::equationComplaint(std::size_t position) const {
    const auto& equations = document_.documentEquationController().equationsArray();
    if (position >= session_.equationsArray().size()) return QStringLiteral("a line was entered that is none");
    const TXEquation& equation = equations[position];
    const TXEquation& expected = session_.equationsArray()[position];
    if (equation.masterString() != expected.masterString()) {
        return difference(QStringLiteral("equation %1").arg(position), stringOf(equation.masterString()),
                          stringOf(expected.masterString()));
    }
    return isSame(equation.lastResult(), expected.lastResult())
               ? QString()
               : QStringLiteral("equation %1, \"%2\", has another result")
                     .arg(position)
                     .arg(stringOf(equation.masterString()));
}

QString DocumentWitness::variablesComplaint() const {
    const TXVariableArray& variables = document_.documentEquationController().variableArray();
    const TXVariableArray& expected = session_.variableArray();
    if (variables.size() != expected.size()) return QStringLiteral("the session has other variables");
    for (std::int32_t position = 0; position < variables.size(); ++position) {
        if (isSame(variables[position], expected[position])) continue;
        return difference("a variable", stringOf(variables[position].description()),
                          stringOf(expected[position].description()));
    }
    return {};
}

QString DocumentWitness::answerLine(std::size_t position) const {
    TXEquationController& controller = document_.documentEquationController();
    const TXResult& result = *controller.equationsArray()[position].lastResult();
    if (result.isErrorMessage()) return "\tError: " + stringOf(result.errorMessage());
    TXNumberFormatter formatter(&settings_[position]);
    const QString number = QString::fromStdU16String(formatter.formattedNumberForNumber(result.number()));
    if (result.variableToAssign() == -1) return "\t= " + number;
    return u'\t' + stringOf(controller.variableArray()[result.variableToAssign()].variableName()) + " = " + number;
}

QStringList DocumentWitness::historyLines() const {
    const auto& equations = document_.documentEquationController().equationsArray();
    QStringList lines;
    for (std::size_t position = firstShown_; position < equations.size(); ++position) {
        lines.append({stringOf(equations[position].masterString()), answerLine(position), QString()});
    }
    return lines.isEmpty() ? QStringList(QString()) : lines;
}

QString DocumentWitness::historyComplaint() const {
    const QStringList expected = historyLines();
    qsizetype number = 0;
    for (QTextBlock line = document_.mainField()->document()->begin(); line.isValid(); line = line.next(), ++number) {
        if (number >= expected.size()) return QStringLiteral("the history goes on after its last line");
        if (line.text() == expected[number]) continue;
        return difference(QStringLiteral("line %1 of the history").arg(number), line.text(), expected[number]);
    }
    return number == expected.size() ? QString() : QStringLiteral("the history ends before its last line");
}

QString DocumentWitness::entriesComplaint() const {
    const QString found = entryComplaint(*document_.formulaTextView());
    return found.isEmpty() ? entryComplaint(*document_.miniModeformulaTextView()) : found;
}
