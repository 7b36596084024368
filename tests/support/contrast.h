#pragma once

#include <QImage>
#include <QPalette>
#include <QWidget>

/// How much brighter one of two colours looks than the other, from 1 to 21 (W3C, WCAG 2.2, "contrast ratio").
double contrastRatio(const QColor& one, const QColor& other);

/// The colour of most pixels: what text stands on.
QColor commonestColor(const QImage& image);

/// The colour that is farthest from the commonest one: that of the text, where its strokes fill a pixel.
QColor strongestColor(const QImage& image);

/// The contrast of a text in a widget with its background, as painted.
double paintedContrast(QWidget* widget, const QRect& area);
double paintedContrast(QWidget* widget);

/// The colours along the first so many pixels of a widget from its left edge, beginning one pixel outside of it.
QList<QColor> leftEdge(QWidget* widget, int length);
/// The colours from a point to the right.
QList<QColor> colorsFrom(QWidget* window, const QPoint& start, int length);
/// The highest contrast of the colours with the first of them.
double edgeContrast(const QList<QColor>& colors);
