#pragma once

#include <QLabel>
#include <QTimer>

class TXFormulaEnteringTextView;

/// The answer that the line being typed would have, in grey at the right end of its entry line.
///
/// It comes a moment after the last key, and only where it has room. Right after a calculation it stays away, since the
/// answer stands in the history. With an expression selected that is a part of the line it is the answer of that part.
class LiveAnswer : public QLabel {
    Q_OBJECT

public:
    /// Lies over the entry line, which it needs for as long as it lives. Its text is `relativeSize` times as large as
    /// that of the line.
    LiveAnswer(TXFormulaEnteringTextView& entry, double relativeSize);

    /// From the last key until the answer appears.
    static constexpr int delayInMilliseconds = 80;
    /// The least room between the typed text and the answer, in pixels.
    static constexpr int leastDistance = 24;
    /// A longer line is not evaluated before it is entered.
    static constexpr qsizetype longestLine = 2000;

    /// Takes the answer away until the line has rested.
    void waitForRest();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void findOut();
    QString answer() const;
    void takeLook();
    void place();

    TXFormulaEnteringTextView& entry_;
    double relativeSize_;
    QTimer rest_;
};
