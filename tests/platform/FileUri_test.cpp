// SPDX-License-Identifier: MIT
// Addresses of files, as desktops write them, become paths, and paths addresses.
#include "FileUri.h"

#include <gtest/gtest.h>

#include <array>
#include <unistd.h>

namespace {

std::string pathOf(const std::string& uri) {
    std::string path = "untouched";
    EXPECT_EQ("", FileUri::toPath(uri, path)) << uri;
    return path;
}

std::string problemOf(const std::string& uri) {
    std::string path = "untouched";
    const Problem problem = FileUri::toPath(uri, path);
    EXPECT_EQ("untouched", path);
    return problem.sentence();
}

}  // namespace

TEST(FileUri, aPathStaysAsItIs) {
    EXPECT_EQ("/home/ada/100%25 loud.wav", pathOf("/home/ada/100%25 loud.wav"));
    EXPECT_EQ("voice.wav", pathOf("voice.wav"));
    EXPECT_EQ("file:voice.wav", pathOf("file:voice.wav"));  // a file of that name in this folder
    EXPECT_EQ("", pathOf(""));
}

TEST(FileUri, anAddressIsDecoded) {
    EXPECT_EQ("/home/ada/a voice.wav", pathOf("file:///home/ada/a%20voice.wav"));
    EXPECT_EQ("/tmp/\xC3\xA4+%.wav", pathOf("file:///tmp/%C3%a4+%25.wav"));
    EXPECT_EQ("/tmp/a", pathOf("file:/tmp/a"));
    EXPECT_EQ("/tmp/a", pathOf("file://localhost/tmp/a"));
}

TEST(FileUri, thisComputersOwnNameIsUnderstood) {
    std::array<char, 256> name{};
    ASSERT_EQ(0, gethostname(name.data(), name.size() - 1));
    EXPECT_EQ("/tmp/a", pathOf(std::string("file://") + name.data() + "/tmp/a"));
}

TEST(FileUri, anotherComputersFileIsRefused) {
    EXPECT_EQ("it lies on another computer", problemOf("file://elsewhere.example/a.wav"));
}

TEST(FileUri, whatIsNoAddressIsRefused) {
    for (const char* uri : {"file://", "file:///a%", "file:///a%2", "file:///a%zz", "file:///a%2g",
                            "file:///a%00b", "file://localhost"}) {
        EXPECT_EQ("it is not the address of a file", problemOf(uri)) << uri;
    }
}

TEST(FileUri, everyPathComesBack) {
    std::string path = "/";
    for (int code = 1; code < 256; code++) {
        path += static_cast<char>(code);
    }
    EXPECT_EQ(path, pathOf(FileUri::fromPath(path)));
    EXPECT_EQ("file:///a%20%25%23%3F.wav", FileUri::fromPath("/a %#?.wav"));
}
