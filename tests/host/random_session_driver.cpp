#include "host/random_session_driver.h"

#include "resources/resource_ids.h"

const std::vector<int> PANEL_CONTROLS = {IDC_TOOL_TABS,
                                         IDC_TOOL_SELECT,
                                         IDC_TOOL_RAISE,
                                         IDC_TOOL_FLATTEN,
                                         IDC_TOOL_SET_HEIGHT,
                                         IDC_TOOL_GET_HEIGHT,
                                         IDC_TOOL_TINT,
                                         IDC_TOOL_SMOOTH,
                                         IDC_TOOL_FLOOD,
                                         IDC_TOOL_DRAIN,
                                         IDC_TOOL_PAINT,
                                         IDC_TOOL_GET_GRADIENT,
                                         IDC_TOOL_MAGNET,
                                         IDC_TOOL_ROUGHEN,
                                         IDC_TOOL_UNUSED_13,
                                         IDC_TOOL_UNUSED_14,
                                         IDC_BRUSH_VERTEX,
                                         IDC_BRUSH_EDGE,
                                         IDC_BRUSH_CELL,
                                         IDC_BRUSH_PLUS,
                                         IDC_BRUSH_2X2,
                                         IDC_BRUSH_DISC,
                                         IDC_STRENGTH,
                                         IDC_STRENGTH_TEXT,
                                         IDC_HEIGHT,
                                         IDC_GRADIENT,
                                         IDC_TEXTURE_NUMBER,
                                         IDC_BLEND,
                                         IDC_VARIATION,
                                         IDC_TILING,
                                         IDC_HIDE_CURSOR,
                                         IDC_MAP_FLAG,
                                         IDC_FOG,
                                         IDC_UNDO,
                                         IDC_REDO,
                                         IDC_UNDO_FILL,
                                         IDC_CLOSE,
                                         IDC_EXPAND,
                                         IDC_PREVIOUS_TEXTURE,
                                         IDC_NEXT_TEXTURE,
                                         IDC_DETAIL_TEXTURE,
                                         IDC_SMOOTH_TEXTURE,
                                         IDC_ROUGH_TEXTURE,
                                         IDC_WATER_TEXTURE,
                                         IDC_TINT_COLOUR,
                                         IDC_TINT_1,
                                         IDC_TINT_2,
                                         IDC_AMBIENT_COLOUR,
                                         IDC_DIFFUSE_COLOUR,
                                         IDC_BLEND_SPIN,
                                         IDC_VARIATION_SPIN,
                                         IDC_TILING_SPIN,
                                         IDC_DELETE_DEFINITION,
                                         IDC_INSERT_DEFINITION,
                                         IDC_DUPLICATE_DEFINITION,
                                         IDC_GLOBAL_SMOOTH,
                                         IDC_TERRAIN_TYPES,
                                         IDC_SELECT_ALL,
                                         IDC_DESELECT};

const std::vector<int> TYPE_EDITOR_CONTROLS = [] {
    std::vector<int> ids = {IDC_TERRAIN_TYPE, IDC_PRESERVE_FLAT_AREAS, IDC_EFFECT_ON_NEIGHBOURS, IDC_NOISE,
                            IDC_WEIGHTING};
    for (int id = IDC_FILTER_FIRST; id <= IDC_FILTER_LAST; ++id) {
        ids.push_back(id);
    }
    return ids;
}();

const std::vector<int> TEXTURE_LIST_CONTROLS = {IDC_TEXTURES, IDC_TEXTURE_FORMAT, IDC_TEXTURE_SIZE,
                                                IDC_DELETE_TEXTURE};

std::string describe(const std::string& text, bool enabled) {
    return enabled ? text : text + " (disabled)";
}

std::string describe(const qxCColour& colour) {
    return std::to_string(colour.r) + ' ' + std::to_string(colour.g) + ' ' + std::to_string(colour.b);
}
