// Runs a fuzz target without libFuzzer over the files named on the command
// line (a folder stands for the files in it), so that the sanitizer build
// replays the committed corpora. Fails when no input was found.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

int main(int argc, char **argv)
{
    namespace fs = std::filesystem;
    std::vector<fs::path> inputs;
    for (int i = 1; i < argc; ++i) {
        if (fs::is_directory(argv[i])) {
            for (const auto &entry : fs::directory_iterator(argv[i]))
                inputs.push_back(entry.path());
        } else {
            inputs.emplace_back(argv[i]);
        }
    }
    std::sort(inputs.begin(), inputs.end());
    for (const fs::path &input : inputs) {
        std::ifstream in(input, std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
        LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
    }
    // One more input, so that what the last file left behind is checked too.
    LLVMFuzzerTestOneInput(nullptr, 0);
    std::printf("%zu inputs replayed\n", inputs.size());
    return inputs.empty() ? 1 : 0;
}
