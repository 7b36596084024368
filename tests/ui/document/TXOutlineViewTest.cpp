#include "ui/document/TXOutlineView.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QPaintEvent>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSplitter>
#include <QStandardItemModel>
#include <QToolTip>
#include <functional>

#include "tests/support/Sidebar.h"
#include "tests/support/contrast.h"
#include "ui/document/OutlineAccessible.h"
#include "ui/document/OutlineRowDelegate.h"

namespace {

using namespace Qt::StringLiterals;

QString clipboardText() { return QGuiApplication::clipboard()->text(); }

/// Asks for the context menu as a right click does, and gives the menu that opened.
QMenu* menuAt(const Sidebar& sidebar, const QPoint& place) {
    QWidget* viewport = sidebar.view()->viewport();
    QTest::mouseClick(viewport, Qt::RightButton, Qt::NoModifier, place);
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, viewport->mapToGlobal(place));
    QApplication::sendEvent(viewport, &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

TEST(SidebarClick, selectsOneRow) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎y=5⏎");
    sidebar.click("x=");
    EXPECT_EQ(sidebar.selectedRow(), "x=4");
    sidebar.click("y=", Qt::ShiftModifier);
    EXPECT_EQ(sidebar.selectedRow(), "y=5");
    sidebar.click("Constants");
    EXPECT_EQ(sidebar.selectedRow(), "Constants");
    EXPECT_EQ(sidebar.view()->selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(sidebar.line(), "y=5");
}

TEST(SidebarClick, foldsByTheMarkAlone) {
    const Sidebar sidebar;
    const QPoint mark(6, sidebar.middleOf("Constants").y());
    QTest::mouseClick(sidebar.view()->viewport(), Qt::LeftButton, Qt::NoModifier, mark);
    EXPECT_EQ(sidebar.rows(), QStringList({"Constants", "Auto-Defined Variables", "Defined Variables"}));
    EXPECT_EQ(sidebar.selectedRow(), "");
    QTest::mouseClick(sidebar.view()->viewport(), Qt::LeftButton, Qt::NoModifier, mark);
    EXPECT_EQ(sidebar.rows().size(), 4);
    QTest::mouseDClick(sidebar.view()->viewport(), Qt::LeftButton, Qt::NoModifier, mark);
    EXPECT_EQ(sidebar.rows().size(), 3);
}

TEST(SidebarAltClick, typesTheNameAndSelectsNothing) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎2*()");
    QTest::keyClick(sidebar.entry(), Qt::Key_Left);
    sidebar.click("x=", Qt::AltModifier);
    EXPECT_EQ(sidebar.line(), "2*(x)");
    EXPECT_EQ(sidebar.selectedRow(), "");
    EXPECT_TRUE(sidebar.entry()->hasFocus());
    EXPECT_FALSE(sidebar.controller().lastOptionClick());
    sidebar.press(u"+1");
    EXPECT_EQ(sidebar.line(), "2*(x+1)");
}

TEST(SidebarAltClick, replacesWhatIsSelectedInTheEntry) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎");
    sidebar.click("x=", Qt::AltModifier);
    EXPECT_EQ(sidebar.line(), "x");
}

TEST(SidebarAltClick, keepsTheSelectedRow) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎");
    sidebar.click("pi=");
    sidebar.click("x=", Qt::AltModifier);
    EXPECT_EQ(sidebar.line(), "x");
    EXPECT_EQ(sidebar.selectedRow(), "pi=3.14159265358979");
}

TEST(SidebarAltClick, selectsATitle) {
    const Sidebar sidebar;
    sidebar.click("Constants", Qt::AltModifier);
    EXPECT_EQ(sidebar.selectedRow(), "Constants");
    EXPECT_EQ(sidebar.line(), "");
    EXPECT_TRUE(sidebar.controller().lastOptionClick());
}

TEST(SidebarAltClick, typesOnceForEachClick) {
    const Sidebar sidebar;
    sidebar.click("pi=", Qt::AltModifier);
    QTest::mouseDClick(sidebar.view()->viewport(), Qt::LeftButton, Qt::AltModifier, sidebar.middleOf("pi="));
    EXPECT_EQ(sidebar.line(), "pipi");
    EXPECT_EQ(sidebar.selectedRow(), "");
}

TEST(SidebarAltClick, selectsNothingWhenThePointerMovesOn) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎");
    QWidget* viewport = sidebar.view()->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::AltModifier, sidebar.middleOf("x="));
    const QPoint other = sidebar.middleOf("pi=");
    QMouseEvent move(QEvent::MouseMove, other, viewport->mapToGlobal(other), Qt::NoButton, Qt::LeftButton,
                     Qt::AltModifier);
    QApplication::sendEvent(viewport, &move);
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::AltModifier, other);
    EXPECT_EQ(sidebar.selectedRow(), "");
    EXPECT_EQ(sidebar.line(), "x");
}

TEST(SidebarAltClick, isForgottenAfterATenthOfASecond) {
    const Sidebar sidebar;
    sidebar.click("Constants", Qt::AltModifier);
    sidebar.controller().setLastOptionClick(TXVariableOutlineViewController::Clock::now() -
                                            std::chrono::milliseconds(101));
    sidebar.click("pi=");
    EXPECT_EQ(sidebar.selectedRow(), "pi=3.14159265358979");
    EXPECT_EQ(sidebar.line(), "");
}

TEST(SidebarAltClick, decidesForKeysAsWell) {
    const Sidebar sidebar;
    sidebar.click("Constants");
    sidebar.controller().prepareForSelectionWithOptionClick();
    QTest::keyClick(sidebar.view(), Qt::Key_Down);
    EXPECT_EQ(sidebar.selectedRow(), "Constants");
    EXPECT_EQ(sidebar.line(), "pi");
}

TEST(SidebarDoubleClick, typesAVariablesName) {
    const Sidebar sidebar;
    sidebar.press(u"2*");
    QTest::mouseDClick(sidebar.view()->viewport(), Qt::LeftButton, Qt::NoModifier, sidebar.middleOf("pi="));
    EXPECT_EQ(sidebar.line(), "2*pi");
    EXPECT_TRUE(sidebar.entry()->hasFocus());
}

TEST(SidebarDoubleClick, foldsATitleAndDoesNothingBelowTheRows) {
    const Sidebar sidebar;
    QWidget* viewport = sidebar.view()->viewport();
    QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, sidebar.middleOf("Constants"));
    EXPECT_EQ(sidebar.rows().size(), 3);
    QTest::mouseDClick(viewport, Qt::LeftButton, Qt::NoModifier, viewport->rect().bottomLeft() + QPoint(20, -5));
    QTest::mouseDClick(viewport, Qt::RightButton, Qt::NoModifier, sidebar.middleOf("Constants"));
    EXPECT_EQ(sidebar.rows().size(), 3);
    EXPECT_EQ(sidebar.line(), "");
}

TEST(SidebarKeys, moveAndFold) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎");
    QTest::keyClick(sidebar.entry(), Qt::Key_Tab);
    sidebar.view()->setFocus();
    EXPECT_EQ(sidebar.currentRow(), "Constants");
    const std::pair<Qt::Key, const char*> steps[] = {
        {Qt::Key_Down, "pi=3.14159265358979"},
        {Qt::Key_Down, "Auto-Defined Variables"},
        {Qt::Key_End, "x=4"},
        {Qt::Key_Down, "x=4"},
        {Qt::Key_Left, "Defined Variables"},
        {Qt::Key_Right, "x=4"},
        {Qt::Key_Home, "Constants"},
        {Qt::Key_Up, "Constants"},
        {Qt::Key_PageDown, "x=4"},
        {Qt::Key_PageUp, "Constants"},
    };
    for (const auto& [key, row] : steps) {
        QTest::keyClick(sidebar.view(), key);
        EXPECT_EQ(sidebar.selectedRow(), row) << key;
    }
    QTest::keyClick(sidebar.view(), Qt::Key_Left);
    EXPECT_EQ(sidebar.rows().first(2), QStringList({"Constants", "Auto-Defined Variables"}));
    QTest::keyClick(sidebar.view(), Qt::Key_Left);
    EXPECT_EQ(sidebar.currentRow(), "Constants");
    QTest::keyClick(sidebar.view(), Qt::Key_Right);
    EXPECT_EQ(sidebar.rows().first(2), QStringList({"Constants", " pi=3.14159265358979"}));
    QTest::keyClick(sidebar.view(), Qt::Key_Return);
    EXPECT_EQ(sidebar.rows().first(2), QStringList({"Constants", "Auto-Defined Variables"}));
    EXPECT_EQ(sidebar.line(), "x=4");
}

TEST(SidebarKeys, foldTheOtherWayOnMirroredDesktops) {
    const Sidebar sidebar;
    sidebar.document.documentWindow()->setLayoutDirection(Qt::RightToLeft);
    sidebar.click("Constants");
    QTest::keyClick(sidebar.view(), Qt::Key_Right);
    EXPECT_EQ(sidebar.rows().size(), 3);
    QTest::keyClick(sidebar.view(), Qt::Key_Left);
    EXPECT_EQ(sidebar.rows().size(), 4);
    const QRect pi = sidebar.view()->visualRect(sidebar.row("pi="));
    EXPECT_EQ(pi.right(), sidebar.view()->viewport()->width() - 1 - 24);
}

TEST(SidebarKeys, typeTheNameWithReturn) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        const Sidebar sidebar;
        sidebar.press(u"2*");
        sidebar.click("pi=");
        QTest::keyClick(sidebar.view(), key);
        EXPECT_EQ(sidebar.line(), "2*pi");
        EXPECT_TRUE(sidebar.entry()->hasFocus());
    }
}

TEST(SidebarKeys, typeNothingWithoutASelectedRow) {
    const Sidebar sidebar;
    sidebar.view()->setFocus();
    QTest::keyClick(sidebar.view(), Qt::Key_Return);
    EXPECT_EQ(sidebar.line(), "");
    EXPECT_EQ(sidebar.rows().size(), 4);
}

TEST(SidebarFolding, takesSelectionAndFocusMarkOutOfTheFold) {
    const Sidebar sidebar;
    sidebar.click("pi=");
    sidebar.view()->collapse(sidebar.row("Constants"));
    EXPECT_EQ(sidebar.selectedRow(), "");
    EXPECT_EQ(sidebar.currentRow(), "Constants");
}

TEST(SidebarReload, keepsFoldingSelectionAndScrollPosition) {
    const Sidebar sidebar;
    for (int i = 0; i < 60; ++i) sidebar.press(u"2⏎");
    sidebar.view()->collapse(sidebar.row("Constants"));
    sidebar.click("ans3=");
    sidebar.view()->verticalScrollBar()->setValue(333);
    sidebar.press(u"5⏎x=1⏎");
    EXPECT_EQ(sidebar.view()->verticalScrollBar()->value(), 333);
    EXPECT_FALSE(sidebar.view()->isExpanded(sidebar.row("Constants")));
    EXPECT_TRUE(sidebar.view()->isExpanded(sidebar.row("Auto")));
    EXPECT_EQ(sidebar.selectedRow(), "ans3=2");
    EXPECT_EQ(sidebar.rows().last(), " x=1");
}

TEST(SidebarReload, keepsTheSelectionWhenAVariableEntersBeforeIt) {
    const Sidebar sidebar;
    sidebar.press(u"late+1⏎x=4⏎");
    sidebar.click("x=");
    sidebar.press(u"late=1⏎x=5⏎");
    EXPECT_EQ(sidebar.rows().mid(4), QStringList({"Defined Variables", " late=1", " x=5"}));
    EXPECT_EQ(sidebar.selectedRow(), "x=5");
}

/// What stands on the screen in the place of the rows, which need not be what they would paint now.
QImage screenOf(const Sidebar& sidebar) {
    QTest::qWait(0);
    const QWidget* window = sidebar.document.documentWindow();
    const QWidget* viewport = sidebar.view()->viewport();
    const QRect place(viewport->mapTo(window, QPoint(0, 0)), viewport->size());
    return window->screen()->grabWindow(window->winId()).toImage().copy(place);
}

void expectScreenIsUpToDate(const Sidebar& sidebar, const char* after) {
    const QImage seen = screenOf(sidebar);
    sidebar.view()->viewport()->update();
    EXPECT_EQ(seen, screenOf(sidebar)) << "after " << after;
}

TEST(SidebarPainting, leavesNothingOnTheScreenThatHasChanged) {
    Sidebar sidebar;
    const std::pair<const char*, std::function<void()>> steps[] = {
        {"the first answer", [&] { sidebar.press(u"2+3⏎"); }},
        {"the same answer", [&] { sidebar.press(u"2+3⏎"); }},
        {"another answer", [&] { sidebar.press(u"2*4⏎"); }},
        {"variables", [&] { sidebar.press(u"x=4⏎a=5⏎x=6⏎"); }},
        {"a click", [&] { sidebar.click("ans1="); }},
        {"an answer before the selected row", [&] { sidebar.press(u"b=1⏎7⏎"); }},
        {"folding", [&] { sidebar.view()->collapse(sidebar.row("Auto")); }},
        {"an answer that is folded away", [&] { sidebar.press(u"1/3⏎"); }},
        {"unfolding", [&] { sidebar.view()->expand(sidebar.row("Auto")); }},
        {"the keyboard's coming", [&] { sidebar.view()->setFocus(); }},
        {"a step down", [&] { QTest::keyClick(sidebar.view(), Qt::Key_Down); }},
        {"the keyboard's going", [&] { sidebar.entry()->setFocus(); }},
        {"a part of a row", [&] { sidebar.view()->viewport()->update(0, 0, 10, 30); }},
        {"many answers",
         [&] {
             for (int i = 0; i < 60; ++i) sidebar.press(u"2⏎");
         }},
        {"scrolling", [&] { sidebar.view()->verticalScrollBar()->setValue(333); }},
        {"an answer above", [&] { sidebar.press(u"5⏎"); }},
        {"a narrower window", [&] { sidebar.document.documentWindow()->resize(500, 300); }},
        {"another font", [&] { sidebar.view()->setFont(QFont(sidebar.view()->font().family(), 17)); }},
        {"clearing", [&] { sidebar.document.clearHistory(); }},
    };
    for (const auto& [name, step] : steps) {
        step();
        expectScreenIsUpToDate(sidebar, name);
    }
}

/// The rows of which something is painted between two looks at the screen.
class PaintedRows : public QObject {
public:
    explicit PaintedRows(const Sidebar& sidebar) : sidebar_(sidebar) {
        screenOf(sidebar);
        sidebar.view()->viewport()->installEventFilter(this);
    }

    QStringList take() {
        screenOf(sidebar_);
        QStringList rows;
        for (int row = 0; row < sidebar_.view()->numberOfRows(); ++row) {
            const QModelIndex index = sidebar_.view()->indexAtRow(row);
            if (region_.intersects(sidebar_.view()->visualRect(index))) rows.append(index.data().toString());
        }
        region_ = QRegion();
        return rows;
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint) region_ += static_cast<QPaintEvent*>(event)->region();
        return QObject::eventFilter(watched, event);
    }

private:
    const Sidebar& sidebar_;
    QRegion region_;
};

TEST(SidebarPainting, paintsNoRowThatLooksAsItDid) {
    const Sidebar sidebar;
    sidebar.press(u"1⏎2⏎");
    PaintedRows painted(sidebar);
    sidebar.press(u"3⏎");
    EXPECT_EQ(painted.take(), QStringList({"ans=3", "ans3=3", "Defined Variables"}));
    sidebar.press(u"3⏎");
    EXPECT_EQ(painted.take(), QStringList({"ans4=3", "Defined Variables"}));
    sidebar.press(u"x=4⏎");
    EXPECT_EQ(painted.take(), QStringList({"ans=4", "x=4"}));
}

TEST(SidebarPainting, paintsNothingWithoutAModel) {
    TXOutlineView view;
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    const QImage empty = view.grab().toImage();
    EXPECT_EQ(empty.pixelColor(empty.rect().center()), view.palette().color(QPalette::Window));
}

TEST(SidebarPainting, paintsARowAgainOfWhichOnlyAPartIsUpToDate) {
    QStandardItemModel model;
    for (const char* title : {"first", "second"}) {
        model.appendRow(new QStandardItem(title));
        model.item(model.rowCount() - 1)->appendRow(new QStandardItem("member"));
    }
    TXVariableOutlineViewController controller;
    TXOutlineView view;
    view.setController(&controller);
    view.setModel(&model);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    const auto screen = [&] {
        QTest::qWait(0);
        return view.screen()->grabWindow(view.winId()).toImage();
    };
    const QImage before = screen();

    // Another text of which nobody has heard when something that lay over its left side goes away.
    model.blockSignals(true);
    model.item(0)->setText("another");
    model.blockSignals(false);
    view.viewport()->repaint(0, 0, 20, view.viewport()->height());
    EXPECT_NE(screen(), before);
    view.expand(model.index(1, 0));
    const QImage seen = screen();
    view.viewport()->update();
    EXPECT_EQ(seen, screen());
}

struct CopyCase {
    const char* name;
    int entry;
    const char* title;
    const char* copied;
};
void PrintTo(const CopyCase& row, std::ostream* out) { *out << row.name; }
class SidebarCopy : public testing::TestWithParam<CopyCase> {};

TEST_P(SidebarCopy, isChosenFromTheContextMenu) {
    Sidebar sidebar;
    sidebar.document.documentNumberFormatterSettings().setThousandsSeparators(true);
    sidebar.press(u"x=4321⏎");
    QMenu* menu = menuAt(sidebar, sidebar.middleOf("x="));
    ASSERT_EQ(menu, sidebar.view()->wrappingMenu());
    EXPECT_EQ(menu->title(), "Variable Cache Menu");
    ASSERT_EQ(menu->actions().size(), 3);
    const QAction* entry = menu->actions().at(GetParam().entry);
    EXPECT_EQ(entry->text(), GetParam().title);
    EXPECT_EQ(entry->data().toInt(), GetParam().entry);
    EXPECT_TRUE(entry->isEnabled());
    EXPECT_TRUE(entry->shortcut().isEmpty());
    QGuiApplication::clipboard()->setText("before");
    for (int i = 0; i <= GetParam().entry; ++i) QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_FALSE(menu->isVisible());
    EXPECT_EQ(QGuiApplication::clipboard()->mimeData()->data("text/plain"), GetParam().copied);
    EXPECT_EQ(QGuiApplication::clipboard()->mimeData()->formats(), QStringList({"text/plain"}));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Entries, SidebarCopy, testing::Values(
    CopyCase{"Name",         0, "Copy Variable Name",                     "x"},
    CopyCase{"Value",        1, "Copy Formatted Variable Value",          "4,321"},
    CopyCase{"NameAndValue", 2, "Copy Variable Name And Formatted Value", "x=4,321"}
), RowName());
// clang-format on

TEST(SidebarContextMenu, opensOnVariablesOnlyAndSelectsTheRowFirst) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎2⏎");
    const QPoint below = sidebar.view()->viewport()->rect().bottomLeft() + QPoint(30, -5);
    EXPECT_EQ(menuAt(sidebar, below), nullptr);
    for (const char* row : {"pi=", "ans=", "ans1=", "x="}) {
        SCOPED_TRACE(row);
        QMenu* menu = menuAt(sidebar, sidebar.middleOf(row));
        ASSERT_EQ(menu, sidebar.view()->wrappingMenu());
        EXPECT_TRUE(sidebar.selectedRow().startsWith(row));
        menu->close();
    }
    for (const char* row : {"Constants", "Auto-Defined", "Defined"}) {
        SCOPED_TRACE(row);
        EXPECT_EQ(menuAt(sidebar, sidebar.middleOf(row)), nullptr);
        EXPECT_TRUE(sidebar.selectedRow().startsWith(row));
    }
    // Beside a row's text is on the row as well.
    QMenu* menu = menuAt(sidebar, QPoint(2, sidebar.middleOf("x=").y()));
    ASSERT_NE(menu, nullptr);
    menu->close();
    // Below the rows it is for the row that is selected.
    menu = menuAt(sidebar, below);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(sidebar.selectedRow(), "x=4");
    menu->close();
}

TEST(SidebarContextMenu, opensByKeyAtTheSelectedRow) {
    const Sidebar sidebar;
    const auto press = [&] {
        QContextMenuEvent key(QContextMenuEvent::Keyboard, {1, 1}, sidebar.view()->mapToGlobal(QPoint(1, 1)));
        QApplication::sendEvent(sidebar.view(), &key);
    };
    sidebar.click("Constants");
    press();
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    sidebar.click("pi=");
    press();
    QMenu* menu = sidebar.view()->wrappingMenu();
    ASSERT_TRUE(menu->isVisible());
    const QRect row = sidebar.view()->visualRect(sidebar.row("pi="));
    EXPECT_EQ(menu->mapToGlobal(QPoint()), sidebar.view()->viewport()->mapToGlobal(row.bottomLeft()));
    menu->close();
}

TEST(SidebarContextMenu, copiesNothingOfATitleAndNothingForAnotherTag) {
    const Sidebar sidebar;
    QGuiApplication::clipboard()->setText("before");
    sidebar.click("Constants");
    sidebar.view()->copyVariableInfo(sidebar.view()->wrappingMenu()->actions().at(0));
    EXPECT_EQ(clipboardText(), "before");
    sidebar.click("pi=");
    QAction other;
    for (const int tag : {-1, 3}) {
        other.setData(tag);
        sidebar.view()->copyVariableInfo(&other);
        EXPECT_EQ(clipboardText(), "before");
    }
}

TEST(SidebarCopyKey, copiesNameAndValue) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎");
    QGuiApplication::clipboard()->setText("before");
    sidebar.click("Defined");
    QTest::keyClick(sidebar.view(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboardText(), "before");
    const QSignalSpy available(sidebar.view(), &TXOutlineView::copyAvailable);
    sidebar.click("x=");
    QTest::keyClick(sidebar.view(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboardText(), "x=4");
    ASSERT_EQ(available.count(), 1);
    EXPECT_TRUE(available.first().first().toBool());
}

TEST(SidebarDrag, dropsTheNameWhereThePointerIs) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎2*5");
    const std::unique_ptr<QMimeData> dragged(sidebar.controller().mimeData({sidebar.row("x=")}));
    QWidget* target = sidebar.entry()->viewport();
    QTextCursor cursor = sidebar.entry()->textCursor();
    cursor.setPosition(2);
    const QPoint place = sidebar.entry()->cursorRect(cursor).center();
    sidebar.view()->setFocus();
    QDragEnterEvent enter(place, Qt::CopyAction, dragged.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDragMoveEvent move(place, Qt::CopyAction, dragged.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &move);
    QDropEvent drop(place, Qt::CopyAction, dragged.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
    EXPECT_TRUE(drop.isAccepted());
    EXPECT_EQ(sidebar.line(), "2*x5");
    EXPECT_TRUE(sidebar.entry()->hasFocus());
}

TEST(SidebarLayout, hasItsPlacesAndName) {
    const Sidebar sidebar;
    TXOutlineView* view = sidebar.view();
    EXPECT_EQ(view->accessibleName(), "Variables");
    EXPECT_EQ(view->columnWidth(0), 181);
    EXPECT_EQ(view->frameWidth(), 0);
    EXPECT_EQ(view->viewport()->geometry().topLeft(), QPoint(6, 6));
    const QRect title = view->visualRect(sidebar.row("Constants"));
    const QRect variable = view->visualRect(sidebar.row("pi="));
    EXPECT_EQ(title.left(), 12);
    EXPECT_EQ(variable.left(), 24);
    EXPECT_EQ(variable.right() + 1, 181);
    EXPECT_EQ(title.height(), view->fontMetrics().height() + 4);
    EXPECT_EQ(variable.top(), title.bottom() + 1);
    EXPECT_EQ(view->viewport()->backgroundRole(), QPalette::Window);
    EXPECT_EQ(view->indexAt(variable.center()), sidebar.row("pi="));
    EXPECT_FALSE(view->indexAt(QPoint(30, view->viewport()->height() - 1)).isValid());
}

TEST(SidebarLayout, makesRoomForTheScrollBarBesideItsRows) {
    const Sidebar sidebar;
    EXPECT_FALSE(sidebar.view()->verticalScrollBar()->isVisible());
    const int before = sidebar.view()->columnWidth(0);
    for (int i = 0; i < 60; ++i) sidebar.press(u"2⏎");
    QTest::qWait(0);
    EXPECT_TRUE(sidebar.view()->verticalScrollBar()->isVisible());
    EXPECT_LE(sidebar.view()->columnWidth(0), sidebar.view()->viewport()->width());
    EXPECT_NEAR(sidebar.view()->columnWidth(0), before, 2);
}

TEST(SidebarLayout, scrollsToARowAndNoFurther) {
    const Sidebar sidebar;
    for (int i = 0; i < 60; ++i) sidebar.press(u"2⏎");
    TXOutlineView* view = sidebar.view();
    const int height = view->visualRect(sidebar.row("pi=")).height();
    const auto top = [&](const char* row) { return view->visualRect(sidebar.row(row)).top(); };
    view->scrollTo(sidebar.row("ans40="));
    EXPECT_EQ(top("ans40="), view->viewport()->height() - height);
    view->scrollTo(sidebar.row("ans39="));
    EXPECT_EQ(top("ans40="), view->viewport()->height() - height);
    view->scrollTo(sidebar.row("ans5="));
    EXPECT_EQ(top("ans5="), 0);
    view->scrollTo(sidebar.row("ans30="), QAbstractItemView::PositionAtTop);
    EXPECT_EQ(top("ans30="), 0);
    view->scrollTo(sidebar.row("ans30="), QAbstractItemView::PositionAtBottom);
    EXPECT_EQ(top("ans30="), view->viewport()->height() - height);
    view->scrollTo(sidebar.row("ans30="), QAbstractItemView::PositionAtCenter);
    const int middle = (view->viewport()->height() - height) / 2;
    EXPECT_NEAR(top("ans30="), middle, 1);
    const QModelIndex folded = sidebar.row("pi=");
    view->collapse(sidebar.row("Constants"));
    const int value = view->verticalScrollBar()->value();
    view->scrollTo(folded);
    EXPECT_EQ(view->verticalScrollBar()->value(), value);
    EXPECT_TRUE(view->visualRect(folded).isEmpty());
}

TEST(SidebarLayout, followsTheFont) {
    const Sidebar sidebar;
    QFont large = sidebar.view()->font();
    large.setPointSize(30);
    sidebar.view()->setFont(large);
    EXPECT_EQ(sidebar.view()->visualRect(sidebar.row("pi=")).height(), QFontMetrics(large).height() + 4);
}

TEST(SidebarTitles, areReadable) {
    const std::pair<QColor, QColor> windows[] = {
        {"#efefef", "#000000"}, {"#36363a", "#ffffff"}, {"#000000", "#ffffff"}, {"#ffffff", "#000000"}};
    for (const auto& [background, text] : windows) {
        QPalette palette;
        palette.setColor(QPalette::Window, background);
        palette.setColor(QPalette::WindowText, text);
        QColor placeholder = text;
        placeholder.setAlpha(80);
        palette.setColor(QPalette::PlaceholderText, placeholder);
        const double title = contrastRatio(OutlineRowDelegate::titleColor(palette), background);
        EXPECT_GE(title, 4.5) << background.name().toStdString();
        EXPECT_LE(title, 6.0) << background.name().toStdString();
    }
}

TEST(SidebarTitles, areBoldAndSmaller) {
    QFont font;
    font.setPointSizeF(10);
    EXPECT_TRUE(OutlineRowDelegate::titleFont(font).bold());
    EXPECT_EQ(OutlineRowDelegate::titleFont(font).pointSizeF(), 9.0);
}

void askForToolTip(const Sidebar& sidebar, const QPoint& place) {
    QWidget* viewport = sidebar.view()->viewport();
    QHelpEvent help(QEvent::ToolTip, place, viewport->mapToGlobal(place));
    QApplication::sendEvent(viewport, &help);
}

bool toolTipGoes() {
    return QTest::qWaitFor([] { return !QToolTip::isVisible(); });
}

TEST(SidebarToolTip, holdsTheWholeOfAnElidedRow) {
    const Sidebar sidebar;
    const QString name = "averyveryverylongvariablename";
    sidebar.press(name + u"=1/3⏎"_qs);
    askForToolTip(sidebar, sidebar.middleOf(name));
    ASSERT_TRUE(QToolTip::isVisible());
    EXPECT_TRUE(QToolTip::text().contains(sidebar.row(name).data().toString()));
    askForToolTip(sidebar, sidebar.middleOf("Constants"));
    EXPECT_TRUE(toolTipGoes());
    askForToolTip(sidebar, sidebar.middleOf(name));
    ASSERT_TRUE(QToolTip::isVisible());
    askForToolTip(sidebar, QPoint(30, sidebar.view()->viewport()->height() - 2));
    EXPECT_TRUE(toolTipGoes());
    sidebar.document.mySplitView()->setSizes({400, 300});
    QTest::qWait(0);
    askForToolTip(sidebar, sidebar.middleOf(name));
    EXPECT_FALSE(QToolTip::isVisible());
}

TEST(SidebarToolTip, breaksLongTextsAndTakesNoMarkup) {
    const QString text = OutlineRowDelegate::toolTipOf("<b>" + QString(200, u'x'));
    EXPECT_TRUE(text.contains("&lt;b&gt;xxx"));
    EXPECT_EQ(text.count(u'\n'), 2);
    EXPECT_LT(OutlineRowDelegate::toolTipOf(QString(1'000'000, u'x')).size(), 5000);
}

/// Counts what a view asks of it.
class CountingController : public TXVariableOutlineViewController {
public:
    QModelIndex index(int row, int column, const QModelIndex& parent) const override {
        ++operations_;
        return TXVariableOutlineViewController::index(row, column, parent);
    }
    int rowCount(const QModelIndex& parent) const override {
        ++operations_;
        return TXVariableOutlineViewController::rowCount(parent);
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override {
        ++operations_;
        return TXVariableOutlineViewController::flags(index);
    }
    QVariant data(const QModelIndex& index, int role) const override {
        ++operations_;
        if (role == Qt::DisplayRole) ++texts_;
        return TXVariableOutlineViewController::data(index, role);
    }

    /// Both since they were asked last.
    std::pair<int, int> operationsAndTexts() { return {std::exchange(operations_, 0), std::exchange(texts_, 0)}; }

private:
    mutable int operations_ = 0;
    mutable int texts_ = 0;
};

/// What one more variable of each kind costs a sidebar with so many of them.
std::pair<int, int> costOfNewVariables(int count) {
    MyDocument document;
    CountingController controller;
    controller.setParentDocument(&document);
    controller.awakeFromNib();
    TXOutlineView view;
    view.setController(&controller);
    view.setParentDocument(&document);
    view.awakeFromNib();
    view.resize(200, 400);
    view.show();
    view.reloadData();
    view.expandItem({}, true);
    TXEquationController& session = document.documentEquationController();
    for (int i = 0; i < count; ++i) session.addOneStringBlindly(u"7");
    view.reloadData();
    QTest::qWait(1);
    view.viewport()->repaint();

    controller.operationsAndTexts();
    for (const std::u16string_view line : {u"5", u"x=1", u"6"}) {
        session.addOneStringBlindly(line);
        view.reloadData();
        QTest::qWait(1);  // for whatever the view put off
        view.viewport()->repaint();
    }
    return controller.operationsAndTexts();
}

TEST(ManyVariables, costANewOneNoMoreThanFewDo) {
    const auto [operations, texts] = costOfNewVariables(50);
    const auto [operationsOfMany, textsOfMany] = costOfNewVariables(100'000);
    EXPECT_GT(texts, 3 * 10);
    EXPECT_LE(texts, 12 * 30);  // the rows in sight, each time they are compared or painted
    EXPECT_LE(textsOfMany, texts + 8 * 3);
    EXPECT_LE(operationsOfMany, operations + operations / 5);
}

TEST(ManyVariables, areAllThere) {
    Sidebar sidebar;
    for (int i = 0; i < 100'000; ++i) sidebar.document.documentEquationController().addOneStringBlindly(u"7");
    sidebar.press(u"x=5⏎");
    EXPECT_EQ(sidebar.view()->numberOfRows(), 100'006);
    sidebar.view()->setFocus();
    QTest::keyClick(sidebar.view(), Qt::Key_End);
    EXPECT_EQ(sidebar.selectedRow(), "x=5");
    EXPECT_EQ(sidebar.view()->verticalScrollBar()->value(), sidebar.view()->verticalScrollBar()->maximum());
    const QRect last = sidebar.view()->visualRect(sidebar.row("x="));
    EXPECT_EQ(last.bottom() + 1, sidebar.view()->viewport()->height());
}

TEST(LongNames, ofAHundredThousandCharactersArePainted) {
    const Sidebar sidebar;
    sidebar.entry()->setText(QString(100'000, u'x') + "=1");
    sidebar.press(u"⏎");
    sidebar.view()->viewport()->repaint();
    EXPECT_TRUE(sidebar.rows().last().endsWith("xx=1"));
}

TEST(SidebarForScreenReaders, tellsItsRows) {
    const Sidebar sidebar;
    sidebar.press(u"x=4⏎y=5⏎");
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(sidebar.view());
    EXPECT_EQ(tree->text(QAccessible::Name), "Variables");
    EXPECT_EQ(tree->role(), QAccessible::Tree);
    ASSERT_EQ(tree->childCount(), 3);
    QAccessibleInterface* group = tree->child(2);
    EXPECT_EQ(group->text(QAccessible::Name), "Defined Variables");
    EXPECT_EQ(group->role(), QAccessible::TreeItem);
    EXPECT_EQ(group->parent(), tree);
    ASSERT_EQ(group->childCount(), 2);
    QAccessibleInterface* variable = group->child(1);
    EXPECT_EQ(variable->text(QAccessible::Name), "y=5");
    EXPECT_EQ(variable->role(), QAccessible::TreeItem);
    EXPECT_EQ(variable->parent(), group);
    EXPECT_EQ(variable->childCount(), 0);
    EXPECT_EQ(group->indexOfChild(variable), 1);
    EXPECT_EQ(tree->indexOfChild(group), 2);
    EXPECT_EQ(tree->childAt(variable->rect().center().x(), variable->rect().center().y()), variable);
    EXPECT_EQ(OutlineAccessible::make({}, sidebar.entry()), nullptr);
}

TEST(SidebarForScreenReaders, hasNoRowsBesideThose) {
    const Sidebar sidebar;
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(sidebar.view());
    QAccessibleInterface* constants = tree->child(0);
    EXPECT_EQ(tree->child(3), nullptr);
    EXPECT_EQ(constants->child(1), nullptr);
    EXPECT_EQ(tree->indexOfChild(tree), -1);
    EXPECT_EQ(tree->indexOfChild(constants->child(0)), -1);
    EXPECT_EQ(tree->child(1)->indexOfChild(constants->child(0)), -1);
    TXOutlineView empty;
    EXPECT_EQ(OutlineAccessible(empty).childCount(), 0);
}

TEST(SidebarForScreenReaders, tellsTheStatesOfItsRows) {
    const Sidebar sidebar;
    QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(sidebar.view());
    QAccessibleInterface* group = tree->child(0);
    QAccessibleInterface* pi = group->child(0);
    EXPECT_TRUE(group->state().expandable && group->state().expanded && !group->state().collapsed);
    EXPECT_FALSE(pi->state().expandable || pi->state().selected || pi->state().focused);
    EXPECT_EQ(tree->focusChild(), nullptr);
    sidebar.view()->setFocus();
    sidebar.click("pi=");
    EXPECT_TRUE(pi->state().selected && pi->state().focused);
    EXPECT_EQ(tree->focusChild(), pi);
    sidebar.view()->collapse(sidebar.row("Constants"));
    EXPECT_TRUE(group->state().collapsed && !group->state().expanded);
    EXPECT_EQ(group->childCount(), 0);
    EXPECT_TRUE(pi->state().invisible);
}

TEST(SidebarForScreenReaders, doesWhatReturnDoes) {
    const Sidebar sidebar;
    QAccessibleInterface* group = QAccessible::queryAccessibleInterface(sidebar.view())->child(0);
    QAccessibleInterface* pi = group->child(0);
    const QString press = QAccessibleActionInterface::pressAction();
    const QString toggle = QAccessibleActionInterface::toggleAction();
    EXPECT_EQ(group->actionInterface()->actionNames(), QStringList{toggle});
    EXPECT_EQ(pi->actionInterface()->actionNames(), QStringList{press});
    EXPECT_EQ(pi->textInterface(), nullptr);

    sidebar.press(u"2*");
    pi->actionInterface()->doAction(toggle);
    EXPECT_EQ(sidebar.line(), "2*");
    pi->actionInterface()->doAction(press);
    EXPECT_EQ(sidebar.line(), "2*pi");
    group->actionInterface()->doAction(toggle);
    EXPECT_TRUE(group->state().collapsed);
    group->actionInterface()->doAction(toggle);
    EXPECT_TRUE(group->state().expanded);
}

TEST(SidebarForScreenReaders, forgetsRowsThatAreGone) {
    Sidebar sidebar;
    sidebar.press(u"x=4⏎");
    QAccessibleInterface* variable = QAccessible::queryAccessibleInterface(sidebar.view())->child(2)->child(0);
    EXPECT_TRUE(variable->isValid());
    sidebar.document.documentEquationController().clearAll();
    sidebar.document.reloadSidebar();
    EXPECT_FALSE(variable->isValid());
    variable->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    variable->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(sidebar.line(), "x=4");
}

}  // namespace
