#pragma once

#include <QWidget>
#include <memory>
#include <vector>

class MyDocument;
class QPushButton;

namespace Ui {
class TXGreekLetterPanel;
}

/// A palette of Greek letters for one document. A letter that is chosen goes into the document's line as if typed.
///
/// The keyboard stays with the document, also when the panel is shown or clicked, until `takeFocus`.
/// The panel goes when it is closed, and with its document.
class TXGreekLetterPanel : public QWidget {
    Q_OBJECT

public:
    /// The document is not owned; its full window owns the panel, which stands above the window in use, full or mini.
    explicit TXGreekLetterPanel(MyDocument& document);
    ~TXGreekLetterPanel() override;

    /// Shows the panel beside its document's window, where the screen has room.
    void showWindow();
    /// Takes the keyboard: the arrows move from letter to letter, Return types one, Esc gives it back.
    void takeFocus();
    /// Gives the keyboard back to the line of the document.
    void giveFocusBack();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void stayAboveWindowInUse();
    void addLetter(char16_t letter, const QString& name);
    void type(const QString& letter);
    bool pressKey(int key, QPushButton* button);
    void moveFocus(const QPushButton* from, int columns, int rows);
    void showName(const QWidget* button);
    void setAcceptsFocus(bool accepts);

    MyDocument& document_;
    std::unique_ptr<Ui::TXGreekLetterPanel> ui_;
    std::vector<QPushButton*> buttons_;
};
