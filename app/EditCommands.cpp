#include "app/EditCommands.h"

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextEdit>

#include "ui/document/TXOutlineView.h"

namespace {

/// Calls `operation` with the text view, as what it is. Other widgets are left alone.
template <class Operation>
void withTextView(QWidget* widget, const Operation& operation) {
    if (auto* plain = qobject_cast<QPlainTextEdit*>(widget)) {
        operation(*plain);
    } else if (auto* rich = qobject_cast<QTextEdit*>(widget)) {
        operation(*rich);
    }
}

}  // namespace

EditCommands::EditCommands(const QList<QWidget*>& windows, const Actions& actions)
    : QObject(windows.first()), windows_(windows), actions_(actions) {
    connectActions();
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { moveFocus(now); });
    follow(windows.first()->focusWidget());
}

void EditCommands::connectActions() {
    const auto connectTo = [this](QAction* action, auto operation) {
        connect(action, &QAction::triggered, this, [this, operation] { withTextView(textView_, operation); });
    };
    connectTo(actions_.undo, [](auto& view) { view.undo(); });
    connectTo(actions_.redo, [](auto& view) { view.redo(); });
    connectTo(actions_.cut, [](auto& view) { view.cut(); });
    connectTo(actions_.copy, [](auto& view) { view.copy(); });
    connectTo(actions_.paste, [](auto& view) { view.paste(); });
    connectTo(actions_.selectAll, [](auto& view) { view.selectAll(); });
    // Of the variables, only copies are to be had.
    connect(actions_.copy, &QAction::triggered, this, [this] {
        if (auto* outline = qobject_cast<TXOutlineView*>(textView_)) outline->copy();
    });
}

// While a menu is open, or another window is active, the commands stay with the text view that had the focus.
void EditCommands::moveFocus(QWidget* widget) {
    const bool isInWindow = widget != nullptr && windows_.contains(widget->window());
    if (isInWindow && qobject_cast<QMenuBar*>(widget) == nullptr) follow(widget);
}

void EditCommands::follow(QWidget* textView) {
    if (textView_ != nullptr) textView_->disconnect(this);
    textView_ = textView;
    withTextView(textView_, [this](auto& view) {
        using View = std::remove_reference_t<decltype(view)>;
        connect(&view, &View::textChanged, this, &EditCommands::updateActions);
        connect(&view, &View::copyAvailable, this, &EditCommands::updateActions);
        connect(&view, &View::undoAvailable, this, &EditCommands::updateActions);
        connect(&view, &View::redoAvailable, this, &EditCommands::updateActions);
    });
    if (auto* outline = qobject_cast<TXOutlineView*>(textView_)) {
        connect(outline, &TXOutlineView::copyAvailable, this, &EditCommands::updateActions);
    }
    updateActions();
}

// The clipboard is asked only when something is pasted: to ask before could cost, and wake its owner.
void EditCommands::updateActions() {
    bool isEditable = false;
    bool hasSelection = false;
    bool hasText = false;
    bool canUndo = false;
    bool canRedo = false;
    withTextView(textView_, [&](const auto& view) {
        isEditable = !view.isReadOnly();
        hasSelection = view.textCursor().hasSelection();
        hasText = !view.document()->isEmpty();
        canUndo = view.document()->isUndoAvailable();
        canRedo = view.document()->isRedoAvailable();
    });
    if (const auto* outline = qobject_cast<const TXOutlineView*>(textView_)) {
        hasSelection = outline->selectedVariable() != nullptr;
    }
    actions_.undo->setEnabled(isEditable && canUndo);
    actions_.redo->setEnabled(isEditable && canRedo);
    actions_.cut->setEnabled(isEditable && hasSelection);
    actions_.copy->setEnabled(hasSelection);
    actions_.paste->setEnabled(isEditable);
    actions_.selectAll->setEnabled(hasText);
}
