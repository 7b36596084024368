#pragma once

#include <QMimeData>
#include <QString>
#include <memory>

#include "tests/models/LineWriter.h"
#include "tests/models/Random.h"

/// Texts as people type and paste them, and as nobody would.
class RandomText {
public:
    explicit RandomText(Random& random) : random_(random), writer_(random) {}

    /// A line of the calculator, mostly well-formed.
    QString line();
    /// A single character, perhaps of two code units.
    QString character();
    /// A number, a name, an operator or a bracket, as it may stand in a line.
    QString fragment();
    /// What may be in the clipboard or dropped: lines, other line ends, control characters, a very long text.
    QString foreign();
    /// The same as a clipboard or a drag brings it, perhaps in other formats too, or in these alone.
    std::unique_ptr<QMimeData> mimeData();

private:
    QString strange(int length);
    QString linesAround(const QString& separator);

    Random& random_;
    LineWriter writer_;
};
