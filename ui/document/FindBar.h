#pragma once

#include <QWidget>
#include <memory>

namespace Ui {
class FindBar;
}

/// The bar in which one says what to find in the history. It finds nothing itself: it asks, and says what came of it.
class FindBar : public QWidget {
    Q_OBJECT

public:
    explicit FindBar(QWidget* parent = nullptr);
    ~FindBar() override;

    /// Takes the focus, with the text of last time selected.
    void open();
    QString text() const;
    /// Says in words what the search came to; an empty text says nothing.
    void showStatus(const QString& status);
    QString status() const;

signals:
    /// Another text is to be found.
    void edited(const QString& text);
    void nextRequested();
    void previousRequested();
    /// Esc or the button.
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::unique_ptr<Ui::FindBar> ui_;
};
