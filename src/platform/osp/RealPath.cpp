// SPDX-License-Identifier: MIT
#include "RealPath.h"

#include "Host.h"

#include <array>
#include <climits>
#include <string_view>
#include <unistd.h>
#include <utility>
#include <vector>

using Osp::Base::String;

namespace Osp::Io {

namespace {

// As many links in a row as Linux follows; more are taken for a circle.
constexpr int32_t kMaxLinks = 40;

struct Root {
    const char* phonePath;
    std::string HostFolders::*folder;
    bool writable;
};

// The first row that fits and whose folder is mapped is used.
constexpr std::array<Root, 4> kRoots = {{
    {"/Res", &HostFolders::res, false},
    {"/Home/Murmelo", &HostFolders::soundFolder, true},
    {"/Home", &HostFolders::home, true},
    {"/com/tallowin/orm", &HostFolders::framework, false},
}};

bool liesUnder(std::string_view path, std::string_view root) {
    return path.substr(0, root.size()) == root &&
           (path.size() == root.size() || path[root.size()] == '/');
}

/// Pushes the parts of a path onto the stack, with the first part on top.
void pushParts(std::vector<std::string>& stack, std::string_view path) {
    while (!path.empty()) {
        const size_t slash = path.rfind('/');
        const size_t start = slash == std::string_view::npos ? 0 : slash + 1;
        stack.emplace_back(path.substr(start));
        path = path.substr(0, start == 0 ? 0 : slash);
    }
}

bool hasParentStep(const std::vector<std::string>& parts) {
    for (const std::string& part : parts) {
        if (part == "..") {
            return true;
        }
    }
    return false;
}

/// The target of a symbolic link; empty if the path is not a link.
std::string linkTarget(const std::string& path) {
    std::array<char, PATH_MAX> target = {};
    const ssize_t count = readlink(path.c_str(), target.data(), target.size());
    return count > 0 ? std::string(target.data(), static_cast<size_t>(count)) : std::string();
}

/// Joins the parts below the root, and follows each link on the way. Empty if a link leads out of
/// the root.
std::string resolve(const std::string& root, std::vector<std::string> parts, LastLink lastLink) {
    std::string real = root;
    std::vector<size_t> parents;  // length of the real path before each step down
    int32_t links = 0;
    while (!parts.empty()) {
        const std::string part = std::move(parts.back());
        parts.pop_back();
        if (part.empty() || part == ".") {
            continue;
        }
        if (part != "..") {
            parents.push_back(real.size());
            real += '/' + part;
            const bool follows = !parts.empty() || lastLink == LastLink::kFollow;
            const std::string target = follows ? linkTarget(real) : std::string();
            if (target.empty()) {
                continue;
            }
            if (target.front() == '/' || ++links > kMaxLinks) {
                return {};
            }
            pushParts(parts, target);
        }
        if (parents.empty()) {
            return {};
        }
        real.resize(parents.back());
        parents.pop_back();
    }
    return real;
}

/// Joins the parts below the root and leaves the links to the system. For the program's own files:
/// each may be installed as a link to anywhere, and none is written.
std::string unresolved(const std::string& root, std::vector<std::string> parts) {
    std::string real = root;
    for (; !parts.empty(); parts.pop_back()) {
        if (!parts.back().empty() && parts.back() != ".") {
            real += '/' + parts.back();
        }
    }
    return real;
}

}  // namespace

RealPath::RealPath(const String& phonePath, LastLink lastLink) {
    const std::string path = phonePath.ToUtf8();
    if (path.find('\0') != std::string::npos) {
        return;
    }
    const HostFolders& folders = Host::current().folders();
    for (const Root& root : kRoots) {
        const std::string& folder = folders.*root.folder;
        if (folder.empty() || !liesUnder(path, root.phonePath)) {
            continue;
        }
        std::vector<std::string> parts;
        pushParts(parts, std::string_view{path}.substr(std::string_view{root.phonePath}.size()));
        if (!hasParentStep(parts)) {
            if (root.writable) {
                real = resolve(folder, std::move(parts), lastLink);
            } else {
                real = unresolved(folder, std::move(parts));
            }
            writable = root.writable;
            endsWithSlash = path.back() == '/';
        }
        return;
    }
}

}  // namespace Osp::Io
