#pragma once

#include <algorithm>
#include <array>
#include <cassert>
#include <cstddef>
#include <cstdint>

/// Decimal digits 0 to 9, most significant first, in a buffer of their own: no operation allocates.
class DigitList {
public:
    /// More than any answer needs: no more than 324 zeros and then 15 digits, for the smallest numbers written out
    /// plainly. Digits that would lie beyond are dropped.
    static constexpr int capacity = 512;

    /// Loaded numbers fill less than a block. Digits are moved about by whole blocks where that is enough: a length
    /// known beforehand makes it one move of a register.
    static constexpr int blockSize = 16;
    /// What is moved at once.
    using Block = std::array<std::uint8_t, blockSize>;

    DigitList() = default;
    /// A list of the same digits.
    DigitList(const DigitList& other) { *this = other; }
    /// Takes the digits of the other list.
    DigitList& operator=(const DigitList& other);
    ~DigitList() = default;

    int count() const { return count_; }
    /// The digit at `position`, from 0 and below `count()`, to be read or replaced.
    std::uint8_t& operator[](int position) { return digits_[at(position)]; }
    /// The digit at `position`, from 0 and below `count()`.
    std::uint8_t operator[](int position) const { return digits_[at(position)]; }
    /// From any digit on a whole block may be read; what lies behind the end is of no account.
    const std::uint8_t* begin() const { return digits_.data(); }
    const std::uint8_t* end() const { return digits_.data() + count_; }

    /// Leaves no digit.
    void clear() { count_ = 0; }
    /// Adds the first `count` digits of `digits` to the end of a list that has room for all of them.
    template <std::size_t size>
    void append(const std::array<std::uint8_t, size>& digits, int count);
    /// Keeps the first `length` digits; a list that has no more stays as it is.
    void cutToLength(int length) { count_ = std::clamp(length, 0, count_); }
    /// Removes zeros from the end, but never the last digit of all.
    void removeZerosFromEnd();
    /// Makes `digit` the only one.
    void setTo(std::uint8_t digit);
    /// Adds `zeros` zeros behind the last digit, none if it is negative, as far as the capacity goes.
    void addZerosToEnd(int zeros);
    /// Puts `zeros` zeros before the first digit, none if it is negative. What comes to lie beyond the capacity is
    /// dropped.
    void addZerosToBeginning(int zeros);

private:
    std::size_t at(int position) const {
        assert(position >= 0 && position < count_);
        return static_cast<std::size_t>(position);
    }

    /// Writes at least a block of them.
    void writeZeros(int start, int zeros);

    int count_ = 0;
    std::array<std::uint8_t, capacity + blockSize> digits_{};  // a last block may reach beyond the last digit
};

inline DigitList& DigitList::operator=(const DigitList& other) {
    if (this == &other) return *this;
    count_ = other.count_;
    if (count_ <= blockSize) {
        std::copy_n(other.digits_.begin(), blockSize, digits_.begin());
    } else {
        std::copy_n(other.digits_.begin(), count_, digits_.begin());
    }
    return *this;
}

template <std::size_t size>
void DigitList::append(const std::array<std::uint8_t, size>& digits, int count) {
    assert(count >= 0 && count <= static_cast<int>(size) && count_ + static_cast<int>(size) <= capacity);
    std::copy(digits.begin(), digits.end(), digits_.begin() + count_);
    count_ += count;
}

inline void DigitList::removeZerosFromEnd() {
    while (count_ > 1 && digits_[at(count_ - 1)] == 0) {
        --count_;
    }
}

inline void DigitList::setTo(std::uint8_t digit) {
    count_ = 1;
    digits_[0] = digit;
}

inline void DigitList::addZerosToEnd(int zeros) {
    const int added = std::clamp(zeros, 0, capacity - count_);
    writeZeros(count_, added);
    count_ += added;
}

inline void DigitList::addZerosToBeginning(int zeros) {
    const int added = std::clamp(zeros, 0, capacity);
    const int kept = std::min(count_, capacity - added);
    if (kept <= blockSize) {
        Block block{};
        std::copy_n(digits_.begin(), blockSize, block.begin());
        writeZeros(0, added);
        std::copy_n(block.begin(), blockSize, digits_.begin() + added);
    } else {
        std::copy_backward(digits_.begin(), digits_.begin() + kept, digits_.begin() + kept + added);
        std::fill_n(digits_.begin(), added, std::uint8_t{0});
    }
    count_ = kept + added;
}

inline void DigitList::writeZeros(int start, int zeros) {
    if (zeros <= blockSize) {
        std::fill_n(digits_.begin() + start, blockSize, std::uint8_t{0});
    } else {
        std::fill_n(digits_.begin() + start, zeros, std::uint8_t{0});
    }
}
