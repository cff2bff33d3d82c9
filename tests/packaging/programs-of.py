#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""programs-of.py FOLDER PACKAGE...: fills a folder with links to the programs that a bare machine has with the packages.

These are the programs of the packages, of what they depend on, and of the essential packages of Debian. With the folder as
PATH, a test runs as on a machine where nothing else is installed. Fails if one of the packages is not installed.
"""
import os
import subprocess
import sys

BINARIES = ("/bin/", "/sbin/", "/usr/bin/", "/usr/sbin/")


def installed():
    """Package to the list of the names that it depends on; a name that packages provide to the list of them; the essential."""
    needs, providers, essential = {}, {}, []
    query = "${db:Status-Status}\t${Package}\t${Essential}\t${Pre-Depends}, ${Depends}\t${Provides}\n"
    rows = subprocess.run(["dpkg-query", "-W", "-f", query], stdout=subprocess.PIPE, check=True, text=True).stdout
    for row in rows.splitlines():
        status, package, is_essential, depends, provides = row.split("\t")
        if status != "installed":
            continue
        names = [name.split() for group in depends.split(",") for name in group.split("|")]
        needs[package] = [name[0].split(":")[0] for name in names if name]
        for name in [package] + [words.split()[0] for words in provides.split(",") if words.strip()]:
            providers.setdefault(name, []).append(package)
        if is_essential == "yes":
            essential.append(package)
    return needs, providers, essential


def with_dependencies(wanted, needs, providers):
    found, missing = set(), [package for package in wanted if package not in needs]
    if missing:
        sys.exit("not installed: " + " ".join(missing))
    queue = list(wanted)
    while queue:
        package = queue.pop()
        if package not in found:
            found.add(package)
            queue += [provider for name in needs[package] for provider in providers.get(name, [])]
    return found


def main(folder, wanted):
    needs, providers, essential = installed()
    packages = sorted(with_dependencies(wanted + essential, needs, providers))
    files = subprocess.run(["dpkg-query", "-L"] + packages, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False,
                           text=True).stdout.splitlines()
    programs = {file for file in files if file.startswith(BINARIES) and os.access(file, os.X_OK)}
    real = {os.path.realpath(program) for program in programs}
    for name in os.listdir("/etc/alternatives"):  # such as awk, which is a link to mawk
        for binaries in BINARIES:
            if os.path.realpath(binaries + name) in real:
                programs.add(binaries + name)
    os.makedirs(folder, exist_ok=True)
    for program in programs:
        link = os.path.join(folder, os.path.basename(program))
        if not os.path.lexists(link):
            os.symlink(program, link)


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2:])
