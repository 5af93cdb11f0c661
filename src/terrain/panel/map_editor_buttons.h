#pragma once

#include "controls/icon_buttons.h"
#include "resources/resource_ids.h"

#include <array>

/// One of the fifteen tool buttons. Index in the table = tool index. Its caption in the template names the
/// tool of the Terrain tab; as the buttons show icons, the captions are what their tool tips say.
struct ToolButton {
    int controlId;
    int terrainIcon;                      ///< 0: no tool on the Terrain tab
    int detailsIcon = 0;                  ///< 0: no tool on the Details tab
    const char* detailsCaption = nullptr; ///< null: the template's
    bool detailsNeedsFull = false;        ///< on the Details tab only with full editing
    const char* terrainCaption = nullptr; ///< null: the template's
};

inline constexpr std::array<ToolButton, 15> TOOL_BUTTONS = {{
    {IDC_TOOL_SELECT, IDI_TOOL_SELECT, IDI_DETAIL_ADD_QUAD, "Add Quad Detail"},
    {IDC_TOOL_RAISE, IDI_TOOL_RAISE, IDI_DETAIL_DELETE, "Delete Detail"},
    {IDC_TOOL_FLATTEN, IDI_TOOL_FLATTEN, IDI_DETAIL_MOVE, "Move Detail"},
    {IDC_TOOL_SET_HEIGHT, IDI_TOOL_SET_HEIGHT, IDI_DETAIL_ROTATE, "Rotate Detail"},
    {IDC_TOOL_GET_HEIGHT, IDI_TOOL_GET_HEIGHT, IDI_DETAIL_SCALE, "Scale Detail"},
    {IDC_TOOL_TINT, IDI_TOOL_TINT, IDI_DETAIL_ADD_POINT, "Add Point Detail", true},
    {IDC_TOOL_SMOOTH, IDI_TOOL_SMOOTH, IDI_DETAIL_DUPLICATE, "Duplicate Detail"},
    {IDC_TOOL_FLOOD, IDI_TOOL_FLOOD, IDI_DETAIL_FLIP, "Flip Detail"},
    {IDC_TOOL_DRAIN, IDI_TOOL_DRAIN},
    {IDC_TOOL_PAINT, IDI_TOOL_PAINT},
    {IDC_TOOL_GET_GRADIENT, IDI_TOOL_GET_GRADIENT},
    {IDC_TOOL_MAGNET, IDI_TOOL_MAGNET},
    {IDC_TOOL_ROUGHEN, IDI_TOOL_ROUGHEN, 0, nullptr, false, "Roughen"},
    {IDC_TOOL_UNUSED_13, 0},
    {IDC_TOOL_UNUSED_14, 0},
}};

/// The six brush sizes. Index = brush size.
inline constexpr std::array<IconButton, 6> BRUSH_BUTTONS = {{
    {IDC_BRUSH_VERTEX, IDI_BRUSH_VERTEX},
    {IDC_BRUSH_EDGE, IDI_BRUSH_EDGE},
    {IDC_BRUSH_CELL, IDI_BRUSH_CELL},
    {IDC_BRUSH_PLUS, IDI_BRUSH_PLUS},
    {IDC_BRUSH_2X2, IDI_BRUSH_2X2},
    {IDC_BRUSH_DISC, IDI_BRUSH_DISC},
}};

/// Further buttons with an icon that never changes.
inline constexpr std::array<IconButton, 4> COMMAND_BUTTONS = {{
    {IDC_UNDO, IDI_UNDO},
    {IDC_REDO, IDI_REDO},
    {IDC_MAP_FLAG, IDI_MAP_FLAG},
    {IDC_FOG, IDI_FOG},
}};
