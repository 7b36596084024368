#pragma once

#include <QColor>

/// The colours in the entry line beside the palette's: each has a contrast of 4.5:1 or more on the background it is
/// for.
struct EntryColors {
    QColor quiet;  ///< Of what is not typed.
    QColor error;
    QColor number;
    QColor function;
    QColor variable;

    /// The ones for what lies on `background`.
    static const EntryColors& on(const QColor& background);
};
