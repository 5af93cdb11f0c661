#include "house/include_rules.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <set>
#include <string_view>

namespace house {
namespace {

namespace fs = std::filesystem;

enum class System { STANDARD_ONLY, POSIX_TOO, QT_TOO, OPEN_AL_TOO, ANYTHING };

/// What one room may include. The longest matching prefix of a file's path decides its room.
struct Room {
    std::string prefix;
    std::vector<std::string> mayUse; ///< prefixes of quoted includes, relative to src/ or the root
    System system;
};

const std::vector<Room>& rooms() {
    static const std::vector<Room> ALL = {
        {"src/engine/", {"engine/qx_"}, System::STANDARD_ONLY},
        {"src/engine/memory/", {"engine/"}, System::POSIX_TOO},
        {"src/platform/", {"platform/"}, System::STANDARD_ONLY},
        {"src/platform/qt/", {"platform/"}, System::QT_TOO},
        {"src/platform/openal/", {"platform/"}, System::OPEN_AL_TOO},
        {"src/module/", {"module/", "platform/"}, System::STANDARD_ONLY},
        {"src/controls/",
         {"controls/", "module/", "platform/", "engine/qx_", "resources/"},
         System::STANDARD_ONLY},
        {"src/sound/", {"sound/", "module/", "platform/", "engine/qx_"}, System::STANDARD_ONLY},
        {"src/terrain/",
         {"terrain/", "controls/", "sound/", "module/", "platform/", "engine/qx_", "resources/"},
         System::STANDARD_ONLY},
        {"src/movie/",
         {"movie/", "controls/", "sound/", "module/", "platform/", "engine/qx_", "resources/"},
         System::STANDARD_ONLY},
        {"src/host/",
         {"host/", "terrain/", "movie/", "controls/", "sound/", "module/", "platform/", "engine/qx_",
          "resources/"},
         System::STANDARD_ONLY},
        {"sandbox/", {"sandbox/", "host/veskutil.h", "engine/"}, System::ANYTHING},
    };
    return ALL;
}

const Room* roomOf(const std::string& file) {
    const Room* found = nullptr;
    for (const Room& room : rooms()) {
        if (file.starts_with(room.prefix) &&
            (found == nullptr || room.prefix.size() > found->prefix.size())) {
            found = &room;
        }
    }
    return found;
}

bool isStandardHeader(const std::string& name) {
    return std::all_of(name.begin(), name.end(),
                       [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_'; });
}

bool isQtHeader(const std::string& name) {
    return name.starts_with("Q") || name.starts_with("qpa/") || name.starts_with("qt");
}

bool isOpenAlHeader(const std::string& name) {
    return name.starts_with("AL/");
}

std::optional<std::string> refuseSystem(System allowed, const std::string& name) {
    if (allowed == System::ANYTHING || isStandardHeader(name)) {
        return std::nullopt;
    }
    if (isQtHeader(name)) {
        return allowed == System::QT_TOO ? std::nullopt : std::optional<std::string>("this room knows no Qt");
    }
    if (isOpenAlHeader(name)) {
        return allowed == System::OPEN_AL_TOO ? std::nullopt
                                              : std::optional<std::string>("this room knows no OpenAL");
    }
    if (allowed == System::STANDARD_ONLY) {
        return "this room knows no system header";
    }
    return std::nullopt;
}

std::optional<std::string> refuseQuoted(const Room& room, const std::string& target) {
    const bool allowed = std::any_of(room.mayUse.begin(), room.mayUse.end(),
                                     [&](const std::string& prefix) { return target.starts_with(prefix); });
    if (!allowed) {
        return "not below " + room.prefix;
    }
    if (room.prefix == "src/platform/" &&
        (target.starts_with("platform/qt/") || target.starts_with("platform/openal/"))) {
        return "only the back end itself includes its headers";
    }
    return std::nullopt;
}

/// The include directive on a line, if it has one.
std::optional<Include> parseLine(std::string_view text, int line) {
    const auto skipSpace = [&text] {
        text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    };
    skipSpace();
    if (!text.starts_with('#')) {
        return std::nullopt;
    }
    text.remove_prefix(1);
    skipSpace();
    if (!text.starts_with("include")) {
        return std::nullopt;
    }
    const std::size_t opening = text.find_first_of("<\"");
    const std::size_t closing = text.find_last_of(">\"");
    if (opening == std::string_view::npos || closing <= opening) {
        return std::nullopt;
    }
    return Include{std::string(text.substr(opening + 1, closing - opening - 1)), text[opening] == '"', line};
}

std::vector<Include> readFile(const fs::path& path) {
    std::vector<Include> found;
    std::ifstream stream(path);
    std::string text;
    for (int line = 1; std::getline(stream, text); ++line) {
        if (const std::optional<Include> include = parseLine(text, line)) {
            found.push_back(*include);
        }
    }
    return found;
}

/// The project file that a quoted include names, or an empty text.
std::string resolve(const IncludeMap& includes, const std::string& target) {
    for (const char* base : {"src/", ""}) {
        if (includes.contains(base + target)) {
            return base + target;
        }
    }
    return {};
}

/// A header and the source beside it are one thing.
std::string unitOf(const std::string& file) {
    return file.substr(0, file.rfind('.'));
}

} // namespace

IncludeMap readIncludes(const fs::path& root) {
    IncludeMap includes;
    for (const char* top : {"src", "sandbox"}) {
        if (!fs::exists(root / top)) {
            continue;
        }
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root / top)) {
            const std::string extension = entry.path().extension().string();
            if (extension == ".h" || extension == ".cpp") {
                includes[fs::relative(entry.path(), root).generic_string()] = readFile(entry.path());
            }
        }
    }
    return includes;
}

std::vector<std::string> findFloorViolations(const IncludeMap& includes) {
    std::vector<std::string> found;
    for (const auto& [file, lines] : includes) {
        const Room* room = roomOf(file);
        if (room == nullptr) {
            found.push_back(file + " stands in no room of the house");
            continue;
        }
        for (const Include& include : lines) {
            const std::optional<std::string> reason = include.quoted
                                                          ? refuseQuoted(*room, include.target)
                                                          : refuseSystem(room->system, include.target);
            if (reason) {
                found.push_back(file + ":" + std::to_string(include.line) + " includes " + include.target +
                                ": " + *reason);
            }
        }
    }
    return found;
}

std::vector<std::vector<std::string>> findUnitCircles(const IncludeMap& includes) {
    std::map<std::string, std::set<std::string>> uses;
    for (const auto& [file, lines] : includes) {
        std::set<std::string>& used = uses[unitOf(file)];
        for (const Include& include : lines) {
            const std::string target = include.quoted ? resolve(includes, include.target) : std::string();
            if (!target.empty() && unitOf(target) != unitOf(file)) {
                used.insert(unitOf(target));
            }
        }
    }
    std::map<std::string, std::set<std::string>> reached;
    for (const auto& [unit, used] : uses) {
        std::set<std::string>& all = reached[unit];
        std::vector<std::string> open(used.begin(), used.end());
        while (!open.empty()) {
            const std::string next = open.back();
            open.pop_back();
            if (all.insert(next).second) {
                open.insert(open.end(), uses.at(next).begin(), uses.at(next).end());
            }
        }
    }
    std::vector<std::vector<std::string>> circles;
    std::set<std::string> named;
    for (const auto& [unit, all] : reached) {
        if (!all.contains(unit) || named.contains(unit)) {
            continue;
        }
        std::vector<std::string>& circle = circles.emplace_back();
        std::copy_if(all.begin(), all.end(), std::back_inserter(circle),
                     [&](const std::string& other) { return reached.at(other).contains(unit); });
        named.insert(circle.begin(), circle.end());
    }
    return circles;
}

} // namespace house
