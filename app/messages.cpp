#include "app/messages.h"

#include <QCoreApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace {

QString tr(const char* text) { return QCoreApplication::translate("messages", text); }

// The box's own flags and format reach its first text only.
void makeDetailsSelectable(const QMessageBox* box, Qt::TextFormat format) {
    auto* details = box->findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
    if (details == nullptr) return;
    details->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    details->setTextFormat(format);
    details->setFocusPolicy(Qt::StrongFocus);
}

/// A box that blocks its window alone, and whose texts can be selected with the mouse and with keys.
QMessageBox* makeBox(QWidget* window, const QString& text, const QString& details, Qt::TextFormat format) {
    auto* box = new QMessageBox(window);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowModality(Qt::WindowModal);
    box->setText(text);
    box->setInformativeText(details);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    makeDetailsSelectable(box, format);
    box->setTextFormat(format);
    box->setStandardButtons(QMessageBox::Ok);
    box->setDefaultButton(QMessageBox::Ok);
    box->button(QMessageBox::Ok)->setIcon(QIcon());
    box->button(QMessageBox::Ok)->setFocus();
    return box;
}

}  // namespace

void showCannotOpen(QWidget* window, const QString& message, const QString& address) {
    QMessageBox* box = makeBox(window, message, address, Qt::PlainText);
    box->setObjectName("cannotOpenAlert");
    box->setIcon(QMessageBox::Information);
    box->open();
}

void showAbout(QWidget* window) {
    const QString name = QStringLiteral("<b>Tallix " TALLIX_VERSION "</b>");
    const QString details =
        QStringLiteral("<p>%1</p><p>%2<br>%3</p><p>%4</p>")
            .arg(tr("A calculator that keeps every equation with its answer in sight."),
                 tr("Free under the MIT licence."), tr("Made with Qt %1.").arg(QString::fromLatin1(qVersion())),
                 QStringLiteral(TALLIX_WEBSITE));
    QMessageBox* box = makeBox(window, name, details, Qt::RichText);
    box->setObjectName("aboutBox");
    box->setWindowTitle(tr("About Tallix"));
    const QIcon icon = window->windowIcon();
    if (!icon.isNull()) box->setIconPixmap(icon.pixmap(64));
    box->open();
}
