#pragma once

#include <QSplitter>

/// Two panes whose divider can have the focus and be moved by keys: the arrows move it a step, Home and End as far as
/// the panes let it. It is no stop of Tab; who gives it the focus takes it back.
class SplitView : public QSplitter {
    Q_OBJECT

public:
    /// In pixels.
    static constexpr int step = 10;

    explicit SplitView(QWidget* parent = nullptr);

    /// Its accessible name is for the one who knows the panes to give.
    QSplitterHandle* divider() const { return handle(1); }

    /// Where the divider is: how large the pane before it is.
    int dividerPosition() const { return sizes().value(0); }
    void setDividerPosition(int position);

protected:
    QSplitterHandle* createHandle() override;
};
