#pragma once

#include <QObject>
#include <QPointer>
#include <memory>

class AppPreferencesController;
class DocumentController;
class KeyboardShortcuts;
class MyDocument;
class QAction;
class TXWindow;

namespace Ui {
class MainMenu;
}

/// The menu bar of one document's window: which command each of its entries is.
class MainMenu : public QObject {
    Q_OBJECT

public:
    ~MainMenu() override;

    /// Gives the document's window its menu bar. The window owns it; the two controllers must outlive the window.
    static void fill(MyDocument& document, DocumentController& documents, AppPreferencesController& preferences);

private:
    MainMenu(MyDocument& document, DocumentController& documents, AppPreferencesController& preferences);

    void connectFileMenu();
    void connectEditMenu();
    void connectLastAnswer();
    void connectHistory();
    void connectTextSize();
    void fillFormatMenu();
    void connectViewMenu();
    void connectMiniMode();
    void shareKeysWithMiniWindow(QWidget* miniWindow);
    void connectWindowMenu();
    void connectHelpMenu();
    void addKeys();
    void showKeyboardShortcuts();
    void listWindows();
    void setFullScreen(bool isFullScreen);
    void moveToPanel();

    bool eventFilter(QObject* watched, QEvent* event) override;

    MyDocument& document_;
    DocumentController& documents_;
    AppPreferencesController& preferences_;
    TXWindow* window_;
    std::unique_ptr<Ui::MainMenu> ui_;
    QList<QAction*> windowEntries_;
    QPointer<KeyboardShortcuts> keyboardShortcuts_;
};
