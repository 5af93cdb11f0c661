#pragma once

#include "resources/resource_ids.h"

#include <array>

/// One of the fifteen tool buttons. Index in the table = tool index.
struct ToolButton {
    int controlId;
    int terrainIcon;               ///< 0: no tool on the Terrain tab
    int detailsIcon;               ///< 0: no tool on the Details tab
    bool detailsNeedsFull = false; ///< on the Details tab only with full editing
};

inline constexpr std::array<ToolButton, 15> TOOL_BUTTONS = {{
    {IDC_TOOL_SELECT, IDI_TOOL_SELECT, IDI_DETAIL_ADD_QUAD},
    {IDC_TOOL_RAISE, IDI_TOOL_RAISE, IDI_DETAIL_DELETE},
    {IDC_TOOL_FLATTEN, IDI_TOOL_FLATTEN, IDI_DETAIL_MOVE},
    {IDC_TOOL_SET_HEIGHT, IDI_TOOL_SET_HEIGHT, IDI_DETAIL_ROTATE},
    {IDC_TOOL_GET_HEIGHT, IDI_TOOL_GET_HEIGHT, IDI_DETAIL_SCALE},
    {IDC_TOOL_TINT, IDI_TOOL_TINT, IDI_DETAIL_ADD_POINT, true},
    {IDC_TOOL_SMOOTH, IDI_TOOL_SMOOTH, IDI_DETAIL_DUPLICATE},
    {IDC_TOOL_FLOOD, IDI_TOOL_FLOOD, IDI_DETAIL_FLIP},
    {IDC_TOOL_DRAIN, IDI_TOOL_DRAIN, 0},
    {IDC_TOOL_PAINT, IDI_TOOL_PAINT, 0},
    {IDC_TOOL_GET_GRADIENT, IDI_TOOL_GET_GRADIENT, 0},
    {IDC_TOOL_MAGNET, IDI_TOOL_MAGNET, 0},
    {IDC_TOOL_ROUGHEN, IDI_TOOL_ROUGHEN, 0},
    {IDC_TOOL_UNUSED_13, 0, 0},
    {IDC_TOOL_UNUSED_14, 0, 0},
}};

struct IconButton {
    int controlId;
    int icon;
};

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
