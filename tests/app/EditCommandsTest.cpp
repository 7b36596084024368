// The Edit menu, at work on the text view that has the focus.

#include "app/EditCommands.h"

#include <QClipboard>
#include <QMenuBar>

#include "tests/support/ApplicationTest.h"
#include "ui/document/TXOutlineView.h"

namespace {

struct EditMenu : ApplicationTest {
    /// The enabled entries, by the names of their actions without "Action".
    QStringList enabled() const {
        QStringList names;
        for (const char* name : {"undo", "redo", "cut", "copy", "paste", "selectAll"}) {
            if (action(document, (std::string(name) + "Action").c_str())->isEnabled()) names.append(name);
        }
        return names;
    }

    static QString clipboard() { return QGuiApplication::clipboard()->text(); }

    MyDocument& document = openDocument();
    TXFormulaEnteringTextView* entry = document.formulaTextView();
};

TEST_F(EditMenu, offersInAnEmptyLineOnlyToPaste) { EXPECT_EQ(enabled(), QStringList({"paste"})); }

TEST_F(EditMenu, doesNotAskTheClipboardBefore) {
    QGuiApplication::clipboard()->clear();
    QTest::keyClicks(entry, "1");
    EXPECT_TRUE(enabled().contains("paste"));
}

TEST_F(EditMenu, followsWhatHappensInTheLine) {
    QTest::keyClicks(entry, "12");
    EXPECT_EQ(enabled(), QStringList({"undo", "paste", "selectAll"}));
    trigger(document, "selectAllAction");
    EXPECT_EQ(enabled(), QStringList({"undo", "cut", "copy", "paste", "selectAll"}));
    trigger(document, "undoAction");
    EXPECT_EQ(enabled(), QStringList({"redo", "paste"}));
    trigger(document, "redoAction");
    EXPECT_EQ(entry->text(), "12");
}

TEST_F(EditMenu, cutsCopiesAndPastesInTheLine) {
    QTest::keyClicks(entry, "12");
    trigger(document, "selectAllAction");
    trigger(document, "copyAction");
    EXPECT_EQ(clipboard(), "12");
    trigger(document, "cutAction");
    EXPECT_EQ(entry->text(), "");
    trigger(document, "pasteAction");
    trigger(document, "pasteAction");
    EXPECT_EQ(entry->text(), "1212");
}

TEST_F(EditMenu, pastesOneLineThatOneStepTakesBack) {
    QGuiApplication::clipboard()->setText("1+\r\n2\n");
    QTest::keyClicks(entry, "7*");
    trigger(document, "pasteAction");
    EXPECT_EQ(entry->text(), "7*1+ 2");
    trigger(document, "undoAction");
    EXPECT_EQ(entry->text(), "7*");
}

TEST_F(EditMenu, onlyReadsTheHistory) {
    QTest::keyClicks(entry, "2+3");
    QTest::keyClick(entry, Qt::Key_Return);
    document.mainField()->setFocus();
    EXPECT_EQ(enabled(), QStringList({"selectAll"}));
    trigger(document, "selectAllAction");
    EXPECT_EQ(enabled(), QStringList({"copy", "selectAll"}));
    trigger(document, "copyAction");
    EXPECT_EQ(clipboard(), "2+3\n\t= 5");
    entry->setFocus();
    EXPECT_TRUE(enabled().contains("paste"));
}

TEST_F(EditMenu, copiesASelectedVariable) {
    QTest::keyClicks(entry, "x=4");
    QTest::keyClick(entry, Qt::Key_Return);
    TXOutlineView* const sidebar = document.variableOutlineView();
    sidebar->setFocus();
    EXPECT_EQ(enabled(), QStringList());
    QTest::keyClick(sidebar, Qt::Key_End);
    EXPECT_EQ(enabled(), QStringList({"copy"}));
    trigger(document, "copyAction");
    EXPECT_EQ(clipboard(), "x=4");
    QGuiApplication::clipboard()->clear();
    QTest::keyClick(sidebar, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), "x=4");
    QTest::keyClick(sidebar, Qt::Key_Up);  // to a title
    EXPECT_EQ(enabled(), QStringList());
    QTest::keyClick(sidebar, Qt::Key_End);
    entry->setFocus();
    EXPECT_TRUE(enabled().contains("paste"));
}

TEST_F(EditMenu, stillKnowsTheLineWhileTheMenuBarHasTheFocus) {
    QTest::keyClicks(entry, "12");
    document.documentWindow()->menuBar()->setFocus();
    EXPECT_EQ(enabled(), QStringList({"undo", "paste", "selectAll"}));
    trigger(document, "selectAllAction");
    EXPECT_EQ(entry->textCursor().selectedText(), "12");
}

TEST_F(EditMenu, belongsToItsOwnWindow) {
    QTest::keyClicks(entry, "12");
    MyDocument& other = openDocument();
    QTest::keyClicks(other.formulaTextView(), "34");
    trigger(document, "selectAllAction");
    EXPECT_EQ(entry->textCursor().selectedText(), "12");
    EXPECT_FALSE(other.formulaTextView()->textCursor().hasSelection());
}

TEST_F(EditMenu, worksInTheFieldForWhatIsToBeFound) {
    QTest::keyClicks(entry, "2");
    QTest::keyClick(entry, Qt::Key_Return);
    document.findInHistory();
    EXPECT_EQ(enabled(), QStringList({"paste"}));
    QWidget* const field = QApplication::focusWidget();
    QTest::keyClicks(field, "12");
    EXPECT_EQ(enabled(), QStringList({"undo", "paste", "selectAll"}));
    trigger(document, "selectAllAction");
    EXPECT_EQ(enabled(), QStringList({"undo", "cut", "copy", "paste", "selectAll"}));
    trigger(document, "cutAction");
    EXPECT_EQ(clipboard(), "12");
    trigger(document, "undoAction");
    EXPECT_TRUE(enabled().contains("redo"));
    EXPECT_EQ(entry->text(), "2");
}

TEST_F(EditMenu, hasNothingForAWidgetWithoutText) {
    QTest::keyClicks(entry, "12");
    auto* const widget = new QWidget(document.documentWindow());
    widget->setFocusPolicy(Qt::StrongFocus);
    widget->show();
    widget->setFocus();
    EXPECT_EQ(enabled(), QStringList());
    trigger(document, "pasteAction");
    EXPECT_EQ(entry->text(), "12");
}

}  // namespace
