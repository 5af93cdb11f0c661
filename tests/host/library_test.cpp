#include "host/veskutil.h"

#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"

#include <gmock/gmock.h>

#include <array>
#include <cctype>
#include <cstdio>
#include <dlfcn.h>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

/// The names by which a host finds the exports: they encode the argument types.
const std::vector<std::string> DECORATED_NAMES = {
    "_Z14vuCreateEditorP6HWND__P6qxCMap7CStringPFv9vuMessagePvEbPFiiiiE",
    "_Z15vuDestroyEditorv",
    "_Z14vuStartEditingiiii",
    "_Z15vuUpdateEditingiiiiii",
    "_Z13vuStopEditingv",
    "_Z14vuUpdateCursoriiii",
    "_Z16vuIsEditorActivev",
    "_Z21vuIsEditingInProgressv",
    "_Z17vuDestroySettingsv",
    "_Z19vuCreateMovieEditorP6HWND__P8qxCMovieb",
    "_Z20vuDestroyMovieEditorv",
    "_Z21vuIsMovieEditorActivev",
    "_Z20vuMovieCameraAlteredP9qxCCamerab",
    "_Z13vuSoundUpdatev",
};

std::vector<std::string> exportedSymbols() {
    const std::unique_ptr<FILE, int (*)(FILE*)> listing(
        popen("nm -D --defined-only --format=posix " VESKUTIL_FILE, "r"), &pclose);
    std::vector<std::string> names;
    std::array<char, 1024> line{};
    while (std::fgets(line.data(), static_cast<int>(line.size()), listing.get()) != nullptr) {
        std::istringstream words(line.data());
        std::string name;
        char kind = 0;
        words >> name >> kind;
        if (std::isupper(static_cast<unsigned char>(kind)) != 0) { // a local one is seen by nobody
            names.push_back(name);
        }
    }
    return names;
}

/// The library as a host meets it: this program has no application object and links none of it.
class LibraryTest : public testing::Test {
protected:
    LibraryTest() : m_pLibrary(dlopen(VESKUTIL_FILE, RTLD_NOW | RTLD_LOCAL)) {}

    template <class Function> Function* find(const std::string& name) {
        return reinterpret_cast<Function*>(dlsym(m_pLibrary, name.c_str()));
    }

    void* m_pLibrary;
};

} // namespace

TEST_F(LibraryTest, ExportsTheFourteenFunctionsAndNothingElse) {
    EXPECT_THAT(exportedSymbols(), testing::UnorderedElementsAreArray(DECORATED_NAMES));
    for (const std::string& name : DECORATED_NAMES) {
        EXPECT_NE(dlsym(m_pLibrary, name.c_str()), nullptr) << name;
    }
}

TEST_F(LibraryTest, OpensAPanelInAProcessThatHasNoApplicationOfTheToolkits) {
    ASSERT_NE(m_pLibrary, nullptr) << dlerror();
    CMemoryScene scene;
    CMemoryMap map(32, &scene);
    const auto isActive = find<bool()>(DECORATED_NAMES[6]);
    for (int opening = 0; opening < 2; ++opening) {
        find<decltype(vuCreateEditor)>(DECORATED_NAMES[0])(nullptr, &map, "textures", nullptr, true, nullptr);
        EXPECT_TRUE(isActive());
        // The panel's tool is Select: dragging it leaves the selection's outline on the map.
        find<void(int, int, int, int)>(DECORATED_NAMES[2])(4, 4, 0, 0);
        find<decltype(vuUpdateEditing)>(DECORATED_NAMES[3])(9, 6, 0, 0, 0, 0);
        find<void()>(DECORATED_NAMES[4])();
        EXPECT_NE(map.getMarkers()[4 * 33 + 4].a, 0);
        EXPECT_NE(map.getMarkers()[6 * 33 + 9].a, 0);
        EXPECT_EQ(map.getMarkers()[5 * 33 + 6].a, 0);
        find<void(int, int, int, int)>(DECORATED_NAMES[5])(3, 3, 0, 0);
        EXPECT_EQ(map.getEditCursors().size(), 1U);
        find<void()>(DECORATED_NAMES[1])();
        EXPECT_FALSE(isActive());
    }
    find<void()>(DECORATED_NAMES[8])();
}

TEST_F(LibraryTest, StaysMappedWhenTheHostUnloadsIt) {
    const auto isActive = find<bool()>(DECORATED_NAMES[6]);
    ASSERT_NE(isActive, nullptr);
    dlclose(m_pLibrary);
    EXPECT_FALSE(isActive());
}
