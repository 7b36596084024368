// From the full window to the mini window and back, and what the mini window shows and offers.

#include <QAccessible>
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>

#include "tests/support/DocumentTest.h"
#include "ui/UserDefaults.h"
#include "ui/document/MiniModeAnswerField.h"
#include "ui/document/PullDownButton.h"

namespace {

struct OpenModes : OpenDocument {
    void zoom() {
        EXPECT_FALSE(document.windowShouldZoom());
        EXPECT_TRUE(QTest::qWaitForWindowActive(document.activeWindow()));
    }
    QString answer() const { return document.miniModeAnswerField()->text(); }
    QLabel* label() const { return document.miniWindow()->findChild<QLabel*>("miniModeFormatLabel"); }
    void chooseType(int type) { document.formattingTypeButton()->itemAtIndex(type)->trigger(); }
    void chooseDegrees() const { document.angleUnitActions().last()->trigger(); }
    void select(int anchor, int position) const {
        QTextCursor cursor = entry()->textCursor();
        cursor.setPosition(anchor);
        cursor.setPosition(position, QTextCursor::KeepAnchor);
        entry()->setTextCursor(cursor);
    }
    std::pair<int, int> selectedRange() const {
        return {entry()->textCursor().anchor(), entry()->textCursor().position()};
    }
    QMenu* openMenu() const {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        EXPECT_NE(menu, nullptr);
        return menu;
    }
};

QAction* entryNamed(const QMenu* menu, const QString& text) {
    for (QAction* entry : menu->actions()) {
        if (entry->text().remove(u'&') == text) return entry;
    }
    ADD_FAILURE() << text.toStdString();
    return nullptr;
}

TEST(WindowShouldZoom, changesTheWindowAndBack) {
    OpenModes open;
    const QRect frame = open.document.documentWindow()->geometry();
    const QSignalSpy changed(&open.document, &MyDocument::miniModeChanged);
    open.document.documentWindow()->setWindowTitle("Untitled 7");
    open.zoom();
    EXPECT_TRUE(open.document.isSmallWindowShown());
    EXPECT_TRUE(open.document.miniWindow()->isVisible());
    EXPECT_FALSE(open.document.documentWindow()->isVisible());
    EXPECT_EQ(open.document.miniWindow()->windowTitle(), "Untitled 7");
    EXPECT_EQ(open.document.activeWindow(), open.document.miniWindow());
    EXPECT_TRUE(open.document.miniModeformulaTextView()->hasFocus());
    open.zoom();
    EXPECT_FALSE(open.document.isSmallWindowShown());
    EXPECT_FALSE(open.document.miniWindow()->isVisible());
    EXPECT_TRUE(open.document.documentWindow()->isVisible());
    EXPECT_EQ(open.document.documentWindow()->geometry(), frame);
    EXPECT_TRUE(open.document.formulaTextView()->hasFocus());
    EXPECT_EQ(changed.count(), 2);
}

TEST(MiniWindow, isNotMadeBeforeItIsNeeded) {
    OpenModes open;
    open.press(u"2+3⏎");
    open.chooseDegrees();
    open.document.setKeepsMiniWindowOnTop(true);
    EXPECT_EQ(open.document.windows(), QList<QWidget*>{open.document.documentWindow()});
    const QSignalSpy loaded(&open.document, &MyDocument::miniWindowLoaded);
    open.zoom();
    EXPECT_EQ(open.document.windows(), QList<QWidget*>({open.document.documentWindow(), open.document.miniWindow()}));
    EXPECT_EQ(loaded.count(), 1);
    EXPECT_EQ(open.answer(), "5");
    EXPECT_EQ(open.label()->text(), "deg");
    EXPECT_TRUE(open.document.miniWindow()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST(WindowShouldZoom, closesNoDocument) {
    OpenModes open;
    const QSignalSpy closed(&open.document, &MyDocument::closed);
    open.zoom();
    open.zoom();
    EXPECT_EQ(closed.count(), 0);
    open.zoom();
    open.document.miniWindow()->close();
    EXPECT_EQ(closed.count(), 1);
}

TEST(WindowShouldZoom, isWhatTheMiniButtonDoes) {
    const OpenModes open;
    auto* const button = open.document.documentWindow()->findChild<QPushButton*>("miniModeButton");
    EXPECT_TRUE(button->toolTip().contains("Ctrl+Shift+M"));
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(open.document.isSmallWindowShown());
}

TEST(WindowShouldZoom, handsOverTextSelectionAndFlagsBothWays) {
    struct Row {
        bool wasCalculated;
        bool isPermissible;
        std::pair<int, int> range;
    };
    for (const Row& row :
         {Row{true, true, {0, 5}}, Row{true, false, {5, 2}}, Row{false, true, {3, 3}}, Row{false, false, {1, 4}}}) {
        OpenModes open;
        open.press(u"12+34");
        for (int way = 0; way < 2; ++way) {
            open.select(row.range.first, row.range.second);
            open.entry()->setWasFormulaJustCalculated(row.wasCalculated);
            open.entry()->setPermissibleToEnterTextFlag(row.isPermissible);
            const QString line = open.line();
            open.zoom();
            EXPECT_EQ(open.line(), line);
            EXPECT_EQ(open.selectedRange(), row.range);
            EXPECT_EQ(open.entry()->wasFormulaJustCalculated(), row.wasCalculated);
            EXPECT_EQ(open.entry()->permissibleToEnterTextFlag(), row.isPermissible);
            if (way == 1) break;
            open.press(u"↖9");
        }
        EXPECT_EQ(open.line(), "912+34");
    }
}

TEST(WindowShouldZoom, continuesFromTheLastAnswerInEitherWindow) {
    OpenModes open;
    open.press(u"2+3⏎");
    open.zoom();
    open.press(u"*2⏎");
    EXPECT_EQ(open.answer(), "10");
    open.zoom();
    open.press(u"-1⏎");
    EXPECT_EQ(open.history(), "2+3\n\t= 5\n\nans1*2\n\t= 10\n\nans2-1\n\t= 9\n");
}

TEST(WindowShouldZoom, sharesOneScrollback) {
    OpenModes open;
    open.press(u"1⏎2⏎");
    open.zoom();
    open.press(u"⇑");
    EXPECT_EQ(open.line(), "1");
    open.zoom();
    open.press(u"⇓");
    EXPECT_EQ(open.line(), "2");
}

TEST(WindowShouldZoom, keepsTheUndoHistoryOfALineThatIsTheSame) {
    OpenModes open;
    open.press(u"12");
    open.entry()->setText("34");
    open.zoom();
    EXPECT_FALSE(open.entry()->document()->isUndoAvailable());
    open.zoom();
    open.entry()->undo();
    EXPECT_EQ(open.line(), "12");
}

TEST(WindowShouldZoom, beginsANewUndoHistoryForANewLine) {
    OpenModes open;
    open.press(u"12");
    open.zoom();
    open.press(u"3");
    open.entry()->undo();
    EXPECT_EQ(open.line(), "12");
    open.entry()->redo();
    open.zoom();
    EXPECT_EQ(open.line(), "123");
    EXPECT_FALSE(open.entry()->document()->isUndoAvailable());
    open.press(u"4");
    open.entry()->undo();
    EXPECT_EQ(open.line(), "123");
}

TEST(MiniWindowAnswer, isEmptyInANewDocument) {
    OpenModes open;
    open.zoom();
    EXPECT_EQ(open.answer(), "");
    EXPECT_EQ(open.label()->text(), "rad");
}

TEST(MiniWindowAnswer, isThatOfTheLastLineInThePresentFormat) {
    OpenModes open;
    open.press(u"1⏎x=1/4⏎");
    open.zoom();
    EXPECT_EQ(open.answer(), "x = 0.25");
    open.zoom();
    open.chooseType(4);
    open.zoom();
    EXPECT_EQ(open.answer(), "x = 25%");
    EXPECT_EQ(open.label()->text(), "rad Percent");
    EXPECT_EQ(open.document.miniModeAnswerField()->font().pointSizeF(), 18.0);
    EXPECT_EQ(open.document.miniModeAnswerField()->font().family(), "Arial");
}

TEST(MiniWindowAnswer, isTheErrorOfTheLastLine) {
    OpenModes open;
    open.press(u"1⏎⌘sin(30⏎");
    open.zoom();
    EXPECT_EQ(open.answer(), "Error: There is an open parenthesis in the equation -- you are missing a ).");
    EXPECT_EQ(open.document.miniModeAnswerField()->font().pointSizeF(), 12.0);
    EXPECT_TRUE(open.document.miniModeAnswerField()->alignment().testFlag(Qt::AlignLeft));
    EXPECT_FALSE(open.label()->isVisible());
    open.press(u"⌘2⏎");
    EXPECT_EQ(open.answer(), "2");
    EXPECT_TRUE(open.label()->isVisible());
    EXPECT_TRUE(open.document.miniModeAnswerField()->alignment().testFlag(Qt::AlignRight));
}

TEST(MiniWindowLabel, saysUnitAndFormat) {
    OpenModes open;
    open.zoom();
    open.chooseDegrees();
    EXPECT_EQ(open.label()->text(), "deg");
    open.chooseType(7);
    EXPECT_EQ(open.label()->text(), "deg Hexadecimal");
    open.chooseType(1);
    EXPECT_EQ(open.label()->text(), "deg");
    EXPECT_EQ(open.label()->font().pointSizeF(), 11.0);
    EXPECT_EQ(open.label()->palette().color(QPalette::WindowText), QColor(255, 255, 255, 178));
}

TEST(MiniWindow, tellsAScreenReaderWhatItShows) {
    OpenModes open;
    open.zoom();
    open.press(u"1/4⏎");
    EXPECT_EQ(open.document.miniModeAnswerField()->accessibleDescription(), "0.25");
    open.press(u"⌘sin(30⏎");
    EXPECT_EQ(open.document.miniModeAnswerField()->accessibleDescription(), open.answer());
    open.chooseType(7);
    EXPECT_EQ(open.label()->accessibleDescription(), "rad Hexadecimal");
    EXPECT_EQ(QAccessible::queryAccessibleInterface(open.document.miniWindow())->role(), QAccessible::Window);
}

TEST(MiniWindowLabel, isNeverCutInTheNarrowestWindow) {
    OpenModes open;
    open.chooseDegrees();
    open.chooseType(7);
    open.zoom();
    open.document.miniWindow()->resize(220, 84);
    open.press(u"123456789⏎");
    QTest::qWait(0);
    EXPECT_GE(open.label()->width(), open.label()->sizeHint().width());
    EXPECT_GT(open.document.miniModeAnswerField()->x(), open.label()->geometry().right());
    EXPECT_TRUE(open.document.miniModeAnswerField()->isElided());
    EXPECT_EQ(open.document.miniModeAnswerField()->toolTip(), "0x75BCD15");
}

TEST(MiniWindowAnswer, leavesTheEntryInItsPlace) {
    OpenModes open;
    open.zoom();
    const QRect place = open.entry()->geometry();
    open.press(u"sin(30⏎");
    QTest::qWait(0);
    EXPECT_EQ(open.entry()->geometry(), place);
    EXPECT_EQ(open.document.miniWindow()->height(), 84);
}

TEST(MiniWindow, comesBackFromAScreenThatIsGone) {
    OpenModes open;
    open.zoom();
    open.document.miniWindow()->move(90000, 90);
    open.zoom();
    open.zoom();
    const QRect screen = open.document.documentWindow()->screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(open.document.miniWindow()->geometry()));
}

TEST(MiniWindow, returnsToTheFullWindowWhenItIsMaximized) {
    OpenModes open;
    open.zoom();
    open.document.miniWindow()->showMaximized();
    EXPECT_TRUE(QTest::qWaitForWindowActive(open.document.documentWindow()));
    EXPECT_FALSE(open.document.isSmallWindowShown());
    EXPECT_FALSE(open.document.documentWindow()->isMaximized());
    open.zoom();
    EXPECT_FALSE(open.document.miniWindow()->isMaximized());
    EXPECT_EQ(open.document.miniWindow()->height(), 84);
}

TEST(FullWindow, maximizesAsEverywhere) {
    const OpenModes open;
    open.document.documentWindow()->showMaximized();
    QTest::qWait(0);
    EXPECT_TRUE(open.document.documentWindow()->isMaximized());
    EXPECT_FALSE(open.document.isSmallWindowShown());
}

TEST(MiniWindow, remembersItsPlaceForNewDocuments) {
    OpenModes open;
    open.zoom();
    open.document.miniWindow()->move(120, 90);
    open.document.miniWindow()->resize(400, 84);
    open.zoom();
    MyDocument next;
    next.windowShouldZoom();
    EXPECT_EQ(next.miniWindow()->pos(), QPoint(120, 90));
    EXPECT_EQ(next.miniWindow()->size(), QSize(400, 84));
    next.miniWindow()->move(40, 50);
    next.close();
    MyDocument last;
    last.windowShouldZoom();
    EXPECT_EQ(last.miniWindow()->pos(), QPoint(40, 50));
}

TEST(MiniWindow, opensOnTheScreenWhateverIsStored) {
    const OpenModes open;
    const QRect screen = open.document.documentWindow()->screen()->availableGeometry();
    for (const QRect& stored : {QRect(-5000, -5000, 340, 84), QRect(90000, 90000, 340, 84), QRect(0, 0, 90000, 84)}) {
        UserDefaults().setInterfaceValue(stored, "miniWindowPlace");
        MyDocument document;
        document.windowShouldZoom();
        EXPECT_TRUE(screen.contains(document.miniWindow()->geometry().topLeft()));
        EXPECT_TRUE(screen.contains(document.miniWindow()->geometry().center()));
        EXPECT_LE(document.miniWindow()->width(), screen.width());
    }
}

TEST(KeepMiniWindowOnTop, isRememberedForNewDocuments) {
    OpenModes open;
    EXPECT_FALSE(open.document.keepsMiniWindowOnTop());
    open.zoom();
    const QSignalSpy changed(&open.document, &MyDocument::keepsMiniWindowOnTopChanged);
    open.press(u"1");
    open.document.setKeepsMiniWindowOnTop(true);
    EXPECT_TRUE(open.document.miniWindow()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(open.document.miniWindow()->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(open.document.miniWindow()->isVisible());
    EXPECT_TRUE(open.entry()->hasFocus());
    open.document.setKeepsMiniWindowOnTop(true);
    EXPECT_EQ(changed.count(), 1);
    const MyDocument next;
    EXPECT_TRUE(next.keepsMiniWindowOnTop());
    EXPECT_TRUE(next.miniWindow()->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    open.document.setKeepsMiniWindowOnTop(false);
    EXPECT_FALSE(open.document.miniWindow()->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(MyDocument().keepsMiniWindowOnTop());
    EXPECT_FALSE(QSettings().value("interface/keepMiniWindowOnTop").toBool());
}

TEST(KeepMiniWindowOnTop, canBeHadEverywhereButOnWayland) {
    EXPECT_TRUE(MyDocument::canKeepMiniWindowOnTop("xcb"));
    EXPECT_TRUE(MyDocument::canKeepMiniWindowOnTop("windows"));
    EXPECT_FALSE(MyDocument::canKeepMiniWindowOnTop("wayland"));
    EXPECT_FALSE(MyDocument::canKeepMiniWindowOnTop("wayland-egl"));
}

TEST(MiniWindowMenu, offersUnitPlaceAndFullWindow) {
    OpenModes open;
    open.zoom();
    QWidget* const field = open.document.miniModeAnswerField();
    QContextMenuEvent rightClick(QContextMenuEvent::Mouse, field->rect().center(),
                                 field->mapToGlobal(field->rect().center()));
    QApplication::sendEvent(field, &rightClick);
    QMenu* menu = open.openMenu();
    QStringList texts;
    for (const QAction* entry : menu->actions()) texts.append(entry->isSeparator() ? "-" : entry->text());
    EXPECT_EQ(texts,
              QStringList({"Copy &Last Answer", "-", "Rad&ians", "&Degrees", "-", "&Keep on Top", "&Full Window"}));
    EXPECT_TRUE(entryNamed(menu, "Radians")->isChecked());
    QTest::keyClick(menu, Qt::Key_D);
    EXPECT_EQ(open.label()->text(), "deg");
    QApplication::sendEvent(field, &rightClick);
    QTest::keyClick(open.openMenu(), Qt::Key_K);
    EXPECT_TRUE(open.document.keepsMiniWindowOnTop());
    QApplication::sendEvent(field, &rightClick);
    EXPECT_TRUE(entryNamed(open.openMenu(), "Keep on Top")->isChecked());
    QTest::keyClick(open.openMenu(), Qt::Key_F);
    EXPECT_FALSE(open.document.isSmallWindowShown());
}

TEST(MiniWindowMenu, copiesTheLastAnswerOnceThereIsOne) {
    OpenModes open;
    open.zoom();
    QWidget* const field = open.document.miniModeAnswerField();
    QContextMenuEvent rightClick(QContextMenuEvent::Mouse, field->rect().center(),
                                 field->mapToGlobal(field->rect().center()));
    QApplication::sendEvent(field, &rightClick);
    EXPECT_FALSE(entryNamed(open.openMenu(), "Copy Last Answer")->isEnabled());
    QTest::keyClick(open.openMenu(), Qt::Key_Escape);
    open.press(u"2+3⏎");
    QApplication::sendEvent(field, &rightClick);
    QTest::keyClick(open.openMenu(), Qt::Key_L);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "5");
}

TEST(MiniWindowMenu, comesAfterTheCommandsForTextInTheEntry) {
    OpenModes open;
    open.press(u"2+3⏎");
    open.zoom();
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(5, 5), open.entry()->mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(open.entry()->viewport(), &key);
    QMenu* menu = open.openMenu();
    QStringList mnemonics;
    for (const QAction* entry : menu->actions()) {
        if (!entry->isSeparator()) mnemonics.append(QKeySequence::mnemonic(entry->text()).toString());
    }
    EXPECT_EQ(mnemonics.size(), 11);
    EXPECT_EQ(mnemonics.removeDuplicates(), 0);
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, menu->actionGeometry(entryNamed(menu, "Degrees")).center());
    EXPECT_FALSE(open.document.documentEquationController().useRadians());
    open.press(u"+");
    EXPECT_EQ(open.line(), "ans+");
}

}  // namespace
