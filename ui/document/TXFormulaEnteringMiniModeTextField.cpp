#include "ui/document/TXFormulaEnteringMiniModeTextField.h"

#include <QApplication>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QTextBlock>
#include <QTextLayout>
#include <memory>

#include "ui/document/MyDocument.h"

namespace {

constexpr int fieldInset = 2;
constexpr auto plainTextType = "text/plain";
constexpr float selectionGrey = 0.28627452F;

}  // namespace

TXFormulaEnteringMiniModeTextField::TXFormulaEnteringMiniModeTextField(QWidget* parent)
    : TXFormulaEnteringTextView(parent) {
    setCursorWidth(0);
    connect(&blinking_, &QTimer::timeout, this, [this] { showInsertionPoint(!isInsertionPointShown_); });
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &TXFormulaEnteringMiniModeTextField::restartBlinking);
}

void TXFormulaEnteringMiniModeTextField::awakeFromNib() {
    setTextContainerInset(fieldInset);
    setInsertionPointColor(Qt::white);
    setTextColor(Qt::white);
    QPalette colors = palette();
    colors.setColor(QPalette::HighlightedText, Qt::white);
    colors.setColor(QPalette::Highlight, QColor::fromRgbF(selectionGrey, selectionGrey, selectionGrey));
    setPalette(colors);
    setWasFormulaJustCalculated(false);
}

void TXFormulaEnteringMiniModeTextField::setTextColor(const QColor& color) {
    QPalette colors = palette();
    colors.setColor(QPalette::Text, color);
    setPalette(colors);
}

void TXFormulaEnteringMiniModeTextField::paste() { QPlainTextEdit::paste(); }

void TXFormulaEnteringMiniModeTextField::pasteFont() { QPlainTextEdit::paste(); }

bool TXFormulaEnteringMiniModeTextField::writeSelectionToPasteboard(QMimeData* pasteboard, const QString& type) const {
    if (type != plainTextType) return false;
    pasteboard->setText(textCursor().selectedText());
    return true;
}

QMimeData* TXFormulaEnteringMiniModeTextField::createMimeDataFromSelection() const {
    auto copied = std::make_unique<QMimeData>();
    writeSelectionToPasteboard(copied.get(), plainTextType);
    return copied.release();
}

void TXFormulaEnteringMiniModeTextField::addToContextMenu(QMenu* menu) {
    if (parentDocument() == nullptr) return;
    menu->addSeparator();
    parentDocument()->addMiniModeCommands(menu);
}

void TXFormulaEnteringMiniModeTextField::paintEvent(QPaintEvent* event) {
    const QTextBlock line = document()->firstBlock();
    const QPointF position = blockBoundingGeometry(line).translated(contentOffset()).topLeft();
    {
        QPainter painter(viewport());
        painter.setPen(typedTextShadow_.color);
        line.layout()->draw(&painter, position + typedTextShadow_.offset, {}, viewport()->rect());
    }
    TXFormulaEnteringTextView::paintEvent(event);
    if (isInsertionPointShown_) QPainter(viewport()).fillRect(insertionPoint(), insertionPointColor_);
}

QRect TXFormulaEnteringMiniModeTextField::insertionPoint() const {
    QRect rectangle = cursorRect();
    rectangle.setWidth(1);
    return rectangle;
}

void TXFormulaEnteringMiniModeTextField::showInsertionPoint(bool isShown) {
    isInsertionPointShown_ = isShown;
    viewport()->update();
}

// It blinks as the system says, and is seen at once wherever it goes.
void TXFormulaEnteringMiniModeTextField::restartBlinking() {
    showInsertionPoint(hasFocus());
    blinking_.stop();
    const int period = QApplication::cursorFlashTime();
    if (hasFocus() && period > 0) blinking_.start(period / 2);
}

void TXFormulaEnteringMiniModeTextField::focusInEvent(QFocusEvent* event) {
    TXFormulaEnteringTextView::focusInEvent(event);
    restartBlinking();
}

void TXFormulaEnteringMiniModeTextField::focusOutEvent(QFocusEvent* event) {
    TXFormulaEnteringTextView::focusOutEvent(event);
    restartBlinking();
}
