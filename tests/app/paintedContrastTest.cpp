// Whether all that is shown can be seen, as it is painted: texts by 4.5 to 1, outlines and marks of the focus by 3 to
// 1, in light and dark colours and in those of high contrast.

#include <QAbstractTextDocumentLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTreeWidget>
#include <algorithm>

#include "app/Appearance.h"
#include "app/TXGreekLetterPanel.h"
#include "tests/support/ApplicationTest.h"
#include "tests/support/contrast.h"
#include "tests/support/palettes.h"
#include "ui/document/MiniModeAnswerField.h"
#include "ui/document/PullDownButton.h"
#include "ui/document/SegmentedControl.h"
#include "ui/document/TXOutlineView.h"
#include "ui/document/TXVariableOutlineViewController.h"

namespace {

constexpr double readable = 4.5;
constexpr double visible = 3.0;
constexpr int edgeLength = 5;

struct PaletteCase {
    const char* name;
    QPalette (*palette)();
};
void PrintTo(const PaletteCase& row, std::ostream* out) { *out << row.name; }

QPalette withHighlight(QPalette palette, const QColor& highlight, const QColor& text) {
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, text);
    return palette;
}

/// A document with a history, in front.
struct PaintedContrast : ApplicationTest, testing::WithParamInterface<PaletteCase> {
    PaintedContrast() {
        QCursor::setPos(0, 0);
        QTest::keyClicks(document.formulaTextView(), "2+3\rx=4\r(2\r1/3");
        QCoreApplication::processEvents();
    }

    template <typename Widget>
    Widget* control(const char* name) const {
        auto* const found = document.documentWindow()->findChild<Widget*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    QWidget* window() const { return document.documentWindow(); }

    ShownPalette shown{GetParam().palette()};
    MyDocument& document = openDocument();
};

/// What a control shows inside of its outline.
QRect insideOf(const QWidget* control) { return control->rect().adjusted(5, 5, -5, -5); }

TEST_P(PaintedContrast, ofTheHistory) {
    TXHistoryViewerTextView* const history = document.mainField();
    int lines = 0;
    for (QTextBlock line = history->document()->begin(); line.isValid(); line = line.next()) {
        if (line.text().isEmpty()) continue;
        const QRect area = history->document()->documentLayout()->blockBoundingRect(line).toRect();
        EXPECT_GE(paintedContrast(history->viewport(), area.translated(0, -history->verticalScrollBar()->value())),
                  readable)
            << line.text().toStdString();
        ++lines;
    }
    EXPECT_EQ(lines, 6);
    QTest::keyClick(history, Qt::Key_A, Qt::ControlModifier);
    EXPECT_GE(paintedContrast(history->viewport(), QRect(12, 14, 30, 15)), readable) << "selected";
}

TEST_P(PaintedContrast, ofTheScrollBar) {
    for (int i = 0; i < 20; ++i) QTest::keyClicks(document.formulaTextView(), "1\r");
    QCoreApplication::processEvents();
    QScrollBar* const bar = document.mainField()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    const QImage image = bar->grab().toImage();
    QList<QColor> colors;  // from the groove into the slider
    for (int y = bar->height() / 6; y < bar->height() * 5 / 6; ++y)
        colors.append(image.pixelColor(bar->width() / 2, y));
    EXPECT_GE(edgeContrast(colors), visible);
}

TEST_P(PaintedContrast, ofTheEmptyHistory) {
    document.clearEverything();
    EXPECT_GE(paintedContrast(document.mainField()->viewport()), readable);
}

TEST_P(PaintedContrast, ofTheEntry) {
    EXPECT_GE(paintedContrast(document.formulaTextView()->viewport()), readable);
    document.formulaTextView()->selectAll();
    EXPECT_GE(paintedContrast(document.formulaTextView()->viewport(), QRect(2, 2, 20, 20)), readable) << "selected";
}

TEST_P(PaintedContrast, ofTheSidebar) {
    TXOutlineView* const sidebar = document.variableOutlineView();
    for (int row = 0; row < sidebar->numberOfRows(); ++row) {
        const QModelIndex index = sidebar->indexAtRow(row);
        const QRect place = sidebar->visualRect(index);
        EXPECT_GE(paintedContrast(sidebar->viewport(), place), readable) << index.data().toString().toStdString();
        QTest::mouseClick(sidebar->viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
        EXPECT_GE(paintedContrast(sidebar->viewport(), place), readable) << "selected";
    }
    EXPECT_GE(sidebar->numberOfRows(), 6);
}

TEST_P(PaintedContrast, ofTheControlsBelow) {
    for (const char* name : {"formattingTypeButton", "numberFormattingButton", "miniModeButton"}) {
        auto* const button = control<QPushButton>(name);
        EXPECT_GE(paintedContrast(button, insideOf(button)), readable) << name;
        EXPECT_GE(edgeContrast(leftEdge(button, edgeLength)), visible) << name;
    }
}

TEST_P(PaintedContrast, ofTheSegments) {
    auto* const angles = window()->findChild<SegmentedControl*>();
    for (const int chosen : {0, 1}) {
        angles->setSelectedSegment(chosen);
        for (auto* segment : angles->findChildren<QRadioButton*>()) {
            const QPoint place = segment->mapTo(window(), QPoint(0, 0));
            EXPECT_GE(paintedContrast(window(), insideOf(segment).translated(place)), readable) << segment->isChecked();
        }
        // The outline around the one that is not chosen, which has no other edge.
        const QPoint left = angles->mapTo(window(), QPoint(0, angles->height() / 2));
        if (chosen == 1) {
            EXPECT_GE(edgeContrast(colorsFrom(window(), left, 6)), visible);
        }
    }
}

TEST_P(PaintedContrast, ofTheFocus) {
    QTest::keyClick(document.formulaTextView(), Qt::Key_Tab);
    for (const char* name : {"formattingTypeButton", "numberFormattingButton"}) {
        auto* const button = control<QPushButton>(name);
        ASSERT_TRUE(button->hasFocus()) << name;
        const QList<QColor> focused = leftEdge(button, edgeLength);
        QTest::keyClick(button, Qt::Key_Tab);
        EXPECT_NE(leftEdge(button, edgeLength), focused) << name;
        EXPECT_GE(edgeContrast(focused), visible) << name;
    }
    auto* const angles = window()->findChild<SegmentedControl*>();
    const QPoint corner = angles->mapTo(window(), QPoint(0, angles->height() / 2));
    const QColor around = colorsFrom(window(), corner - QPoint(1, 0), 1).first();
    EXPECT_GE(contrastRatio(colorsFrom(window(), corner + QPoint(1, 0), 1).first(), around), visible);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    auto* const mini = control<QPushButton>("miniModeButton");
    ASSERT_TRUE(mini->hasFocus());
    EXPECT_GE(edgeContrast(leftEdge(mini, edgeLength)), visible);
}

TEST_P(PaintedContrast, ofTheFocusInTheSidebar) {
    TXOutlineView* const sidebar = document.variableOutlineView();
    QTest::keyClick(window(), Qt::Key_Tab);  // So that the window shows the focus.
    sidebar->setFocus(Qt::TabFocusReason);
    QTest::keyClick(sidebar, Qt::Key_Down);
    const QRect row = sidebar->visualRect(sidebar->currentIndex());
    const QImage image = sidebar->viewport()->grab().toImage();
    const QColor mark = image.pixelColor(row.center().x(), row.top());
    EXPECT_GE(contrastRatio(mark, image.pixelColor(row.center().x(), row.top() - 1)), visible);
}

TEST_P(PaintedContrast, ofMenus) {
    auto* const menu = window()->findChild<QMenu*>("formatMenu");
    ASSERT_NE(menu, nullptr);
    menu->popup(QPoint(300, 100));
    for (QAction* entry : menu->actions()) {
        if (!entry->isEnabled() || entry->isSeparator()) continue;
        const QRect place = menu->actionGeometry(entry).adjusted(22, 2, -24, -2);
        EXPECT_GE(paintedContrast(menu, place), readable) << entry->text().toStdString();
        menu->setActiveAction(entry);
        EXPECT_GE(paintedContrast(menu, place), readable) << "chosen";
    }
    menu->setActiveAction(menu->actions().first());
    const QList<QAction*> entries = menu->actions();
    QAction* const separators =
        *std::find_if(entries.begin(), entries.end(), [](const QAction* entry) { return entry->isCheckable(); });
    ASSERT_FALSE(separators->isChecked());
    const QRect row = menu->actionGeometry(separators);
    EXPECT_GE(edgeContrast(colorsFrom(menu, QPoint(2, row.center().y()), 12)), visible) << "an empty check box";
    menu->close();
}

/// Looks at all texts and outlines of a window.
void lookAt(const QWidget* window) {
    for (auto* label : window->findChildren<QLabel*>()) {
        if (label->isVisible() && !label->text().isEmpty()) {
            EXPECT_GE(paintedContrast(label), readable) << label->text().toStdString();
        }
    }
    const auto look = [](QWidget* widget, const std::string& text) {
        if (!widget->isVisible() || !widget->isEnabled()) return;
        EXPECT_GE(edgeContrast(leftEdge(widget, edgeLength)), visible) << text;
        if (text.empty()) return;
        EXPECT_GE(paintedContrast(widget, insideOf(widget)), readable) << text;
    };
    for (auto* button : window->findChildren<QPushButton*>()) {
        if (!button->isFlat()) look(button, button->text().toStdString());
    }
    for (auto* box : window->findChildren<QComboBox*>()) look(box, box->currentText().toStdString());
    for (auto* box : window->findChildren<QCheckBox*>()) {
        if (!box->isVisible()) continue;
        EXPECT_GE(edgeContrast(leftEdge(box, edgeLength)), visible) << box->text().toStdString();
        EXPECT_GE(paintedContrast(box, box->rect().adjusted(22, 0, 0, 0)), readable) << box->text().toStdString();
    }
    for (auto* field : window->findChildren<QLineEdit*>()) {
        look(field, (field->text() + field->placeholderText()).toStdString());
    }
}

TEST_P(PaintedContrast, ofThePreferences) {
    application.preferences().ShowPreferencePanel();
    const QWidget* const preferences = application.preferences().preferenceController()->window();
    lookAt(preferences);
}

TEST_P(PaintedContrast, ofTheFindBar) {
    document.findInHistory();
    lookAt(control<QWidget>("findBar"));
    QTest::keyClicks(QApplication::focusWidget(), "no such text");
    lookAt(control<QWidget>("findBar"));
}

TEST_P(PaintedContrast, ofDialogs) {
    for (const char* name : {"aboutAction", "keyboardShortcutsAction", "saveDocumentAction", "clearEverythingAction"}) {
        trigger(document, name);
        ASSERT_TRUE(QTest::qWaitFor([this] { return !window()->isActiveWindow() && QApplication::activeWindow(); }))
            << name;
        const QWidget* const dialog = QApplication::activeWindow();
        lookAt(dialog);
        for (auto* tree : dialog->findChildren<QTreeWidget*>()) {
            for (QTreeWidgetItem* row = tree->topLevelItem(0);
                 row != nullptr && tree->visualItemRect(row).bottom() < tree->viewport()->height();
                 row = tree->itemBelow(row)) {
                EXPECT_GE(paintedContrast(tree->viewport(), tree->visualItemRect(row)), readable)
                    << row->text(0).toStdString();
            }
            EXPECT_GE(paintedContrast(tree->header()->viewport()), readable);
        }
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
        deleteWhatIsClosed();
        document.showWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(document.documentWindow()));
    }
}

TEST_P(PaintedContrast, ofTheGreekLetters) {
    application.preferences().showGreekLettersPanel();
    auto* const panel = window()->findChild<TXGreekLetterPanel*>();
    ASSERT_NE(panel, nullptr);
    EXPECT_GE(paintedContrast(panel->findChild<QPushButton*>()), readable);
    document.showWindow();  // Without a display, the panel became the active window.
    ASSERT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == window(); }));
    QTest::keyClick(document.formulaTextView(), Qt::Key_F6);
    ASSERT_TRUE(QTest::qWaitFor([panel] { return QApplication::activeWindow() == panel; }));
    EXPECT_GE(edgeContrast(leftEdge(QApplication::focusWidget(), edgeLength)), visible) << "focus";
    EXPECT_GE(paintedContrast(panel->findChild<QLabel*>("nameLine")), readable);
}

// Dark in every palette.
TEST_P(PaintedContrast, ofTheMiniWindow) {
    document.setIsSmallWindowShown(true);
    for (const char* line : {"1/7", "(2"}) {
        document.activeFormulaTextView()->setText(line);
        QTest::keyClick(document.activeFormulaTextView(), Qt::Key_Return);
        QCoreApplication::processEvents();
        EXPECT_GE(paintedContrast(document.miniModeAnswerField()), readable) << line;
        EXPECT_GE(paintedContrast(document.activeFormulaTextView()->viewport()), readable) << line;
        EXPECT_EQ(document.miniWindow()->grab().toImage().pixelColor(1, 1), QColor("#2A2B2F"));
    }
    document.activeFormulaTextView()->setText("1/7");
    QTest::keyClick(document.activeFormulaTextView(), Qt::Key_Return);
    EXPECT_GE(paintedContrast(document.miniWindow()->findChild<QLabel*>("miniModeFormatLabel")), readable);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Palettes, PaintedContrast, testing::Values(
    PaletteCase{"Light",          &Appearance::lightPalette},
    PaletteCase{"Dark",           &Appearance::darkPalette},
    PaletteCase{"WhiteOnBlack",   &blackPalette},
    PaletteCase{"BlackOnWhite",   &whitePalette},
    PaletteCase{"GreenHighlight", [] { return withHighlight(Appearance::lightPalette(), "#006400", "#FFFFFF"); }},
    PaletteCase{"PaleHighlight",  [] { return withHighlight(Appearance::darkPalette(), "#B0E0B0", "#101010"); }}
), [](const auto& row) { return row.param.name; });
// clang-format on

// Where the desktop is dark by itself, its palette is not ours.
TEST(FusionCheckBox, showsItsEmptyBoxInADesktopsPalette) {
    const SettingsFolder settings;
    const Application application;
    for (const QPalette& palette : {someDarkPalette(), QApplication::style()->standardPalette()}) {
        const ShownPalette shown(palette);
        QWidget window;
        auto* const box = new QCheckBox("Text", &window);
        window.resize(100, 60);
        box->move(20, 20);
        window.show();
        EXPECT_GE(edgeContrast(leftEdge(box, 5)), 3.0);
        box->setEnabled(false);
        EXPECT_LT(edgeContrast(leftEdge(box, 5)), 3.0);
    }
}

}  // namespace
