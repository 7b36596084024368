// The document's commands of the File menu.

#include "ui/document/MyDocument.h"

#include <QApplication>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

#include "ui/document/HistoryPages.h"
#include "ui/document/TXFormulaEnteringMiniModeTextField.h"
#include "ui/document/TXHistoryViewerTextView.h"
#include "ui/document/TXWindow.h"
#include "ui/document/beep.h"

namespace {

constexpr auto savingMessage =
    "Unfortunately, saving documents is not currently enabled.  Once the internals of the program stabilize, it will "
    "be put in the program.\n\nHowever, note that you can copy the equation history into a program like TextEdit (in "
    "the applications folder), and save it as a text file.";
constexpr auto openingMessage =
    "Unfortunately, opening/saving documents is not currently enabled.  Once the internals of the program stabilize, "
    "it will be put in the program.";

/// The printer with the settings that all documents share. It goes with the application: afterwards there is nothing to
/// print with.
QPrinter& sharedPrinter() {
    struct Holder : QObject {
        using QObject::QObject;
        QPrinter printer{QPrinter::HighResolution};
    };
    static QPointer<Holder> holder;
    if (holder.isNull()) {
        holder = new Holder(qApp);
        // A printer knows its own paper; a file takes what is usual.
        if (holder->printer.outputFormat() == QPrinter::PdfFormat) {
            holder->printer.setPageSize(QPageSize(HistoryPages::usualPaper(QLocale())));
        }
    }
    return holder->printer;
}

/// An alert of the window, with its text in bold above the details.
void showAlert(QWidget* window, QMessageBox::Icon icon, const QString& text, const QString& details) {
    auto* alert = new QMessageBox(icon, QString(), text, QMessageBox::Ok, window);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setTextFormat(Qt::PlainText);
    alert->setInformativeText(details);
    alert->setDefaultButton(QMessageBox::Ok);
    alert->button(QMessageBox::Ok)->setIcon(QIcon());
    if (auto* title = alert->findChild<QLabel*>(QStringLiteral("qt_msgbox_label"))) {
        QFont bold = title->font();
        bold.setBold(true);
        title->setFont(bold);
    }
    alert->open();
}

}  // namespace

void MyDocument::saveDocument() { showSorry(savingMessage); }

void MyDocument::openDocument() { showSorry(openingMessage); }

void MyDocument::showSorry(const QString& message) {
    beep();
    showAlert(activeWindow(), QMessageBox::Information, QStringLiteral("Sorry"), message);
}

void MyDocument::refuseTooLongText(qsizetype length) const {
    beep();
    const QLocale locale;
    showAlert(activeWindow(), QMessageBox::Warning, tr("The text is too long for the line."),
              tr("It has %1 characters, and a line takes %2 at most.")
                  .arg(locale.toString(length), locale.toString(TXFormulaEnteringTextView::longestLine)));
}

void MyDocument::printDocument() const {
    auto* dialog = new QPrintDialog(&sharedPrinter(), documentWindow());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, qOverload<QPrinter*>(&QPrintDialog::accepted), this, &MyDocument::printHistoryOn);
    dialog->open();
}

void MyDocument::printHistoryOn(QPrinter* printer) const {
    const QString complaint = historyPages().printTo(printer);
    if (complaint.isEmpty()) return;
    showAlert(activeWindow(), QMessageBox::Warning, tr("The history could not be printed."), complaint);
}

bool MyDocument::printHistory(QPagedPaintDevice* device) const { return historyPages().print(device); }

HistoryPages MyDocument::historyPages() const {
    return {*mainField()->document(), documentFont_, documentWindow()->windowTitle(), QDate::currentDate()};
}

void MyDocument::askToClearEverything() {
    auto* question = new QMessageBox(QMessageBox::Warning, QString(), tr("Clear everything in this window?"),
                                     QMessageBox::Cancel, activeWindow());
    question->setObjectName("clearEverythingQuestion");
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setInformativeText(
        tr("The history, all variables and answers, and the equations entered before will be forgotten. This cannot be "
           "undone."));
    QPushButton* clear = question->addButton(tr("Clear &Everything"), QMessageBox::AcceptRole);
    question->setDefaultButton(QMessageBox::Cancel);
    question->setEscapeButton(QMessageBox::Cancel);
    for (QAbstractButton* button : question->buttons()) button->setIcon(QIcon());
    connect(clear, &QPushButton::clicked, this, &MyDocument::clearEverything);
    question->open();
}

void MyDocument::clearEverything() {
    closeFindBar();
    mainField()->clearShownText();
    mainField()->forgetClearedText();
    documentEquationController_.clearAll();
    documentFormulaScrollerController_.awakeFromNib();
    TXFormulaEnteringTextView* const entry = activeFormulaTextView();
    entry->setText(QString());
    entry->setWasFormulaJustCalculated(false);
    entry->setPermissibleToEnterTextFlag(false);
    entry->setAccessibleDescription(QString());  // the last answer
    reloadSidebar();
    showLastAnswerInMiniWindow();
    emit canUndoClearHistoryChanged();
    emit sessionChanged();
}
