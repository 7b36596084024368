#pragma once

#include <QMainWindow>
#include <QPointer>

/// The full window of a document. The application fills its menu bar.
class TXWindow : public QMainWindow {
    Q_OBJECT

public:
    using QMainWindow::QMainWindow;

    /// The same window as what it is; nullptr when it is none of this class, or none at all.
    static TXWindow* initWithNSWindow(QWidget* window) { return qobject_cast<TXWindow*>(window); }

    /// The `MyDocument` that the window shows; nullptr before it was given one and after that one is gone.
    QObject* documentController() const { return documentController_; }
    void setDocumentController(QObject* documentController) { documentController_ = documentController; }

private:
    QPointer<QObject> documentController_;
};
