#pragma once

#include <QObject>
#include <QPointer>

class QAction;
class QWidget;

/// Lets the entries of the Edit menu work on the text view, or the variables, of a window that have the focus, or had
/// it before a menu was opened.
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

    /// The window owns the commands.
    EditCommands(QWidget* window, const Actions& actions);

private:
    void connectActions();
    void moveFocus(QWidget* widget);
    void follow(QWidget* textView);
    void updateActions();

    QWidget* window_;
    Actions actions_;
    QPointer<QWidget> textView_;
};
