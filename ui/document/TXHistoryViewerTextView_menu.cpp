// The menu that a right click opens, or the Menu key: what can be done with one calculation of the history.

#include "ui/document/TXHistoryViewerTextView.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QGuiApplication>
#include <QMenu>

#include "ui/document/MyDocument.h"
#include "ui/document/TXFormulaEnteringTextView.h"
#include "ui_HistoryMenu.h"

namespace {

using LineKind = TXHistoryViewerTextView::LineKind;

/// Where an answer is kept, on its line.
struct StoredAnswerOfLine : QTextBlockUserData {
    explicit StoredAnswerOfLine(const StoredAnswer& answer) : stored(answer) {}
    StoredAnswer stored;
};

bool isOf(LineKind kind, const QTextBlock& line) {
    return line.blockFormat().intProperty(TXHistoryViewerTextView::lineKindProperty) == static_cast<int>(kind);
}

/// The number as it is shown, of "\t= 5" as of "\tx = 5".
QString numberIn(const QTextBlock& answer) {
    static constexpr QStringView sign = u"= ";
    const QString line = answer.text();
    return line.mid(line.indexOf(sign) + sign.size());
}

}  // namespace

void TXHistoryViewerTextView::setStoredAnswerOfLastLine(const StoredAnswer& stored) {
    QTextBlock line = document()->lastBlock().previous();
    line.setUserData(new StoredAnswerOfLine(stored));  // owned by the line
}

// Each set-up of the layout makes a menu of its own, so this one can have a title of its own.
void TXHistoryViewerTextView::makeMenu() {
    wrappingMenu_ = new QMenu(this);
    menuUi_->setupUi(wrappingMenu_);
    wrappingMenu_->setTitle(QStringLiteral("Menu with Variable Stuff"));
    connect(menuUi_->copyAction, &QAction::triggered, this, &QTextEdit::copy);
    connect(menuUi_->copyEquationAction, &QAction::triggered, this, [this] { copyText(chosen_.equation.text()); });
    connect(menuUi_->copyAnswerAction, &QAction::triggered, this, [this] { copyText(numberIn(chosen_.answer)); });
    connect(menuUi_->useEquationAction, &QAction::triggered, this, [this] { insertText(chosen_.equation.text()); });
    connect(menuUi_->insertAnswerAction, &QAction::triggered, this, [this] { insertText(chosenAnswerName()); });
    connect(menuUi_->selectAllAction, &QAction::triggered, this, &TXHistoryViewerTextView::selectAllHere);
    connect(menuUi_->wrapAction, &QAction::triggered, this, &TXHistoryViewerTextView::wrap);
    connect(wrappingMenu_, &QMenu::aboutToHide, this, [this] {
        if (hasFocusForMenuOnly_) giveFocusBack();
    });
}

QMenu* TXHistoryViewerTextView::menuForEvent(const QContextMenuEvent* /*event*/) const { return wrappingMenu_; }

void TXHistoryViewerTextView::wrap() {}

bool TXHistoryViewerTextView::validateMenuItem(const QAction* item) const {
    if (item == menuUi_->wrapAction) return false;
    if (item == menuUi_->copyAction) return textCursor().hasSelection();
    if (item == menuUi_->selectAllAction) return !document()->isEmpty();
    if (item == menuUi_->copyAnswerAction) return chosen_.answer.isValid();
    if (item == menuUi_->insertAnswerAction) return !chosenAnswerName().isEmpty();
    return chosen_.equation.isValid();
}

void TXHistoryViewerTextView::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* const menu = menuForEvent(event);
    if (menu == nullptr) return;
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    chosen_ = calculationAt(isByKey ? textCursor().position() : cursorForPosition(event->pos()).position());
    for (QAction* item : menu->actions()) {
        if (!item->isSeparator()) item->setEnabled(validateMenuItem(item));
    }
    menu->popup(isByKey ? viewport()->mapToGlobal(cursorRect().bottomLeft()) : event->globalPos());
}

TXHistoryViewerTextView::Calculation TXHistoryViewerTextView::calculationAt(int position) const {
    const QTextBlock line = document()->findBlock(position);
    if (isOf(LineKind::answer, line)) return {line.previous(), line};
    if (isOf(LineKind::error, line)) return {line.previous(), {}};
    if (!isOf(LineKind::equation, line)) return {};
    return {line, isOf(LineKind::answer, line.next()) ? line.next() : QTextBlock()};
}

QString TXHistoryViewerTextView::chosenAnswerName() const {
    const auto* const held = static_cast<const StoredAnswerOfLine*>(chosen_.answer.userData());
    return held != nullptr && parentDocument_ != nullptr ? parentDocument_->nameOfVariableHolding(held->stored)
                                                         : QString();
}

void TXHistoryViewerTextView::copyText(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
    giveFocusBack();
}

void TXHistoryViewerTextView::giveFocusBack() {
    hasFocusForMenuOnly_ = false;
    if (parentDocument_ != nullptr) parentDocument_->activeFormulaTextView()->setFocus();
}

// The selection is there for the keys as well.
void TXHistoryViewerTextView::selectAllHere() {
    selectAll();
    setFocus();
}

// The click that opens the menu brings the focus along, which goes back to the entry line with the menu.
void TXHistoryViewerTextView::focusInEvent(QFocusEvent* event) {
    QTextEdit::focusInEvent(event);
    if (event->reason() == Qt::PopupFocusReason) return;
    const bool isByClick = event->reason() == Qt::MouseFocusReason;
    hasFocusForMenuOnly_ = isByClick && QGuiApplication::mouseButtons().testFlag(Qt::RightButton);
}

void TXHistoryViewerTextView::insertText(const QString& text) {
    if (parentDocument_ != nullptr) parentDocument_->insertAtCaretOfEntry(text);
}
