#pragma once

#include <QObject>
#include <QPointer>

class MyDocument;
class QAction;
class QWidget;

/// Lets the entries of the Edit menu work on the text view, or the variables, of a document's windows that have the
/// focus, or had it before a menu was opened. Undo first brings back a history that was just cleared.
class EditCommands : public QObject {
    Q_OBJECT

public:
    struct Actions {
        QAction* undo;
        QAction* redo;
        QAction* cut;
        QAction* copy;
        QAction* paste;
        QAction* selectAll;
    };

    /// The document's full window owns the commands.
    EditCommands(MyDocument& document, const Actions& actions);

private:
    void connectActions();
    void undo();
    void moveFocus(QWidget* widget);
    void follow(QWidget* textView);
    void updateActions();

    MyDocument& document_;
    Actions actions_;
    QPointer<QWidget> textView_;
};
