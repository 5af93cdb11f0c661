#include "engine/memory/engine_directories.h"

#include "engine/qx_letter_case.h"

#include <algorithm>
#include <map>
#include <system_error>

namespace {

namespace fs = std::filesystem;

std::vector<fs::path>& directoryList() {
    static std::vector<fs::path> directories;
    return directories;
}

bool isForbidden(char c) {
    const auto code = static_cast<unsigned char>(c);
    return code < 0x20 || code == 0x7F || c == '/' || c == '\\' || c == ':';
}

bool isBareName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." && std::ranges::none_of(name, isForbidden);
}

bool isFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

template <class Visit> void forEachFileName(const fs::path& directory, Visit visit) {
    std::error_code error;
    fs::directory_iterator entry(directory, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (isBareName(name) && isFile(entry->path())) {
            visit(name);
        }
    }
}

std::optional<fs::path> findInDirectory(const fs::path& directory, std::string_view bareName) {
    const fs::path exact = directory / bareName;
    if (isFile(exact)) {
        return exact;
    }
    std::string found;
    forEachFileName(directory, [&](const std::string& name) {
        // The order of a directory's entries is chance, so the smallest spelling decides.
        if (isSameName(name, bareName) && (found.empty() || name < found)) {
            found = name;
        }
    });
    return found.empty() ? std::nullopt : std::optional(directory / found);
}

// Both texts folded. After a mismatch only the last '*' is tried again, one character longer, so the work is
// at most the product of the two lengths.
bool matches(std::string_view text, std::string_view pattern) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starText = 0;
    while (at < text.size()) {
        if (in < pattern.size() && pattern[in] == '*') {
            star = in++;
            starText = at;
        } else if (in < pattern.size() && (pattern[in] == '?' || pattern[in] == text[at])) {
            ++in;
            ++at;
        } else if (star != std::string_view::npos) {
            in = star + 1;
            at = ++starText;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', in) == std::string_view::npos;
}

} // namespace

void CEngineDirectories::setDirectories(const std::vector<fs::path>& directories) {
    std::vector<fs::path> absolute;
    absolute.reserve(directories.size());
    for (const fs::path& directory : directories) {
        std::error_code error;
        const fs::path full = fs::absolute(directory, error);
        absolute.push_back(error ? directory : full);
    }
    directoryList() = std::move(absolute);
}

const std::vector<fs::path>& CEngineDirectories::getDirectories() {
    return directoryList();
}

std::optional<fs::path> CEngineDirectories::resolve(std::string_view bareName) {
    if (!isBareName(bareName)) {
        return std::nullopt;
    }
    for (const fs::path& directory : directoryList()) {
        if (std::optional<fs::path> found = findInDirectory(directory, bareName)) {
            return found;
        }
    }
    return std::nullopt;
}

std::vector<std::string> CEngineDirectories::findMatching(std::string_view pattern) {
    const std::string wanted = foldCase(pattern);
    std::map<std::string, std::string> found;
    for (const fs::path& directory : directoryList()) {
        std::map<std::string, std::string> here;
        forEachFileName(directory, [&](const std::string& name) {
            const std::string key = foldCase(name);
            if (!matches(key, wanted)) {
                return;
            }
            const auto [entry, isNew] = here.emplace(key, name);
            if (!isNew) {
                entry->second = std::min(entry->second, name);
            }
        });
        found.merge(here);
    }
    std::vector<std::string> names;
    names.reserve(found.size());
    for (const auto& [key, name] : found) {
        names.push_back(name);
    }
    return names;
}
