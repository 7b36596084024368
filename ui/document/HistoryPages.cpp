#include "ui/document/HistoryPages.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLocale>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QSaveFile>
#include <QTextDocument>
#include <QTextFrame>
#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr double framePointSize = 9.0;
/// Between the text and what stands above and below it, in lines of the latter.
constexpr qreal gap = 1.5;

/// Where letter paper is usual.
constexpr std::array letterTerritories = {
    QLocale::Belize,      QLocale::Canada,     QLocale::Chile,        QLocale::Colombia,  QLocale::CostaRica,
    QLocale::ElSalvador,  QLocale::Guatemala,  QLocale::Mexico,       QLocale::Nicaragua, QLocale::Panama,
    QLocale::Philippines, QLocale::PuertoRico, QLocale::UnitedStates, QLocale::Venezuela,
};

QFont frameFont(QFont font) {
    font.setPointSizeF(framePointSize);
    return font;
}

/// How high a line above or below the text is on the device.
qreal frameHeight(const QFont& font, QPagedPaintDevice* device) { return QFontMetricsF(font, device).lineSpacing(); }

/// Without a buffer of the file's own, which would lose what a full disk takes only a part of.
bool writeAll(const QByteArray& bytes, QSaveFile* file) {
    if (!file->open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return false;
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 count = file->write(bytes.constData() + written, bytes.size() - written);
        if (count <= 0) return false;
        written += count;
    }
    return true;
}

}  // namespace

HistoryPages::HistoryPages(const QTextDocument& history, const QFont& font, QString title, const QDate& date)
    : history_(history.clone()), font_(font), title_(std::move(title)), date_(date) {
    history_->setDefaultFont(font);
    QTextFrameFormat format = history_->rootFrame()->frameFormat();
    format.setMargin(0.0);
    history_->rootFrame()->setFrameFormat(format);
}

HistoryPages::~HistoryPages() = default;

bool HistoryPages::print(QPagedPaintDevice* device) const {
    device->setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
    QPainter painter;
    if (!painter.begin(device)) return false;
    const QRectF page(0.0, 0.0, device->width(), device->height());
    const qreal room = frameHeight(frameFont(font_), device) * (1.0 + gap);
    const QRectF body = page.adjusted(0.0, room, 0.0, -room);
    layOutFor(device, body.size());
    const QPageRanges wished = device->pageRanges();
    bool isFirst = true;
    for (int number = 1; number <= history_->pageCount(); ++number) {
        if (!wished.isEmpty() && !wished.contains(number)) continue;
        if (!std::exchange(isFirst, false) && !device->newPage()) return false;
        paintFrame(&painter, page, number);
        paintText(&painter, body, number);
    }
    return painter.end();
}

void HistoryPages::layOutFor(QPagedPaintDevice* device, const QSizeF& size) const {
    history_->documentLayout()->setPaintDevice(device);
    history_->setPageSize(size);
}

void HistoryPages::paintText(QPainter* painter, const QRectF& body, int number) const {
    const QRectF part(0.0, (number - 1) * body.height(), body.width(), body.height());
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = part.adjusted(0.0, 1.0, 0.0, -1.0);  // Without lines of other pages that only touch this one.
    context.palette.setColor(QPalette::Text, Qt::black);
    painter->save();
    painter->translate(body.topLeft() - part.topLeft());
    painter->setClipRect(part);
    history_->documentLayout()->draw(painter, context);
    painter->restore();
}

// On a mirrored desktop the title stands at the right.
void HistoryPages::paintFrame(QPainter* painter, const QRectF& page, int number) const {
    painter->setFont(frameFont(font_));
    painter->setPen(Qt::black);
    painter->setLayoutDirection(QGuiApplication::layoutDirection());
    const QFontMetricsF metrics(painter->font(), painter->device());
    const QString date = QLocale().toString(date_, QLocale::LongFormat);
    const qreal room = page.width() - metrics.horizontalAdvance(date) - metrics.height();
    const QString title = metrics.elidedText(title_, Qt::ElideRight, room);
    painter->drawText(page, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, title);
    painter->drawText(page, Qt::AlignRight | Qt::AlignTop | Qt::TextSingleLine, date);
    painter->drawText(page, Qt::AlignHCenter | Qt::AlignBottom | Qt::TextSingleLine,
                      tr("Page %1 of %2").arg(number).arg(history_->pageCount()));
}

QString HistoryPages::printTo(QPrinter* printer) const {
    printer->setDocName(title_);
    if (printer->outputFormat() == QPrinter::PdfFormat) return printToFile(*printer);
    const bool isPrinted = print(printer) && printer->printerState() != QPrinter::Error;
    return isPrinted ? QString() : tr("The printer “%1” did not take it.").arg(printer->printerName());
}

// In two steps, since what is painted into a file says nothing when the disk is full. A file that was there before
// stays as it was when the new one cannot be written.
QString HistoryPages::printToFile(const QPrinter& printer) const {
    QBuffer pages;
    QPdfWriter writer(&pages);
    writer.setPageLayout(printer.pageLayout());
    writer.setResolution(printer.resolution());
    writer.setPageRanges(printer.pageRanges());
    writer.setTitle(title_);
    writer.setCreator(QCoreApplication::applicationName());
    if (!pages.open(QIODevice::WriteOnly) || !print(&writer)) return pages.errorString();

    QSaveFile file(printer.outputFileName());
    file.setDirectWriteFallback(true);  // where only the file itself can be written
    const bool isThere = writeAll(pages.data(), &file) && file.commit();
    return isThere ? QString() : QStringLiteral("%1\n%2").arg(printer.outputFileName(), file.errorString());
}

QPageSize::PageSizeId HistoryPages::usualPaper(const QLocale& locale) {
    const bool isLetter =
        std::find(letterTerritories.begin(), letterTerritories.end(), locale.territory()) != letterTerritories.end();
    return isLetter ? QPageSize::Letter : QPageSize::A4;
}
