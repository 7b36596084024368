// The commands of the Edit menu that need the session, and keys that are meant for the entry line or the history.

#include "ui/document/MyDocument.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScrollBar>

#include "ui/document/TXFormulaEnteringMiniModeTextField.h"
#include "ui/document/TXHistoryViewerTextView.h"

bool MyDocument::hasLastAnswer() const {
    return documentEquationController_.variableArray()[answerPosition].isDefined();
}

void MyDocument::copyLastAnswer() const { copyAnswer(documentNumberFormatterSettings_); }

void MyDocument::copyLastAnswerWithoutSeparators() const {
    TXNumberFormatterSettings settings = documentNumberFormatterSettings_;
    settings.setThousandsSeparators(false);
    copyAnswer(settings);
}

// The variable "ans" has it, whatever became of the lines after it.
void MyDocument::copyAnswer(const TXNumberFormatterSettings& settings) const {
    if (!hasLastAnswer()) return;
    const double number = documentEquationController_.variableArray()[answerPosition].number();
    const std::u16string text = TXNumberFormatter(&settings).formattedNumberForNumber(number);
    QGuiApplication::clipboard()->setText(QString::fromStdU16String(text));
}

void MyDocument::insertPlusMinus() const {
    activeFormulaTextView()->typeText(QStringLiteral("±"));
    activeFormulaTextView()->setFocus();
}

bool MyDocument::typeIntoEntry(QKeyEvent* event) const {
    if (!TXFormulaEnteringTextView::isTyping(*event)) return false;
    activeFormulaTextView()->setFocus();
    activeFormulaTextView()->keyDown(event);
    return true;
}

void MyDocument::composeIntoEntry(QInputMethodEvent* event) const {
    QCoreApplication::sendEvent(activeFormulaTextView(), event);
    if (!event->commitString().isEmpty()) activeFormulaTextView()->setFocus();
}

QVariant MyDocument::inputMethodQueryOfEntry(Qt::InputMethodQuery query, const QWidget& view) const {
    const TXFormulaEnteringTextView* entry = activeFormulaTextView();
    const QVariant answer = entry->inputMethodQuery(query);
    const QPoint offset = entry->mapTo(entry->window(), QPoint()) - view.mapTo(view.window(), QPoint());
    return query == Qt::ImCursorRectangle ? answer.toRectF().translated(offset) : answer;
}

void MyDocument::scrollHistory(int pages) const {
    mainField()->verticalScrollBar()->triggerAction(pages < 0 ? QScrollBar::SliderPageStepSub
                                                              : QScrollBar::SliderPageStepAdd);
}

void MyDocument::forgetClearedHistoryWithChangesOf(const TXFormulaEnteringTextView& entry) {
    connect(&entry, &QPlainTextEdit::textChanged, this, [this] {
        if (activeFormulaTextView()->text() != lineWhenCleared_) forgetClearedHistory();
    });
}

void MyDocument::clearHistory() {
    if (mainField()->document()->isEmpty()) return;
    closeFindBar();
    mainField()->clearShownText();
    lineWhenCleared_ = activeFormulaTextView()->text();
    emit canUndoClearHistoryChanged();
}

bool MyDocument::canUndoClearHistory() const { return mainField()->hasClearedText(); }

void MyDocument::undoClearHistory() {
    mainField()->bringClearedTextBack();
    emit canUndoClearHistoryChanged();
}

void MyDocument::forgetClearedHistory() {
    if (!canUndoClearHistory()) return;
    mainField()->forgetClearedText();
    emit canUndoClearHistoryChanged();
}
