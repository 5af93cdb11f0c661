#include "host/random_session_reference.h"

#include "engine/qx_scene.h"
#include "engine/qx_texture.h"
#include "resources/resource_ids.h"

#include <cmath>
#include <cstdlib>

namespace {

constexpr int ADD_POINT_DETAIL = 5;
constexpr int DETAIL_TOOLS = 8;
constexpr int TERRAIN_TOOLS = 13;

std::vector<int> joined(std::initializer_list<std::vector<int>> lists) {
    std::vector<int> all;
    for (const std::vector<int>& list : lists) {
        all.insert(all.end(), list.begin(), list.end());
    }
    return all;
}

const std::vector<int> NEED_A_DEFINITION =
    joined({{IDC_TINT_1, IDC_TINT_2, IDC_BLEND, IDC_VARIATION}, {IDC_GLOBAL_SMOOTH, IDC_TERRAIN_TYPES}});
const std::vector<int> RIGHT_COLUMN =
    joined({NEED_A_DEFINITION,
            {IDC_DELETE_DEFINITION, IDC_INSERT_DEFINITION, IDC_DUPLICATE_DEFINITION},
            {IDC_BLEND_SPIN, IDC_VARIATION_SPIN, IDC_AMBIENT_COLOUR, IDC_DIFFUSE_COLOUR, IDC_TILING},
            {IDC_TILING_SPIN, IDC_SMOOTH_TEXTURE, IDC_ROUGH_TEXTURE, IDC_WATER_TEXTURE},
            {IDC_SELECT_ALL, IDC_DESELECT}});

int indexOf(const std::vector<int>& ids, int id) {
    const auto found = std::find(ids.begin(), ids.end(), id);
    return found == ids.end() ? -1 : static_cast<int>(found - ids.begin());
}

float asRead(float value) {
    return std::strtof(digits(value).c_str(), nullptr);
}

float tenthStep(float value, bool up) {
    const double tenth = 0.1F;
    const double s = up ? value + tenth : value - tenth;
    const double r = s >= 0 ? std::trunc(s * 10 + 0.5) * tenth : -(std::trunc(-s * 10 + 0.5) * tenth);
    return std::clamp(static_cast<float>(r), 0.0F, 1.0F);
}

qxCColour opaque(const qxCColour& colour) {
    return {colour.r, colour.g, colour.b, 255};
}

} // namespace

const std::vector<int> CReferenceEditor::TOOLS =
    joined({{IDC_TOOL_SELECT, IDC_TOOL_RAISE, IDC_TOOL_FLATTEN, IDC_TOOL_SET_HEIGHT, IDC_TOOL_GET_HEIGHT},
            {IDC_TOOL_TINT, IDC_TOOL_SMOOTH, IDC_TOOL_FLOOD, IDC_TOOL_DRAIN, IDC_TOOL_PAINT},
            {IDC_TOOL_GET_GRADIENT, IDC_TOOL_MAGNET, IDC_TOOL_ROUGHEN},
            {IDC_TOOL_UNUSED_13, IDC_TOOL_UNUSED_14}});
const std::vector<int> CReferenceEditor::BRUSHES = joined(
    {{IDC_BRUSH_VERTEX, IDC_BRUSH_EDGE, IDC_BRUSH_CELL}, {IDC_BRUSH_PLUS, IDC_BRUSH_2X2, IDC_BRUSH_DISC}});

void CReferenceEditor::initPanel() {
    panel.swatches[IDC_TINT_COLOUR] = {255, 255, 255, 255};
    if (!hasControls) {
        return;
    }
    panel.disabled = {IDC_REDO, IDC_GRADIENT, IDC_TEXTURE_NUMBER};
    panel.disabled.insert(RIGHT_COLUMN.begin(), RIGHT_COLUMN.end());
    enable(IDC_CLOSE, panel.full);
    refreshTools();
    panel.tiling = map->getTextureTiling();
    refreshBrushes();
    panel.swatches[IDC_TINT_1] = panel.swatches[IDC_TINT_2] = {255, 255, 255, 255};
    panel.number = map->getCurrentMultiTexture();
    refreshDefinition();
    for (const int layer : {0, 1, 2}) {
        panel.pickers[IDC_SMOOTH_TEXTURE + layer] = map->getTexture(static_cast<qxMapLayerType>(layer));
    }
    panel.pickers[IDC_DETAIL_TEXTURE] = nullptr;
    panel.swatches[IDC_AMBIENT_COLOUR] = opaque(map->getAmbient());
    panel.swatches[IDC_DIFFUSE_COLOUR] = opaque(map->getDiffuse());
    panel.mapFlag = map->hasFlag(qxMapFlagChecker);
    panel.fog = map->getScene() != nullptr && map->getScene()->getFogMode() == qxFogModeOn;
}

void CReferenceEditor::enable(int id, bool enabled) {
    if (enabled) {
        panel.disabled.erase(id);
    } else {
        panel.disabled.insert(id);
    }
}

bool CReferenceEditor::isInReach(int id) const {
    return !panel.disabled.contains(id) && (panel.expanded || indexOf(RIGHT_COLUMN, id) < 0);
}

void CReferenceEditor::readControls(int refused) {
    panel.tool = panel.tool < 0 || panel.tool > 14 ? -1 : panel.tool;
    panel.strength = std::clamp(panel.strength, 1, 10);
    if (refused == IDC_HEIGHT) {
        return;
    }
    if (refused != IDC_VARIATION) {
        panel.variation = asRead(panel.variation);
        if (refused != IDC_BLEND) {
            panel.blend = asRead(panel.blend);
            if (refused != IDC_TILING) {
                panel.gradient = asRead(panel.gradient);
                panel.brush = panel.brush < 0 || panel.brush > 5 ? -1 : panel.brush;
            }
        }
    }
}

void CReferenceEditor::refreshTools() {
    for (const int id : TOOLS) {
        const int tool = indexOf(TOOLS, id);
        const bool onDetails = tool < DETAIL_TOOLS && (panel.full || tool != ADD_POINT_DETAIL);
        const bool onTerrain = tool < TERRAIN_TOOLS && panel.full;
        enable(id, panel.isDetailsTab ? onDetails : onTerrain);
    }
}

void CReferenceEditor::refreshBrushes() {
    panel.strengthText = std::to_string(panel.strength);
    for (const int brush : BRUSHES) {
        enable(brush, !panel.isDetailsTab && isAnyOf(panel.tool, {1, 2, 3, 5, 9}));
    }
}

qxCMapMultiTexture* CReferenceEditor::definition() {
    return map->getMultiTexture(panel.number);
}

void CReferenceEditor::refreshDefinition() {
    const bool isThere = map->getNumMultiTextures() > 0;
    for (const int id : NEED_A_DEFINITION) {
        enable(id, isThere);
    }
    if (isThere) {
        map->setCurrentMultiTexture(panel.number);
        panel.swatches[IDC_TINT_1] = opaque(definition()->tint1);
        panel.swatches[IDC_TINT_2] = opaque(definition()->tint2);
        panel.blend = definition()->blend;
        panel.variation = definition()->variation;
        showPreview();
    }
}

void CReferenceEditor::showPreview() {
    enable(IDC_PREVIOUS_TEXTURE, !panel.isDetailsTab);
    enable(IDC_NEXT_TEXTURE, !panel.isDetailsTab);
    enable(IDC_DETAIL_TEXTURE, panel.isDetailsTab);
}

void CReferenceEditor::clickTab() {
    if (hasControls) {
        readControls();
    }
    panel.isDetailsTab = !panel.isDetailsTab;
    std::swap(panel.tool, panel.otherTool);
    if (hasControls) {
        refreshTools();
        showPreview();
    }
}

void CReferenceEditor::click(int id) {
    if (hasControls && !isInReach(id)) {
        return;
    }
    if (clickRadio(id) || clickToggle(id)) {
        return;
    }
    if (id == IDC_UNDO) {
        undo();
    } else if (id == IDC_SELECT_ALL) {
        selectAll();
    } else if (id == IDC_DESELECT) {
        dropSelection();
        panel.x0 = panel.z0 = 0;
    } else if (id == IDC_CLOSE) {
        closeWindow();
    } else if (id == IDC_EXPAND) {
        panel.expanded = !panel.expanded;
        for (const int control : RIGHT_COLUMN) {
            enable(control, panel.expanded);
        }
    } else {
        clickDefinition(id);
    }
}

bool CReferenceEditor::clickRadio(int id) {
    const int tool = indexOf(TOOLS, id);
    const int brush = indexOf(BRUSHES, id);
    if (hasControls && (tool >= 0 || brush >= 0)) {
        readControls();
    }
    if (tool >= 0) {
        panel.tool = tool;
        if (hasControls) {
            refreshBrushes();
        }
    } else if (brush >= 0) {
        panel.brush = brush;
    }
    return tool >= 0 || brush >= 0;
}

bool CReferenceEditor::clickToggle(int id) {
    if (!isAnyOf(id, {IDC_HIDE_CURSOR, IDC_MAP_FLAG, IDC_FOG})) {
        return false;
    }
    bool& state = id == IDC_HIDE_CURSOR ? panel.hideCursor : id == IDC_FOG ? panel.fog : panel.mapFlag;
    state = !state;
    if (hasControls) {
        readControls();
    }
    if (id == IDC_MAP_FLAG) {
        state ? map->setFlag(qxMapFlagChecker) : map->clearFlag(qxMapFlagChecker);
    } else if (id == IDC_FOG && map->getScene() != nullptr) {
        map->getScene()->setFogMode(state ? qxFogModeOn : qxFogModeOff);
    }
    return true;
}

void CReferenceEditor::clickDefinition(int id) {
    const int last = map->getNumMultiTextures() - 1;
    if (id == IDC_PREVIOUS_TEXTURE && panel.number > 0) {
        --panel.number;
    } else if (id == IDC_NEXT_TEXTURE && panel.number < last) {
        ++panel.number;
    } else if (id == IDC_INSERT_DEFINITION || (id == IDC_DUPLICATE_DEFINITION && last >= 0)) {
        const qxCMapMultiTexture copied =
            id == IDC_DUPLICATE_DEFINITION ? *definition() : qxCMapMultiTexture();
        *map->addMultiTexture() = copied;
        panel.number = last + 1;
    } else if (id == IDC_DELETE_DEFINITION) {
        map->removeMultiTexture(panel.number);
        panel.number = std::max(panel.number - 1, 0);
    } else {
        return;
    }
    refreshDefinition();
}

Seen CReferenceEditor::type(int edit, const std::string& text, Leaving /*leaving*/) {
    if (!isInReach(edit)) {
        return {};
    }
    const Seen messages = leave(edit, text);
    // The field of a refused text keeps the focus, Enter and Tab go to the next: that one is left then.
    const int next = !messages.empty()       ? edit
                     : edit == IDC_BLEND     ? IDC_VARIATION
                     : edit == IDC_VARIATION ? IDC_TILING
                                             : 0;
    if (next != 0) {
        readControls();
        settle(next);
    }
    return messages;
}

Seen CReferenceEditor::leave(int edit, const std::string& text) {
    const bool isWhole = edit == IDC_HEIGHT || edit == IDC_TILING;
    char* end = nullptr;
    const long whole = std::strtol(text.c_str(), &end, 10);
    const float real = isWhole ? 0.0F : std::strtof(text.c_str(), &end);
    Seen messages;
    if (text.empty() || *end != '\0') {
        messages = {isWhole ? "Enter an integer." : "Enter a number."};
    } else if (edit == IDC_HEIGHT && whole != panel.height && (whole < 0 || whole > 1023)) {
        messages = {"Enter an integer between 0 and 1023."};
    } else if (isWhole) {
        (edit == IDC_HEIGHT ? panel.height : panel.tiling) = held(whole);
    } else {
        (edit == IDC_BLEND ? panel.blend : panel.variation) = real;
    }
    readControls(messages.empty() ? 0 : edit);
    settle(edit);
    return messages;
}

/// What comes of a field when the panel has read its controls.
void CReferenceEditor::settle(int edit) {
    if (edit == IDC_TILING) {
        panel.tiling = std::clamp(panel.tiling, 1, 256);
        map->setTextureTiling(panel.tiling);
    } else if (edit != IDC_HEIGHT && definition() != nullptr) {
        float& field = edit == IDC_BLEND ? panel.blend : panel.variation;
        field = std::clamp(field, 0.0F, 1.0F);
        (edit == IDC_BLEND ? definition()->blend : definition()->variation) = field;
        showPreview();
    }
}

void CReferenceEditor::spin(int id, bool up) {
    if (!isInReach(id)) {
        return;
    }
    const int buddy = id == IDC_TILING_SPIN ? IDC_TILING : id == IDC_BLEND_SPIN ? IDC_BLEND : IDC_VARIATION;
    if (buddy == IDC_TILING) {
        panel.tiling = std::clamp(panel.tiling + (up ? 1 : -1), 1, 256);
        map->setTextureTiling(panel.tiling);
    } else if (definition() != nullptr) {
        float& field = buddy == IDC_BLEND ? panel.blend : panel.variation;
        field = tenthStep(field, up);
        settle(buddy);
    }
    if (isInReach(buddy)) { // the arrows give it the focus
        readControls();
        settle(buddy);
    }
}

void CReferenceEditor::slide(int strength) {
    if (strength != std::clamp(panel.strength, 1, 10)) {
        readControls();
        panel.strength = strength;
        refreshBrushes();
    }
}

Seen CReferenceEditor::shown(const std::vector<int>& ids) const {
    Seen all;
    all.reserve(ids.size());
    for (const int id : ids) {
        all.push_back(describe(shownText(id), !panel.disabled.contains(id)));
    }
    return all;
}

std::string CReferenceEditor::shownText(int id) const {
    if (const auto picker = panel.pickers.find(id); picker != panel.pickers.end()) {
        return picker->second != nullptr ? picker->second->name.getString() : "-NONE-";
    }
    if (const int tool = indexOf(TOOLS, id); tool >= 0) {
        return panel.tool == tool ? "1" : "0";
    }
    if (const int brush = indexOf(BRUSHES, id); brush >= 0) {
        return panel.brush == brush ? "1" : "0";
    }
    switch (id) {
    case IDC_STRENGTH_TEXT:
        return panel.strengthText;
    case IDC_GRADIENT:
        return digits(panel.gradient);
    case IDC_BLEND:
        return digits(panel.blend);
    case IDC_VARIATION:
        return digits(panel.variation);
    case IDC_EXPAND:
        return panel.expanded ? "Simple Controls<<" : "Advanced Controls >>";
    default:
        break;
    }
    const std::pair<int, int> numbers[] = {{IDC_TOOL_TABS, panel.isDetailsTab},
                                           {IDC_HIDE_CURSOR, panel.hideCursor},
                                           {IDC_MAP_FLAG, panel.mapFlag},
                                           {IDC_FOG, panel.fog},
                                           {IDC_STRENGTH, std::clamp(panel.strength, 1, 10)},
                                           {IDC_HEIGHT, panel.height},
                                           {IDC_TEXTURE_NUMBER, panel.number},
                                           {IDC_TILING, panel.tiling},
                                           {IDC_UNDO_FILL, panel.fill}};
    for (const auto& [control, number] : numbers) {
        if (control == id) {
            return std::to_string(number);
        }
    }
    return {};
}
