#pragma once

#include <QColor>
#include <QPalette>

/// What the guidelines for accessible colours (WCAG 2) ask for: text, and marks and outlines.
inline constexpr double readableContrast = 4.5;
inline constexpr double visibleContrast = 3.0;

/// How much brighter one of two opaque colours looks than the other: from 1 to 21, as the same guidelines define it.
double contrast(const QColor& one, const QColor& other);

/// Whether white reads better on this background than black.
bool isDark(const QColor& background);

/// So many 255ths of `color` laid over `background`.
QColor mixed(const QColor& color, const QColor& background, int share);

/// `color` as it is to be seen on `background`, as much nearer to `stronger` as the least contrast needs. It is
/// `stronger` itself where even that has less.
QColor strengthened(const QColor& color, const QColor& background, const QColor& stronger, double leastContrast);

/// For text that is to stand back, on a background of this role.
QColor placeholderColor(const QPalette& palette, QPalette::ColorRole background);

/// For marks of the focus on windows: the highlight's colour, visible.
QColor focusMarkColor(const QPalette& palette);

/// For lines between areas of the base's colour and others: `color`, if it can be told from the base, or else a strong
/// one, as where all areas are black.
QColor hairlineColor(const QColor& color, const QPalette& palette);
