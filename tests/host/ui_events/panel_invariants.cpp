#include "host/ui_events/panel_invariants.h"

#include "controls/colour_button.h"
#include "engine/qx_scene.h"
#include "engine/qx_texture.h"
#include "module/module_state.h"
#include "platform/framework/number_text.h"
#include "resources/resource_ids.h"
#include "sandbox/hands/dialogs.h"
#include "terrain/model/map_undo_list.h"
#include "terrain/panel/map_editor_buttons.h"
#include "terrain/panel/map_editor_dlg.h"

#include <QAbstractButton>
#include <QApplication>
#include <QProgressBar>
#include <QSlider>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

constexpr std::array RIGHT_COLUMN = {
    IDC_DELETE_DEFINITION, IDC_INSERT_DEFINITION, IDC_DUPLICATE_DEFINITION, IDC_BLEND_SPIN,
    IDC_VARIATION_SPIN,    IDC_AMBIENT_COLOUR,    IDC_DIFFUSE_COLOUR,       IDC_TILING,
    IDC_TILING_SPIN,       IDC_SMOOTH_TEXTURE,    IDC_ROUGH_TEXTURE,        IDC_WATER_TEXTURE,
    IDC_SELECT_ALL,        IDC_DESELECT};

/// False when a rule does not hold; then `g_broken` says which and how.
std::string g_broken;
template <class Actual, class Expected>
bool holds(const char* rule, const Actual& actual, const Expected& expected) {
    if (actual == expected) {
        return true;
    }
    g_broken = std::string(rule) + ": " + testing::PrintToString(actual) + " instead of " +
               testing::PrintToString(expected);
    return false;
}

std::string textOf(const QWidget& panel, int id) {
    return findControl(panel, id)->property("text").toString().toStdString();
}

bool isChecked(const QWidget& panel, int id) {
    return findControl<QAbstractButton>(panel, id)->isChecked();
}

bool isEnabled(const QWidget& panel, int id) {
    return findControl(panel, id)->isEnabled();
}

/// Without a screen Qt may take the focus from a field behind a menu of its own and not tell it.
bool g_bMenuWasOpen = false;

/// The text of a field; what stands in the one with the focus is still being typed.
bool shows(const char* rule, const QWidget& panel, int id, const std::string& expected) {
    const bool typing = panel.focusWidget() == findControl(panel, id);
    return typing || g_bMenuWasOpen || holds(rule, textOf(panel, id), expected);
}

bool showsColour(const char* rule, int id, const qxCColour& expected) {
    const qxCColour shown = dynamic_cast<CColourButton&>(*g_pMapEditorDlg->GetDlgItem(id)).getColour();
    return holds(rule, std::array{shown.r, shown.g, shown.b}, std::array{expected.r, expected.g, expected.b});
}

std::string nameOf(const qxCTexture* texture) {
    return texture != nullptr ? texture->name.getString() : "-NONE-";
}

template <class Buttons> int checkedOf(const QWidget& panel, const Buttons& buttons) {
    const auto found =
        std::ranges::find_if(buttons, [&](const auto& button) { return isChecked(panel, button.controlId); });
    return found != buttons.end() ? static_cast<int>(found - buttons.begin()) : -1;
}

} // namespace

const std::string& CPanelInvariants::getBroken() const {
    return g_broken;
}

void CPanelInvariants::begin(CMemoryMap& map, bool fullEditing) {
    m_bFullEditing = fullEditing;
    m_bShownAnew = true;
    g_bMenuWasOpen = false;
    if (g_mapUndoList.isEmpty()) {
        rememberStart(map);
    }
}

void CPanelInvariants::rememberStart(CMemoryMap& map) {
    m_startHeights.assign(map.getHeights().begin(), map.getHeights().end());
    m_startColours.assign(map.getColours().begin(), map.getColours().end());
    m_startBlends.assign(map.getBlends().begin(), map.getBlends().end());
    m_bKnowsStart = true;
}

bool CPanelInvariants::check(const QWidget& panel, CMemoryMap& map) {
    g_bMenuWasOpen = g_bMenuWasOpen || QApplication::activePopupWidget() != nullptr;
    m_bKnowsStart = m_bKnowsStart && g_mapUndoList.getCount() < CMapUndoList::CAPACITY;
    return checkSettings(panel) && checkValues(map) && checkEnabled(panel) &&
           (!m_bShownAnew || checkSurface(panel, map));
}

bool CPanelInvariants::checkSettings(const QWidget& panel) const {
    const CMapEditorModel& model = *g_pMapEditorDlg;
    const std::string strength = textOf(panel, IDC_STRENGTH_TEXT);
    const bool unread = strength == "0"; // the slider was not read yet
    return holds("tool", checkedOf(panel, TOOL_BUTTONS), model.m_nTool) &&
           holds("brush", checkedOf(panel, BRUSH_BUTTONS), model.m_nBrushSize) &&
           holds("slider", findControl<QSlider>(panel, IDC_STRENGTH)->value(),
                 std::clamp(model.m_nStrength, 1, 10)) &&
           (unread || holds("strength", strength, writeNumber(model.m_nStrength))) &&
           shows("height", panel, IDC_HEIGHT, writeNumber(model.m_nHeight)) &&
           shows("gradient", panel, IDC_GRADIENT, writeNumber(model.m_fGradient)) &&
           holds("hidden cursor", isChecked(panel, IDC_HIDE_CURSOR), model.m_bHideCursor != 0);
}

bool CPanelInvariants::checkSurface(const QWidget& panel, CMemoryMap& map) const {
    const int count = map.getNumMultiTextures();
    const int number = QString::fromStdString(textOf(panel, IDC_TEXTURE_NUMBER)).toInt();
    if (!holds("index in range", number >= 0 && number < std::max(count, 1), true)) {
        return false;
    }
    if (count > 0) {
        const qxCMapMultiTexture& definition = *map.getMultiTexture(number);
        if (!holds("current definition", map.getCurrentMultiTexture(), number) ||
            !shows("blend", panel, IDC_BLEND, writeNumber(definition.blend)) ||
            !shows("variation", panel, IDC_VARIATION, writeNumber(definition.variation)) ||
            !showsColour("tint 1", IDC_TINT_1, definition.tint1) ||
            !showsColour("tint 2", IDC_TINT_2, definition.tint2)) {
            return false;
        }
    }
    for (const int layer : {0, 1, 2}) {
        const qxCTexture* const texture = map.getTexture(static_cast<qxMapLayerType>(layer));
        if (!holds("base texture", textOf(panel, IDC_SMOOTH_TEXTURE + layer), nameOf(texture))) {
            return false;
        }
    }
    return holds("detail texture", textOf(panel, IDC_DETAIL_TEXTURE),
                 nameOf(g_pMapEditorDlg->m_pDetailTexture)) &&
           shows("tiling", panel, IDC_TILING, writeNumber(map.getTextureTiling())) &&
           showsColour("ambient", IDC_AMBIENT_COLOUR, map.getAmbient()) &&
           showsColour("diffuse", IDC_DIFFUSE_COLOUR, map.getDiffuse()) &&
           holds("map flag", isChecked(panel, IDC_MAP_FLAG), map.hasFlag(qxMapFlagChecker)) &&
           holds("fog", isChecked(panel, IDC_FOG), map.getScene()->getFogMode() == qxFogModeOn);
}

bool CPanelInvariants::checkValues(CMemoryMap& map) const {
    const CMapEditorModel& model = *g_pMapEditorDlg;
    const CDetailList& details = map.getDetails();
    bool isKnown = model.m_pCurrentDetail == nullptr;
    for (int i = 0; i < details.size(); ++i) {
        isKnown = isKnown || &details[i] == model.m_pCurrentDetail;
    }
    for (int i = 0; i < map.getNumMultiTextures(); ++i) {
        const qxCMapMultiTexture& definition = *map.getMultiTexture(i);
        if (!holds("share from 0 to 1", std::clamp(definition.blend, 0.0F, 1.0F), definition.blend) ||
            !holds("share from 0 to 1", std::clamp(definition.variation, 0.0F, 1.0F), definition.variation)) {
            return false;
        }
    }
    return holds("current detail is one of the map's", isKnown, true) &&
           holds("tiling in range", std::clamp(map.getTextureTiling(), 1, 256), map.getTextureTiling()) &&
           holds("strength in range", std::clamp(model.m_nStrength, 0, 10), model.m_nStrength);
}

bool CPanelInvariants::checkEnabled(const QWidget& panel) const {
    const bool details = g_pMapEditorDlg->isDetailsTab();
    for (std::size_t i = 0; i < TOOL_BUTTONS.size(); ++i) {
        const ToolButton& tool = TOOL_BUTTONS[i];
        const bool has = (details ? tool.detailsIcon : tool.terrainIcon) != 0;
        const bool allowed = m_bFullEditing || (details && !tool.detailsNeedsFull);
        if (!holds("tool's state", isEnabled(panel, tool.controlId), has && allowed)) {
            return false;
        }
    }
    const bool expanded = textOf(panel, IDC_EXPAND) == "Simple Controls<<";
    const bool columnAgrees =
        std::ranges::all_of(RIGHT_COLUMN, [&](int id) { return isEnabled(panel, id) == expanded; });
    const bool walks = isEnabled(panel, IDC_PREVIOUS_TEXTURE) || isEnabled(panel, IDC_NEXT_TEXTURE);
    return holds("right column only when open", columnAgrees, true) &&
           holds("definitions walked on the Terrain tab", walks, !details) &&
           holds("Close with full editing", isEnabled(panel, IDC_CLOSE), m_bFullEditing) &&
           holds("Redo", isEnabled(panel, IDC_REDO), false);
}

bool CPanelInvariants::checkHistory(const QWidget& panel) const {
    return holds("Undo", isEnabled(panel, IDC_UNDO), !g_mapUndoList.isEmpty()) &&
           holds("bar", findControl<QProgressBar>(panel, IDC_UNDO_FILL)->value(),
                 static_cast<int>(g_mapUndoList.fillPercent()));
}

bool CPanelInvariants::checkUndoToTheEnd(QWidget& panel, CMemoryMap& map) {
    auto& button = *findControl<QAbstractButton>(panel, IDC_UNDO);
    for (int before = -1; button.isEnabled() && before != g_mapUndoList.getCount();) {
        before = g_mapUndoList.getCount();
        button.click();
    }
    if (!checkHistory(panel)) {
        return false;
    }
    const bool known = m_bKnowsStart;
    const bool alike = std::ranges::equal(map.getHeights(), m_startHeights) &&
                       std::ranges::equal(map.getColours(), m_startColours) &&
                       std::ranges::equal(map.getBlends(), m_startBlends);
    rememberStart(map);
    return !known || holds("undo to the end gives the map of the beginning", alike, true);
}
