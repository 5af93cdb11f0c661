#include "platform/resources.h"
#include "platform/windows/styles.h"
#include "resources/resource_ids.h"

#include <gmock/gmock.h>

#include <set>
#include <stdexcept>
#include <utility>

namespace {

constexpr int CLOSED_COMBO_HEIGHT = 14;

DialogTemplate embeddedDialog(int id) {
    auto dialog = findDialog(embeddedResources(), id);
    if (!dialog) {
        throw std::runtime_error("no dialog " + std::to_string(id));
    }
    return std::move(*dialog);
}

bool isButton(const DialogItem& item, DWORD type) {
    return item.windowClass == "Button" && (item.style & BS_TYPEMASK) == type;
}

/// A control that is meant to surround others.
bool isContainer(const DialogItem& item) {
    return isButton(item, BS_GROUPBOX) || item.windowClass == "SysTabControl32" ||
           item.id == IDC_SIMPLE_FRAME;
}

/// What the control covers while its list is closed.
DialogRect visibleRect(const DialogItem& item) {
    DialogRect rect = item.rect;
    rect.height = item.windowClass == "ComboBox" ? CLOSED_COMBO_HEIGHT : rect.height;
    return rect;
}

bool overlap(const DialogRect& a, const DialogRect& b) {
    return a.x < b.x + b.width && b.x < a.x + a.width && a.y < b.y + b.height && b.y < a.y + a.height;
}

bool within(const DialogRect& inner, const DialogRect& outer) {
    return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.width <= outer.x + outer.width &&
           inner.y + inner.height <= outer.y + outer.height;
}

std::string describe(const DialogItem& item) {
    return std::to_string(item.id) + " \"" + item.text + "\"";
}

class DialogLayout : public testing::TestWithParam<int> {};

TEST_P(DialogLayout, KeepsEveryControlInsideAndApart) {
    const auto dialog = embeddedDialog(GetParam());
    const DialogRect client = {0, 0, dialog.rect.width, dialog.rect.height};
    std::set<int> ids;
    for (std::size_t i = 0; i < dialog.items.size(); ++i) {
        const DialogItem& item = dialog.items[i];
        const DialogRect rect = visibleRect(item);
        EXPECT_TRUE(item.id == -1 || ids.insert(item.id).second) << describe(item) << " has another's id";
        EXPECT_TRUE(item.id == IDC_SIMPLE_FRAME || within(rect, client)) << describe(item);
        for (std::size_t j = 0; j < i; ++j) {
            const DialogItem& other = dialog.items[j];
            const DialogRect otherRect = visibleRect(other);
            const bool mayNest = isContainer(item) || isContainer(other);
            EXPECT_TRUE(!overlap(rect, otherRect) ||
                        (mayNest && (within(rect, otherRect) || within(otherRect, rect))))
                << describe(item) << " covers " << describe(other);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Embedded, DialogLayout,
                         testing::Values(IDD_MAP_EDITOR, IDD_TEXTURE_LIST, IDD_TERRAIN_TYPE_EDITOR,
                                         IDD_MAP_LAYER_STATISTICS, IDD_MOVIE_EDITOR, IDD_SOUNDTRACK),
                         testing::PrintToStringParamName());

TEST(EmbeddedIcons, AreDifferentPicturesWithAClearBackground) {
    std::set<std::string> pictures;
    for (int id = IDI_BRUSH_VERTEX; id <= IDI_ZOOM_FIT; ++id) {
        const auto icon = findIcon(embeddedResources(), id);
        ASSERT_TRUE(icon) << id;
        EXPECT_EQ(icon->pixels[3], 0) << id << " fills its corner";
        EXPECT_TRUE(pictures.emplace(icon->pixels.begin(), icon->pixels.end()).second)
            << id << " repeats another";
    }
}

} // namespace
