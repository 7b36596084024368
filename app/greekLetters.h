#pragma once

#include <QString>
#include <span>

/// A character of the palette, and what a person calls it.
struct NamedCharacter {
    char16_t character;
    const char* name;
};

/// The palette in reading order: the small letters, the capital ones, and "±". Final sigma is left out, since it is no
/// letter of a name.
std::span<const NamedCharacter> greekLetters();
