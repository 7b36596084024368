#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

/// Puts `parts`, in order, where `text` holds the marks "%@", "%C", "%d", "%f" and "%p".
///
/// Every part is text already; the letter only tells the reader what kind of piece belongs there. A mark without a part
/// is left out, and a "%" before any other character stays as it is.
///
///     filled(u"%C can't come right after a %C", {u"*", u"+"}) -> "* can't come right after a +"
std::u16string filled(std::u16string_view text, std::initializer_list<std::u16string_view> parts);

/// The one-character text of `character`, for the mark "%C". The view refers to `character` itself.
inline std::u16string_view characterText(const char16_t& character) { return {&character, 1}; }
