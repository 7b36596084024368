#pragma once

#include <QWidget>

/// A line of one pixel between two areas, which can be seen on every palette.
class Hairline : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent* event) override;
};
