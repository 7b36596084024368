#pragma once

/// What helps while a line is typed, as the user has chosen it for all documents.
struct EntryOptions {
    bool showsAnswer = true;  ///< The answer that the line would have.
    bool suggestsNames = true;
    bool colorsEquation = false;  ///< Numbers, functions and names that have a value.

    /// What was stored last, or else the choices above.
    static EntryOptions stored();
    void store() const;

    bool operator==(const EntryOptions&) const = default;
};
