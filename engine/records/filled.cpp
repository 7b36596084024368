#include "engine/records/filled.h"

namespace {

bool isMark(std::u16string_view text) {
    return text.size() > 1 && text[0] == u'%' &&
           std::u16string_view(u"@Cdfp").find(text[1]) != std::u16string_view::npos;
}

}  // namespace

std::u16string filled(std::u16string_view text, std::initializer_list<std::u16string_view> parts) {
    std::u16string result;
    const auto* part = parts.begin();
    while (!text.empty()) {
        if (!isMark(text)) {
            result += text.front();
            text.remove_prefix(1);
            continue;
        }
        if (part != parts.end()) {
            result += *part++;
        }
        text.remove_prefix(2);
    }
    return result;
}
