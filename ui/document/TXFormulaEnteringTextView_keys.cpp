// What keys and input methods send to the entry line, and the menu that a right click opens.

#include "ui/document/TXFormulaEnteringTextView.h"

#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <algorithm>
#include <array>

#include "ui/document/MyDocument.h"
#include "ui/document/NameSuggestions.h"

namespace {

bool isModifierOrLock(int key) {
    switch (key) {
        case Qt::Key_Shift:
        case Qt::Key_Control:
        case Qt::Key_Meta:
        case Qt::Key_Alt:
        case Qt::Key_AltGr:
        case Qt::Key_CapsLock:
        case Qt::Key_NumLock:
        case Qt::Key_ScrollLock:
        case Qt::Key_Super_L:
        case Qt::Key_Super_R:
        case Qt::Key_Hyper_L:
        case Qt::Key_Hyper_R:
        case Qt::Key_Direction_L:
        case Qt::Key_Direction_R: return true;
        default: return false;
    }
}

/// Whether the key has no name and types nothing, as those do that choose a layout.
bool isNamelessKey(const QKeyEvent& event) {
    return event.text().isEmpty() && (event.key() == 0 || event.key() == Qt::Key_unknown);
}

/// Whether the key only begins or goes on with a character: dead keys, the compose key, and those of input methods.
bool isPartOfCharacter(int key) {
    return (key >= Qt::Key_Multi_key && key <= Qt::Key_Hangul_Special) || key == Qt::Key_Mode_switch ||
           (key >= Qt::Key_Dead_Grave && key <= Qt::Key_Dead_Longsolidusoverlay);
}

/// Whether the editor does here what an entry of the Edit menu does.
bool isEditCommand(const QKeyEvent& event) {
    static constexpr std::array commands = {QKeySequence::Undo, QKeySequence::Redo,  QKeySequence::Cut,
                                            QKeySequence::Copy, QKeySequence::Paste, QKeySequence::SelectAll};
    return std::any_of(commands.begin(), commands.end(), [&](auto command) { return event.matches(command); });
}

bool hasPrintableText(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty()) return false;
    const QChar first = text.front();
    return first.isPrint() || first.isSurrogate() || first.category() == QChar::Other_PrivateUse ||
           first.category() == QChar::Other_Format;
}

/// Whether the modifiers make the key a command and not a character. AltGr is Control and Alt together on Windows, and
/// Option types characters on macOS.
bool hasCommandModifiers(const QKeyEvent& event) {
    const auto modifiers = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
#ifdef Q_OS_MACOS
    return (modifiers & ~Qt::KeyboardModifiers(Qt::AltModifier)) != 0;
#else
    return modifiers != 0 && modifiers != (Qt::ControlModifier | Qt::AltModifier);
#endif
}

bool isReturn(const QKeyEvent& event) { return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter; }

bool isPlainKey(const QKeyEvent& event, Qt::Key key) {
    return event.key() == key && (event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) == Qt::NoModifier;
}

/// Some layouts make the keypad's decimal key an ordinary comma: only its place tells it then.
bool isInPlaceOfKeypadDecimal(const QKeyEvent& event) {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    constexpr quint32 keypadDecimalCode = 91;
    return event.nativeScanCode() == keypadDecimalCode && hasPrintableText(event);
#else
    return false;
#endif
}

bool isKeypadDecimal(const QKeyEvent& event) {
    const bool isDecimal = event.key() == Qt::Key_Period || event.key() == Qt::Key_Comma;
    return (isDecimal && event.modifiers().testFlag(Qt::KeypadModifier)) || isInPlaceOfKeypadDecimal(event);
}

}  // namespace

void TXFormulaEnteringTextView::keyPressEvent(QKeyEvent* event) {
    if (isModifierOrLock(event->key()) || isPartOfCharacter(event->key()) || isNamelessKey(*event)) {
        event->ignore();
    } else if (suggestions_ != nullptr && suggestions_->takeKey(*event)) {
        event->accept();
    } else if (event->matches(QKeySequence::Undo) && parentDocument_ != nullptr &&
               parentDocument_->canUndoClearHistory()) {
        parentDocument_->undoClearHistory();
    } else if (isEditCommand(*event)) {
        QPlainTextEdit::keyPressEvent(event);
    } else {
        keyDown(event);
    }
}

void TXFormulaEnteringTextView::keyDown(QKeyEvent* event) {
    const bool option = event->modifiers().testFlag(Qt::AltModifier);
    if (option && event->key() == Qt::Key_Up) {
        if (parentDocument_ != nullptr) parentDocument_->optionArrowMoveToPreviousFormula();
        clearFlags();
        return;
    }
    if (option && event->key() == Qt::Key_Down) {
        // The flags stay: after Return and this, the line is empty and an operator still continues from the answer.
        if (parentDocument_ != nullptr) parentDocument_->optionArrowMoveToNextFormula();
        return;
    }
    wasFormulaJustCalculated_ = false;
    {
        const QScopedValueRollback typed(isBeingTyped_, true);
        interpretKey(event);
    }
    // Only the first key after a calculation can bring "ans".
    if (!wasFormulaJustCalculated_) permissibleToEnterTextFlag_ = false;
    suggestAfter(isTyping(*event) || event->key() == Qt::Key_Backspace);
}

bool TXFormulaEnteringTextView::isTyping(const QKeyEvent& event) {
    if (hasCommandModifiers(event) || isReturn(event) || isPartOfCharacter(event.key())) return false;
    return isKeypadDecimal(event) || hasPrintableText(event);
}

void TXFormulaEnteringTextView::interpretKey(QKeyEvent* event) {
    if (hasCommandModifiers(*event) && (isReturn(*event) || hasPrintableText(*event))) {
        event->ignore();
    } else if (isReturn(*event)) {
        insertText("\n");
    } else if (isKeypadDecimal(*event)) {
        insertText(".");
    } else if (hasPrintableText(*event)) {
        insertText(event->text());
    } else if (isPlainKey(*event, Qt::Key_Escape)) {
        emptyLine(event);
    } else if (parentDocument_ != nullptr && isPlainKey(*event, Qt::Key_PageUp)) {
        parentDocument_->scrollHistory(-1);
    } else if (parentDocument_ != nullptr && isPlainKey(*event, Qt::Key_PageDown)) {
        parentDocument_->scrollHistory(1);
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
}

void TXFormulaEnteringTextView::emptyLine(QKeyEvent* event) {
    if (text().isEmpty()) {
        event->ignore();
    } else {
        setText(QString());
    }
}

// Tab leaves the line before it gets to be a key press.
bool TXFormulaEnteringTextView::focusNextPrevChild(bool next) {
    if (next && suggestions_ != nullptr && suggestions_->accept()) return true;
    clearFlags();
    return QPlainTextEdit::focusNextPrevChild(next);
}

void TXFormulaEnteringTextView::inputMethodEvent(QInputMethodEvent* event) {
    event->accept();
    if (event->commitString().isEmpty()) {
        showComposition(event);
        return;
    }
    // First the composed text goes, and what the commit is to replace; then comes the commit, as typed text.
    QInputMethodEvent ending;
    ending.setCommitString(QString(), event->replacementStart(), event->replacementLength());
    showComposition(&ending);
    typeText(event->commitString());
    if (!event->preeditString().isEmpty() || !event->attributes().isEmpty()) {
        QInputMethodEvent next(event->preeditString(), event->attributes());
        showComposition(&next);
    }
}

void TXFormulaEnteringTextView::typeText(const QString& text) {
    wasFormulaJustCalculated_ = false;
    {
        const QScopedValueRollback typed(isBeingTyped_, true);
        insertText(text);
    }
    if (!wasFormulaJustCalculated_) permissibleToEnterTextFlag_ = false;
    suggestAfter(!text.startsWith(u'\n'));
}

// Text that is only being composed is not typed yet: "^" may be on its way, and must still bring "ans".
void TXFormulaEnteringTextView::showComposition(QInputMethodEvent* event) {
    const QScopedValueRollback byProgram(isMovedByProgram_, true);
    QPlainTextEdit::inputMethodEvent(event);
    refreshMarks();
}

void TXFormulaEnteringTextView::endComposition() {
    if (!isComposing()) return;
    QGuiApplication::inputMethod()->commit();
    if (!isComposing()) return;
    QInputMethodEvent ending;
    showComposition(&ending);
}

// What is composed ends with a drag as with a click: the editor would count its characters for the line's.
bool TXFormulaEnteringTextView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::DragMove || event->type() == QEvent::Drop) endComposition();
    return QPlainTextEdit::viewportEvent(event);
}

// The editor's own menu would ask the clipboard whether there is something to paste.
void TXFormulaEnteringTextView::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& title, QKeySequence::StandardKey key, bool isEnabled, auto operation) {
        QAction* action = menu->addAction(title, this, operation);
        action->setShortcut(key);
        action->setEnabled(isEnabled);
    };
    const bool hasSelection = textCursor().hasSelection();
    add(tr("&Undo"), QKeySequence::Undo, document()->isUndoAvailable(), &QPlainTextEdit::undo);
    add(tr("&Redo"), QKeySequence::Redo, document()->isRedoAvailable(), &QPlainTextEdit::redo);
    menu->addSeparator();
    add(tr("Cu&t"), QKeySequence::Cut, hasSelection, &QPlainTextEdit::cut);
    add(tr("&Copy"), QKeySequence::Copy, hasSelection, &QPlainTextEdit::copy);
    add(tr("&Paste"), QKeySequence::Paste, true, &QPlainTextEdit::paste);
    menu->addSeparator();
    add(tr("Select &All"), QKeySequence::SelectAll, !document()->isEmpty(), &QPlainTextEdit::selectAll);
    addToContextMenu(menu);
    menu->popup(event->globalPos());
}
