#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string_view>

#include "engine/records/wellKnown.h"

/// The name of a numbered answer (ans1, ans2, ...). It counts on in place: from one answer to the next mostly one digit
/// changes.
class AnswerName {
public:
    /// At first 0: there is no answer.
    std::int32_t number() const { return number_; }
    std::u16string_view text() const { return {text_.data(), length_}; }

    /// Goes on to the next number.
    void countOn() {
        ++number_;
        std::size_t digit = length_ - 1;
        while (text_[digit] == u'9') {
            text_[digit--] = u'0';
        }
        if (digit >= answerName.size()) {
            ++text_[digit];
        } else {  // all were nines
            text_[answerName.size()] = u'1';
            text_[length_++] = u'0';
        }
    }

private:
    std::int32_t number_ = 0;
    std::size_t length_ = answerName.size() + 1;
    std::array<char16_t, answerName.size() + std::numeric_limits<std::int32_t>::digits10 + 1> text_{u'a', u'n', u's',
                                                                                                    u'0'};
};
