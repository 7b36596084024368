// The colours in which the history is shown, and those that it has.

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QClipboard>
#include <QMimeData>
#include <QPdfWriter>
#include <QScrollBar>

#include "tests/support/DocumentTest.h"
#include "tests/support/contrast.h"
#include "tests/support/palettes.h"
#include "ui/document/Hairline.h"

namespace {

using LineKind = TXHistoryViewerTextView::LineKind;

/// An equation with its answer, and one with an error: lines 0, 1, 3 and 4.
struct ShownHistory : OpenDocument {
    ShownHistory() { press(u"2+3⏎(2⏎"); }

    TXHistoryViewerTextView* view() const { return document.mainField(); }
    QColor colorOfLine(int number) const {
        const QTextBlock line = view()->document()->findBlockByNumber(number);
        const QRectF place = view()->document()->documentLayout()->blockBoundingRect(line);
        const QRect area = place.toRect().translated(0, -view()->verticalScrollBar()->value());
        return strongestColor(view()->viewport()->grab(area).toImage());
    }
    QList<QColor> colors() const { return {colorOfLine(0), colorOfLine(1), colorOfLine(3), colorOfLine(4)}; }
};

const QList<QColor> settledColors = {"#000000", "#1818D4", "#000000", "#D41818"};
const QList<QColor> colorsOnDark = {"#F0F0F2", "#A6A6FF", "#F0F0F2", "#FF8A8A"};

TEST(HistoryColors, areTheSettledOnesOnWhite) {
    const ShownHistory shown;
    EXPECT_EQ(shown.colors(), settledColors);
}

TEST(HistoryColors, areLighterOnADarkBase) {
    const ShownPalette dark(someDarkPalette());
    const ShownHistory shown;
    EXPECT_EQ(shown.colors(), colorsOnDark);
}

TEST(HistoryColors, followThePalette) {
    const ShownHistory shown;
    {
        const ShownPalette dark(someDarkPalette());
        EXPECT_EQ(shown.colors(), colorsOnDark);
        const ShownPalette black(blackPalette());
        EXPECT_EQ(shown.colors(), QList<QColor>({"#FFFFFF", "#A6A6FF", "#FFFFFF", "#FF8A8A"}));
    }
    EXPECT_EQ(shown.colors(), settledColors);
}

TEST(HistoryColors, areReadableOnAnyBase) {
    for (const char* base : {"#5A5A5A", "#6E6E6E", "#808080", "#C0C0C0"}) {
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Text, QColor(base).lightness() < 115 ? Qt::white : Qt::black);
        for (const LineKind kind : {LineKind::equation, LineKind::answer, LineKind::error}) {
            const QColor settled = settledColors[kind == LineKind::error ? 3 : static_cast<int>(kind) - 1];
            const QColor color = TXHistoryViewerTextView::shownColor(kind, settled, palette);
            EXPECT_GE(contrastRatio(color, base), 4.5) << base << ' ' << color.name().toStdString();
        }
    }
}

TEST(HistoryColors, stayWithAnotherTextSize) {
    const ShownPalette dark(someDarkPalette());
    ShownHistory shown;
    shown.document.setTextSize(150);
    EXPECT_EQ(shown.colors(), colorsOnDark);
}

TEST(HistoryColors, comeBackWithAClearedHistory) {
    ShownHistory shown;
    shown.document.clearHistory();
    {
        const ShownPalette dark(someDarkPalette());
        shown.document.undoClearHistory();
        EXPECT_EQ(shown.colors(), colorsOnDark);
        shown.document.clearHistory();
    }
    shown.document.undoClearHistory();
    EXPECT_EQ(shown.colors(), settledColors);
}

TEST(HistoryColors, leaveWhatIsInSightWhereItIs) {
    const OpenDocument open;
    QScrollBar* const bar = open.document.mainField()->verticalScrollBar();
    for (int i = 0; i < 40; ++i) open.press(u"2⏎");
    const int end = bar->value();
    for (const int place : {end, end / 2, 0}) {
        bar->setValue(place);
        const ShownPalette dark(someDarkPalette());
        QTest::qWait(0);
        EXPECT_EQ(bar->value(), place);
        EXPECT_EQ(bar->maximum(), end);
    }
}

/// What is copied of the whole history, as HTML.
QString copiedText(TXHistoryViewerTextView* history) {
    QTest::keyClick(history, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(history, Qt::Key_C, Qt::ControlModifier);
    return QGuiApplication::clipboard()->mimeData()->html();
}

TEST(HistoryColors, areNotCopied) {
    const ShownHistory shown;
    const QString before = copiedText(shown.view());
    for (const char* color : {"color:#000000", "color:#1818d4", "color:#d41818"}) {
        EXPECT_TRUE(before.contains(color)) << before.toStdString();
    }
    const ShownPalette dark(someDarkPalette());
    EXPECT_EQ(copiedText(shown.view()), before);
}

/// The drawing commands of the printed pages.
QByteArray printed(const MyDocument& document) {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    QPdfWriter writer(&file);
    document.printHistory(&writer);
    const QByteArray pages = file.data();
    const QByteArray beginning = "/FlateDecode\n>>\nstream\n";
    QByteArray commands;
    for (qsizetype at = pages.indexOf(beginning); at >= 0; at = pages.indexOf(beginning, at + 1)) {
        const qsizetype start = at + beginning.size();
        const QByteArray packed = pages.mid(start, pages.indexOf("endstream", start) - start);
        // The toolkit wants the number of bytes in front.
        const QByteArray text = qUncompress(QByteArray("\0\1\0\0", 4) + packed);
        if (text.contains(" Tf")) commands += text;
    }
    return commands;
}

TEST(HistoryColors, areNotPrinted) {
    const ShownHistory shown;
    const QByteArray before = printed(shown.document);
    EXPECT_TRUE(before.contains("0.093995578 0.093995578 0.829999208 scn")) << before.left(4000).toStdString();
    const ShownPalette dark(someDarkPalette());
    EXPECT_EQ(printed(shown.document), before);
}

TEST(HistoryHint, isReadable) {
    for (const QPalette& palette : {QPalette(), someDarkPalette(), blackPalette(), whitePalette()}) {
        QPalette pale = palette;
        QColor placeholder = palette.color(QPalette::Text);
        placeholder.setAlpha(100);
        pale.setColor(QPalette::PlaceholderText, placeholder);
        const ShownPalette shown(pale);
        const OpenDocument open;
        EXPECT_GE(paintedContrast(open.document.mainField()->viewport()), 4.5)
            << palette.color(QPalette::Base).name().toStdString();
    }
}

TEST(Hairline, isSeenBetweenAreasOfOneColor) {
    for (const QPalette& palette : {blackPalette(), whitePalette()}) {
        Hairline line;
        line.setPalette(palette);
        line.resize(10, 1);
        EXPECT_GE(contrastRatio(line.grab().toImage().pixelColor(5, 0), palette.color(QPalette::Window)), 1.1);
    }
}

TEST(Hairline, hasThePalettesColor) {
    Hairline line;
    line.resize(10, 1);
    EXPECT_EQ(line.grab().toImage().pixel(5, 0), line.palette().color(QPalette::Mid).rgb());
}

}  // namespace
