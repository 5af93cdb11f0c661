#pragma once

#include "resources/resource_ids.h"

namespace tour {

// The Details tab's tools are on the Terrain tab's buttons.
inline constexpr int TOOL_ADD_QUAD_DETAIL = IDC_TOOL_SELECT;
inline constexpr int TOOL_DELETE_DETAIL = IDC_TOOL_RAISE;
inline constexpr int TOOL_MOVE_DETAIL = IDC_TOOL_FLATTEN;
inline constexpr int TOOL_ROTATE_DETAIL = IDC_TOOL_SET_HEIGHT;
inline constexpr int TOOL_SCALE_DETAIL = IDC_TOOL_GET_HEIGHT;
inline constexpr int TOOL_ADD_POINT_DETAIL = IDC_TOOL_TINT;
inline constexpr int TOOL_DUPLICATE_DETAIL = IDC_TOOL_SMOOTH;
inline constexpr int TOOL_FLIP_DETAIL = IDC_TOOL_FLOOD;

// Places on the sample map where the session works: cells, and heights in its units.
inline constexpr int WORK_X = 196;
inline constexpr int WORK_Z = 146;
inline constexpr int HILL_X = 186;
inline constexpr int HILL_Z = 150;
inline constexpr int CONE_X = 200;
inline constexpr int CONE_Z = 158;
inline constexpr int FIELD_X0 = 198;
inline constexpr int FIELD_Z0 = 137;
inline constexpr int FIELD_X1 = 209;
inline constexpr int FIELD_Z1 = 145;
inline constexpr int ROAD_X0 = 184;
inline constexpr int ROAD_X1 = 206;
inline constexpr int ROAD_Z = 148;
inline constexpr int ROAD_HEIGHT = 350;
inline constexpr int VALLEY_X = 234;
inline constexpr int VALLEY_Z = 228;
inline constexpr int WATER_LEVEL = 325;
inline constexpr int CURSOR_X = 188;
inline constexpr int CURSOR_Z = 157;
inline constexpr int BUSH_X = 184;
inline constexpr int BUSH_Z = 159;
inline constexpr int BUSHES = 6;
inline constexpr int FIELD_OF_CROPS_X = 188;
inline constexpr int FIELD_OF_CROPS_Z = 163;

} // namespace tour
