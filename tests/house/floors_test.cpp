#include "house/include_rules.h"

#include <gmock/gmock.h>

#include <fstream>

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

TEST(Floors, ViolationsAndCirclesOfUnitsAreFound) {
    for (const house::Include& include :
         {house::Include{"QWidget", false}, {"AL/al.h", false}, {"engine/memory/memory_map.h", true}}) {
        EXPECT_THAT(house::findFloorViolations({{"src/terrain/a.cpp", {include}}}),
                    ElementsAre(HasSubstr("src/terrain/a.cpp")));
    }
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
