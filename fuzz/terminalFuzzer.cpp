// The terminal program within one process: its arguments and the bytes of standard input in, the bytes of standard
// output and the exit status out.
//
// The first line of an input holds the arguments, divided by tabs. The rest is standard input.
//
//     --format<tab>hexadecimal
//     0b11111111

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/expect.h"
#include "terminal/Completion.h"
#include "terminal/LineReader.h"
#include "terminal/Options.h"
#include "terminal/Program.h"
#include "terminal/Session.h"
#include "terminal/utf8.h"

namespace {

/// A file that lies in memory, under a descriptor of the program's.
class MemoryFile {
public:
    explicit MemoryFile(const char* name, int standing = -1) : descriptor_(memfd_create(name, 0)) {
        expect(descriptor_ >= 0, "there is memory for a file");
        if (standing >= 0) expect(dup2(descriptor_, standing) == standing, "a standard stream can be replaced");
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;
    ~MemoryFile() { close(descriptor_); }

    int descriptor() const { return descriptor_; }

    /// Begins again with these bytes, to be read from the first on.
    void setBytes(std::string_view bytes) const {
        const auto size = static_cast<ssize_t>(bytes.size());
        expect(ftruncate(descriptor_, 0) == 0 && pwrite(descriptor_, bytes.data(), bytes.size(), 0) == size &&
                   lseek(descriptor_, 0, SEEK_SET) == 0,
               "a file in memory can be written");
    }
    std::string bytes() const {
        std::string bytes(static_cast<std::size_t>(lseek(descriptor_, 0, SEEK_END)), '\0');
        expect(pread(descriptor_, bytes.data(), bytes.size(), 0) == static_cast<ssize_t>(bytes.size()),
               "a file in memory can be read");
        return bytes;
    }

private:
    int descriptor_;
};

std::vector<std::string> divided(std::string_view text, char divider) {
    std::vector<std::string> pieces;
    for (std::size_t end = text.find(divider); end != std::string_view::npos; end = text.find(divider)) {
        pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    pieces.emplace_back(text);
    return pieces;
}

/// The lines of standard input as a user counts them.
std::vector<std::string> linesOf(std::string_view bytes) {
    std::vector<std::string> lines = divided(bytes, '\n');
    const std::string last = std::move(lines.back());
    lines.pop_back();
    for (std::string& line : lines) {
        if (line.ends_with('\r')) line.pop_back();
    }
    if (!last.empty()) lines.push_back(last);
    return lines;
}

/// Whatever the size of its buffer, a reader gives these lines.
void checkReader(std::string_view bytes, const std::vector<std::string>& lines) {
    static const MemoryFile file("input");
    file.setBytes(bytes);
    LineReader reader(file.descriptor(), bytes.size() % 7 + 1);
    for (const std::string& line : lines) {
        expect(reader.nextLine() == std::string_view(line), "a line is read whole");
    }
    expect(!reader.nextLine() && reader.error() == 0, "no line comes after the last");
}

/// Whether the name is some end of the text, then the suffix, then anything.
bool goesOn(std::u16string_view text, std::u16string_view suffix, std::u16string_view name) {
    for (std::size_t at = name.find(suffix); at != std::u16string_view::npos; at = name.find(suffix, at + 1)) {
        if (text.ends_with(name.substr(0, at))) return true;
    }
    return false;
}

/// What completion offers goes on as the line ended, and everything offered begins with what is certain.
void checkCompletion(std::string_view line, const TXEquationController& controller) {
    const std::u16string text = toUtf16(line);
    const Completion completion = Completion::ofNameAtEnd(text, controller);
    for (const std::u16string& name : completion.names) {
        expect(goesOn(text, completion.suffix, name), "a name goes on as typed");
    }
    const std::u16string columns = inColumns(completion.names, text.size() % 90, text.size() % 5 + 1);
    expect(columns.empty() == completion.names.empty(), "what is offered is shown");
}

struct Expected {
    std::string output;
    int status = exitStatus::answered;
};

Expected expectedOf(const Options& options, const std::vector<std::string>& lines) {
    Session session(options.session);
    Expected expected;
    for (const std::string& line : lines) {
        checkCompletion(line, session.equationController());
        const Reply* const reply = session.enter(std::string_view(line));
        if (reply == nullptr) continue;
        expected.output += reply->lead + reply->answer + '\n';
        const std::size_t start = options.session.showsHistory ? 1 : 0;
        expect(reply->isError == (reply->answer.compare(start, 7, "Error: ") == 0), "an error says that it is one");
        if (reply->isError) expected.status = exitStatus::failed;
    }
    return expected;
}

void checkProgram(const Options& options, std::string_view bytes) {
    static const MemoryFile input("standard input", STDIN_FILENO);
    static const MemoryFile output("standard output", STDOUT_FILENO);
    input.setBytes(bytes);
    output.setBytes("");
    const int status = runProgram(options);
    const std::string written = output.bytes();
    expect(toUtf8(toUtf16(written)) == written, "the output is UTF-8");
    if (options.action != Options::Action::calculate) {
        expect(status == exitStatus::answered && written.ends_with('\n'), "what was asked for is shown");
        return;
    }
    const Expected expected = expectedOf(options, options.equations.empty() ? linesOf(bytes) : options.equations);
    expect(written == expected.output, "every reply is written, in order");
    expect(status == expected.status, "the status tells of errors");
}

}  // namespace

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string all(data, data + size);
    const std::size_t end = std::min(all.find('\n'), all.size());
    const std::string_view head = std::string_view(all).substr(0, end);
    const std::string_view bytes = std::string_view(all).substr(std::min(end + 1, all.size()));
    const Options options = Options::parse(head.empty() ? std::vector<std::string>() : divided(head, '\t'));
    if (options.action == Options::Action::complain) {
        expect(!options.complaint.empty(), "a complaint has a text");
    } else {
        checkProgram(options, bytes);
    }
    checkReader(bytes, linesOf(bytes));
    return 0;
}
