// SPDX-License-Identifier: MIT
// A temporary folder for one test, removed at its end.
#include "TestFolders.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

TestFolders::TestFolders()
    : root((fs::temp_directory_path() / "murmelo_test_XXXXXX").string()) {
    if (mkdtemp(root.data()) == nullptr) {
        std::abort();  // no test can say anything without its folder
    }
}

TestFolders::~TestFolders() {
    std::error_code ignored;
    fs::remove_all(root, ignored);
}

std::string TestFolders::path(const std::string& name) const {
    return root + "/" + name;
}

void TestFolders::makeFolder(const std::string& name) const {
    fs::create_directories(path(name));
}

void TestFolders::write(const std::string& name, const std::string& content) const {
    fs::create_directories(fs::path(path(name)).parent_path());
    std::ofstream(path(name), std::ios::binary) << content;
}

std::string TestFolders::read(const std::string& name) const {
    std::ifstream in(path(name), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool TestFolders::has(const std::string& name) const {
    return fs::exists(path(name));
}

void TestFolders::remove(const std::string& name) const {
    std::error_code error;
    std::filesystem::remove_all(path(name), error);
}
