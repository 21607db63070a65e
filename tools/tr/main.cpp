// SPDX-FileCopyrightText: 2026 The Tessel developers
// SPDX-License-Identifier: MIT
#include "tr/CaseFilter.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <sstream>
#include <system_error>

#include <unistd.h>

using namespace Tessel;

namespace {

std::optional<CaseFilter::Case> wantedCase(int argc, char *argv[])
{
    using namespace std::string_view_literals;
    if (argc != 3)
        return {};
    if (argv[1] == "[:lower:]"sv && argv[2] == "[:upper:]"sv)
        return CaseFilter::Case::upper;
    if (argv[1] == "[:upper:]"sv && argv[2] == "[:lower:]"sv)
        return CaseFilter::Case::lower;
    return {};
}

bool put(const std::string &text)
{
    return std::fwrite(text.data(), 1, text.size(), stdout) == text.size()
        && std::fflush(stdout) == 0;
}

int filter(CaseFilter::Case to)
{
    CaseFilter mapping(to);
    std::array<char, 1 << 16> bytes;
    ssize_t size = 0;
    while ((size = read(STDIN_FILENO, bytes.data(), bytes.size())) != 0) {
        if (size < 0 && errno == EINTR)
            continue;
        if (size < 0 || !put(mapping.feed({ bytes.data(), static_cast<std::size_t>(size) }))) {
            std::perror("tr");
            return EXIT_FAILURE;
        }
    }
    if (!put(mapping.finish())) {
        std::perror("tr");
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

/// The first program of this name on the PATH after this one, which may stand there several times.
/// The programs before are not looked at, since one of them may be a copy of this one that looks
/// on.
std::string systemTr()
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path own = fs::read_symlink("/proc/self/exe", error);
    std::optional<std::string> next;
    const char *path = own.empty() ? nullptr : std::getenv("PATH");
    std::istringstream folders(path ? path : "");
    for (std::string folder; std::getline(folders, folder, ':');) {
        const fs::path candidate = fs::path(folder) / "tr";
        if (!candidate.is_absolute() || access(candidate.c_str(), X_OK) != 0)
            continue;
        if (fs::equivalent(candidate, own, error))
            next.reset();
        else if (!next)
            next = candidate;
    }
    return next.value_or("/usr/bin/tr");
}

}

/// tr(1) with the case mapping of Unicode: the system's own maps single bytes. Everything but the
/// two mappings of whole classes is left to that one.
int main(int argc, char *argv[])
{
    if (const auto to = wantedCase(argc, argv))
        return filter(*to);
    execv(systemTr().c_str(), argv);
    std::perror("tr");
    return EXIT_FAILURE;
}
