// Replay driver for compilers without libFuzzer: runs LLVMFuzzerTestOneInput once on
// every file named on the command line and on every regular file of every directory
// named there (not recursively, in name order). Handy under gdb and valgrind:
//
//   build/fuzz-replay/fuzz/address_fuzzer fuzz/corpus/address_fuzzer crash-1234
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* argc, char*** argv);

namespace fs = std::filesystem;

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s FILE_OR_DIRECTORY...\n", argv[0]);
        return 2;
    }
    if (LLVMFuzzerInitialize != nullptr) {
        LLVMFuzzerInitialize(&argc, &argv);
    }

    std::vector<fs::path> inputs;
    for (int i = 1; i < argc; ++i) {
        const fs::path path(argv[i]);
        std::error_code error;
        if (fs::is_directory(path, error)) {
            std::vector<fs::path> files;
            for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
                if (entry.is_regular_file()) {
                    files.push_back(entry.path());
                }
            }
            std::sort(files.begin(), files.end());
            inputs.insert(inputs.end(), files.begin(), files.end());
        } else if (fs::is_regular_file(path, error)) {
            inputs.push_back(path);
        } else {
            std::fprintf(stderr, "%s: no such file or directory\n", argv[i]);
            return 2;
        }
    }

    for (const fs::path& input : inputs) {
        std::ifstream stream(input, std::ios::binary);
        if (!stream) {
            std::fprintf(stderr, "%s: cannot open\n", input.c_str());
            return 2;
        }
        const std::vector<char> bytes((std::istreambuf_iterator<char>(stream)), std::istreambuf_iterator<char>());
        // An exactly sized heap copy, as libFuzzer passes it, so reads past the end are caught
        // (and an empty input still has a valid pointer).
        const std::unique_ptr<std::uint8_t[]> copy(new std::uint8_t[bytes.size()]);
        std::copy(bytes.begin(), bytes.end(), copy.get());
        std::fprintf(stderr, "Running %s (%zu bytes)\n", input.c_str(), bytes.size());
        LLVMFuzzerTestOneInput(copy.get(), bytes.size());
    }
    std::fprintf(stderr, "Executed %zu inputs\n", inputs.size());
    return 0;
}
