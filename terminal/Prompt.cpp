#include "terminal/Prompt.h"

#include <algorithm>
#include <clocale>
#include <cstddef>
#include <cwchar>
#include <new>

#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include "terminal/Completion.h"
#include "terminal/Environment.h"
#include "terminal/utf8.h"

namespace {

constexpr int keptLines = 10000;

/// The editing library asks the locale how to write characters. Only LC_CTYPE is set: numbers never follow a locale.
void chooseUtf8Locale() {
    std::setlocale(LC_CTYPE, "");
    if (std::string_view(nl_langinfo(CODESET)) != "UTF-8") std::setlocale(LC_CTYPE, "C.UTF-8");
}

termios stateOfTerminal() {
    termios state{};
    tcgetattr(STDIN_FILENO, &state);
    return state;
}

EditLine* newEditor(std::FILE* nowhere) {
    chooseUtf8Locale();
    EditLine* const editor = el_init("tallix-cli", stdin, stdout, nowhere == nullptr ? stderr : nowhere);
    if (editor == nullptr) throw std::bad_alloc();
    return editor;
}

std::wstring toWide(std::u16string_view text) {
    std::wstring wide;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isPair = at + 1 < text.size() && (text[at] & 0xFC00) == 0xD800 && (text[at + 1] & 0xFC00) == 0xDC00;
        if (isPair) {
            wide.push_back(static_cast<wchar_t>(0x10000 + ((text[at] & 0x3FF) << 10) + (text[at + 1] & 0x3FF)));
            ++at;
        } else {
            wide.push_back(static_cast<wchar_t>(text[at]));
        }
    }
    return wide;
}

std::u16string toUtf16(std::wstring_view wide) {
    std::u16string text;
    for (const wchar_t character : wide) appendUtf16(static_cast<char32_t>(character), text);
    return text;
}

struct ScreenSize {
    std::size_t columns = 80;
    std::size_t lines = 24;
};

ScreenSize screenSize() {
    ScreenSize size;
    winsize reported{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &reported) == 0) {
        if (reported.ws_col > 1) size.columns = reported.ws_col;
        if (reported.ws_row > 1) size.lines = reported.ws_row;
    }
    return size;
}

/// The screen row, counted from the one where the prompt stands, in which a prompt and this text end.
std::size_t rowOfEnd(std::wstring_view prompt, std::wstring_view text, std::size_t columns) {
    std::size_t row = 0;
    std::size_t column = prompt.size();
    for (const wchar_t character : text) {
        // Control characters are shown as two: ^A.
        const int reported = wcwidth(character);
        const auto width = static_cast<std::size_t>(reported < 0 ? 2 : reported);
        if (column + width > columns) {
            ++row;
            column = 0;
        }
        column += width;
    }
    return column >= columns ? row + 1 : row;
}

constexpr std::wstring_view promptCharacters = L"> ";

}  // namespace

Prompt::Prompt(const TXEquationController& controller)
    : controller_(controller),
      terminalBefore_(stateOfTerminal()),
      nowhere_(std::fopen("/dev/null", "w")),
      history_(history_winit()),
      editor_(newEditor(nowhere_.get())),
      keys_(STDIN_FILENO, *this) {
    EditLine* const editor = editor_.get();
    el_wset(editor, EL_CLIENTDATA, this);
    el_wset(editor, EL_PROMPT, promptText);
    el_wset(editor, EL_SIGNAL, 0);
    el_wset(editor, EL_GETCFN, readKey);
    el_wset(editor, EL_EDITOR, L"emacs");
    HistEventW event{};
    history_w(history_.get(), &event, H_SETSIZE, keptLines);
    history_w(history_.get(), &event, H_SETUNIQUE, 1);
    el_wset(editor, EL_HIST, history_w, history_.get());
    el_source(editor, nullptr);
    bindKeys();
    keepTypeAhead();
}

Prompt::~Prompt() = default;

/// Between two lines the library gives the terminal back. What is typed or pasted just then would be echoed, and a
/// Ctrl+D would be lost: so the terminal goes on collecting keys as it does while a line is edited.
void Prompt::keepTypeAhead() {
    if (isEditing()) el_wset(editor_.get(), EL_SETTY, L"-x", L"-icanon", L"-echo", nullptr);
}

void Prompt::bindKeys() {
    EditLine* const editor = editor_.get();
    const auto bind = [editor](const wchar_t* key, const wchar_t* command) {
        el_wset(editor, EL_BIND, key, command, nullptr);
    };
    el_wset(editor, EL_ADDFN, L"tallix-complete", L"Complete a name", complete);
    el_wset(editor, EL_ADDFN, L"tallix-end-or-delete", L"End the session, or delete a character", endOrDelete);
    el_wset(editor, EL_ADDFN, L"tallix-begin-paste", L"A pasted text begins", beginPaste);
    el_wset(editor, EL_ADDFN, L"tallix-end-paste", L"A pasted text ends", endPaste);
    bind(L"^I", L"tallix-complete");
    bind(L"^D", L"tallix-end-or-delete");
    bind(L"\\e[200~", L"tallix-begin-paste");
    bind(L"\\e[201~", L"tallix-end-paste");
    bind(L"^J", L"ed-newline");
    bind(L"^M", L"ed-newline");
    // What shells have taught: words, searching backwards, and the keys that the library leaves out.
    bind(L"^R", L"em-inc-search-prev");
    bind(L"^W", L"ed-delete-prev-word");
    bind(L"\\e[1;5C", L"em-next-word");
    bind(L"\\e[1;5D", L"ed-prev-word");
    bind(L"\\e[3~", L"ed-delete-next-char");
    bind(L"\\e[1~", L"ed-move-to-beg");
    bind(L"\\e[4~", L"ed-move-to-end");
}

Prompt& Prompt::of(EditLine* editor) {
    void* prompt = nullptr;
    el_wget(editor, EL_CLIENTDATA, &prompt);
    return *static_cast<Prompt*>(prompt);
}

wchar_t* Prompt::promptText(EditLine* /*editor*/) {
    // The library's type for this function promises nothing, but it only reads the text.
    static std::wstring text(promptCharacters);
    return text.data();
}

std::optional<std::u16string> Prompt::nextLine() {
    for (;;) {
        keys_.beginLine(hasKeptLine_ && isEditing());
        tellPastes(true);
        int length = 0;
        const wchar_t* const line = el_wgets(editor_.get(), &length);
        tellPastes(false);
        if (line == nullptr || length <= 0) {
            std::fputs("\n", stdout);
            std::fflush(stdout);
            return std::nullopt;
        }
        if (!keys_.isLineDropped()) {
            std::wstring_view text(line, static_cast<std::size_t>(length));
            if (text.back() == L'\n') text.remove_suffix(1);
            return toUtf16(text);
        }
        // Without editing it is the terminal that echoes, and it has no line end to echo.
        if (!isEditing()) std::fputs("\n", stdout);
    }
}

void Prompt::keepLine(std::u16string_view line) {
    HistEventW event{};
    history_w(history_.get(), &event, H_ENTER, toWide(line).c_str());
    hasKeptLine_ = true;
}

int Prompt::readKey(EditLine* editor, wchar_t* key) {
    switch (of(editor).keys_.nextKey(*key)) {
        case KeyReader::Outcome::key: return 1;
        case KeyReader::Outcome::end: return 0;
        default: return -1;
    }
}

/// The user may have turned editing off.
bool Prompt::isEditing() const {
    int isOn = 0;
    el_wget(editor_.get(), EL_EDITMODE, &isOn);
    return isOn != 0;
}

void Prompt::leaveTerminal() {
    tellPastes(false);
    el_wset(editor_.get(), EL_PREP_TERM, 0);
    tcsetattr(STDIN_FILENO, TCSADRAIN, &terminalBefore_);
}

// The library believes the terminal to be as it left it, so it is told of both changes.
void Prompt::returnToTerminal() {
    if (!isEditing()) return;
    el_wset(editor_.get(), EL_PREP_TERM, 0);
    el_wset(editor_.get(), EL_PREP_TERM, 1);
    tellPastes(true);
    el_wset(editor_.get(), EL_REFRESH);
}

void Prompt::resizeTerminal() { el_resize(editor_.get()); }

/// Asks the terminal to mark pasted texts, or to stop that.
void Prompt::tellPastes(bool areTold) const {
    if (!isEditing() || !Environment::namesCapableTerminal()) return;
    std::fputs(areTold ? "\033[?2004h" : "\033[?2004l", stdout);
    std::fflush(stdout);
}

unsigned char Prompt::beginPaste(EditLine* editor, int /*key*/) {
    of(editor).keys_.beginPaste();
    return CC_NORM;
}

unsigned char Prompt::endPaste(EditLine* editor, int /*key*/) {
    const LineInfoW* const line = el_wline(editor);
    of(editor).keys_.endPaste(line->buffer == line->lastchar);
    return CC_NORM;
}

unsigned char Prompt::endOrDelete(EditLine* editor, int /*key*/) {
    const LineInfoW* const line = el_wline(editor);
    if (line->buffer == line->lastchar) return CC_EOF;
    if (line->cursor == line->lastchar) return CC_ERROR;
    el_cursor(editor, 1);
    el_wdeletestr(editor, 1);
    return CC_REFRESH;
}

unsigned char Prompt::complete(EditLine* editor, int /*key*/) {
    const Prompt& prompt = of(editor);
    if (prompt.keys_.isPasting()) {
        el_winsertstr(editor, L"\t");
        return CC_REFRESH;
    }
    const LineInfoW* const line = el_wline(editor);
    const std::u16string typed = toUtf16({line->buffer, static_cast<std::size_t>(line->cursor - line->buffer)});
    const Completion completion = Completion::ofNameAtEnd(typed, prompt.controller_);
    if (completion.names.empty()) return CC_ERROR;
    const bool isOne = completion.names.size() == 1;
    if (!isOne) prompt.listNames(completion.names);
    if (!completion.suffix.empty()) el_winsertstr(editor, toWide(completion.suffix).c_str());
    return isOne ? CC_REFRESH : CC_REDISPLAY;
}

/// Writes the names below the line, and leaves the cursor where the library expects it for showing the line again: as
/// many rows below the prompt's new place as it is below the old one.
void Prompt::listNames(const std::vector<std::u16string>& names) const {
    const ScreenSize screen = screenSize();
    const LineInfoW* const line = el_wline(editor_.get());
    const auto rowAt = [&](const wchar_t* end) {
        return rowOfEnd(promptCharacters, {line->buffer, static_cast<std::size_t>(end - line->buffer)}, screen.columns);
    };
    const std::size_t cursorRow = rowAt(line->cursor);
    const std::size_t lastRow = rowAt(line->lastchar);
    std::string text(lastRow - cursorRow + 1, '\n');
    appendUtf8(inColumns(names, screen.columns, std::max<std::size_t>(screen.lines, 3) - 2), text);
    text.append(cursorRow, '\n');
    std::fputs(text.c_str(), stdout);
    std::fflush(stdout);
}
