// The window that lists the keys.

#include "app/KeyboardShortcuts.h"

#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>

#include "tests/support/ApplicationTest.h"

namespace {

struct Shortcuts : ApplicationTest {
    KeyboardShortcuts* openByKey() const {
        QTest::keyClick(document.activeFormulaTextView(), Qt::Key_Question, Qt::ControlModifier);
        auto* window = document.activeWindow()->findChild<KeyboardShortcuts*>();
        EXPECT_NE(window, nullptr);
        return window;
    }
    static QTreeWidget* list(const QWidget* window) { return window->findChild<QTreeWidget*>("shortcutList"); }
    /// "Command: keys" of a group's rows.
    static QStringList rows(const QTreeWidget& list, const QString& title) {
        QStringList rows;
        for (const QTreeWidgetItem* group : list.findItems(title, Qt::MatchExactly)) {
            for (int i = 0; i < group->childCount(); ++i) {
                rows.append(group->child(i)->text(0) + ": " + group->child(i)->text(1));
            }
        }
        return rows;
    }

    MyDocument& document = openDocument();
};

TEST_F(Shortcuts, areListedInGroups) {
    const QTreeWidget* const tree = list(openByKey());
    QStringList titles;
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        titles.append(tree->topLevelItem(i)->text(0));
        EXPECT_TRUE(tree->topLevelItem(i)->isExpanded());
    }
    EXPECT_EQ(titles, QStringList({"File", "Edit", "View", "Help", "Other Keys", "Entry Line"}));
    const QStringList edit = rows(*tree, "Edit");
    EXPECT_TRUE(edit.contains("Copy: Ctrl+C or Ctrl+Ins"));
    EXPECT_TRUE(edit.contains(QString::fromUtf8("Insert ±: Alt+Shift+= or Alt+=")));
    EXPECT_EQ(rows(*tree, "Other Keys").filter("Find"), QStringList({"Find Next: F3", "Find Previous: Shift+F3"}));
    EXPECT_TRUE(rows(*tree, "Entry Line").contains("Calculate: Return"));
}

TEST_F(Shortcuts, areAllThoseOfTheWindow) {
    QStringList listed;
    for (const auto& group : KeyboardShortcuts::groupsOf(*document.documentWindow())) {
        for (const auto& entry : group.entries) listed += entry.keys;
    }
    for (const QAction* action : document.documentWindow()->findChildren<QAction*>()) {
        for (const QKeySequence& key : action->shortcuts()) {
            EXPECT_EQ(listed.count(key.toString(QKeySequence::NativeText)), 1) << key.toString().toStdString();
        }
    }
    EXPECT_TRUE(document.documentWindow()->findChildren<QShortcut*>().isEmpty());
    EXPECT_TRUE(listed.contains("F6"));
    EXPECT_TRUE(listed.contains("F10"));
}

TEST_F(Shortcuts, areWhatTheActionsSayNow) {
    action(document, "minimizeAction")->setShortcut(QKeySequence("Ctrl+Shift+J"));
    action(document, "minimizeAction")->setText("This && &that");
    EXPECT_EQ(rows(*list(openByKey()), "Window"), QStringList({"This & that: Ctrl+Shift+J"}));
}

TEST_F(Shortcuts, canBeReadWithTheKeyboard) {
    KeyboardShortcuts* const window = openByKey();
    EXPECT_FALSE(window->isModal());
    QTreeWidget* const tree = list(window);
    EXPECT_TRUE(QTest::qWaitFor([tree] { return tree->hasFocus(); }));
    QTest::keyClick(tree, Qt::Key_Down);
    EXPECT_EQ(tree->currentItem()->text(0), "New");
    EXPECT_EQ(tree->accessibleName(), "Keyboard shortcuts");
    QTest::keyClick(tree, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Shortcuts, areClosedByTheButton) {
    KeyboardShortcuts* const window = openByKey();
    QTest::mouseClick(window->findChild<QPushButton*>("closeButton"), Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(Shortcuts, openOnce) {
    const KeyboardShortcuts* const window = openByKey();
    trigger(document, "keyboardShortcutsAction");
    EXPECT_EQ(document.documentWindow()->findChildren<KeyboardShortcuts*>(), QList<KeyboardShortcuts*>{openByKey()});
    EXPECT_TRUE(window->isVisible());
}

TEST_F(Shortcuts, openInTheMiniWindowToo) {
    trigger(document, "miniModeAction");
    ASSERT_TRUE(QTest::qWaitForWindowActive(document.miniWindow()));
    EXPECT_TRUE(openByKey()->isVisible());
}

}  // namespace
