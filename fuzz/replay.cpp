// fuzz/replay.cpp: runs a target once on each stored input, given as files and folders, without a fuzzing engine. This
// makes the fuzzers' findings regression tests for every compiler.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* count, char*** arguments);
/// Only custom mutators call it, and they do not run here.
extern "C" __attribute__((weak)) size_t LLVMFuzzerMutate(uint8_t*, size_t size, size_t) { return size; }

namespace {

void run(std::filesystem::path const& file)
{
    std::ifstream in(file, std::ios::binary);
    std::string const content{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    // A copy of exactly that size, so that a sanitizer notices reads past the end.
    std::vector<uint8_t> bytes(content.begin(), content.end());
    LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

unsigned runAll(std::filesystem::path const& path)
{
    if (!std::filesystem::is_directory(path))
        return run(path), 1;
    unsigned count = 0;
    for (std::filesystem::directory_entry const& entry : std::filesystem::recursive_directory_iterator(path))
        if (entry.is_regular_file())
            count += runAll(entry.path());
    return count;
}

} // namespace

int main(int count, char** arguments)
{
    if (LLVMFuzzerInitialize)
        LLVMFuzzerInitialize(&count, &arguments);
    unsigned inputs = 0;
    for (int i = 1; i < count; ++i)
        inputs += runAll(arguments[i]);
    std::printf("%u stored inputs\n", inputs);
    return inputs != 0 ? 0 : 1;
}
