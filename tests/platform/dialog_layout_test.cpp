#include "platform/resources.h"
#include "platform/windows/styles.h"
#include "resources/resource_ids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <stdexcept>

namespace {

constexpr DialogRect SIMPLE_FRAME = {5, 4, 110, 391};
constexpr int CLOSED_COMBO_HEIGHT = 14;

DialogTemplate embeddedDialog(int id) {
    auto dialog = findDialog(embeddedResources(), id);
    if (!dialog) {
        throw std::runtime_error("no dialog " + std::to_string(id));
    }
    return std::move(*dialog);
}

bool isRadio(const DialogItem& item) {
    return item.windowClass == "Button" && (item.style & BS_TYPEMASK) == BS_AUTORADIOBUTTON;
}

/// A control that is meant to surround others.
bool isContainer(const DialogItem& item) {
    return (item.windowClass == "Button" && (item.style & BS_TYPEMASK) == BS_GROUPBOX) ||
           item.windowClass == "SysTabControl32" || item.id == IDC_SIMPLE_FRAME;
}

/// What the control covers while its list is closed.
DialogRect visibleRect(const DialogItem& item) {
    DialogRect rect = item.rect;
    if (item.windowClass == "ComboBox") {
        rect.height = CLOSED_COMBO_HEIGHT;
    }
    return rect;
}

bool overlap(const DialogRect& a, const DialogRect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

bool within(const DialogRect& inner, const DialogRect& outer) {
    return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

const DialogItem& itemOf(const DialogTemplate& dialog, int id) {
    const auto found = std::ranges::find(dialog.items, id, &DialogItem::id);
    if (found == dialog.items.end()) {
        throw std::runtime_error("no control " + std::to_string(id));
    }
    return *found;
}

std::string describe(const DialogItem& item) {
    return std::to_string(item.id) + " \"" + item.text + "\"";
}

/// The ids from the first member of a group up to the next control that begins another.
std::vector<int> groupFrom(const DialogTemplate& dialog, int firstId) {
    auto item = std::ranges::find(dialog.items, firstId, &DialogItem::id);
    std::vector<int> ids;
    for (; item != dialog.items.end() && (ids.empty() || (item->style & WS_GROUP) == 0); ++item) {
        ids.push_back(item->id);
    }
    return ids;
}

class DialogLayout : public testing::TestWithParam<int> {};

TEST_P(DialogLayout, KeepsEveryControlInsideAndApart) {
    const auto dialog = embeddedDialog(GetParam());
    const DialogRect client = {0, 0, dialog.rect.width, dialog.rect.height};
    for (std::size_t i = 0; i < dialog.items.size(); ++i) {
        const DialogItem& item = dialog.items[i];
        const DialogRect rect = visibleRect(item);
        EXPECT_TRUE(item.id == IDC_SIMPLE_FRAME || within(rect, client)) << describe(item);
        for (std::size_t j = 0; j < i; ++j) {
            const DialogItem& other = dialog.items[j];
            const DialogRect otherRect = visibleRect(other);
            if (isContainer(item) || isContainer(other)) {
                EXPECT_TRUE(!overlap(rect, otherRect) || within(rect, otherRect) || within(otherRect, rect))
                    << describe(item) << " straddles " << describe(other);
            } else {
                EXPECT_FALSE(overlap(rect, otherRect)) << describe(item) << " covers " << describe(other);
            }
        }
    }
}

TEST_P(DialogLayout, GivesEachControlItsOwnIdAndVisibility) {
    std::set<int> seen;
    for (const DialogItem& item : embeddedDialog(GetParam()).items) {
        EXPECT_TRUE(item.id == -1 || seen.insert(item.id).second) << describe(item);
        EXPECT_EQ(item.style & (WS_CHILD | WS_VISIBLE), WS_CHILD | WS_VISIBLE) << describe(item);
    }
}

INSTANTIATE_TEST_SUITE_P(Embedded, DialogLayout,
                         testing::Values(IDD_MAP_EDITOR, IDD_TEXTURE_LIST, IDD_TERRAIN_TYPE_EDITOR,
                                         IDD_MAP_LAYER_STATISTICS),
                         testing::PrintToStringParamName());

TEST(EmbeddedDialogs, CarryTheirCaptionsSizesAndFont) {
    struct Expected {
        int id;
        const char* caption;
        int width;
        int height;
    };
    for (const auto& [id, caption, width, height] :
         {Expected{IDD_MAP_EDITOR, "Map Editor", 227, 394},
          Expected{IDD_TEXTURE_LIST, "Texture List", 212, 196},
          Expected{IDD_TERRAIN_TYPE_EDITOR, "Terrain Type Editor", 0, 0},
          Expected{IDD_MAP_LAYER_STATISTICS, "Map Layer Statistics", 0, 0}}) {
        const auto dialog = embeddedDialog(id);
        EXPECT_EQ(dialog.caption, caption);
        EXPECT_EQ(dialog.fontFace, "MS Sans Serif");
        EXPECT_EQ(dialog.fontPointSize, 8);
        EXPECT_TRUE(width == 0 || dialog.rect.width == width) << caption;
        EXPECT_TRUE(height == 0 || dialog.rect.height == height) << caption;
    }
    EXPECT_FALSE(findDialog(embeddedResources(), 1));
}

TEST(MapEditorTemplate, SplitsIntoSimpleAndAdvancedColumns) {
    std::set<int> simple;
    for (const DialogItem& item : embeddedDialog(IDD_MAP_EDITOR).items) {
        EXPECT_TRUE(within(item.rect, SIMPLE_FRAME) || item.rect.x > SIMPLE_FRAME.x + SIMPLE_FRAME.width)
            << describe(item);
        if (within(item.rect, SIMPLE_FRAME)) {
            simple.insert(item.id);
        }
    }
    const auto isSimple = [&simple](int id) { return simple.contains(id); };
    constexpr std::array ADVANCED = {IDC_DELETE_DEFINITION, IDC_BLEND,      IDC_VARIATION_SPIN, IDC_TILING,
                                     IDC_WATER_TEXTURE,     IDC_SELECT_ALL, IDC_TERRAIN_TYPES};
    EXPECT_TRUE(std::ranges::none_of(ADVANCED, isSimple));
    constexpr std::array ALWAYS = {IDC_SIMPLE_FRAME,   IDC_EXPAND,   IDC_TOOL_TABS, IDC_TOOL_UNUSED_14,
                                   IDC_DETAIL_TEXTURE, IDC_MAP_FLAG, IDC_CLOSE};
    EXPECT_TRUE(std::ranges::all_of(ALWAYS, isSimple));
    EXPECT_EQ(itemOf(embeddedDialog(IDD_MAP_EDITOR), IDC_SIMPLE_FRAME).rect.width, SIMPLE_FRAME.width);
}

TEST(MapEditorTemplate, OrdersItsRadioGroupsByIndex) {
    const auto dialog = embeddedDialog(IDD_MAP_EDITOR);
    const std::vector<int> tools = {1399, 1401, 1403, 1405, 1410, 1428, 1144, 1402,
                                    1422, 1430, 2007, 2018, 1218, 1219, 1220};
    const std::vector<int> brushes = {2006, 2009, 2010, 2011, 2014, 2017};
    EXPECT_EQ(groupFrom(dialog, IDC_TOOL_SELECT), tools);
    EXPECT_EQ(groupFrom(dialog, IDC_BRUSH_VERTEX), brushes);
    EXPECT_EQ(std::ranges::count_if(dialog.items, isRadio),
              static_cast<std::ptrdiff_t>(tools.size() + brushes.size()));
    for (const DialogItem& item : dialog.items) {
        EXPECT_TRUE(!isRadio(item) || (item.style & (BS_PUSHLIKE | BS_ICON)) == (BS_PUSHLIKE | BS_ICON))
            << describe(item);
    }
}

TEST(MapEditorTemplate, CaptionsControlsAsTheDesignHasThem) {
    const auto dialog = embeddedDialog(IDD_MAP_EDITOR);
    const std::map<int, std::string> captions = {{2012, "Advanced Controls >>"},
                                                 {1064, "<"},
                                                 {1065, ">"},
                                                 {1399, "Select"},
                                                 {1401, "Raise"},
                                                 {1403, "Flatten"},
                                                 {1405, "Set Hgt"},
                                                 {1410, "Get Hgt"},
                                                 {1428, "Tint"},
                                                 {1144, "Smooth"},
                                                 {1402, "Flood"},
                                                 {1422, "Drain"},
                                                 {1430, "Paint"},
                                                 {2007, "Get Grad"},
                                                 {2018, "Magnet"},
                                                 {1218, ""},
                                                 {1219, ""},
                                                 {1220, ""},
                                                 {2022, "Hide Cursor"},
                                                 {2015, "Undo"},
                                                 {2020, "Redo"},
                                                 {2000, "Close"},
                                                 {1637, "Delete"},
                                                 {1638, "Insert"},
                                                 {1639, "Duplicate"},
                                                 {1062, "Global Smooth"},
                                                 {1063, "Terrain Types"},
                                                 {1473, "Select All"},
                                                 {1474, "De-select"},
                                                 {1415, "Texture Image"}};
    for (const auto& [id, caption] : captions) {
        EXPECT_EQ(itemOf(dialog, id).text, caption) << id;
    }
}

TEST(MapEditorTemplate, StartsWithTheDesignedStates) {
    const auto dialog = embeddedDialog(IDD_MAP_EDITOR);
    const std::set<int> disabled = {IDC_TEXTURE_NUMBER, IDC_GRADIENT, IDC_REDO, IDC_TOOL_UNUSED_13,
                                    IDC_TOOL_UNUSED_14};
    const std::set<int> ownerDrawn = {IDC_TINT_COLOUR,    IDC_TINT_1,         IDC_TINT_2,
                                      IDC_AMBIENT_COLOUR, IDC_DIFFUSE_COLOUR, IDC_TEXTURE_PREVIEW};
    for (const DialogItem& item : dialog.items) {
        EXPECT_EQ((item.style & WS_DISABLED) != 0, disabled.contains(item.id)) << describe(item);
        const bool drawsItself = item.windowClass == "Button" && (item.style & BS_TYPEMASK) == BS_OWNERDRAW;
        EXPECT_EQ(drawsItself, ownerDrawn.contains(item.id)) << describe(item);
        EXPECT_FALSE(drawsItself && (item.style & WS_TABSTOP) != 0) << describe(item);
    }
    constexpr DWORD FRAME = WS_POPUP | WS_CAPTION | WS_VISIBLE;
    EXPECT_EQ(dialog.style & (FRAME | WS_SYSMENU), FRAME) << "a close box would go around Close";
    for (const int id : {IDC_FOG, IDC_MAP_FLAG}) {
        EXPECT_EQ(itemOf(dialog, id).style & (BS_TYPEMASK | BS_PUSHLIKE | BS_ICON),
                  BS_AUTOCHECKBOX | BS_PUSHLIKE | BS_ICON);
    }
}

// An up-down control of automatic buddy style takes the control before it; the panel steps the values itself.
TEST(MapEditorTemplate, PutsEachSpinBehindItsEdit) {
    const auto dialog = embeddedDialog(IDD_MAP_EDITOR);
    const std::map<int, int> editOfSpin = {
        {IDC_BLEND_SPIN, IDC_BLEND}, {IDC_VARIATION_SPIN, IDC_VARIATION}, {IDC_TILING_SPIN, IDC_TILING}};
    for (const auto& [spin, edit] : editOfSpin) {
        const auto& item = itemOf(dialog, spin);
        EXPECT_EQ((&item - 1)->id, edit);
        EXPECT_EQ(item.windowClass, "msctls_updown32");
        EXPECT_EQ(item.style & (UDS_AUTOBUDDY | UDS_SETBUDDYINT), UDS_AUTOBUDDY);
    }
}

TEST(TerrainTypeTemplate, LaysTheFilterOutRowByRow) {
    const auto dialog = embeddedDialog(IDD_TERRAIN_TYPE_EDITOR);
    const DialogRect corner = itemOf(dialog, IDC_FILTER_FIRST).rect;
    const DialogRect next = itemOf(dialog, IDC_FILTER_FIRST + 6).rect;
    for (int i = IDC_FILTER_FIRST; i <= IDC_FILTER_LAST; ++i) {
        const int row = (i - IDC_FILTER_FIRST) / 5;
        const int column = (i - IDC_FILTER_FIRST) % 5;
        const DialogRect cell = itemOf(dialog, i).rect;
        EXPECT_EQ(cell.x, corner.x + column * (next.x - corner.x)) << i;
        EXPECT_EQ(cell.y, corner.y + row * (next.y - corner.y)) << i;
    }
    EXPECT_NE(itemOf(dialog, IDC_TERRAIN_TYPE).style & CBS_SORT, 0U);
}

TEST(TextureListTemplate, LeavesItsListsUnsortedAndDeleteDisabled) {
    const auto dialog = embeddedDialog(IDD_TEXTURE_LIST);
    EXPECT_EQ(itemOf(dialog, IDC_TEXTURES).style & (LBS_SORT | LBS_NOTIFY), LBS_NOTIFY);
    EXPECT_EQ(itemOf(dialog, IDC_TEXTURE_FORMAT).style & (CBS_SORT | CBS_DROPDOWNLIST), CBS_DROPDOWNLIST);
    EXPECT_EQ(itemOf(dialog, IDC_TEXTURE_SIZE).style & (CBS_SORT | CBS_DROPDOWNLIST), CBS_DROPDOWN);
    EXPECT_NE(itemOf(dialog, IDC_DELETE_TEXTURE).style & WS_DISABLED, 0U);
    EXPECT_EQ(dialog.style & WS_SYSMENU, 0U);
}

TEST(EmbeddedIcons, AreThirtyOneDifferentPicturesWithAClearBackground) {
    std::set<std::string> pictures;
    for (int id = IDI_BRUSH_VERTEX; id <= IDI_DETAIL_FLIP; ++id) {
        const auto icon = findIcon(embeddedResources(), id);
        ASSERT_TRUE(icon) << id;
        EXPECT_EQ(icon->width, 32);
        EXPECT_EQ(icon->height, 32);
        EXPECT_EQ(icon->pixels[3], 0) << id << " fills its corner";
        EXPECT_TRUE(pictures.emplace(icon->pixels.begin(), icon->pixels.end()).second)
            << id << " repeats another";
    }
}

} // namespace
