// What is printed, read back from PDF files.

#include "ui/document/HistoryPages.h"

#include <QImage>
#include <QLabel>
#include <QMessageBox>
#include <QPdfWriter>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <csignal>

#include <sys/resource.h>

#include "tests/support/DocumentTest.h"

namespace {

constexpr double millimetersPerPoint = 25.4 / 72;

QByteArray outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return process.readAllStandardOutput();
}

QString withoutBlanks(const QString& text) { return text.simplified().remove(u' '); }

/// A printed word and its place on the paper, in millimetres.
struct Word {
    QString text;
    QRectF place;
};

/// A new document that prints into a file.
struct Printing : OpenDocument {
    Printing() {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        printer.setPageSize(QPageSize(QPageSize::A4));
        document.documentWindow()->setWindowTitle("Untitled 7");
    }
    void print() { document.printHistoryOn(&printer); }
    /// The alert that is open; nullptr when there is none.
    QMessageBox* alert() const { return document.activeWindow()->findChild<QMessageBox*>(); }

    QString info(const QString& name) const {
        const QRegularExpression line(name + ": *(.*)");
        return line.match(outputOf("pdfinfo", {path})).captured(1).trimmed();
    }
    int pages() const { return info("Pages").toInt(); }
    /// The lines of a page, from 1, without blanks, which are seen differently at every size.
    QStringList lines(int page) const {
        const QString number = QString::number(page);
        const QString text = outputOf("pdftotext", {"-layout", "-f", number, "-l", number, path, "-"});
        QStringList lines;
        for (const QString& line : text.split(u'\n', Qt::SkipEmptyParts)) {
            if (!line.trimmed().isEmpty()) lines.append(withoutBlanks(line));
        }
        return lines;
    }
    QList<Word> words() const {
        const QString text = outputOf("pdftotext", {"-bbox", path, "-"});
        const QRegularExpression word(
            R"x(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="([\d.]+)" yMax="([\d.]+)">(.*)</word>)x");
        QList<Word> words;
        for (auto matches = word.globalMatch(text); matches.hasNext();) {
            const QRegularExpressionMatch match = matches.next();
            const auto number = [&match](int index) { return match.captured(index).toDouble() * millimetersPerPoint; };
            words.append({match.captured(5), QRectF(QPointF(number(1), number(2)), QPointF(number(3), number(4)))});
        }
        return words;
    }
    /// The first page as a picture.
    QImage picture() const {
        outputOf("pdftoppm", {"-png", "-r", "72", "-singlefile", path, folder.filePath("page")});
        return QImage(folder.filePath("page.png"));
    }

    QTemporaryDir folder;
    QString path = folder.filePath("history.pdf");
    QPrinter printer{QPrinter::HighResolution};
};

/// What stands above every page.
QString header() { return withoutBlanks("Untitled7" + QLocale().toString(QDate::currentDate(), QLocale::LongFormat)); }

TEST(PrintedHistory, hasTitleDateAndNumber) {
    Printing open;
    open.press(u"2+3⏎r=2.5⏎sin(30⏎");
    open.print();
    EXPECT_EQ(open.alert(), nullptr);
    EXPECT_EQ(open.lines(1),
              QStringList({header(), "2+3", "=5", "r=2.5", "r=2.5", "sin(30",
                           withoutBlanks("Error: There is an open parenthesis in the equation -- you are missing a )."),
                           "Page1of1"}));
    EXPECT_EQ(open.pages(), 1);
    EXPECT_EQ(open.info("Title"), "Untitled 7");
}

TEST(PrintedHistory, keepsEighteenMillimetersFree) {
    Printing open;
    for (int i = 0; i < 40; ++i) open.press(u"1/3⏎");
    open.press(QString("1+").repeated(300) + "1⏎");
    open.print();
    const QSizeF paper = QPageSize(QPageSize::A4).size(QPageSize::Millimeter);
    const QRectF inside = QRectF({}, paper).adjusted(18, 18, -18, -18).adjusted(-0.5, -0.5, 0.5, 0.5);
    QRectF all;
    for (const Word& word : open.words()) all |= word.place;
    EXPECT_TRUE(inside.contains(all)) << all.left() << ' ' << all.top() << ' ' << all.right() << ' ' << all.bottom();
    EXPECT_NEAR(all.left(), 18.0, 1.0);
    EXPECT_NEAR(all.top(), 18.0, 1.0);
    EXPECT_NEAR(all.bottom(), paper.height() - 18.0, 1.0);
}

TEST(PrintedHistory, goesOnOverSeveralPages) {
    Printing open;
    for (int i = 1; i <= 60; ++i) open.press(QString("%1*1⏎").arg(i));
    open.print();
    const int pages = open.pages();
    ASSERT_GT(pages, 2);
    QStringList body;
    for (int page = 1; page <= pages; ++page) {
        QStringList lines = open.lines(page);
        ASSERT_GT(lines.size(), 2);
        EXPECT_EQ(lines.takeFirst(), header());
        EXPECT_EQ(lines.takeLast(), QString("Page%1of%2").arg(page).arg(pages));
        body += lines;
    }
    ASSERT_EQ(body.size(), 120);
    for (int i = 1; i <= 60; ++i) {
        EXPECT_EQ(body.at(2 * i - 2), QString("%1*1").arg(i));
        EXPECT_EQ(body.at(2 * i - 1), QString("=%1").arg(i));
    }
}

TEST(PrintedHistory, isOnlyThePagesThatAreAskedFor) {
    Printing open;
    for (int i = 1; i <= 60; ++i) open.press(QString("%1*1⏎").arg(i));
    open.printer.setFromTo(2, 2);
    open.print();
    EXPECT_EQ(open.pages(), 1);
    EXPECT_TRUE(open.lines(1).last().startsWith("Page2of"));
}

TEST(PrintedHistory, isAPageWithoutTextWhenItIsEmpty) {
    Printing open;
    open.print();
    EXPECT_EQ(open.pages(), 1);
    EXPECT_EQ(open.lines(1), QStringList({header(), "Page1of1"}));
}

TEST(PrintedHistory, wrapsALongEquation) {
    Printing open;
    const QString line = QString("123456789+").repeated(60) + "1";
    open.press(line + u'⏎');
    open.print();
    QStringList lines = open.lines(1);
    lines.removeFirst();
    lines.removeLast();
    EXPECT_GT(lines.size(), 4);
    EXPECT_EQ(lines.takeLast(), "=7407407341");
    EXPECT_EQ(lines.join(QString()), line);
}

TEST(PrintedHistory, isInTrueColorsOnWhiteWhateverTheTheme) {
    Printing open;
    QPalette dark;
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Window}) dark.setColor(role, Qt::black);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::WindowText}) dark.setColor(role, Qt::white);
    open.document.documentWindow()->setPalette(dark);
    open.press(u"88888888888888888⏎888888888888(⏎");
    open.print();
    const QImage page = open.picture();
    EXPECT_EQ(page.pixelColor(0, 0), Qt::white);
    EXPECT_EQ(page.pixelColor(page.width() / 2, page.height() / 2), Qt::white);
    bool hasBlack = false;
    bool hasBlue = false;
    bool hasRed = false;
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            const QColor color = page.pixelColor(x, y);
            hasBlack |= color.lightness() < 60 && color.saturation() < 60;
            hasBlue |= color.blue() > 190 && color.red() < 90 && color.green() < 90;
            hasRed |= color.red() > 190 && color.blue() < 90 && color.green() < 90;
        }
    }
    EXPECT_TRUE(hasBlack);
    EXPECT_TRUE(hasBlue);
    EXPECT_TRUE(hasRed);
}

TEST(PrintedHistory, isOnThePaperOfTheCountry) {
    EXPECT_EQ(HistoryPages::usualPaper(QLocale("en_US")), QPageSize::Letter);
    EXPECT_EQ(HistoryPages::usualPaper(QLocale("fr_CA")), QPageSize::Letter);
    EXPECT_EQ(HistoryPages::usualPaper(QLocale("es_MX")), QPageSize::Letter);
    for (const char* name : {"de_DE", "en_GB", "ja_JP", "C", "pt_BR"}) {
        EXPECT_EQ(HistoryPages::usualPaper(QLocale(name)), QPageSize::A4) << name;
    }
}

TEST(PrintedHistory, isOnThePaperThatIsChosen) {
    Printing open;
    open.printer.setPageSize(QPageSize(QPageSize::Letter));
    open.print();
    EXPECT_TRUE(open.info("Page size").startsWith("612 x 792 pts")) << open.info("Page size").toStdString();
}

TEST(PrintedHistory, isPrintedWhenTheDialogIsAccepted) {
    Printing open;
    open.press(u"2+3⏎");
    open.document.printDocument();
    auto* dialog = open.document.documentWindow()->findChild<QPrintDialog*>();
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowModality(), Qt::WindowModal);
    emit dialog->accepted(&open.printer);
    EXPECT_TRUE(open.lines(1).contains("=5"));
    dialog->reject();
}

TEST(PrintedHistory, saysWhereItCannotBeWritten) {
    Printing open;
    open.printer.setOutputFileName(open.folder.filePath("nowhere/history.pdf"));
    open.print();
    const QPointer<QMessageBox> alert = open.alert();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->text(), "The history could not be printed.");
    EXPECT_TRUE(alert->informativeText().contains("nowhere/history.pdf\n")) << alert->informativeText().toStdString();
    EXPECT_FALSE(alert->informativeText().endsWith('\n'));
    EXPECT_EQ(alert->windowModality(), Qt::WindowModal);
    EXPECT_TRUE(qobject_cast<QPushButton*>(alert->button(QMessageBox::Ok))->isDefault());
    QTest::keyClick(alert, Qt::Key_Escape);
    QTest::qWait(0);
    EXPECT_EQ(alert, nullptr);
}

/// Lets no file grow beyond a few bytes, as on a full disk.
class FullDisk {
public:
    FullDisk() {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit none{16, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &none);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, SIG_DFL);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
};

TEST(PrintedHistory, leavesTheFileOfBeforeWhenTheDiskIsFull) {
    Printing open;
    open.press(u"2+3⏎");
    open.print();
    open.press(u"3+4⏎");
    {
        const FullDisk full;
        open.print();
    }
    ASSERT_NE(open.alert(), nullptr);
    EXPECT_TRUE(open.alert()->informativeText().startsWith(open.path + u'\n'));
    EXPECT_GT(open.alert()->informativeText().size(), open.path.size() + 5);
    EXPECT_TRUE(open.lines(1).contains("=5"));
    EXPECT_FALSE(open.lines(1).contains("=7"));
}

TEST(PrintedHistory, tellsWhenNothingCouldBePrinted) {
    Printing open;
    QPdfWriter nowhere(open.folder.filePath("nowhere/history.pdf"));
    EXPECT_FALSE(open.document.printHistory(&nowhere));
    QPdfWriter somewhere(open.path);
    EXPECT_TRUE(open.document.printHistory(&somewhere));
}

}  // namespace
