#pragma once

#include <QDialog>
#include <QPrinter>
#include <QTemporaryDir>
#include <algorithm>

#include "app/PreferenceController.h"
#include "app/TXGreekLetterPanel.h"
#include "app/messages.h"
#include "tests/support/ApplicationTest.h"
#include "ui/document/PullDownButton.h"

/// Every window that the program has, open at the same time: a full and a mini one with an answer and an error, the
/// panels, the lists and the alerts.
struct EveryWindow : ApplicationTest {
    EveryWindow() {
        enter(full, "1/4");
        enter(full, "sin(30");
        full.findInHistory();
        enter(mini, "r=1000/8");
        mini.windowShouldZoom();
        full.showWindow();
        application.preferences().ShowPreferencePanel();
        application.preferences().showGreekLettersPanel();
        application.preferences().showInspector();
        for (const char* name : {"keyboardShortcutsAction", "aboutAction"}) trigger(full, name);
        openAlerts();
        QTest::qWait(0);
    }
    ~EveryWindow() override {
        application.documents().closeAll();
        deleteWhatIsClosed();
    }
    EveryWindow(const EveryWindow&) = delete;
    EveryWindow& operator=(const EveryWindow&) = delete;

    static void enter(const MyDocument& document, const QString& line) {
        QTest::keyClicks(document.activeFormulaTextView(), line);
        QTest::keyClick(document.activeFormulaTextView(), Qt::Key_Return);
    }

    /// What is shown by itself, menus excepted.
    static QList<QWidget*> windows() {
        QList<QWidget*> shown;
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && qobject_cast<QMenu*>(window) == nullptr) shown.append(window);
        }
        return shown;
    }

    MyDocument& full = openDocument();
    MyDocument& mini = openDocument();

private:
    void openAlerts() {
        full.saveDocument();
        full.openDocument();
        full.askToClearEverything();
        showCannotOpen(full.documentWindow(), QObject::tr("It could not be opened."), "https://example.org/a/long/way");
        const QTemporaryDir folder;
        QPrinter nowhere;
        nowhere.setOutputFormat(QPrinter::PdfFormat);
        nowhere.setOutputFileName(folder.filePath("nowhere/history.pdf"));
        full.printHistoryOn(&nowhere);
    }
};
