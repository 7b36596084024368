#include "ui/document/SegmentedControl.h"

#include <QAccessible>
#include <QRadioButton>
#include <QSignalSpy>

#include <QtTest/QTest>
#include <gtest/gtest.h>

namespace {

struct ShownControl {
    ShownControl() {
        control.setSegments({"Left", "Right hand"});
        QCursor::setPos(0, 0);  // away from it
        control.move(200, 200);
        control.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&control));
    }
    QRadioButton* segment(int index) const { return control.findChildren<QRadioButton*>().at(index); }
    QColor colorIn(int index) {
        return control.grab().toImage().pixelColor(segment(index)->geometry().topLeft() + QPoint(6, 6));
    }

    SegmentedControl control;
};

TEST(SegmentedControl, choosesTheFirstAtFirst) {
    ShownControl shown;
    EXPECT_EQ(shown.control.selectedSegment(), 0);
    EXPECT_EQ(shown.control.segments(), QStringList({"Left", "Right hand"}));
}

TEST(SegmentedControl, tellsWhatTheUserChooses) {
    ShownControl shown;
    const QSignalSpy chosen(&shown.control, &SegmentedControl::chosen);
    QTest::mouseClick(shown.segment(1), Qt::LeftButton, Qt::NoModifier, QPoint(1, 1));
    EXPECT_EQ(shown.control.selectedSegment(), 1);
    EXPECT_EQ(chosen.count(), 1);
    shown.control.setSelectedSegment(0);
    EXPECT_EQ(shown.control.selectedSegment(), 0);
    EXPECT_EQ(chosen.count(), 1);
}

TEST(SegmentedControl, tellsWhatAssistiveTechnologyChooses) {
    ShownControl shown;
    const QSignalSpy chosen(&shown.control, &SegmentedControl::chosen);
    QAccessibleActionInterface* degrees = QAccessible::queryAccessibleInterface(shown.segment(1))->actionInterface();
    degrees->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(shown.control.selectedSegment(), 1);
    EXPECT_EQ(chosen.count(), 1);
}

TEST(SegmentedControl, hasTwoEqualSegmentsThatNeverMove) {
    ShownControl shown;
    const QRect left = shown.segment(0)->geometry();
    const QRect right = shown.segment(1)->geometry();
    EXPECT_EQ(left.size(), right.size());
    EXPECT_EQ(left.height(), 26);
    EXPECT_EQ(left.right() + 1, right.left());
    shown.control.setSelectedSegment(1);
    QTest::qWait(0);
    EXPECT_EQ(shown.segment(0)->geometry(), left);
    EXPECT_EQ(shown.segment(1)->geometry(), right);
}

TEST(SegmentedControl, fillsTheChosenSegmentFromThePalette) {
    ShownControl shown;
    EXPECT_EQ(shown.colorIn(0), shown.control.palette().color(QPalette::Highlight));
    EXPECT_EQ(shown.colorIn(1), shown.control.palette().color(QPalette::Button));
    QPalette colors = shown.control.palette();
    colors.setColor(QPalette::Highlight, Qt::darkGreen);
    shown.control.setPalette(colors);
    shown.control.setSelectedSegment(1);
    EXPECT_EQ(shown.colorIn(1), QColor(Qt::darkGreen));
}

TEST(SegmentedControl, showsTheFocusAsARing) {
    ShownControl shown;
    const auto edge = [&] { return shown.control.grab().toImage().pixelColor(shown.control.width() / 2, 2); };
    shown.segment(0)->clearFocus();
    EXPECT_NE(edge(), shown.control.palette().color(QPalette::Highlight));
    shown.segment(0)->setFocus();
    EXPECT_EQ(edge(), shown.control.palette().color(QPalette::Highlight));
}

TEST(SegmentedControl, isAGroupOfRadioButtonsWithTheirState) {
    ShownControl shown;
    shown.control.setSelectedSegment(1);
    for (const int index : {0, 1}) {
        const QAccessibleInterface* segment = QAccessible::queryAccessibleInterface(shown.segment(index));
        ASSERT_NE(segment, nullptr);
        EXPECT_EQ(segment->role(), QAccessible::RadioButton);
        EXPECT_EQ(segment->state().checked != 0U, index == 1);
        EXPECT_EQ(segment->text(QAccessible::Name), index == 0 ? "Left" : "Right hand");
        EXPECT_EQ(segment->parent()->object(), &shown.control);
        EXPECT_EQ(segment->parent()->role(), QAccessible::Grouping);
    }
}

}  // namespace
