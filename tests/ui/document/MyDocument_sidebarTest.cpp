// The sidebar in its window: when it is reloaded, hidden and shown, and the panes when the window changes its size.

#include <QMimeData>
#include <QSplitter>

#include "tests/support/Sidebar.h"
#include "ui/UserDefaults.h"

namespace {

/// Gives the window a new size, as the window manager does.
void resize(const OpenDocument& open, int width, int height) {
    open.document.documentWindow()->resize(width, height);
    QTest::qWait(0);
}

/// Moves the divider between two panes as the pointer does; a few pixels go into where it was taken hold of.
void dragDivider(QSplitter* splitView, const QPoint& by) {
    QWidget* divider = splitView->handle(1);
    const QPoint start = divider->rect().center();
    QTest::mousePress(divider, Qt::LeftButton, Qt::NoModifier, start);
    QMouseEvent move(QEvent::MouseMove, start + by, divider->mapToGlobal(start + by), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QApplication::sendEvent(divider, &move);
    QTest::mouseRelease(divider, Qt::LeftButton);
}

TEST(SidebarInDocument, isConnectedToIt) {
    Sidebar sidebar;
    MyDocument& document = sidebar.document;
    EXPECT_EQ(sidebar.view()->model(), &sidebar.controller());
    EXPECT_EQ(sidebar.view()->parentDocument(), &document);
    EXPECT_EQ(sidebar.controller().parentDocument(), &document);
    EXPECT_EQ(sidebar.controller().variableOutlineView(), sidebar.view());
    EXPECT_EQ(sidebar.controller().variableArray(), &document.variableArray());
    EXPECT_EQ(sidebar.controller().documentNumberFormatter(), &document.documentNumberFormatter());
}

TEST(SidebarInDocument, hasItsColumnAndGroupsBeforeTheWindowIsShown) {
    const MyDocument document;
    EXPECT_EQ(document.variableOutlineView()->columnWidth(0), 181);
    EXPECT_EQ(document.variableOutlineView()->numberOfRows(), 4);
}

TEST(SidebarInDocument, isTwoHundredWideBesideHistoryAndEntry) {
    const OpenDocument open;
    EXPECT_EQ(open.document.controlledView()->width(), 200);
    EXPECT_EQ(open.document.mySplitView()->handleWidth(), 1);
    EXPECT_EQ(open.document.secondarySplitView()->handleWidth(), 1);
    EXPECT_EQ(open.document.secondarySplitView()->width(), 760 - 201);
    EXPECT_TRUE(open.document.secondarySplitView()->isAncestorOf(open.document.mainField()));
    EXPECT_TRUE(open.document.secondaryControlledView()->isAncestorOf(open.document.formulaTextView()));
}

TEST(SidebarInDocument, showsAValueAsSoonAsItIsCalculated) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎");
    EXPECT_EQ(sidebar.rows().last(), " x=4");
    sidebar.press(u"x=5⏎");
    EXPECT_EQ(sidebar.rows().last(), " x=5");
    const QStringList before = sidebar.rows();
    sidebar.press(u"(2⏎");
    EXPECT_EQ(sidebar.rows(), before);
}

/// How the view looks once it has painted what it was told to.
QImage picture(const Sidebar& sidebar) {
    QTest::qWait(0);
    return sidebar.view()->viewport()->grab().toImage();
}

TEST(SidebarInDocument, isPaintedAgainWhenAValueOrACharacterChanges) {
    Sidebar sidebar;
    sidebar.document.documentNumberFormatterSettings().setThousandsSeparators(true);
    sidebar.press(u"x=4000⏎");
    EXPECT_EQ(sidebar.rows().last(), " x=4,000");
    const QImage before = picture(sidebar);
    sidebar.press(u"x=5000⏎");
    const QImage after = picture(sidebar);
    EXPECT_NE(before, after);
    sidebar.document.changeThousandsSeparatorCharacter(2);
    EXPECT_EQ(sidebar.rows().last(), " x=5'000");
    EXPECT_NE(picture(sidebar), after);
}

/// Whether the sidebar is told to reload, seen by a variable that is not there before.
template <class Operation>
bool reloads(const Operation& operation) {
    Sidebar sidebar;
    sidebar.document.documentEquationController().addOneStringBlindly(u"x=4");
    operation(sidebar.document);
    return sidebar.row("x=").isValid();
}

TEST(SidebarInDocument, isReloadedByAChangeOfACharacterOnly) {
    EXPECT_TRUE(reloads([](MyDocument& document) { document.changeThousandsSeparatorCharacter(1); }));
    EXPECT_FALSE(reloads([](MyDocument& document) { document.changeThousandsSeparatorCharacter(3); }));
    EXPECT_TRUE(reloads([](MyDocument& document) { document.changeExponentCharacter(1); }));
    EXPECT_FALSE(reloads([](MyDocument& document) { document.changeExponentCharacter(-1); }));
}

TEST(SidebarInDocument, isReloadedByEveryChoiceOfAFormat) {
    const auto trigger = [](const char* item) {
        return [item](MyDocument& document) { document.documentWindow()->findChild<QAction*>(item)->trigger(); };
    };
    for (const char* item :
         {"formattingType1", "formattingType7", "thousandsSeparators", "digits0", "digits4", "digits21"}) {
        EXPECT_TRUE(reloads(trigger(item))) << item;
    }
    EXPECT_TRUE(reloads([&](MyDocument& document) {
        trigger("digits13")(document);
        document.documentEquationController().addOneStringBlindly(u"y=1");
        trigger("addZeros")(document);
        EXPECT_EQ(document.variableOutlineViewController()->temporaryVariableArrays()[2].size(), 2U);
    }));
    EXPECT_FALSE(reloads(trigger("degrees")));
}

TEST(SidebarInDocument, isHiddenAndComesBackAsItWas) {
    OpenDocument open;
    dragDivider(open.document.mySplitView(), {60, 0});
    const int chosen = open.document.controlledView()->width();
    EXPECT_NEAR(chosen, 260, 3);
    open.document.setSidebarShown(false);
    EXPECT_FALSE(open.document.isSidebarShown());
    QTest::qWait(0);
    EXPECT_EQ(open.document.secondarySplitView()->width(), 760);
    resize(open, 900, 600);
    EXPECT_EQ(open.document.secondarySplitView()->width(), 900);
    EXPECT_EQ(open.document.secondaryControlledView()->height(), 50);
    open.document.setSidebarShown(true);
    EXPECT_TRUE(open.document.isSidebarShown());
    QTest::qWait(0);
    EXPECT_EQ(open.document.controlledView()->width(), chosen);
}

TEST(SidebarInDocument, givesTheFocusToTheEntryWhenItGoes) {
    Sidebar sidebar;
    sidebar.view()->setFocus();
    sidebar.document.setSidebarShown(false);
    EXPECT_TRUE(sidebar.entry()->hasFocus());
    sidebar.document.mainField()->setFocus();
    sidebar.document.setSidebarShown(true);
    sidebar.document.setSidebarShown(false);
    EXPECT_TRUE(sidebar.document.mainField()->hasFocus());
}

TEST(SidebarInDocument, isReachedByTabBetweenEntryAndHistory) {
    const Sidebar sidebar;
    for (int i = 0; i < 20 && !sidebar.view()->hasFocus(); ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(sidebar.view()->hasFocus());
    EXPECT_EQ(sidebar.currentRow(), "Constants");
    QTest::keyClick(sidebar.view(), Qt::Key_Tab);
    EXPECT_TRUE(sidebar.document.mainField()->hasFocus());
}

TEST(PanesOfAWindow, keepSidebarAndEntryWhenItGrowsAndShrinks) {
    const OpenDocument open;
    const std::pair<int, int> sizes[] = {{900, 700}, {760, 500}, {500, 300}, {420, 260}, {1200, 900}};
    for (const auto& [width, height] : sizes) {
        SCOPED_TRACE(width);
        resize(open, width, height);
        EXPECT_EQ(open.document.controlledView()->width(), 200);
        EXPECT_EQ(open.document.secondaryControlledView()->height(), 50);
        EXPECT_EQ(open.document.currentWidth(), 200.0F);
        EXPECT_EQ(open.document.secondaryCurrentWidth(), static_cast<float>(open.document.mainField()->height()));
    }
}

TEST(PanesOfAWindow, keepWhatTheUserChose) {
    const OpenDocument open;
    dragDivider(open.document.mySplitView(), {-50, 0});
    dragDivider(open.document.secondarySplitView(), {0, -70});
    const int width = open.document.controlledView()->width();
    const int height = open.document.secondaryControlledView()->height();
    EXPECT_NEAR(width, 150, 3);
    EXPECT_NEAR(height, 120, 3);
    resize(open, 1000, 800);
    EXPECT_EQ(open.document.currentWidth(), static_cast<float>(width));
    EXPECT_EQ(open.document.controlledView()->width(), width);
    EXPECT_EQ(open.document.secondaryControlledView()->height(), height);
    EXPECT_EQ(open.document.variableOutlineView()->columnWidth(0), width - 19);
}

TEST(PanesOfAWindow, leaveTheHistoryThreeAtTheLeast) {
    const OpenDocument open;
    resize(open, 760, 900);
    dragDivider(open.document.secondarySplitView(), {0, -600});
    EXPECT_NEAR(open.document.secondaryControlledView()->height(), 650, 3);
    resize(open, 760, 300);
    EXPECT_EQ(open.document.secondaryCurrentWidth(), 3.0F);
    EXPECT_EQ(open.document.mainField()->height(), 3);
}

TEST(PanesOfAWindow, areNotedBeforeItsLayoutMovesThem) {
    OpenDocument open;
    EXPECT_EQ(open.document.windowWillResize(*open.document.documentWindow(), QSize(10, 20)), QSize(10, 20));
    EXPECT_EQ(open.document.currentWidth(), 200.0F);
    EXPECT_EQ(open.document.secondaryCurrentWidth(), 50.0F);
    open.document.windowDidResize();
    const int extent = open.document.secondarySplitView()->height();
    EXPECT_EQ(open.document.secondaryCurrentWidth(), static_cast<float>(extent - 50 - 1));
    EXPECT_EQ(open.document.mainField()->height(), extent - 50 - 1);
}

TEST(PanesOfAWindow, areLeftAloneByTheMiniWindow) {
    OpenDocument open;
    dragDivider(open.document.mySplitView(), {30, 0});
    const int width = open.document.controlledView()->width();
    EXPECT_GT(width, 220);
    const float secondary = open.document.secondaryCurrentWidth();
    open.document.setIsSmallWindowShown(true);
    const int height = open.document.miniWindow()->height();
    EXPECT_EQ(open.document.windowWillResize(*open.document.miniWindow(), QSize(500, 999)), QSize(500, height));
    open.document.windowDidResize();
    EXPECT_EQ(open.document.currentWidth(), 200.0F);
    EXPECT_EQ(open.document.secondaryCurrentWidth(), secondary);
    EXPECT_EQ(open.document.controlledView()->width(), width);
}

TEST(PanesOfAWindow, areMirroredOnMirroredDesktops) {
    const OpenDocument open;
    open.document.documentWindow()->setLayoutDirection(Qt::RightToLeft);
    resize(open, 900, 700);
    EXPECT_EQ(open.document.controlledView()->width(), 200);
    EXPECT_GT(open.document.controlledView()->x(), open.document.secondarySplitView()->geometry().right());
}

}  // namespace
