#pragma once

#include <QObject>
#include <QTimer>

#include "app/AppPreferencesController.h"
#include "app/Appearance.h"
#include "app/ColorScheme.h"
#include "app/DocumentController.h"

class StartChannel;

/// The running program: the open documents, the preferences, its colours, and the menus that join them.
class Application : public QObject {
    Q_OBJECT

public:
    /// Tells Qt and the desktop the program's names. To be called before the QApplication is made.
    static void introduce();

    /// Brings the user defaults in order.
    Application();

    /// Opens the first document, and shows the program's icon when that is painted. The event loop ends when the last
    /// document is closed.
    void start();

    /// Opens a document for each program that is started later and asks for one. The channel must outlive the
    /// application.
    void listen(StartChannel& channel);

    DocumentController& documents() { return documents_; }
    AppPreferencesController& preferences() { return preferences_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showWindowIcon();

    ColorScheme colorScheme_;
    Appearance appearance_{colorScheme_};
    DocumentController documents_;
    AppPreferencesController preferences_{documents_};
    QTimer iconTimer_;
};
