// Feeds files to a fuzz target, so that its corpus is a test under every compiler: a program of files and folders.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it so.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> filesOf(const std::filesystem::path& path) {
    if (!std::filesystem::is_directory(path)) return {path};
    const std::filesystem::directory_iterator entries(path);
    std::vector<std::filesystem::path> files(begin(entries), end(entries));
    std::sort(files.begin(), files.end());
    return files;
}

bool replay(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file) return false;
    const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    std::size_t count = 0;
    for (int argument = 1; argument < argc; ++argument) {
        for (const std::filesystem::path& file : filesOf(argv[argument])) {
            if (!replay(file)) {
                static_cast<void>(std::fprintf(stderr, "cannot read %s\n", file.c_str()));
                return 1;
            }
            ++count;
        }
    }
    static_cast<void>(std::fprintf(stderr, "%zu files replayed\n", count));
    return count > 0 ? 0 : 1;
}
