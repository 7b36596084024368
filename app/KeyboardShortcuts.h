#pragma once

#include <QDialog>
#include <QList>
#include <QStringList>
#include <memory>

class QAction;
class QMainWindow;
class QMenu;

namespace Ui {
class KeyboardShortcuts;
}

/// A window that lists the keys of a document's window in groups: those of each menu, those of commands in no menu, and
/// those of the entry line. What the actions say now is what it lists.
class KeyboardShortcuts : public QDialog {
    Q_OBJECT

public:
    /// A command and its keys, as the platform writes them.
    struct Entry {
        QString command;
        QStringList keys;
    };
    struct Group {
        QString title;
        QList<Entry> entries;  ///< At least one.
    };

    /// Lists the keys of `window`, in front of `parent`, which owns it. It goes when it is closed.
    KeyboardShortcuts(const QMainWindow& window, QWidget* parent);
    ~KeyboardShortcuts() override;

    /// The groups, in the order of the menus.
    static QList<Group> groupsOf(const QMainWindow& window);

private:
    void list(const QList<Group>& groups);
    void fitToColumns();

    std::unique_ptr<Ui::KeyboardShortcuts> ui_;
};
