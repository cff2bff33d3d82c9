// SPDX-License-Identifier: MIT
// Runs a fuzzer's entry on every file that the command line names, and on every file in a folder
// that it names, so that earlier finds are tested without the fuzzing library.
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>
#include <vector>

#ifdef MURMELO_SANITIZED
#include <sanitizer/common_interface_defs.h>
#endif

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
    // A block of exactly this size, so that the address sanitizer notices a read of even one byte
    // after it.
    const std::vector<uint8_t> input(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(input.data(), input.size());
    return true;
}

}  // namespace

int main(int argc, char** argv) {
#ifdef MURMELO_SANITIZED
    // A report of the sanitizer must be visible even while standard error is redirected to
    // /dev/null.
    const intptr_t reports = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    __sanitizer_set_report_fd(reinterpret_cast<void*>(reports));
#endif
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
    return replayed > 0 ? 0 : 1;  // no input: an error of the caller
}
