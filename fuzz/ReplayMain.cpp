// Runs a fuzzer's entry on every file named on the command line or lying in a folder named there,
// so that old finds stay found without the fuzzing library.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

bool replay(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "cannot read %s\n", path.c_str());
        return false;
    }
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    // A block of exactly this size: the address sanitizer sees the first byte read beyond it.
    const std::vector<uint8_t> input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    int32_t replayed = 0;
    for (int32_t i = 1; i < argc; i++) {
        std::vector<fs::path> files = {argv[i]};
        std::error_code error;
        if (fs::is_directory(argv[i], error)) {
            files.assign(fs::directory_iterator(argv[i]), fs::directory_iterator());
        }
        for (const fs::path& file : files) {
            if (!replay(file)) {
                return 1;
            }
            replayed++;
        }
    }
    std::printf("%d inputs replayed\n", replayed);
    return replayed > 0 ? 0 : 1;  // nothing replayed is a mistake in the call
}
