#pragma once

namespace tour {

inline constexpr int MAP_EDITOR = 212; // the panel's template

// Its controls, by their ids on the panel. The Details tab's tools are on the Terrain tab's buttons.
inline constexpr int TOOL_SELECT = 1399;
inline constexpr int TOOL_RAISE = 1401;
inline constexpr int TOOL_FLATTEN = 1403;
inline constexpr int TOOL_SET_HEIGHT = 1405;
inline constexpr int TOOL_GET_HEIGHT = 1410;
inline constexpr int TOOL_TINT = 1428;
inline constexpr int TOOL_SMOOTH = 1144;
inline constexpr int TOOL_FLOOD = 1402;
inline constexpr int TOOL_DRAIN = 1422;
inline constexpr int TOOL_GET_GRADIENT = 2007;
inline constexpr int TOOL_MAGNET = 2018;
inline constexpr int TOOL_ROUGHEN = 1218;
inline constexpr int BRUSH_CORNER = 2006;
inline constexpr int BRUSH_EDGE = 2009;
inline constexpr int BRUSH_CELL = 2010;
inline constexpr int BRUSH_PLUS = 2011;
inline constexpr int BRUSH_FOUR_CELLS = 2014;
inline constexpr int BRUSH_DISC = 2017;
inline constexpr int HEIGHT = 1411;
inline constexpr int GRADIENT = 2008;
inline constexpr int TOOL_COLOUR = 1626;
inline constexpr int HIDE_CURSOR = 2022;
inline constexpr int STRENGTH = 1406;
inline constexpr int TABS = 2030;
inline constexpr int UNDO = 2015;
inline constexpr int CHECKERBOARD = 2021;
inline constexpr int FOG = 2026;
inline constexpr int EXPAND = 2012;
inline constexpr int CLOSE = 2000;
inline constexpr int TOOL_PAINT = 1430;
inline constexpr int TOOL_ADD_QUAD_DETAIL = TOOL_SELECT;
inline constexpr int TOOL_DELETE_DETAIL = TOOL_RAISE;
inline constexpr int TOOL_MOVE_DETAIL = TOOL_FLATTEN;
inline constexpr int TOOL_ROTATE_DETAIL = TOOL_SET_HEIGHT;
inline constexpr int TOOL_SCALE_DETAIL = TOOL_GET_HEIGHT;
inline constexpr int TOOL_ADD_POINT_DETAIL = TOOL_TINT;
inline constexpr int TOOL_DUPLICATE_DETAIL = TOOL_SMOOTH;
inline constexpr int TOOL_FLIP_DETAIL = TOOL_FLOOD;
inline constexpr int SMOOTH_TEXTURE = 1020;
inline constexpr int ROUGH_TEXTURE = 1021;
inline constexpr int WATER_TEXTURE = 1022;
inline constexpr int DETAIL_TEXTURE = 1023;
inline constexpr int PREVIEW = 1415;
inline constexpr int DELETE_DEFINITION = 1637;
inline constexpr int INSERT_DEFINITION = 1638;
inline constexpr int DUPLICATE_DEFINITION = 1639;
inline constexpr int PREVIOUS_DEFINITION = 1064;
inline constexpr int TINT_1 = 2001;
inline constexpr int TINT_2 = 2002;
inline constexpr int BLEND = 1629;
inline constexpr int VARIATION = 1630;
inline constexpr int VARIATION_SPIN = 1523;
inline constexpr int TILING_SPIN = 1642;
inline constexpr int SELECT_ALL = 1473;
inline constexpr int DESELECT = 1474;
inline constexpr int TERRAIN_TYPES = 1063;

// Controls of the dialogs that it opens.
inline constexpr int OK = 1;
inline constexpr int CANCEL = 2;
inline constexpr int TEXTURE_NAMES = 1073;
inline constexpr int IMPORT = 1167;
inline constexpr int TERRAIN_TYPE = 1239;
inline constexpr int FIRST_FILTER_CELL = 1589;
inline constexpr int NORMALIZE = 1062;

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
