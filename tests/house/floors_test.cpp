#include "house/include_rules.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

namespace {

using house::IncludeMap;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

TEST(Floors, EveryIncludeLineKeepsThem) {
    const IncludeMap includes = house::readIncludes(VESK_SOURCE_DIR);
    ASSERT_GT(includes.size(), 20U) << "the tree was not read";
    EXPECT_THAT(house::findFloorViolations(includes), IsEmpty());
    EXPECT_THAT(house::findUnitCircles(includes), IsEmpty());
}

TEST(Floors, ViolationsAreFoundAndNameTheFile) {
    const std::vector<std::pair<std::string, house::Include>> planted = {
        {"src/terrain/a.cpp", {"QWidget", false}},
        {"src/host/a.cpp", {"unistd.h", false}},
        {"src/sound/a.cpp", {"AL/al.h", false}},
        {"src/platform/a.h", {"QtGlobal", false}},
        {"src/platform/openal/a.cpp", {"QString", false}},
        {"src/platform/a.cpp", {"platform/qt/window.h", true}},
        {"src/engine/qx_a.h", {"platform/cstring.h", true}},
        {"src/engine/qx_a.h", {"engine/memory/memory_map.h", true}},
        {"src/engine/memory/a.cpp", {"QImage", false}},
        {"src/controls/a.cpp", {"terrain/panel/map_editor_dlg.h", true}},
        {"src/terrain/a.cpp", {"engine/memory/memory_map.h", true}},
        {"src/module/a.h", {"terrain/model/map_undo_list.h", true}},
        {"sandbox/a.cpp", {"terrain/panel/map_editor_dlg.h", true}},
        {"sandbox/a.cpp", {"module/module_state.h", true}},
    };
    for (const auto& [file, include] : planted) {
        EXPECT_THAT(house::findFloorViolations({{file, {include}}}), ElementsAre(HasSubstr(file)))
            << include.target;
    }
}

TEST(Floors, CirclesOfUnitsAreFound) {
    const IncludeMap ring = {{"src/terrain/a.h", {}},
                             {"src/terrain/a.cpp", {{"terrain/b.h", true}}},
                             {"src/terrain/b.h", {{"terrain/a.h", true}}},
                             {"src/terrain/c.h", {{"terrain/a.h", true}}}};
    EXPECT_THAT(house::findUnitCircles(ring), ElementsAre(ElementsAre("src/terrain/a", "src/terrain/b")));
}

/// What of ours the rooms above the platform use, which the genuine platform does not have, and why.
const std::map<std::string, std::string> INVENTED = {
    {"ServeWindows", "a host may run no message loop; with the genuine system each thread with windows does"},
};

TEST(Floors, TheRoomsAboveUseGenuineNames) {
    for (const auto& [name, files] : house::findInventedNames(VESK_SOURCE_DIR)) {
        EXPECT_TRUE(INVENTED.contains(name)) << name << " is used by " << *files.begin();
    }
}

/// Direct link lines of the build, target by target, as the build system wrote them down.
std::map<std::string, std::set<std::string>> readLinkLines() {
    std::map<std::string, std::set<std::string>> lines;
    std::ifstream stream(VESK_LINK_LINES);
    for (std::string line; std::getline(stream, line);) {
        const std::size_t colon = line.find(':');
        std::istringstream libraries(line.substr(colon + 1));
        std::set<std::string>& set = lines[line.substr(0, colon)];
        for (std::string library; std::getline(libraries, library, ';');) {
            set.insert(library);
        }
    }
    return lines;
}

TEST(Floors, EveryLinkLineKeepsThem) {
    const std::map<std::string, std::set<std::string>> mayLink = {
        {"qxmemory", {"qx_headers", "PNG::PNG"}},
        {"vesk_module_state", {"qx_headers", "vesk_platform"}},
        {"vesk_controls", {"qx_headers", "qxmemory", "vesk_platform", "vesk_resources", "vesk_module_state"}},
        {"vesk_sound", {"qx_headers", "qxmemory", "vesk_openal", "vesk_platform", "vesk_module_state"}},
        {"vesk_terrain",
         {"qx_headers", "qxmemory", "vesk_controls", "vesk_sound", "vesk_platform", "vesk_resources",
          "vesk_module_state"}},
        {"vesk_movie", {"qx_headers", "qxmemory"}},
        {"vesk_movie_panel",
         {"vesk_movie", "vesk_controls", "vesk_sound", "vesk_platform", "vesk_resources",
          "vesk_module_state"}},
        {"vesk_host",
         {"qx_headers", "qxmemory", "vesk_terrain", "vesk_movie_panel", "vesk_controls", "vesk_sound",
          "vesk_platform", "vesk_openal", "vesk_resources", "vesk_module_state"}},
    };
    const auto links = readLinkLines();
    for (const auto& [target, allowed] : mayLink) {
        ASSERT_TRUE(links.contains(target)) << target;
        for (const std::string& library : links.at(target)) {
            EXPECT_TRUE(allowed.contains(library)) << target << " links " << library;
        }
    }
    for (const std::string& library : links.at("vesksandbox")) {
        const bool own = library.starts_with("vesk_") && !library.starts_with("vesk_sandbox");
        EXPECT_FALSE(own) << "the sandbox links " << library << " behind the exports";
    }
}

std::string readText(const std::string& path) {
    std::ifstream stream(std::string(VESK_SOURCE_DIR) + path);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(Readme, ShowsTheHostThatIsBuiltAndRun) {
    const std::string example = readText("/tests/host/example_host.cpp");
    ASSERT_FALSE(example.empty());
    EXPECT_THAT(readText("/README.md"), HasSubstr("```cpp\n" + example + "```"));
}

} // namespace
