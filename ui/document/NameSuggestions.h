#pragma once

#include <QListWidget>

class QKeyEvent;
class TXFormulaEnteringTextView;

/// A name that could be meant by what is typed.
struct NameSuggestion {
    QString name;
    QString meaning;  ///< The value of a variable, or what a function is.
    bool isFunction = false;
};

/// The names that the word before the caret could become, in a small list above the entry line.
///
/// The list never has the focus: the entry line hands it the keys that choose. Whoever types on can ignore it.
class NameSuggestions : public QListWidget {
    Q_OBJECT

public:
    /// Belongs to the entry line.
    explicit NameSuggestions(TXFormulaEnteringTextView& entry);

    static constexpr int mostRows = 8;
    static constexpr qsizetype fewestLetters = 2;

    /// Opens the list for the word before the caret, or closes it where there is nothing to suggest.
    void offer();
    /// Does what a key means while the list is open: up and down choose, and Esc closes. False for any other key.
    bool takeKey(const QKeyEvent& event);
    /// Types the chosen name, or the first one, in place of the word. False when the list is not open.
    bool accept();

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void fill(const QList<NameSuggestion>& suggestions);
    void takeColors();
    void place(qsizetype startOfWord);
    void choose(int step);
    QListWidgetItem* chosen() const;

    TXFormulaEnteringTextView& entry_;
    const QWidget* watchedWindow_ = nullptr;
};
