#pragma once

#include <QCoreApplication>
#include <QDate>
#include <QFont>
#include <QPageSize>
#include <QString>
#include <memory>

class QLocale;
class QPagedPaintDevice;
class QPainter;
class QPrinter;
class QRectF;
class QSizeF;
class QTextDocument;

/// A history on paper: the title and the date above each page, its number below. Black, and answers and errors in their
/// colours, whatever the desktop's.
///
///     const HistoryPages pages(*view.document(), font, "Untitled");
///     if (!pages.print(printer)) ...
class HistoryPages {
    Q_DECLARE_TR_FUNCTIONS(HistoryPages)

public:
    /// The margin at each edge of the paper, in millimetres.
    static constexpr qreal margin = 18.0;

    /// Takes a copy of the text, in `font` whatever the size in the window.
    HistoryPages(const QTextDocument& history, const QFont& font, QString title, const QDate& date);
    ~HistoryPages();

    /// Prints those of the pages that are asked for. Whether all of it went well.
    bool print(QPagedPaintDevice* device) const;
    /// Prints as the printer is set up, which may be into a file. What went wrong, and an empty text when nothing did.
    QString printTo(QPrinter* printer) const;

    /// The paper that is usual where the user lives.
    static QPageSize::PageSizeId usualPaper(const QLocale& locale);

private:
    void layOutFor(QPagedPaintDevice* device, const QSizeF& size) const;
    void paintText(QPainter* painter, const QRectF& body, int number) const;
    void paintFrame(QPainter* painter, const QRectF& page, int number) const;
    QString printToFile(const QPrinter& printer) const;

    std::unique_ptr<QTextDocument> history_;
    QFont font_;
    QString title_;
    QDate date_;
};
