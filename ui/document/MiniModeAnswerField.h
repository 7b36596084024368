#pragma once

#include <QLabel>

/// The answer line of the mini window. What does not fit is elided, never cut: an answer in its middle on one line, an
/// error at the end of its second line. The tooltip then has the whole text.
class MiniModeAnswerField : public QLabel {
    Q_OBJECT

public:
    explicit MiniModeAnswerField(QWidget* parent = nullptr);

    /// Shows an answer, at the right.
    void showAnswer(const QString& answer);
    /// Shows an error, at the left and wrapped.
    void showError(const QString& error);

    /// Whether what is shown now has an ellipsis.
    bool isElided() const { return shownText() != text(); }

    QSize sizeHint() const override;
    /// Not even for an error of several lines: the line above it stays where it is.
    bool hasHeightForWidth() const override { return false; }
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void show(const QString& text);
    QString shownText() const;
    int linesThatFit() const;
    void refreshToolTip();
};
