#pragma once

/// The map editor's controls that the tour uses, by their ids on the panel.
namespace tour {

inline constexpr int TOOL_SELECT = 1399;
inline constexpr int TOOL_RAISE = 1401;
inline constexpr int TOOL_SET_HEIGHT = 1405;
inline constexpr int TOOL_SMOOTH = 1144;
inline constexpr int TOOL_FLOOD = 1402;
inline constexpr int TOOL_MAGNET = 2018;
inline constexpr int TOOL_ROUGHEN = 1218;
inline constexpr int BRUSH_CORNER = 2006;
inline constexpr int BRUSH_EDGE = 2009;
inline constexpr int BRUSH_CELL = 2010;
inline constexpr int BRUSH_PLUS = 2011;
inline constexpr int BRUSH_FOUR_CELLS = 2014;
inline constexpr int BRUSH_DISC = 2017;
inline constexpr int HEIGHT = 1411;
inline constexpr int STRENGTH = 1406;
inline constexpr int TABS = 2030;
inline constexpr int UNDO = 2015;
inline constexpr int CHECKERBOARD = 2021;
inline constexpr int FOG = 2026;
inline constexpr int EXPAND = 2012;
inline constexpr int CLOSE = 2000;

} // namespace tour
