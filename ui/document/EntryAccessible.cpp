#include "ui/document/EntryAccessible.h"

#include <QScrollBar>
#include <algorithm>

#include "ui/document/TXFormulaEnteringTextView.h"

EntryAccessible::EntryAccessible(TXFormulaEnteringTextView& view)
    : QAccessibleWidget(&view, QAccessible::EditableText), view_(view) {}

QAccessibleInterface* EntryAccessible::make(const QString& /*className*/, QObject* object) {
    auto* view = qobject_cast<TXFormulaEnteringTextView*>(object);
    return view != nullptr ? new EntryAccessible(*view) : nullptr;
}

void* EntryAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface) return static_cast<QAccessibleEditableTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State EntryAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.editable = true;
    state.selectableText = true;
    return state;
}

QString EntryAccessible::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? view_.text() : QAccessibleWidget::text(kind);
}

QStringList EntryAccessible::actionNames() const {
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
}

void EntryAccessible::doAction(const QString& name) {
    if (name == pressAction()) {
        view_.typeText(QStringLiteral("\n"));
    } else {
        QAccessibleWidget::doAction(name);
    }
}

void EntryAccessible::selection(int index, int* start, int* end) const {
    const bool isThere = index == 0 && selectionCount() > 0;
    *start = isThere ? view_.textCursor().selectionStart() : 0;
    *end = isThere ? view_.textCursor().selectionEnd() : 0;
}

int EntryAccessible::selectionCount() const { return view_.textCursor().hasSelection() ? 1 : 0; }

void EntryAccessible::addSelection(int start, int end) { setSelection(0, start, end); }

void EntryAccessible::removeSelection(int index) {
    if (index == 0) setCursorPosition(cursorPosition());
}

void EntryAccessible::setSelection(int index, int start, int end) {
    if (index != 0) return;
    QTextCursor cursor = view_.textCursor();
    cursor.setPosition(inLine(start));
    cursor.setPosition(inLine(end), QTextCursor::KeepAnchor);
    view_.setTextCursor(cursor);
}

int EntryAccessible::cursorPosition() const { return view_.textCursor().position(); }

void EntryAccessible::setCursorPosition(int position) { setSelection(0, position, position); }

QString EntryAccessible::text(int start, int end) const { return view_.text().mid(start, end - start); }

int EntryAccessible::characterCount() const { return static_cast<int>(view_.text().size()); }

QRect EntryAccessible::characterRect(int position) const {
    QTextCursor cursor = view_.textCursor();
    cursor.setPosition(inLine(position));
    QRect place = view_.cursorRect(cursor);
    cursor.setPosition(inLine(position + 1));
    place.setRight(view_.cursorRect(cursor).left());
    return {view_.viewport()->mapToGlobal(place.topLeft()), place.size()};
}

int EntryAccessible::offsetAtPoint(const QPoint& point) const {
    return view_.cursorForPosition(view_.viewport()->mapFromGlobal(point)).position();
}

void EntryAccessible::scrollToSubstring(int start, int end) {
    const int left = view_.viewport()->mapFromGlobal(characterRect(start).topLeft()).x();
    const int right = view_.viewport()->mapFromGlobal(characterRect(end).topLeft()).x();
    QScrollBar* const bar = view_.horizontalScrollBar();
    // The beginning counts more than the end, where there is no room for both.
    bar->setValue(bar->value() + std::min(left, std::max(0, right - view_.viewport()->width())));
}

QString EntryAccessible::attributes(int /*position*/, int* start, int* end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

void EntryAccessible::deleteText(int start, int end) { replaceText(start, end, QString()); }

void EntryAccessible::insertText(int position, const QString& text) { replaceText(position, position, text); }

void EntryAccessible::replaceText(int start, int end, const QString& text) {
    QTextCursor cursor = view_.textCursor();
    cursor.setPosition(inLine(start));
    cursor.setPosition(inLine(end), QTextCursor::KeepAnchor);
    cursor.insertText(TXFormulaEnteringTextView::asOneLine(text));
    view_.textViewDidChangeSelection();
}

int EntryAccessible::inLine(int position) const { return std::clamp(position, 0, characterCount()); }
