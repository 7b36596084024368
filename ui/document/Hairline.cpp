#include "ui/document/Hairline.h"

#include <QPainter>

#include "ui/document/contrast.h"

void Hairline::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), hairlineColor(palette().color(QPalette::Mid), palette()));
}
