// What the monkey does with windows, menus and the clipboard.

#include "tests/monkey/Monkey.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPrintDialog>
#include <QToolButton>

#include "app/Application.h"
#include "ui/document/MyDocument.h"
#include "ui/document/PullDownButton.h"
#include "ui/document/TXWindow.h"

namespace {

constexpr qsizetype mostDocuments = 5;
constexpr QSize largestWindow(2200, 1500);

QList<QAction*> entriesOf(const QMenu& menu) {
    QList<QAction*> entries;
    for (QAction* entry : menu.actions()) {
        if (entry->menu() != nullptr) {
            entries.append(entriesOf(*entry->menu()));
        } else if (!entry->isSeparator() && entry->isEnabled()) {
            entries.append(entry);
        }
    }
    return entries;
}

/// As a click of the window manager's does it, which knows of windows that take no keyboard.
void activate(QWidget* window) {
    if (!window->windowFlags().testFlag(Qt::WindowDoesNotAcceptFocus)) window->activateWindow();
}

}  // namespace

// In the order in which they were made: a set of widgets has another order every time. Tool tips come and go by the
// clock.
QList<QWidget*> Monkey::windows() const {
    QList<QWidget*> shown;
    for (const QWindow* handle : QGuiApplication::topLevelWindows()) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            const bool isToolTip = window->inherits("QTipLabel");
            if (window->windowHandle() == handle && window->isVisible() && !isToolTip) shown.append(window);
        }
    }
    return shown;
}

void Monkey::fillClipboard() {
    std::unique_ptr<QMimeData> data = texts_.mimeData();
    const auto mode = random_.oneIn(4) ? QClipboard::Selection : QClipboard::Clipboard;
    journal_.begin("copies \"" + data->text().left(60) + '"');
    QGuiApplication::clipboard()->setMimeData(data.release(), mode);
}

void Monkey::paste() {
    fillClipboard();
    later("pastes", [this] { hands_.pressKey(Qt::Key_V, QStringLiteral("\x16"), Qt::ControlModifier); });
}

QAction* Monkey::oneOf(const QMenu& menu) {
    const QList<QAction*> entries = entriesOf(menu);
    if (entries.isEmpty()) return nullptr;
    return entries[static_cast<qsizetype>(random_.below(static_cast<std::size_t>(entries.size())))];
}

// Quitting begins everything anew, and printing takes its time: both are rare.
void Monkey::chooseFromMenus() {
    const MyDocument* const used = document();
    if (used == nullptr) return;
    const auto menus = used->documentWindow()->menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly);
    if (menus.isEmpty()) return;
    QMenu* const menu = menus[static_cast<qsizetype>(random_.below(static_cast<std::size_t>(menus.size())))];
    emit menu->aboutToShow();
    QAction* const entry = oneOf(*menu);
    const bool isRare =
        entry != nullptr && (entry->objectName() == u"quitAction" || entry->objectName() == u"printDocumentAction");
    if (entry == nullptr || (isRare && !random_.oneIn(3))) return;
    journal_.begin("chooses " + entry->objectName() + ' ' + entry->text());
    entry->trigger();
}

void Monkey::chooseFormat() {
    const MyDocument* const used = document();
    if (used == nullptr) return;
    const PullDownButton& button = random_.oneIn(2) ? *used->formattingTypeButton() : *used->numberFormattingButton();
    if (!button.isEnabled()) return;
    QAction* const entry = oneOf(*button.menu());
    if (entry == nullptr) return;
    journal_.begin("chooses " + entry->text());
    entry->trigger();
}

// And regrets it, perhaps too late.
void Monkey::clearHistory() {
    const MyDocument* const used = document();
    if (used == nullptr) return;
    journal_.begin(QStringLiteral("clears the history"));
    used->documentWindow()->findChild<QAction*>(QStringLiteral("clearHistoryAction"))->trigger();
    if (random_.oneIn(2)) typeFast(texts_.fragment());
    if (random_.oneIn(4)) later("Return", [this] { hands_.pressKey(Qt::Key_Return, QStringLiteral("\r")); });
    later("Ctrl+Z", [this] { hands_.pressKey(Qt::Key_Z, QStringLiteral("\x1A"), Qt::ControlModifier); });
}

void Monkey::resizeWindow() {
    const QList<QWidget*> shown = windows();
    if (shown.isEmpty()) return;
    QWidget* const window = shown[static_cast<qsizetype>(random_.below(static_cast<std::size_t>(shown.size())))];
    if (window->windowType() == Qt::Popup || window->windowType() == Qt::ToolTip) return;
    const int width = random_.between(1, largestWindow.width());
    const QSize size(width, random_.between(1, largestWindow.height()));
    journal_.begin(
        QStringLiteral("resizes %1 to %2 x %3").arg(window->objectName()).arg(size.width()).arg(size.height()));
    window->resize(size);
    if (!random_.oneIn(4)) return;
    const int left = random_.between(-200, 900);
    window->move(left, random_.between(-200, 900));
}

void Monkey::activateWindow() {
    const QList<QWidget*> shown = windows();
    if (shown.isEmpty()) return;
    QWidget* const window = shown[static_cast<qsizetype>(random_.below(static_cast<std::size_t>(shown.size())))];
    journal_.begin("activates " + window->objectName());
    window->setWindowState(window->windowState() & ~Qt::WindowMinimized);
    activate(window);
}

void Monkey::closeWindow() {
    const QList<QWidget*> shown = windows();
    if (shown.isEmpty()) return;
    QWidget* const window = shown[static_cast<qsizetype>(random_.below(static_cast<std::size_t>(shown.size())))];
    const bool isDocument = window->objectName() == u"MyDocument" || window->objectName() == u"miniWindow";
    if (isDocument && application_.documents().documents().size() == 1 && !random_.oneIn(8)) return;
    journal_.begin("closes " + window->objectName());
    window->close();
}

void Monkey::openWindow() {
    journal_.begin("opens or closes a document");
    if (application_.documents().documents().size() < mostDocuments) {
        application_.documents().newDocument();
    } else {
        document()->close();
    }
}

// Preferences and panels, as those do who look at what there is.
void Monkey::operateDialog() {
    for (QWidget* window : windows()) {
        if (qobject_cast<QDialog*>(window) == nullptr && window->windowType() != Qt::Tool) continue;
        if (random_.oneIn(3)) continue;
        const QList<QComboBox*> boxes = window->findChildren<QComboBox*>();
        if (!boxes.isEmpty() && random_.oneIn(2)) {
            QComboBox* const box = boxes[static_cast<qsizetype>(random_.below(static_cast<std::size_t>(boxes.size())))];
            journal_.begin("goes to " + box->objectName());
            box->setFocus();
            activate(window);
            later("Down or Up", [this] { hands_.pressKey(random_.oneIn(2) ? Qt::Key_Down : Qt::Key_Up, QString()); });
        } else {
            journal_.begin("goes to " + window->objectName());
            activate(window);
            later("Tab", [this] { hands_.pressKey(Qt::Key_Tab, QStringLiteral("\t")); });
            later("Space", [this] { hands_.pressKey(Qt::Key_Space, QStringLiteral(" ")); });
        }
        return;
    }
    openWindow();
}

// Nothing may be written, renamed or deleted outside the folder of the run: no other file can be chosen to print to.
// Where none is named, the toolkit's own dialog would warn.
void Monkey::guardPrinting() const {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        const auto* const dialog = qobject_cast<QPrintDialog*>(window);
        if (dialog == nullptr) continue;
        for (QLineEdit* field : dialog->findChildren<QLineEdit*>()) {
            field->setReadOnly(true);
            const bool isFileName = field->objectName() == u"filename";
            if (isFileName && field->text().isEmpty()) field->setText(QStringLiteral("history.pdf"));
        }
        for (QToolButton* button : dialog->findChildren<QToolButton*>()) button->setEnabled(false);
    }
}
