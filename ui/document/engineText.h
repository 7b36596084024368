#pragma once

#include <QString>
#include <string_view>

// The engine's text is UTF-16, as the toolkit's is. Views show the same characters and do not outlive them.

inline std::u16string_view viewOf(QStringView text) { return {text.utf16(), static_cast<std::size_t>(text.size())}; }

inline QStringView stringViewOf(std::u16string_view text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

inline QString stringOf(std::u16string_view text) { return stringViewOf(text).toString(); }
