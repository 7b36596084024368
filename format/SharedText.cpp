#include "format/SharedText.h"

#include <algorithm>

SharedText::SharedText(std::u16string_view text) : values_(1, std::u16string(text)), current_(&values_.front()) {}

SharedText& SharedText::operator=(const SharedText& other) {
    if (this != &other) {
        setText(other.text());
    }
    return *this;
}

void SharedText::setText(std::u16string_view text) {
    const std::lock_guard lock(setting_);
    auto value = std::find(values_.begin(), values_.end(), text);
    if (value == values_.end()) {
        values_.emplace_front(text);
        value = values_.begin();
    }
    current_.store(&*value, std::memory_order_release);
}
