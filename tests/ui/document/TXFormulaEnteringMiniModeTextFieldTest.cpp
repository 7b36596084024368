#include "ui/document/TXFormulaEnteringMiniModeTextField.h"

#include <QClipboard>
#include <QMimeData>

#include "tests/support/DocumentTest.h"
#include "ui/document/MiniModeAnswerField.h"

namespace {

/// A document that shows its mini window.
struct OpenMiniWindow : OpenDocument {
    OpenMiniWindow() {
        document.setIsSmallWindowShown(true);
        document.showWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(document.miniWindow()));
    }
    TXFormulaEnteringMiniModeTextField* field() const { return document.miniModeformulaTextView(); }
};

void putStyledTextOnClipboard() {
    auto data = std::make_unique<QMimeData>();
    data->setText("2+3");
    data->setHtml("<b>wrong</b>");
    QGuiApplication::clipboard()->setMimeData(data.release());
}

TEST(MiniModeTextField, pastesPlainText) {
    const OpenMiniWindow open;
    putStyledTextOnClipboard();
    open.field()->paste();
    EXPECT_EQ(open.line(), "2+3");
}

TEST(MiniModeTextField, pastesPlainTextForAFontToo) {
    const OpenMiniWindow open;
    putStyledTextOnClipboard();
    open.field()->pasteFont();
    EXPECT_EQ(open.line(), "2+3");
}

TEST(MiniModeTextField, offersPlainTextOnly) {
    const OpenMiniWindow open;
    open.press(u"2+3⌘");
    open.field()->copy();
    EXPECT_EQ(QGuiApplication::clipboard()->mimeData()->formats(), QStringList{"text/plain"});
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "2+3");
}

TEST(MiniModeTextField, writesNothingButPlainText) {
    const OpenMiniWindow open;
    open.press(u"2+3⌘");
    QMimeData pasteboard;
    EXPECT_FALSE(open.field()->writeSelectionToPasteboard(&pasteboard, "text/html"));
    EXPECT_TRUE(pasteboard.formats().isEmpty());
    EXPECT_TRUE(open.field()->writeSelectionToPasteboard(&pasteboard, "text/plain"));
    EXPECT_EQ(pasteboard.text(), "2+3");
}

TEST(MiniModeTextField, hasItsColors) {
    const OpenMiniWindow open;
    const QPalette colors = open.field()->palette();
    EXPECT_EQ(colors.color(QPalette::Text), QColor(Qt::white));
    EXPECT_EQ(colors.color(QPalette::HighlightedText), QColor(Qt::white));
    EXPECT_EQ(colors.color(QPalette::Highlight).rgba(), qRgb(73, 73, 73));
    EXPECT_EQ(colors.color(QPalette::Base), QColor(0x2A, 0x2B, 0x2F));
}

TEST(MiniModeTextField, hasItsInsets) {
    const OpenMiniWindow open;
    EXPECT_EQ(open.field()->document()->documentMargin(), 2.0);
    EXPECT_EQ(open.field()->cursorRect().left(), 2);
    EXPECT_EQ(open.document.formulaTextView()->document()->documentMargin(), 1.0);
}

/// The colour painted where the caret is.
QColor colorOfCaret(TXFormulaEnteringMiniModeTextField* field) {
    const QImage image = field->viewport()->grab().toImage();
    return image.pixelColor(field->cursorRect().left(), field->cursorRect().center().y());
}

TEST(MiniModeTextField, hasAWhiteCaret) {
    const OpenMiniWindow open;
    open.press(u"2");
    EXPECT_EQ(colorOfCaret(open.field()).name(), "#ffffff");
    open.field()->clearFocus();
    EXPECT_EQ(colorOfCaret(open.field()).name(), "#2a2b2f");
}

TEST(MiniModeTextField, blinksAsTheSystemSays) {
    const int systemPeriod = QApplication::cursorFlashTime();
    QApplication::setCursorFlashTime(20);
    const OpenMiniWindow open;
    const auto isShown = [&] { return colorOfCaret(open.field()).name() == "#ffffff"; };
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isShown(); }));
    EXPECT_TRUE(QTest::qWaitFor(isShown));
    QApplication::setCursorFlashTime(systemPeriod);
}

TEST(MiniModeTextField, castsAShadow) {
    const OpenMiniWindow open;
    EXPECT_EQ(open.field()->typedTextShadow().color, QColor::fromRgbF(0.0F, 0.0F, 0.0F, 0.6F));
    EXPECT_EQ(open.field()->typedTextShadow().offset, QPointF(0.0, 1.0));
    open.press(u"-");
    const QImage image = open.field()->viewport()->grab().toImage();
    bool isDarkerThanTheBackground = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            isDarkerThanTheBackground |= image.pixelColor(x, y).lightness() < QColor(0x2A, 0x2B, 0x2F).lightness() - 8;
        }
    }
    EXPECT_TRUE(isDarkerThanTheBackground);
}

TEST(MiniModeTextField, keepsItsFlagsAndLineWhenItWakes) {
    TXFormulaEnteringMiniModeTextField field;
    field.setWasFormulaJustCalculated(true);
    field.awakeFromNib();
    EXPECT_FALSE(field.wasFormulaJustCalculated());
    EXPECT_EQ(field.text(), "");
    EXPECT_FALSE(field.document()->isUndoAvailable());
}

TEST(MiniWindow, changesItsWidthOnly) {
    const OpenMiniWindow open;
    QWidget* window = open.document.miniWindow();
    const int height = window->height();
    EXPECT_EQ(window->width(), 340);
    EXPECT_EQ(height, 84);
    window->resize(500, 300);
    EXPECT_EQ(window->size(), QSize(500, height));
    window->resize(10, 10);
    EXPECT_EQ(window->size(), QSize(220, height));
}

TEST(MiniModeAnswerField, elidesALongAnswerInItsMiddle) {
    const OpenMiniWindow open;
    MiniModeAnswerField* field = open.document.miniModeAnswerField();
    field->showAnswer("5");
    EXPECT_FALSE(field->isElided());
    EXPECT_EQ(field->toolTip(), "");
    const QString answer(200, u'7');
    field->showAnswer(answer);
    EXPECT_TRUE(field->isElided());
    EXPECT_EQ(field->toolTip(), answer);
    open.document.miniWindow()->resize(6000, 84);
    EXPECT_EQ(field->toolTip(), "");
}

TEST(MiniModeAnswerField, wrapsAnErrorToTwoLines) {
    const OpenMiniWindow open;
    MiniModeAnswerField* field = open.document.miniModeAnswerField();
    field->showError("Error: There is an open parenthesis in the equation");
    EXPECT_FALSE(field->isElided());
    field->showError(
        "Error: There is an open parenthesis in the equation -- you are missing a ). Error: There is an "
        "open parenthesis in the equation");
    EXPECT_TRUE(field->isElided());
    EXPECT_EQ(field->toolTip(), field->text());
}

TEST(MiniModeAnswerField, isLowered) {
    const OpenMiniWindow open;
    EXPECT_EQ(open.document.miniModeAnswerField()->frameShadow(), QFrame::Sunken);
}

}  // namespace
