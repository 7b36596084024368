#pragma once

#include <optional>
#include <string>

#include "terminal/TerminalSignals.h"
#include "terminal/utf8.h"

/// What the line editor does when the terminal is about to be somebody else's, or has changed.
class KeyReaderOwner {
public:
    virtual ~KeyReaderOwner() = default;
    /// Puts the terminal back as the program found it.
    virtual void leaveTerminal() = 0;
    /// Takes the terminal again and shows the line anew.
    virtual void returnToTerminal() = 0;
    /// Takes note of the new size.
    virtual void resizeTerminal() = 0;
};

/// The keys typed at a prompt, one character at a time.
///
/// An operator that is the first key of a line can bring `ans` along: the keys a, n, s then come before it, as if
/// typed. Not in a paste, which holds whole equations. Ctrl+C ends the line, as Return would, until the next line
/// begins.
class KeyReader {
public:
    enum class Outcome { key, end, failed };

    /// The descriptor and the owner are not owned.
    KeyReader(int descriptor, KeyReaderOwner& owner) : descriptor_(descriptor), owner_(owner) {}

    /// A new line begins, whose first key may bring `ans`.
    void beginLine(bool continuesFromAns);

    /// Waits for the next key. With `failed` the terminal is gone.
    Outcome nextKey(wchar_t& key);
    /// Whether Ctrl+C ended the line, which is to be dropped then.
    bool isLineDropped() const { return isLineDropped_; }

    // Told by the terminal around a pasted text.
    void beginPaste() { isPasting_ = true; }
    void endPaste(bool lineIsEmpty);
    bool isPasting() const { return isPasting_; }

private:
    Outcome nextTypedKey(wchar_t& key);
    Outcome nextByte(unsigned char& byte);
    void obey(int signal);

    int descriptor_;
    KeyReaderOwner& owner_;
    TerminalSignals signals_;
    Utf8Decoder decoder_;
    std::optional<unsigned char> byteToTakeAgain_;
    std::wstring waiting_;  ///< Keys to be handed out before what is typed, the next one last.
    bool mayBringAns_ = false;
    bool continuesFromAns_ = false;
    bool isPasting_ = false;
    bool isLineDropped_ = false;
};
