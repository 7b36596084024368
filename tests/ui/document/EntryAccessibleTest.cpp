#include "ui/document/EntryAccessible.h"

#include "tests/support/DocumentTest.h"

namespace {

using namespace Qt::StringLiterals;

/// A document's entry line as a screen reader has it.
struct AccessibleEntry : OpenDocument {
    AccessibleEntry() : object(QAccessible::queryAccessibleInterface(entry())) {}

    QAccessibleTextInterface& text() const { return *object->textInterface(); }
    QAccessibleEditableTextInterface& editor() const { return *object->editableTextInterface(); }
    QAccessibleActionInterface& actions() const { return *object->actionInterface(); }
    QString description() const { return object->text(QAccessible::Description); }

    QAccessibleInterface* object;
};

TEST(AccessibleEntry, isOneLineOfTextThatCanBeChanged) {
    const AccessibleEntry entry;
    entry.press(u"2+3");
    EXPECT_EQ(entry.object->role(), QAccessible::EditableText);
    EXPECT_EQ(entry.object->text(QAccessible::Name), "Equation");
    EXPECT_EQ(entry.object->text(QAccessible::Value), "2+3");
    EXPECT_EQ(entry.object->childCount(), 0);
    EXPECT_EQ(entry.object->child(0), nullptr);
    const QAccessible::State state = entry.object->state();
    EXPECT_TRUE(state.editable && state.selectableText && state.focusable && state.focused);
    EXPECT_FALSE(state.multiLine || state.readOnly);
    EXPECT_EQ(EntryAccessible::make({}, entry.document.mainField()), nullptr);
}

TEST(AccessibleEntry, isReadAndChangedAnywhere) {
    const AccessibleEntry entry;
    entry.editor().insertText(0, "sin(30)");
    entry.editor().replaceText(4, 6, "pi/2");
    EXPECT_EQ(entry.line(), "sin(pi/2)");
    entry.editor().deleteText(6, 8);
    EXPECT_EQ(entry.line(), "sin(pi)");
    entry.editor().insertText(99, "+1");
    EXPECT_EQ(entry.text().text(0, 3), "sin");
    EXPECT_EQ(entry.text().characterCount(), 9);
    QTest::keyClick(entry.entry(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(entry.line(), "sin(pi)");
}

TEST(AccessibleEntry, staysOneLine) {
    const AccessibleEntry entry;
    entry.editor().insertText(0, "1+\n2\n");
    EXPECT_EQ(entry.line(), "1+ 2");
    EXPECT_EQ(entry.entry()->document()->blockCount(), 1);
    EXPECT_EQ(entry.history(), "");
}

TEST(AccessibleEntry, hasACaretAndASelection) {
    const AccessibleEntry entry;
    entry.press(u"12345");
    int start = 0;
    int end = 0;
    EXPECT_EQ(entry.text().cursorPosition(), 5);
    EXPECT_EQ(entry.text().selectionCount(), 0);
    entry.text().addSelection(1, 3);
    EXPECT_EQ(entry.selection(), "23");
    EXPECT_EQ(entry.text().selectionCount(), 1);
    entry.text().selection(0, &start, &end);
    EXPECT_EQ(std::make_pair(start, end), std::make_pair(1, 3));
    entry.text().setSelection(1, 0, 5);  // There is no second one.
    EXPECT_EQ(entry.selection(), "23");
    entry.text().removeSelection(1);
    EXPECT_EQ(entry.selection(), "23");
    entry.text().removeSelection(0);
    EXPECT_EQ(entry.selection(), "");
    EXPECT_EQ(entry.text().cursorPosition(), 3);
    entry.text().setCursorPosition(-1);
    EXPECT_EQ(entry.text().cursorPosition(), 0);
    entry.text().attributes(2, &start, &end);
    EXPECT_EQ(std::make_pair(start, end), std::make_pair(0, 5));
}

TEST(AccessibleEntry, knowsWhereItsCharactersAre) {
    const AccessibleEntry entry;
    entry.press(u"1234");
    const QRect second = entry.text().characterRect(1);
    const QPoint left = entry.entry()->viewport()->mapToGlobal(QPoint());
    EXPECT_GT(second.left(), left.x());
    EXPECT_GT(second.width(), 1);
    EXPECT_EQ(entry.text().characterRect(2).left(), second.right());
    EXPECT_EQ(entry.text().offsetAtPoint(second.center() - QPoint(second.width() / 4, 0)), 1);
}

TEST(AccessibleEntry, scrollsToAPartOfALongLine) {
    const AccessibleEntry entry;
    entry.editor().insertText(0, QString(500, u'1'));
    const auto isInSight = [&](int position) {
        const QRect place = entry.text().characterRect(position);
        return entry.entry()->viewport()->rect().contains(entry.entry()->viewport()->mapFromGlobal(place.center()));
    };
    EXPECT_FALSE(isInSight(300));
    entry.text().scrollToSubstring(300, 310);
    EXPECT_TRUE(isInSight(300) && isInSight(309));
    entry.text().scrollToSubstring(3, 400);
    EXPECT_TRUE(isInSight(3));
    EXPECT_FALSE(isInSight(399));
}

TEST(AccessibleEntry, calculatesByItsAction) {
    const AccessibleEntry entry;
    entry.editor().insertText(0, "2+3");
    ASSERT_TRUE(entry.actions().actionNames().contains(QAccessibleActionInterface::pressAction()));
    entry.actions().doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(entry.history(), "2+3\n\t= 5\n");
    EXPECT_EQ(entry.selection(), "2+3");
    entry.press(u"*4⏎");
    EXPECT_EQ(entry.history(), "2+3\n\t= 5\n\nans1*4\n\t= 20\n");
}

TEST(AccessibleEntry, bringsNoAnsForWhatIsNotTyped) {
    const AccessibleEntry entry;
    entry.press(u"2+3⏎");
    entry.editor().insertText(3, "*1");
    EXPECT_FALSE(entry.entry()->wasFormulaJustCalculated());
    EXPECT_FALSE(entry.entry()->permissibleToEnterTextFlag());
}

#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)

TEST(AccessibleEntry, tellsEachAnswerAndEachError) {
    const AccessibleEntry entry;
    EXPECT_EQ(entry.description(), "");
    entry.press(u"2+3⏎");
    EXPECT_EQ(entry.description(), "5");
    entry.press(u"x=4⏎");
    EXPECT_EQ(entry.description(), "x = 4");
    entry.press(u"sqrt(16⏎");
    const QString error = "Error: There is an open parenthesis in the equation -- you are missing a ).";
    EXPECT_EQ(entry.description(), error);
    entry.press(u"⌘⌫⏎");
    EXPECT_EQ(entry.description(), error);
}

TEST(AccessibleEntry, tellsTheAnswerInEitherWindow) {
    AccessibleEntry entry;
    entry.press(u"2+3⏎");
    entry.document.windowShouldZoom();
    EXPECT_EQ(entry.entry()->accessibleDescription(), "5");
    entry.press(u"*4⏎");
    EXPECT_EQ(entry.entry()->accessibleDescription(), "20");
    entry.document.windowShouldZoom();
    EXPECT_EQ(entry.description(), "20");
    entry.document.clearEverything();
    EXPECT_EQ(entry.description(), "");
}

#endif

}  // namespace
