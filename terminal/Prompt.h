#pragma once

#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <histedit.h>
#include <termios.h>

#include "engine/controller/TXEquationController.h"
#include "terminal/KeyReader.h"

/// Asks for equations on a terminal: a prompt with line editing, the lines entered before, and completion of names.
///
/// Standard input and standard output must be terminals, and LC_CTYPE a UTF-8 locale. The user's own settings for the
/// editing library are obeyed. Ctrl+C drops the line, Ctrl+D in an empty one ends the input.
class Prompt : private KeyReaderOwner {
public:
    /// The controller's names are offered; it is not owned.
    explicit Prompt(const TXEquationController& controller);
    ~Prompt() override;
    Prompt(const Prompt&) = delete;
    Prompt& operator=(const Prompt&) = delete;

    /// Asks for a line and gives it without its end; nothing when the input has ended or the terminal is gone.
    std::optional<std::u16string> nextLine();

    /// Keeps a line that was entered: the arrow keys bring it back, and an operator typed first in a later line brings
    /// `ans`.
    void keepLine(std::u16string_view line);

private:
    struct Closer {
        void operator()(EditLine* editor) const { el_end(editor); }
        void operator()(HistoryW* history) const { history_wend(history); }
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): this is how a FILE is owned.
        void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
    };

    static wchar_t* promptText(EditLine* editor);
    static int readKey(EditLine* editor, wchar_t* key);
    static unsigned char complete(EditLine* editor, int key);
    static unsigned char endOrDelete(EditLine* editor, int key);
    static unsigned char beginPaste(EditLine* editor, int key);
    static unsigned char endPaste(EditLine* editor, int key);
    static Prompt& of(EditLine* editor);

    void leaveTerminal() override;
    void returnToTerminal() override;
    void resizeTerminal() override;

    void bindKeys();
    void keepTypeAhead();
    bool isEditing() const;
    void tellPastes(bool areTold) const;
    void listNames(const std::vector<std::u16string>& names) const;

    const TXEquationController& controller_;
    termios terminalBefore_{};                    ///< As the program found it.
    std::unique_ptr<std::FILE, Closer> nowhere_;  ///< Where the library's complaints about the terminal go.
    std::unique_ptr<HistoryW, Closer> history_;
    std::unique_ptr<EditLine, Closer> editor_;
    KeyReader keys_;
    bool hasKeptLine_ = false;
};
