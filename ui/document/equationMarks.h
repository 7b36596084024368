#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <vector>

// What there is to be seen in an equation while it is typed. Positions count the line's UTF-16 code units from 0.

/// The positions of two brackets that belong together.
struct BracketPair {
    qsizetype opening;
    qsizetype closing;

    bool operator==(const BracketPair&) const = default;
};

/// The pair that one of the characters beside the caret belongs to: the one before the caret goes first. Nothing when
/// there is no bracket, or none that belongs to it.
std::optional<BracketPair> bracketPairAt(QStringView line, qsizetype caret);

/// The positions of every ")" without a "(" before it.
std::vector<qsizetype> unmatchedClosingBrackets(QStringView line);

enum class EquationPart { number, function, variable };

/// A run of characters that is one number or one name.
struct EquationSpan {
    EquationPart part;
    qsizetype start;
    qsizetype length;

    bool operator==(const EquationSpan&) const = default;
};

/// What a name is; nothing when it has no value.
using PartOfName = std::function<std::optional<EquationPart>(QStringView name)>;

/// The numbers of a line and the names that `partOf` knows, from left to right.
std::vector<EquationSpan> spansOf(QStringView line, const PartOfName& partOf);

/// Where the name that ends at `end` begins, if there is one; or else `end`. A name begins with a letter, and is whole:
/// no part of it stands behind `end`.
qsizetype startOfNameBefore(QStringView line, qsizetype end);
