#include "app/KeyboardShortcuts.h"

#include <QHeaderView>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <QStyle>
#include <QTreeWidgetItemIterator>
#include <algorithm>

#include "ui/document/windowPlace.h"
#include "ui_KeyboardShortcuts.h"

using namespace Qt::StringLiterals;

namespace {

using Entry = KeyboardShortcuts::Entry;

constexpr int roomBetweenColumns = 24;

QString withoutMnemonic(QString text) { return text.replace(u"&&"_qs, u"\n"_qs).remove(u'&').replace(u'\n', u'&'); }

QString nativeText(const QKeySequence& key) { return key.toString(QKeySequence::NativeText); }

void append(const QAction& action, QList<Entry>* entries) {
    QStringList keys;
    for (const QKeySequence& key : action.shortcuts()) keys.append(nativeText(key));
    if (!keys.isEmpty()) entries->append({withoutMnemonic(action.text()), keys});
}

/// The commands of a menu and of its submenus, which have none themselves, all of which join `listed`.
QList<Entry> entriesOf(const QMenu& menu, QList<QAction*>* listed) {
    QList<Entry> entries;
    QList<QAction*> waiting = menu.actions();
    while (!waiting.isEmpty()) {
        QAction* action = waiting.takeFirst();
        listed->append(action);
        append(*action, &entries);
        if (action->menu() != nullptr) waiting = action->menu()->actions() + waiting;
    }
    return entries;
}

}  // namespace

KeyboardShortcuts::KeyboardShortcuts(const QMainWindow& window, QWidget* parent)
    : QDialog(parent), ui_(std::make_unique<Ui::KeyboardShortcuts>()) {
    ui_->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    connect(ui_->closeButton, &QPushButton::clicked, this, &QDialog::close);
    list(groupsOf(window));
}

KeyboardShortcuts::~KeyboardShortcuts() = default;

QList<KeyboardShortcuts::Group> KeyboardShortcuts::groupsOf(const QMainWindow& window) {
    QList<Group> groups;
    QList<QAction*> listed;
    const auto add = [&groups](const QString& title, const QList<Entry>& entries) {
        if (!entries.isEmpty()) groups.append({title, entries});
    };
    for (const QAction* title : window.menuBar()->actions()) {
        add(withoutMnemonic(title->text()), entriesOf(*title->menu(), &listed));
    }
    QList<Entry> others;
    for (QAction* action : window.actions()) {
        if (!listed.contains(action)) append(*action, &others);
    }
    add(tr("Other Keys"), others);
    // The keys of the line itself, which are no commands.
    add(tr("Entry Line"), {{tr("Calculate"), {nativeText(Qt::Key_Return)}},
                           {tr("Previous Equation"), {nativeText(Qt::ALT | Qt::Key_Up)}},
                           {tr("Next Equation"), {nativeText(Qt::ALT | Qt::Key_Down)}},
                           {tr("Empty the Line"), {nativeText(Qt::Key_Escape)}},
                           {tr("Scroll the History"), {nativeText(Qt::Key_PageUp), nativeText(Qt::Key_PageDown)}}});
    return groups;
}

void KeyboardShortcuts::list(const QList<Group>& groups) {
    QTreeWidget* const tree = ui_->shortcutList;
    for (const Group& group : groups) {
        auto* title = new QTreeWidgetItem(tree, {group.title});
        QFont bold = tree->font();
        bold.setBold(true);
        title->setFont(0, bold);
        title->setFirstColumnSpanned(true);
        for (const Entry& entry : group.entries) {
            new QTreeWidgetItem(title, {entry.command, entry.keys.join(tr(" or ", "between two keys of a command"))});
        }
    }
    tree->expandAll();
    tree->resizeColumnToContents(0);
    tree->setColumnWidth(0, tree->columnWidth(0) + roomBetweenColumns);
    tree->setCurrentItem(tree->topLevelItem(0));
    tree->setFocus();
    fitToColumns();
}

// As wide as the keys need in the font of the desktop, and no larger than its screen, on which the list then scrolls.
void KeyboardShortcuts::fitToColumns() {
    QTreeWidget* const tree = ui_->shortcutList;
    const QMargins margins = layout()->contentsMargins();
    int keys = 0;
    for (QTreeWidgetItemIterator item(tree); *item != nullptr; ++item) {
        keys = std::max(keys, tree->sizeHintForIndex(tree->indexFromItem(*item, 1)).width());
    }
    const int columns = tree->columnWidth(0) + keys;
    const int rest =
        2 * tree->frameWidth() + tree->verticalScrollBar()->sizeHint().width() + margins.left() + margins.right();
    const QSize wished = size().expandedTo(QSize(columns + rest, 0));
    resize(fittedToScreen(wished, style()->pixelMetric(QStyle::PM_TitleBarHeight)));
    tree->header()->setStretchLastSection(width() == wished.width());
    tree->setColumnWidth(1, keys);
}
