// What a window remembers for the next one.

#include <QScreen>
#include <QSplitter>
#include <limits>

#include "tests/support/Sidebar.h"
#include "ui/document/windowPlace.h"

namespace {

/// Moves a handle by its edge, as a hand does.
void drag(QSplitter* splitView, const QPoint& by) {
    QWidget* const handle = splitView->handle(1);
    const QPoint from = handle->rect().bottomRight();
    QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, from);
    QTest::mouseMove(handle, from + by);
    QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, from + by);
}

struct Layout : OpenDocument {
    /// A window made after this one, shown.
    static void show(MyDocument* next) {
        next->showWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(next->documentWindow()));
    }
    TXWindow* window() const { return document.documentWindow(); }
};

TEST(Layout, isTakenOverByTheNextWindow) {
    Layout open;
    open.window()->setGeometry(60, 40, 700, 460);
    QTest::qWait(0);
    drag(open.document.mySplitView(), {45, 0});
    drag(open.document.secondarySplitView(), {0, -32});
    const int sidebar = open.document.controlledView()->width();
    const int entry = open.document.secondaryControlledView()->height();
    EXPECT_NEAR(sidebar, 245, 5);
    EXPECT_NEAR(entry, 82, 5);
    open.document.close();

    MyDocument next;
    Layout::show(&next);
    EXPECT_EQ(next.documentWindow()->geometry(), QRect(60, 40, 700, 460));
    EXPECT_EQ(next.controlledView()->width(), sidebar);
    EXPECT_EQ(next.secondaryControlledView()->height(), entry);
    EXPECT_EQ(next.currentWidth(), static_cast<float>(sidebar));
    next.documentWindow()->resize(720, 480);
    QTest::qWait(0);
    EXPECT_EQ(next.controlledView()->width(), sidebar);
    EXPECT_EQ(next.secondaryControlledView()->height(), entry);
}

TEST(Layout, isThatOfTheWindowThatWasActiveLast) {
    Layout open;
    open.window()->resize(600, 400);
    MyDocument second;
    Layout::show(&second);
    second.documentWindow()->resize(800, 520);
    open.document.showWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(open.window()));
    EXPECT_EQ(MyDocument().documentWindow()->size(), QSize(800, 520));
    second.showWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(second.documentWindow()));
    EXPECT_EQ(MyDocument().documentWindow()->size(), QSize(600, 400));
    open.document.close();
    second.close();
    EXPECT_EQ(MyDocument().documentWindow()->size(), QSize(800, 520));
}

TEST(Layout, keepsAHiddenSidebarHiddenWithItsWidth) {
    Layout open;
    drag(open.document.mySplitView(), {30, 0});
    const int width = open.document.controlledView()->width();
    EXPECT_NEAR(width, 230, 5);
    open.document.setSidebarShown(false);
    open.document.close();
    MyDocument next;
    Layout::show(&next);
    EXPECT_FALSE(next.isSidebarShown());
    MyDocument last;
    Layout::show(&last);
    EXPECT_FALSE(last.isSidebarShown());
    last.setSidebarShown(true);
    QTest::qWait(0);
    EXPECT_EQ(last.controlledView()->width(), width);
    last.close();
    EXPECT_TRUE(MyDocument().isSidebarShown());
}

TEST(Layout, countsTheHeightOfTheEntryWithoutItsLargerText) {
    Layout open;
    drag(open.document.secondarySplitView(), {0, -20});
    const int normal = open.document.secondaryControlledView()->height();
    EXPECT_NEAR(normal, 70, 5);
    open.document.setTextSize(200);
    const int large = open.document.secondaryControlledView()->height();
    EXPECT_GT(large, normal);
    open.document.close();
    EXPECT_EQ(QSettings().value("interface/entryHeight").toInt(), normal);
    MyDocument next;
    Layout::show(&next);
    EXPECT_EQ(next.secondaryControlledView()->height(), large);
    next.setTextSize(100);
    EXPECT_EQ(next.secondaryControlledView()->height(), normal);
}

TEST(Layout, isThatOfBeforeTheWindowWasMadeLarge) {
    Layout open;
    open.window()->setGeometry(50, 60, 640, 420);
    open.window()->showMaximized();
    ASSERT_TRUE(QTest::qWaitFor([&open] { return open.window()->width() > 640; }));
    open.document.close();
    const MyDocument next;
    EXPECT_FALSE(next.documentWindow()->isMaximized());
    EXPECT_EQ(next.documentWindow()->geometry(), QRect(50, 60, 640, 420));
}

TEST(Layout, isThatOfTheFullWindowAlsoInMiniMode) {
    Layout open;
    open.window()->setGeometry(70, 80, 650, 430);
    open.document.windowShouldZoom();
    ASSERT_TRUE(QTest::qWaitForWindowActive(open.document.miniWindow()));
    open.document.close();
    EXPECT_EQ(MyDocument().documentWindow()->geometry(), QRect(70, 80, 650, 430));
}

struct DamageCase {
    const char* name;
    const char* key;
    QVariant stored;
};
void PrintTo(const DamageCase& row, std::ostream* out) { *out << row.name; }

class DamagedLayout : public testing::TestWithParam<DamageCase> {};

TEST_P(DamagedLayout, isAsOnTheFirstDay) {
    const FreshDefaults defaults;
    QSettings().setValue(GetParam().key, GetParam().stored);
    MyDocument document;
    Layout::show(&document);
    EXPECT_EQ(document.documentWindow()->size(), QSize(760, 500));
    EXPECT_TRUE(document.isSidebarShown());
    EXPECT_EQ(document.controlledView()->width(), 200);
    EXPECT_EQ(document.secondaryControlledView()->height(), 50);
    EXPECT_EQ(document.currentWidth(), 200.0F);
    EXPECT_EQ(document.secondaryCurrentWidth(), 50.0F);
    EXPECT_EQ(document.textSize(), 100);
}

constexpr auto place = "interface/windowPlace";
constexpr auto sidebar = "interface/sidebarWidth";
constexpr auto shown = "interface/sidebarShown";
constexpr auto entry = "interface/entryHeight";
constexpr int huge = std::numeric_limits<int>::max();

// clang-format off
INSTANTIATE_TEST_SUITE_P(Values, DamagedLayout, testing::Values(
    DamageCase{"PlaceIsText",         place,   "left"},
    DamageCase{"PlaceIsEmpty",        place,   QRect(10, 10, 0, 500)},
    DamageCase{"PlaceIsInsideOut",    place,   QRect(10, 10, -700, -500)},
    DamageCase{"PlaceIsEverywhere",   place,   QRect(QPoint(-huge, -huge), QPoint(huge, huge))},
    DamageCase{"PlaceIsTooFar",       place,   QRect(QPoint(huge - 700, 0), QPoint(huge, 500))},
    DamageCase{"PlaceIsList",         place,   QStringList({"1", "2"})},
    DamageCase{"SidebarIsText",       sidebar, "wide"},
    DamageCase{"SidebarIsNarrow",     sidebar, 99},
    DamageCase{"SidebarIsWide",       sidebar, 761},
    DamageCase{"SidebarIsHuge",       sidebar, huge},
    DamageCase{"SidebarIsTooHuge",    sidebar, 1e18},
    DamageCase{"ShownIsText",         shown,   "perhaps"},
    DamageCase{"ShownIsList",         shown,   QStringList({"false", "false"})},
    DamageCase{"EntryIsText",         entry,   "high"},
    DamageCase{"EntryIsNothing",      entry,   0},
    DamageCase{"EntryIsNegative",     entry,   -50},
    DamageCase{"EntryIsHigh",         entry,   501},
    DamageCase{"EntryIsHuge",         entry,   huge}
), RowName());
// clang-format on

TEST(Layout, fitsTheSmallestWindow) {
    const FreshDefaults defaults;
    QSettings().setValue(place, QRect(30, 40, 10, 10));
    QSettings().setValue(sidebar, 420);
    QSettings().setValue(entry, 260);
    MyDocument document;
    Layout::show(&document);
    EXPECT_EQ(document.documentWindow()->size(), QSize(420, 260));
    EXPECT_GE(document.mainField()->height(), 3);
    EXPECT_GT(document.formulaTextView()->width(), 20);
}

TEST(Layout, isOnAScreenWhereverTheLastOneWas) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    for (const QRect& stored : {QRect(-5000, -5000, 760, 500), QRect(90000, 90000, 760, 500), QRect(0, 0, 90000, 9000),
                                QRect(screen.right() - 50, screen.bottom() - 50, 760, 500),
                                QRect(screen.right() - 20, screen.bottom() - 20, 10, 10)}) {
        const FreshDefaults defaults;
        QSettings().setValue(place, stored);
        MyDocument document;
        EXPECT_TRUE(screen.contains(document.documentWindow()->geometry()));
    }
}

TEST(WindowPlaces, areTheProgramsEverywhereButOnWayland) {
    EXPECT_TRUE(canPlaceWindows("xcb"));
    EXPECT_TRUE(canPlaceWindows("windows"));
    EXPECT_FALSE(canPlaceWindows("wayland"));
    EXPECT_FALSE(canPlaceWindows("wayland-egl"));
}

TEST(WindowPlaces, areStoredWhereTheyAreKnown) {
    const QRect now(30, 40, 500, 300);
    const QRect before(70, 80, 760, 500);
    EXPECT_EQ(placeToStore(now, before, "xcb"), now);
    EXPECT_EQ(placeToStore(now, before, "wayland"), QRect(70, 80, 500, 300));
    const int end = std::numeric_limits<int>::max();
    EXPECT_EQ(placeToStore(now, QRect(QPoint(end, 0), QPoint(end, 9)), "wayland"), QRect(0, 0, 500, 300));
}

TEST(WindowPlaces, leaveRoomForTheTitle) {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    EXPECT_EQ(movedOntoScreen(QRect(screen.topLeft(), QSize(300, 200)), 24).top(), screen.top() + 24);
    EXPECT_EQ(movedOntoScreen(QRect(screen.topLeft() + QPoint(5, 30), QSize(300, 200)), 24).topLeft(),
              screen.topLeft() + QPoint(5, 30));
}

}  // namespace
