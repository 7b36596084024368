// The dividers between the panes, moved by keys and by assistive technology.

#include "ui/document/SplitView.h"

#include <QAccessible>
#include <QScreen>

#include "tests/support/Sidebar.h"

namespace {

/// A document whose dividers get the focus one after the other.
struct Dividers : Sidebar {
    QSplitterHandle* ofSidebar() const { return document.mySplitView()->handle(1); }
    QSplitterHandle* ofEntry() const { return document.secondarySplitView()->handle(1); }
    int sidebarWidth() const { return document.controlledView()->width(); }
    int entryHeight() const { return document.secondaryControlledView()->height(); }
    void press(Qt::Key key) const { QTest::keyClick(QApplication::focusWidget(), key); }
    QAccessibleInterface* accessible() const { return QAccessible::queryAccessibleInterface(ofSidebar()); }
};

TEST(Dividers, getTheFocusOneAfterTheOtherAndGiveItBack) {
    Dividers open;
    for (const QWidget* next : {static_cast<QWidget*>(open.ofSidebar()), static_cast<QWidget*>(open.ofEntry()),
                                static_cast<QWidget*>(open.entry())}) {
        open.document.moveToNextDivider();
        EXPECT_EQ(QApplication::focusWidget(), next);
    }
    open.document.setSidebarShown(false);
    open.document.moveToNextDivider();
    EXPECT_TRUE(open.ofEntry()->hasFocus());
    open.document.windowShouldZoom();
    EXPECT_TRUE(QTest::qWaitForWindowActive(open.document.miniWindow()));
    open.document.moveToNextDivider();
    EXPECT_TRUE(open.entry()->hasFocus());
}

TEST(Dividers, loseTheFocusWithTheSidebar) {
    Dividers open;
    open.document.moveToNextDivider();
    open.document.setSidebarShown(false);
    EXPECT_TRUE(open.entry()->hasFocus());
}

TEST(Dividers, areMovedByArrows) {
    Dividers open;
    const int height = open.entryHeight();
    open.document.moveToNextDivider();
    open.press(Qt::Key_Right);
    open.press(Qt::Key_Right);
    EXPECT_EQ(open.sidebarWidth(), 220);
    open.press(Qt::Key_Left);
    EXPECT_EQ(open.sidebarWidth(), 210);
    open.press(Qt::Key_Up);
    EXPECT_EQ(open.sidebarWidth(), 210);
    EXPECT_EQ(open.entryHeight(), height);
    EXPECT_TRUE(open.ofSidebar()->hasFocus());

    open.document.moveToNextDivider();
    open.press(Qt::Key_Up);
    EXPECT_EQ(open.entryHeight(), height + 10);
    open.press(Qt::Key_Up);
    open.press(Qt::Key_Down);
    EXPECT_EQ(open.entryHeight(), height + 10);
    open.press(Qt::Key_Left);
    EXPECT_EQ(open.sidebarWidth(), 210);
}

TEST(Dividers, goAsFarAsThePanesLetThem) {
    Dividers open;
    open.document.moveToNextDivider();
    open.press(Qt::Key_Home);
    EXPECT_EQ(open.sidebarWidth(), open.view()->minimumWidth());
    open.press(Qt::Key_End);
    EXPECT_EQ(open.document.secondarySplitView()->width(),
              open.document.secondarySplitView()->minimumSizeHint().width());
    open.document.moveToNextDivider();
    open.press(Qt::Key_Home);
    EXPECT_EQ(open.document.mainField()->height(), 3);
    open.press(Qt::Key_End);
    EXPECT_LT(open.entryHeight(), 50);
    EXPECT_GE(open.entryHeight(), open.document.secondaryControlledView()->minimumSizeHint().height());
}

TEST(Dividers, moveAsTheArrowsPointOnMirroredDesktops) {
    const Dividers open;
    open.document.documentWindow()->setLayoutDirection(Qt::RightToLeft);
    QTest::qWait(0);
    open.ofSidebar()->setFocus();
    const int width = open.sidebarWidth();
    open.press(Qt::Key_Left);
    EXPECT_GT(open.sidebarWidth(), width);
    open.press(Qt::Key_Right);
    open.press(Qt::Key_Right);
    EXPECT_LT(open.sidebarWidth(), width);
}

TEST(Dividers, giveTypedKeysToTheEntry) {
    Dividers open;
    open.Sidebar::press(u"2+3⏎");
    open.document.moveToNextDivider();
    QTest::keyClicks(open.ofSidebar(), "+");
    EXPECT_EQ(open.line(), "ans+");
    EXPECT_TRUE(open.entry()->hasFocus());
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        open.document.moveToNextDivider();
        open.press(key);
        EXPECT_TRUE(open.entry()->hasFocus()) << key;
        EXPECT_EQ(open.line(), "ans+");
    }
}

TEST(Dividers, showTheFocus) {
    const Dividers open;
    const QColor highlight = open.ofSidebar()->palette().color(QPalette::Highlight);
    QWidget* const window = open.document.documentWindow();
    const auto thickness = [&] {
        QTest::qWait(0);
        // What stands on the screen, which need not be what the window would paint now.
        const QImage image = window->screen()->grabWindow(window->winId()).toImage();
        const QPoint middle = open.ofSidebar()->mapTo(window, open.ofSidebar()->rect().center());
        int count = 0;
        for (int x = middle.x() - 5; x <= middle.x() + 5; ++x) {
            count += image.pixelColor(x, middle.y()) == highlight ? 1 : 0;
        }
        return count;
    };
    EXPECT_EQ(thickness(), 0);
    open.ofSidebar()->setFocus();
    EXPECT_EQ(thickness(), 5);
    window->resize(800, 600);
    EXPECT_EQ(thickness(), 5);
    open.entry()->setFocus();
    EXPECT_EQ(thickness(), 0);
}

TEST(Dividers, areNoStopsOfTab) {
    const Dividers open;
    for (const QSplitterHandle* divider : {open.ofSidebar(), open.ofEntry()}) {
        EXPECT_EQ(divider->focusPolicy(), Qt::NoFocus);
    }
}

TEST(Dividers, areSeparatorsWithAValueForScreenReaders) {
    const Dividers open;
    ASSERT_NE(open.accessible(), nullptr);
    EXPECT_EQ(open.accessible()->role(), QAccessible::Separator);
    EXPECT_EQ(open.accessible()->text(QAccessible::Name), "Sidebar width");
    EXPECT_EQ(open.ofEntry()->accessibleName(), "Entry height");
    QAccessibleValueInterface* const value = open.accessible()->valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue(), 200);
    value->setCurrentValue(250);
    EXPECT_EQ(value->currentValue(), 250);
    EXPECT_EQ(open.sidebarWidth(), 250);
    EXPECT_EQ(value->minimumValue(), open.view()->minimumWidth());
    value->setCurrentValue(10'000);
    EXPECT_EQ(value->currentValue(), value->maximumValue());
    EXPECT_EQ(value->minimumStepSize(), SplitView::step);
    EXPECT_NE(open.accessible()->actionInterface(), nullptr);
}

}  // namespace
