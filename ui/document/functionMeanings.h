#pragma once

#include <QString>
#include <string_view>

/// What a function is, in a few words; an empty text for a name that is no function, and for atan2, which never
/// answers.
QString meaningOfFunction(std::u16string_view name);
