#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

/// The formulas entered in a document, oldest first, for walking back through them.
///
/// The last slot is the working slot, for the line that is being typed; there is always one. Walking away from a slot
/// stores the line's text there, so that edits of older lines are kept.
class TXFormulaScrollerController {
public:
    TXFormulaScrollerController() { awakeFromNib(); }

    /// Begins with one empty working slot.
    void awakeFromNib();

    /// Keeps a formula that was just entered, whichever slot the user was on: it goes into the working slot, and a new
    /// working slot becomes the current one.
    void addCalculatedString(const QString& string);

    /// The slot before the current one, after storing `string` in the current one. At the first slot nothing is stored,
    /// nothing is given, and it beeps if asked to.
    std::optional<QString> stringForPreviousIndexFromString(const QString& string, bool withBeep);
    /// The same towards the working slot.
    std::optional<QString> stringForNextIndexFromString(const QString& string, bool withBeep);

    /// Goes to the working slot. Nothing is stored.
    void incrementCurrentIndexToLastIndex() { currentIndex_ = lastIndex(); }

    const std::vector<QString>& masterScrollbackArray() const { return masterScrollbackArray_; }
    /// Always empty: edits stand in the master list.
    const std::vector<QString>& modifiedScrollbackArray() const { return modifiedScrollbackArray_; }
    /// The slot whose text is in the entry line.
    std::int32_t currentIndex() const { return currentIndex_; }

private:
    std::int32_t lastIndex() const { return static_cast<std::int32_t>(masterScrollbackArray_.size()) - 1; }
    QString& slotAt(std::int32_t index) { return masterScrollbackArray_[static_cast<std::size_t>(index)]; }
    std::optional<QString> moved(std::int32_t step, std::int32_t end, const QString& string, bool withBeep);

    std::vector<QString> masterScrollbackArray_;
    std::vector<QString> modifiedScrollbackArray_;
    std::int32_t currentIndex_ = 0;
};
