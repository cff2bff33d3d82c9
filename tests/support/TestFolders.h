// SPDX-License-Identifier: MIT
// A temporary folder for one test, with helpers that read and write it without the application.
#pragma once

#include <string>

class TestFolders {
public:
    /// Makes an empty folder below the system's temporary folder; removed with everything in it at
    /// the end.
    TestFolders();
    TestFolders(const TestFolders&) = delete;
    TestFolders& operator=(const TestFolders&) = delete;
    ~TestFolders();

    /// The real path of a name in the folder.
    std::string path(const std::string& name) const;

    void makeFolder(const std::string& name) const;

    /// Writes a file, and makes the folders that it lies in.
    void write(const std::string& name, const std::string& content) const;

    /// The content of a file; empty if there is none.
    std::string read(const std::string& name) const;

    bool has(const std::string& name) const;

    /// Removes a file, or a folder with everything in it, if it is there.
    void remove(const std::string& name) const;

private:
    std::string root;
};
