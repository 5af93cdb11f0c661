#include "house/include_rules.h"

#include <algorithm>
#include <fstream>
#include <functional>
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
        {"src/controls/", {"controls/", "platform/", "engine/qx_", "resources/"}, System::STANDARD_ONLY},
        {"src/sound/", {"sound/", "platform/", "engine/qx_"}, System::STANDARD_ONLY},
        {"src/terrain/",
         {"terrain/", "controls/", "sound/", "platform/", "engine/qx_", "resources/"},
         System::STANDARD_ONLY},
        {"src/movie/",
         {"movie/", "controls/", "sound/", "platform/", "engine/qx_", "resources/"},
         System::STANDARD_ONLY},
        {"src/host/",
         {"host/", "terrain/", "movie/", "controls/", "sound/", "platform/", "engine/qx_", "resources/"},
         System::STANDARD_ONLY},
        {"sandbox/", {"sandbox/", "host/veskutil.h", "engine/"}, System::ANYTHING},
    };
    return ALL;
}

/// The one header of a higher room that every room may include: the module-wide state.
constexpr const char* MODULE_STATE = "host/module_state.h";

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

std::optional<std::string> refuseQuoted(const Room& room, const std::string& file,
                                        const std::string& target) {
    if (target == MODULE_STATE && room.prefix != "src/engine/" && !file.starts_with("sandbox/")) {
        return std::nullopt;
    }
    if (file == std::string("src/") + MODULE_STATE) {
        return target.starts_with("platform/")
                   ? std::nullopt
                   : std::optional<std::string>(
                         "module-wide state names classes by forward declaration only");
    }
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
                                                          ? refuseQuoted(*room, file, include.target)
                                                          : refuseSystem(room->system, include.target);
            if (reason) {
                found.push_back(file + ":" + std::to_string(include.line) + " includes " + include.target +
                                ": " + *reason);
            }
        }
    }
    return found;
}

std::vector<std::string> findIncludeCircles(const IncludeMap& includes) {
    std::vector<std::string> circles;
    std::set<std::string> finished;
    std::vector<std::string> path;
    const std::function<void(const std::string&)> visit = [&](const std::string& file) {
        const auto onPath = std::find(path.begin(), path.end(), file);
        if (onPath != path.end()) {
            std::string circle;
            for (auto step = onPath; step != path.end(); ++step) {
                circle += *step + " -> ";
            }
            circles.push_back(circle + file);
            return;
        }
        if (!finished.insert(file).second) {
            return;
        }
        path.push_back(file);
        for (const Include& include : includes.at(file)) {
            const std::string next = include.quoted ? resolve(includes, include.target) : std::string();
            if (!next.empty()) {
                visit(next);
            }
        }
        path.pop_back();
    };
    for (const auto& [file, lines] : includes) {
        visit(file);
    }
    return circles;
}

} // namespace house
