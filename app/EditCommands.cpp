#include "app/EditCommands.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QTextEdit>

#include "ui/document/MyDocument.h"
#include "ui/document/TXOutlineView.h"
#include "ui/document/TXWindow.h"

namespace {

/// Calls `operation` with the text view, as what it is. Other widgets are left alone.
template <class Operation>
void withTextView(QWidget* widget, const Operation& operation) {
    if (auto* plain = qobject_cast<QPlainTextEdit*>(widget)) {
        operation(*plain);
    } else if (auto* rich = qobject_cast<QTextEdit*>(widget)) {
        operation(*rich);
    } else if (auto* field = qobject_cast<QLineEdit*>(widget)) {
        operation(*field);
    }
}

struct TextState {
    bool hasSelection = false;
    bool hasText = false;
    bool canUndo = false;
    bool canRedo = false;
};

template <class View>
TextState stateOf(const View& view) {
    return {view.textCursor().hasSelection(), !view.document()->isEmpty(), view.document()->isUndoAvailable(),
            view.document()->isRedoAvailable()};
}

TextState stateOf(const QLineEdit& field) {
    return {field.hasSelectedText(), !field.text().isEmpty(), field.isUndoAvailable(), field.isRedoAvailable()};
}

}  // namespace

EditCommands::EditCommands(MyDocument& document, const Actions& actions)
    : QObject(document.documentWindow()), document_(document), actions_(actions) {
    connectActions();
    connect(&document, &MyDocument::canUndoClearHistoryChanged, this, &EditCommands::updateActions);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { moveFocus(now); });
    follow(document.documentWindow()->focusWidget());
}

void EditCommands::connectActions() {
    const auto connectTo = [this](QAction* action, auto operation) {
        connect(action, &QAction::triggered, this, [this, operation] { withTextView(textView_, operation); });
    };
    connect(actions_.undo, &QAction::triggered, this, &EditCommands::undo);
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

void EditCommands::undo() {
    if (document_.canUndoClearHistory()) {
        document_.undoClearHistory();
    } else {
        withTextView(textView_, [](auto& view) { view.undo(); });
    }
}

// While a menu is open, or another window is active, the commands stay with the text view that had the focus.
void EditCommands::moveFocus(QWidget* widget) {
    const bool isInWindow = widget != nullptr && document_.windows().contains(widget->window());
    if (isInWindow && qobject_cast<QMenuBar*>(widget) == nullptr) follow(widget);
}

void EditCommands::follow(QWidget* textView) {
    if (textView_ != nullptr) textView_->disconnect(this);
    textView_ = textView;
    withTextView(textView_, [this](auto& view) {
        using View = std::remove_reference_t<decltype(view)>;
        connect(&view, &View::textChanged, this, &EditCommands::updateActions);
        if constexpr (std::is_same_v<View, QLineEdit>) {
            connect(&view, &View::selectionChanged, this, &EditCommands::updateActions);
        } else {
            connect(&view, &View::copyAvailable, this, &EditCommands::updateActions);
            connect(&view, &View::undoAvailable, this, &EditCommands::updateActions);
            connect(&view, &View::redoAvailable, this, &EditCommands::updateActions);
        }
    });
    if (auto* outline = qobject_cast<TXOutlineView*>(textView_)) {
        connect(outline, &TXOutlineView::copyAvailable, this, &EditCommands::updateActions);
    }
    updateActions();
}

// The clipboard is asked only when something is pasted: to ask before could cost, and wake its owner.
void EditCommands::updateActions() {
    bool isEditable = false;
    TextState state;
    withTextView(textView_, [&](const auto& view) {
        isEditable = !view.isReadOnly();
        state = stateOf(view);
    });
    if (const auto* outline = qobject_cast<const TXOutlineView*>(textView_)) {
        state.hasSelection = outline->selectedVariable() != nullptr;
    }
    actions_.undo->setEnabled(document_.canUndoClearHistory() || (isEditable && state.canUndo));
    actions_.redo->setEnabled(isEditable && state.canRedo);
    actions_.cut->setEnabled(isEditable && state.hasSelection);
    actions_.copy->setEnabled(state.hasSelection);
    actions_.paste->setEnabled(isEditable);
    actions_.selectAll->setEnabled(state.hasText);
}
