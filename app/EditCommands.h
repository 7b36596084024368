#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QAction;
class QWidget;

/// Lets the entries of the Edit menu work on the text view, or the variables, of a document's windows that have the
/// focus, or had it before a menu was opened.
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

    /// The first of the windows owns the commands.
    EditCommands(const QList<QWidget*>& windows, const Actions& actions);

private:
    void connectActions();
    void moveFocus(QWidget* widget);
    void follow(QWidget* textView);
    void updateActions();

    QList<QWidget*> windows_;
    Actions actions_;
    QPointer<QWidget> textView_;
};
