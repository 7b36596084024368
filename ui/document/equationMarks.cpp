#include "ui/document/equationMarks.h"

#include <algorithm>

#include "engine/parser/characterClasses.h"

namespace {

bool isBracket(QChar character) { return character == u'(' || character == u')'; }

/// The bracket that belongs to the one at `position`.
std::optional<qsizetype> partnerOf(QStringView line, qsizetype position) {
    const qsizetype step = line[position] == u'(' ? 1 : -1;
    qsizetype depth = 0;
    for (qsizetype i = position; i >= 0 && i < line.size(); i += step) {
        if (!isBracket(line[i])) continue;
        depth += line[i] == line[position] ? 1 : -1;
        if (depth == 0) return i;
    }
    return std::nullopt;
}

/// Where a number that starts at `start` ends. The exponent of a decimal one may have a sign.
qsizetype endOfNumber(QStringView line, qsizetype start) {
    const QStringView prefix = line.sliced(start).first(std::min<qsizetype>(2, line.size() - start));
    const bool isHexadecimal = prefix.compare(u"0x", Qt::CaseInsensitive) == 0;
    qsizetype end = start + 1;
    for (; end < line.size(); ++end) {
        const bool isSign = line[end] == u'+' || line[end] == u'-';
        const bool followsExponent = !isHexadecimal && (line[end - 1] == u'e' || line[end - 1] == u'E');
        if (isNumericalDelimiter(line[end].unicode()) && !(isSign && followsExponent)) break;
    }
    return end;
}

qsizetype endOfName(QStringView line, qsizetype position) {
    while (position < line.size() && !isVariableDelimiter(line[position].unicode())) ++position;
    return position;
}

}  // namespace

std::optional<BracketPair> bracketPairAt(QStringView line, qsizetype caret) {
    for (const qsizetype position : {caret - 1, caret}) {
        if (position < 0 || position >= line.size() || !isBracket(line[position])) continue;
        const auto partner = partnerOf(line, position);
        if (!partner) return std::nullopt;
        return line[position] == u'(' ? BracketPair{position, *partner} : BracketPair{*partner, position};
    }
    return std::nullopt;
}

std::vector<qsizetype> unmatchedClosingBrackets(QStringView line) {
    std::vector<qsizetype> unmatched;
    qsizetype open = 0;
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line[i] == u'(') ++open;
        if (line[i] != u')') continue;
        if (open == 0) {
            unmatched.push_back(i);
        } else {
            --open;
        }
    }
    return unmatched;
}

std::vector<EquationSpan> spansOf(QStringView line, const PartOfName& partOf) {
    std::vector<EquationSpan> spans;
    for (qsizetype start = 0; start < line.size();) {
        const CharacterKind kind = characterKind(line[start].unicode());
        qsizetype end = start + 1;
        if (kind == CharacterKind::number) {
            end = endOfNumber(line, start);
            spans.push_back({EquationPart::number, start, end - start});
        } else if (kind == CharacterKind::name) {
            end = std::max(end, endOfName(line, start));
            const auto part = partOf(line.sliced(start, end - start));
            if (part) spans.push_back({*part, start, end - start});
        }
        start = end;
    }
    return spans;
}

qsizetype startOfNameBefore(QStringView line, qsizetype end) {
    if (end < line.size() && isValidVariableCharacter(line[end].unicode())) return end;
    qsizetype start = end;
    while (start > 0 && isValidVariableCharacter(line[start - 1].unicode())) --start;
    return start < end && isLetter(line[start].unicode()) ? start : end;
}
