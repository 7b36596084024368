// Whether all that is shown can be read: at every scale of the desktop, and with text twice as large.

#include <QAbstractButton>
#include <QComboBox>
#include <QHeaderView>
#include <QImage>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QProcess>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QTableWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <QtMath>

#include "tests/support/EveryWindow.h"
#include "ui/document/MiniModeAnswerField.h"
#include "ui/document/SegmentedControl.h"
#include "ui/document/TXOutlineView.h"

namespace {

constexpr QSize smallScreen(1024, 768);
constexpr int roomForTitle = 24;

std::string nameOf(const QWidget& widget) {
    const QString text = widget.objectName() + ' ' + widget.metaObject()->className() + " in " +
                         widget.window()->objectName() + " of " + QString::number(widget.width()) + " x " +
                         QString::number(widget.height());
    return text.toStdString();
}

QString withoutMnemonic(QString text) { return text.remove(u'&'); }

bool holds(const QWidget& widget, const QSize& needed) {
    return widget.width() >= needed.width() && widget.height() >= needed.height();
}

/// Whether a label has room for all of its text, on as many lines as it takes.
bool showsAll(const QLabel& label) {
    if (qobject_cast<const MiniModeAnswerField*>(&label) != nullptr) return true;  // It elides, and is looked at below.
    if (label.text().isEmpty()) return true;
    if (!label.wordWrap()) return holds(label, label.sizeHint());
    return label.height() >= label.heightForWidth(label.width());
}

/// Whether a button has room for its title. The ones that have a menu elide it, and say it in the tooltip.
bool showsAll(const QAbstractButton& button) {
    const QFontMetrics metrics(button.font());
    if (!button.text().isEmpty() && button.height() < metrics.height()) return false;
    if (const auto* pullDown = qobject_cast<const PullDownButton*>(&button)) {
        return !pullDown->isElided() || pullDown->toolTip() == pullDown->text();
    }
    return button.width() >= metrics.horizontalAdvance(withoutMnemonic(button.text()));
}

/// How wide a column is that shows the whole of every entry.
int neededWidth(const QAbstractItemView& view, int column, const QModelIndex& parent = {}) {
    int widest = 0;
    for (int row = 0; row < view.model()->rowCount(parent); ++row) {
        const QModelIndex first = view.model()->index(row, 0, parent);
        const int own = view.sizeHintForIndex(first.siblingAtColumn(column)).width();
        widest = std::max({widest, own, neededWidth(view, column, first)});
    }
    return widest;
}

bool showsAll(const QTreeWidget& tree) {
    const int hidden = tree.columnWidth(0) + tree.columnWidth(1) - tree.viewport()->width();
    return tree.columnWidth(0) > neededWidth(tree, 0) && tree.columnWidth(1) >= neededWidth(tree, 1) &&
           hidden <= tree.horizontalScrollBar()->maximum();
}

bool showsAll(const QTableWidget& table) {
    return table.rowHeight(0) >= table.fontMetrics().height() && table.verticalScrollBar()->maximum() == 0 &&
           table.columnWidth(0) >= neededWidth(table, 0);
}

bool showsAll(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return showsAll(*label);
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return showsAll(*button);
    if (const auto* tree = qobject_cast<const QTreeWidget*>(&widget)) return showsAll(*tree);
    if (const auto* table = qobject_cast<const QTableWidget*>(&widget)) return showsAll(*table);
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) return holds(*box, box->sizeHint());
    if (const auto* field = qobject_cast<const QLineEdit*>(&widget))
        return field->height() >= field->sizeHint().height();
    return true;
}

/// Every widget that is to be seen, in every window.
QList<QWidget*> shownWidgets() {
    QList<QWidget*> shown;
    for (QWidget* window : EveryWindow::windows()) {
        shown.append(window);
        for (QWidget* child : window->findChildren<QWidget*>()) {
            if (child->isVisible() && child->window() == window) shown.append(child);
        }
    }
    return shown;
}

void expectAllTextsWhole() {
    int count = 0;
    for (const QWidget* widget : shownWidgets()) {
        EXPECT_TRUE(showsAll(*widget)) << nameOf(*widget);
        ++count;
    }
    EXPECT_GT(count, 140);
}

/// Whether each widget has the least that it needs, inside of what it is in.
void expectNothingCrowded() {
    for (QWidget* widget : shownWidgets()) {
        const bool isLaidOut = !widget->isWindow() && widget->parentWidget()->layout() != nullptr &&
                               widget->parentWidget()->layout()->indexOf(widget) >= 0;
        if (!isLaidOut) continue;
        EXPECT_TRUE(holds(*widget, widget->minimumSizeHint().boundedTo(widget->maximumSize()))) << nameOf(*widget);
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry())) << nameOf(*widget);
    }
}

/// Whether a line of another colour crosses a picture between these places, which are beside it.
bool crossesLine(const QImage& picture, const QPoint& from, const QPoint& to) {
    const QColor first = picture.pixelColor(from);
    const QColor last = picture.pixelColor(to);
    const int steps = (to - from).manhattanLength();
    for (int step = 1; step < steps; ++step) {
        const QColor color = picture.pixelColor(from + (to - from) * step / steps);
        if (color != first && color != last) return true;
    }
    return false;
}

void expectHairline(const QWidget& window, const QWidget& line) {
    const QImage picture = window.window()->grab().toImage();
    const qreal scale = picture.devicePixelRatio();
    const QRect place(line.mapTo(line.window(), QPoint(0, 0)), line.size());
    const bool isUpright = place.height() > place.width();
    const QPoint middle = (QPointF(place.center()) * scale).toPoint();
    const QPoint reach = QPoint(isUpright ? 1 : 0, isUpright ? 0 : 1) * qCeil(4 * scale);
    EXPECT_TRUE(crossesLine(picture, middle - reach, middle + reach)) << nameOf(line) << " at " << scale;
}

/// The lines above and below the entry. The sidebar has a colour of its own beside the history.
void expectHairlines(const MyDocument& document) {
    const TXWindow& window = *document.documentWindow();
    EXPECT_EQ(document.secondarySplitView()->handleWidth(), 1);
    expectHairline(window, *document.secondarySplitView()->handle(1));
    expectHairline(window, *window.findChild<QWidget*>("bottomBarLine"));
}

void expectRoomOnASmallScreen() {
    for (const QWidget* window : EveryWindow::windows()) {
        const QSize least = window->minimumSizeHint().expandedTo(window->minimumSize());
        EXPECT_LE(least.width(), smallScreen.width()) << nameOf(*window);
        EXPECT_LE(least.height(), smallScreen.height() - roomForTitle) << nameOf(*window);
    }
}

struct Legibility : EveryWindow {};

TEST_F(Legibility, ofEveryText) {
    expectAllTextsWhole();
    expectNothingCrowded();
}

TEST_F(Legibility, ofLines) {
    full.closeFindBar();
    QTest::qWait(0);
    expectHairlines(full);
}

TEST_F(Legibility, ofTheProgramsIcon) {
    QIcon icon;
    for (const int size : {64, 128, 256}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::blue);
        icon.addPixmap(pixmap);
    }
    mini.showWindow();
    mini.miniWindow()->setWindowIcon(icon);
    trigger(mini, "aboutAction");
    auto* const about = mini.miniWindow()->findChild<QMessageBox*>("aboutBox");
    ASSERT_NE(about, nullptr);
    EXPECT_GE(about->iconPixmap().devicePixelRatio(), about->devicePixelRatio());
    EXPECT_EQ(about->iconPixmap().deviceIndependentSize(), QSizeF(64, 64));
}

TEST_F(Legibility, ofANarrowWindow) {
    full.documentWindow()->resize(519, 400);
    QTest::qWait(0);
    EXPECT_TRUE(full.numberFormattingButton()->isElided());
    EXPECT_EQ(full.numberFormattingButton()->toolTip(), "Auto Digit Formatting");
    EXPECT_FALSE(full.documentWindow()->findChild<QPushButton*>("miniModeButton")->visibleRegion().isEmpty());
    expectAllTextsWhole();
    expectNothingCrowded();
}

TEST_F(Legibility, ofTheSmallestWindow) {
    full.documentWindow()->resize(0, 0);
    mini.miniWindow()->resize(220, mini.miniWindow()->height());
    QTest::qWait(0);
    EXPECT_TRUE(full.numberFormattingButton()->isElided());
    expectAllTextsWhole();
    expectNothingCrowded();
}

TEST_F(Legibility, onASmallScreen) { expectRoomOnASmallScreen(); }

/// The desktop's font twice as large, from before the first window.
struct LargeFont {
    LargeFont() {
        QFont large = before;
        large.setPointSizeF(2 * QFontInfo(before).pointSizeF());
        QApplication::setFont(large);
    }
    ~LargeFont() { QApplication::setFont(before); }
    LargeFont(const LargeFont&) = delete;
    LargeFont& operator=(const LargeFont&) = delete;

    QFont before = QApplication::font();
};

struct LegibilityOfLargeText : LargeFont, EveryWindow {};

TEST_F(LegibilityOfLargeText, ofEveryText) {
    expectAllTextsWhole();
    expectNothingCrowded();
}

TEST_F(LegibilityOfLargeText, ofTheSmallestWindow) {
    full.documentWindow()->resize(0, 0);
    mini.miniWindow()->resize(0, mini.miniWindow()->height());
    QTest::qWait(0);
    expectAllTextsWhole();
    expectNothingCrowded();
}

TEST_F(LegibilityOfLargeText, ofAllKeysWithoutScrollingSideways) {
    const auto* tree = full.documentWindow()->findChild<QTreeWidget*>("shortcutList");
    const bool hasRoom = tree->window()->width() < tree->screen()->availableSize().width();
    EXPECT_EQ(tree->horizontalScrollBar()->maximum() == 0, hasRoom);
}

TEST_F(LegibilityOfLargeText, onASmallScreen) { expectRoomOnASmallScreen(); }

TEST_F(LegibilityOfLargeText, ofHistoryAndEntryTwiceAsLarge) {
    full.setTextSize(200);
    QTest::qWait(0);
    EXPECT_GE(full.formulaTextView()->height(), full.formulaTextView()->fontMetrics().height());
    EXPECT_GE(full.mainField()->height(), 3);
    expectRoomOnASmallScreen();
}

class Scale : public testing::TestWithParam<const char*> {};

// A program has one scale from its start to its end.
TEST_P(Scale, leavesAllLegible) {
    QProcess tests;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_SCALE_FACTOR", GetParam());
    tests.setProcessEnvironment(environment);
    tests.setProcessChannelMode(QProcess::MergedChannels);
    tests.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=Legibility*"});
    ASSERT_TRUE(tests.waitForFinished(300'000));
    const QByteArray output = tests.readAll();
    EXPECT_EQ(tests.exitCode(), 0) << output.toStdString();
    EXPECT_TRUE(output.contains("[  PASSED  ] 11 tests.")) << output.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Factors, Scale, testing::Values("1.25", "1.5", "2"),
                         [](const auto& row) { return QString(row.param).replace('.', '_').toStdString(); });

}  // namespace
