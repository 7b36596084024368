// Marks in the entry line: brackets that belong together, those that belong to none, and colours.

#include <QClipboard>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QSignalSpy>

#include "tests/support/DocumentTest.h"
#include "ui/document/EntryColors.h"

namespace {

struct MarkedDocument : OpenDocument {
    /// The characters in a colour of their own, each run with its colour.
    QStringList marks() const {
        QStringList texts;
        for (const QTextEdit::ExtraSelection& mark : entry()->extraSelections()) {
            texts.append(mark.cursor.selectedText() + QString("@%1 ").arg(mark.cursor.selectionStart()) +
                         mark.format.foreground().color().name());
        }
        return texts;
    }
    QStringList marksAfter(QStringView keys) const {
        press(keys);
        return marks();
    }
    /// How many pixels the caret and what is behind the text have: all that is neither text nor background.
    QImage picture() const { return entry()->viewport()->grab().toImage(); }
    QColor behind(qsizetype position) const {
        return picture().pixelColor(entry()->leftOf(position) + 3, entry()->lineTop() + 1);
    }
};

const QColor base(Qt::white);

TEST(Brackets, areMarkedWhereTheCaretIs) {
    MarkedDocument open;
    open.press(u"2*(r+1)");
    const QColor marked = open.behind(2);
    EXPECT_NE(marked, base);
    EXPECT_EQ(open.behind(6), marked);
    const QColor highlight = open.entry()->palette().color(QPalette::Highlight);
    EXPECT_NEAR(marked.red(), 255 - (255 - highlight.red()) * 0.25, 3) << "a quarter of the highlight";
    EXPECT_EQ(open.behind(0), base);
    open.press(u"←←");
    EXPECT_EQ(open.behind(2), base) << "the caret is at no bracket";
    open.press(u"↖→→");
    EXPECT_EQ(open.behind(2), marked);
    open.press(u"⌘");
    EXPECT_NE(open.behind(2), marked) << "something is selected";
}

TEST(Brackets, areSeenInTheMiniWindowToo) {
    MarkedDocument open;
    open.document.windowShouldZoom();
    open.press(u"2*(3)");
    EXPECT_GT(qGray(open.behind(2).rgb()), qGray(open.behind(0).rgb()) + 40);
}

TEST(Brackets, areNotMarkedWithoutTheirPartner) {
    MarkedDocument open;
    open.press(u"(2");
    open.press(u"↖");
    EXPECT_EQ(open.behind(0), base);
}

TEST(Brackets, withoutAnOpeningOneHaveTheColourOfErrors) {
    MarkedDocument open;
    EXPECT_EQ(open.marksAfter(u"(2))+1"), QStringList(")@3 #d41818"));
    EXPECT_EQ(open.marksAfter(u"↖("), QStringList());
    EXPECT_EQ(open.line(), "((2))+1") << "nothing is inserted by itself";
}

TEST(Brackets, areLightOnDark) {
    MarkedDocument open;
    open.document.windowShouldZoom();
    EXPECT_EQ(open.marksAfter(u")"), QStringList(")@0 #ff8a8a"));
}

TEST(Brackets, inVeryLongLinesAreLeftAlone) {
    MarkedDocument open;
    open.entry()->setText(QString(2000, u')'));
    EXPECT_EQ(open.marks().size(), 2000);
    open.entry()->setText(QString(2001, u')'));
    EXPECT_EQ(open.marks().size(), 0);
}

TEST(EquationColors, areThereWhenTheUserWantsThem) {
    MarkedDocument open;
    const EntryColors& colors = EntryColors::on(base);
    EXPECT_EQ(open.marksAfter(u"r=5⏎⌘2*sin(r)+x"), QStringList());
    open.document.setEntryOptions({true, true, true});
    EXPECT_EQ(open.marks(), QStringList({"2@0 " + colors.number.name(), "sin@2 " + colors.function.name(),
                                         "r@6 " + colors.variable.name()}));
    open.press(u"⌘x=1⏎");
    EXPECT_EQ(open.marks(), QStringList({"x@0 " + colors.variable.name(), "1@2 " + colors.number.name()}))
        << "the name has a value now";
    open.document.setEntryOptions({});
    EXPECT_EQ(open.marks(), QStringList());
}

TEST(Marks, moveNeitherCaretNorSelectionNorEndTheContinuation) {
    MarkedDocument open;
    open.press(u"(2)*(3)⏎");
    const QSignalSpy caret(open.entry(), &QPlainTextEdit::cursorPositionChanged);
    const QSignalSpy selection(open.entry(), &QPlainTextEdit::selectionChanged);
    const QSignalSpy text(open.entry(), &QPlainTextEdit::textChanged);
    open.document.setEntryOptions({true, true, true});
    QPalette dark = open.entry()->palette();
    dark.setColor(QPalette::Base, Qt::black);
    open.entry()->setPalette(dark);
    open.entry()->refreshMarks();
    open.picture();
    EXPECT_EQ(open.marks().size(), 2);
    EXPECT_EQ(caret.count() + selection.count() + text.count(), 0);
    EXPECT_EQ(open.selection(), "(2)*(3)");
    EXPECT_TRUE(open.entry()->wasFormulaJustCalculated());
    EXPECT_TRUE(open.entry()->permissibleToEnterTextFlag());
    open.press(u"^");
    EXPECT_EQ(open.line(), "ans^");
}

TEST(Marks, restWhileSomethingIsComposed) {
    MarkedDocument open;
    open.press(u"2)↖");
    QInputMethodEvent composing(QStringLiteral("´"), {});
    QApplication::sendEvent(open.entry(), &composing);
    EXPECT_EQ(open.marks(), QStringList()) << "they would stand beside their characters";
    QInputMethodEvent done;
    QApplication::sendEvent(open.entry(), &done);
    EXPECT_EQ(open.marks(), QStringList(")@1 #d41818"));
}

TEST(Marks, areNoStepsToUndo) {
    MarkedDocument open;
    open.press(u"2)");
    open.document.setEntryOptions({true, true, true});
    QTest::keyClick(open.entry(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(open.line(), "");
}

TEST(Marks, areNotCopied) {
    MarkedDocument open;
    open.document.setEntryOptions({true, true, true});
    open.press(u"2*pi)⌘");
    QTest::keyClick(open.entry(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "2*pi)");
    EXPECT_EQ(QGuiApplication::clipboard()->mimeData()->formats(), QStringList("text/plain"));
}

TEST(EntryOptions, areThoseThatWereStored) {
    const FreshDefaults fresh;
    EXPECT_EQ(EntryOptions::stored(), EntryOptions()) << "an answer and names, but no colours";
    const EntryOptions others{false, false, true};
    others.store();
    EXPECT_EQ(EntryOptions::stored(), others);
    EXPECT_EQ(MyDocument().entryOptions(), others);
    QSettings().clear();
}

}  // namespace
