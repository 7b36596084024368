// On a right-to-left desktop the window is mirrored, and equations and answers are not.

#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <cmath>

#include "tests/support/Sidebar.h"
#include "ui/document/FindBar.h"
#include "ui/document/MiniModeAnswerField.h"
#include "ui/document/PullDownButton.h"
#include "ui/document/SegmentedControl.h"

namespace {

/// The direction of the desktop, from before the window is made.
struct Desktop {
    explicit Desktop(Qt::LayoutDirection direction) { QGuiApplication::setLayoutDirection(direction); }
    ~Desktop() { QGuiApplication::setLayoutDirection(Qt::LeftToRight); }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
};

struct Directed : Desktop, Sidebar {
    explicit Directed(Qt::LayoutDirection direction) : Desktop(direction) {}

    /// Where a part of the full window is in it.
    QRect place(const QWidget* part) const {
        return {part->mapTo(document.documentWindow(), QPoint(0, 0)), part->size()};
    }
    QWidget* part(const char* name) const { return document.documentWindow()->findChild<QWidget*>(name); }
};

struct RightToLeft : Directed {
    RightToLeft() : Directed(Qt::RightToLeft) {}
};

/// What is painted, without the empty room around it.
QImage inkOf(QWidget* widget, const QRect& area) {
    const QImage picture = widget->grab(area).toImage().convertToFormat(QImage::Format_RGB32);
    const QRgb ground = picture.pixel(0, 0);
    QRect ink;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != ground) ink |= QRect(x, y, 1, 1);
        }
    }
    EXPECT_FALSE(ink.isEmpty());
    return picture.copy(ink);
}

QImage inkOf(QWidget* widget) { return inkOf(widget, widget->rect()); }

TEST(MirroredWindow, hasItsControlsTheOtherWayRound) {
    RightToLeft open;
    const int sidebar = open.place(open.document.controlledView()).left();
    EXPECT_GT(sidebar, open.place(open.document.mainField()).right());
    const int format = open.place(open.document.formattingTypeButton()).left();
    const int digits = open.place(open.document.numberFormattingButton()).left();
    const int unit = open.place(open.document.degreesRadiansSegmentedControl()).left();
    const int mini = open.place(open.part("miniModeButton")).left();
    EXPECT_GT(format, digits);
    EXPECT_GT(digits, unit);
    EXPECT_GT(unit, mini);
    for (int i = 0; i < 20; ++i) open.press(u"1/4⏎");
    const QScrollBar* const bar = open.document.mainField()->verticalScrollBar();
    EXPECT_LT(open.place(bar).left(), open.place(open.document.mainField()->viewport()).left());
    open.document.findInHistory();
    QTest::qWait(0);
    EXPECT_GT(open.place(open.part("findField")).left(), open.place(open.part("findCloseButton")).right());
}

TEST(MirroredWindow, hasItsLinesAtTheLeft) {
    RightToLeft open;
    open.press(u"x=0-5⏎1");
    EXPECT_LT(open.entry()->cursorRect().left(), open.entry()->width() / 4);
    QTextCursor first(open.document.mainField()->document());
    EXPECT_LT(open.document.mainField()->cursorRect(first).left(), open.document.mainField()->width() / 4);
}

/// Which of the pictures is one of a row at another edge, where its letters fall on other parts of pixels.
constexpr int sidebarRow = 2;

/// How much of the ink is in the left half.
double inkAtTheLeft(const QImage& picture) {
    const QColor ground = picture.pixelColor(0, 0);
    double left = 0.0;
    double all = 0.0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const double ink = std::abs(picture.pixelColor(x, y).lightness() - ground.lightness());
            all += ink;
            if (x < picture.width() / 2) left += ink;
        }
    }
    return left / all;
}

/// The pictures of what is never mirrored.
QList<QImage> equationsAndAnswers(Qt::LayoutDirection direction) {
    Directed open(direction);
    open.press(u"www=(0-1)⏎y+⏎(0-2)*3");
    QList<QImage> pictures = {inkOf(open.document.mainField()->viewport()), inkOf(open.entry()->viewport()),
                              inkOf(open.view()->viewport(), open.view()->visualRect(open.row("www=")))};
    open.document.findInHistory();
    auto* const field = open.document.findBar()->findChild<QLineEdit*>();
    field->setText("(0-5)+");
    field->deselect();
    open.entry()->setFocus();
    pictures += inkOf(field, field->rect().adjusted(4, 4, -4, -4));
    open.press(u"⏎");
    open.document.windowShouldZoom();
    EXPECT_TRUE(QTest::qWaitForWindowActive(open.document.miniWindow()));
    pictures += {inkOf(open.document.miniModeAnswerField()), inkOf(open.entry()->viewport())};
    return pictures;
}

TEST(MirroredWindow, paintsEquationsAndAnswersAsEverywhere) {
    const QList<QImage> mirrored = equationsAndAnswers(Qt::RightToLeft);
    const QList<QImage> pictures = equationsAndAnswers(Qt::LeftToRight);
    ASSERT_EQ(mirrored.size(), 6);
    for (int i = 0; i < 6; ++i) {
        if (i == sidebarRow) {
            EXPECT_NEAR(mirrored.at(i).width(), pictures.at(i).width(), 1);
            EXPECT_NEAR(inkAtTheLeft(mirrored.at(i)), inkAtTheLeft(pictures.at(i)), 0.03);
        } else {
            EXPECT_TRUE(mirrored.at(i) == pictures.at(i)) << i;
        }
    }
}

TEST(MirroredWindow, hasTheMiniAnswerAtItsRightAndErrorsAtTheLeft) {
    RightToLeft open;
    open.document.windowShouldZoom();
    QTest::qWait(0);
    QWidget* const field = open.document.miniModeAnswerField();
    const auto isPaintedIn = [field](const QRect& area) {
        const QImage picture = field->grab(area).toImage();
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                if (picture.pixelColor(x, y).lightness() > 200) return true;
            }
        }
        return false;
    };
    const int third = field->width() / 3;
    open.press(u"1⏎");
    EXPECT_FALSE(isPaintedIn(QRect(0, 0, third, field->height())));
    EXPECT_TRUE(isPaintedIn(QRect(2 * third, 0, third, field->height())));
    open.press(u"1(⏎");
    EXPECT_TRUE(isPaintedIn(QRect(0, 0, third, field->height())));
}

}  // namespace
