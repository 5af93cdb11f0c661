#include "house/include_rules.h"

#include <algorithm>
#include <fstream>
#include <optional>
#include <regex>

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
    using enum System;
    static const std::vector<Room> ALL = {
        {"src/engine/", {"engine/qx_"}, STANDARD_ONLY},
        {"src/engine/memory/", {"engine/"}, POSIX_TOO},
        {"src/platform/",
         {"platform/framework", "platform/windows", "platform/resources.h", "platform/dialog_template.h",
          "platform/icon_image.h", "platform/byte_reader.h", "platform/cstring.h", "platform/com.h",
          "platform/direct_sound.h", "platform/multimedia_io.h", "platform/wave_format.h",
          "platform/window_handle.h"},
         STANDARD_ONLY},
        {"src/platform/qt/", {"platform/"}, QT_TOO},
        {"src/platform/openal/", {"platform/"}, OPEN_AL_TOO},
        {"src/module/", {"module/", "platform/"}, STANDARD_ONLY},
        {"src/controls/", {"controls/", "module/", "platform/", "engine/qx_", "resources/"}, STANDARD_ONLY},
        {"src/sound/", {"sound/", "module/", "platform/", "engine/qx_"}, STANDARD_ONLY},
        {"src/terrain/",
         {"terrain/", "controls/", "sound/", "module/", "platform/", "engine/qx_", "resources/"},
         STANDARD_ONLY},
        {"src/movie/",
         {"movie/", "controls/", "sound/", "module/", "platform/", "engine/qx_", "resources/"},
         STANDARD_ONLY},
        {"src/host/",
         {"host/", "terrain/", "movie/", "controls/", "sound/", "module/", "platform/", "engine/qx_",
          "resources/"},
         STANDARD_ONLY},
        {"sandbox/", {"sandbox/", "host/veskutil.h", "engine/"}, ANYTHING},
        {"sandbox/tour/", {"sandbox/", "host/veskutil.h", "engine/", "resources/"}, ANYTHING},
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

std::optional<std::string> refuseSystem(System allowed, const std::string& name) {
    static const std::regex STANDARD("[a-z0-9_]+");
    static const std::regex QT("(Q|qpa/|qt).*");
    if (allowed == System::ANYTHING || std::regex_match(name, STANDARD)) {
        return std::nullopt;
    }
    const bool fits = std::regex_match(name, QT) ? allowed == System::QT_TOO
                      : name.starts_with("AL/")  ? allowed == System::OPEN_AL_TOO
                                                 : allowed != System::STANDARD_ONLY;
    return fits ? std::nullopt : std::optional<std::string>("this room does not know that system");
}

std::optional<std::string> refuse(const Room& room, const Include& include) {
    if (!include.quoted) {
        return refuseSystem(room.system, include.target);
    }
    const bool allowed = std::ranges::any_of(
        room.mayUse, [&](const std::string& prefix) { return include.target.starts_with(prefix); });
    return allowed ? std::nullopt : std::optional("not below " + room.prefix);
}

std::string readText(const fs::path& path) {
    std::ifstream stream(path);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// What the expression's first group matches, from its first match to its last.
std::vector<std::string> matches(const std::string& text, const std::regex& expression) {
    std::vector<std::string> found;
    for (std::sregex_iterator match(text.begin(), text.end(), expression), end; match != end; ++match) {
        found.push_back(match->str(1));
    }
    return found;
}

/// A header and the source beside it are one thing.
std::string unitOf(const std::string& file) {
    return file.substr(0, file.rfind('.'));
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
    static const std::regex LINE("(?:^|\n)[ \t]*#[ \t]*include[ \t]*([<\"][^>\"]+)");
    IncludeMap includes;
    for (const char* top : {"src", "sandbox"}) {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root / top)) {
            const std::string extension = entry.path().extension().string();
            if (extension == ".h" || extension == ".cpp") {
                std::vector<Include>& lines = includes[fs::relative(entry.path(), root).generic_string()];
                for (const std::string& target : matches(readText(entry.path()), LINE)) {
                    lines.push_back({target.substr(1), target.front() == '"'});
                }
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
            if (const std::optional<std::string> reason = refuse(*room, include)) {
                found.push_back(file + " includes " + include.target + ": " + *reason);
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
    auto reached = uses;
    for (const auto& [between, used] : uses) {
        for (auto& [unit, all] : reached) {
            if (all.contains(between)) {
                all.insert(reached.at(between).begin(), reached.at(between).end());
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
        std::ranges::copy_if(all, std::back_inserter(circle),
                             [&](const std::string& other) { return reached.at(other).contains(unit); });
        named.insert(circle.begin(), circle.end());
    }
    return circles;
}

std::map<std::string, std::set<std::string>> findInventedNames(const fs::path& root) {
    static const std::regex FUNCTION("\n(?:inline )?[A-Za-z][\\w:<>, ]*[ *&]+(\\w+)\\(");
    static const std::regex TYPE("\n(?:template <[^>]*> )?(?:class|struct) (\\w+) \\{");
    static const std::regex COMMENT("//[^\n]*");
    static const std::regex WORD("([A-Za-z_]\\w*)");
    std::set<std::string> ours;
    for (const char* header : {"windows/back_end.h", "framework/message_state.h", "framework/number_text.h",
                               "dialog_template.h", "resources.h", "icon_image.h", "byte_reader.h"}) {
        const std::string text = readText(root / "src/platform" / header);
        for (const std::regex& declared : {FUNCTION, TYPE}) {
            const std::vector<std::string> names = matches(text, declared);
            ours.insert(names.begin(), names.end());
        }
    }
    std::map<std::string, std::set<std::string>> users;
    for (const auto& [file, lines] : readIncludes(root)) {
        if (!file.starts_with("src/") || file.starts_with("src/platform/") ||
            file.starts_with("src/engine/")) {
            continue;
        }
        for (const std::string& word :
             matches(std::regex_replace(readText(root / file), COMMENT, ""), WORD)) {
            if (ours.contains(word)) {
                users[word].insert(file);
            }
        }
    }
    return users;
}

} // namespace house
