#pragma once

#include <QKeySequence>

#include <array>
#include <span>

/// A tool as one tab of the map editor's panel offers it.
struct ToolText {
    const char* name = ""; ///< empty when the button does nothing on that tab
    const char* tip = "";  ///< what it does, in a sentence
};

/// A button of the map editor's panel: its widget bears the number as its name.
struct MapTool {
    int control;
    Qt::Key key;
    ToolText terrain;
    ToolText details;
};

/// The tools, in the order of the panel.
std::span<const MapTool> mapTools();
/// The tool of this button, or null.
const MapTool* toolOf(int control);

/// Numbers of other widgets of that panel.
enum MapPanelControl {
    TABS = 2030,
    STRENGTH = 1406,
    SELECT_TOOL = 1399,
    RAISE_TOOL = 1401,
    FLATTEN_TOOL = 1403,
    SET_HEIGHT_TOOL = 1405,
    GET_HEIGHT_TOOL = 1410,
    TINT_TOOL = 1428,
    SMOOTH_TOOL = 1144,
    FLOOD_TOOL = 1402,
    DRAIN_TOOL = 1422,
    PAINT_TOOL = 1430,
    GET_GRADIENT_TOOL = 2007,
    MAGNET_TOOL = 2018
};
/// The brush sizes from the smallest, and what each takes.
struct BrushText {
    int control;
    const char* tip;
};
inline constexpr std::array BRUSHES{BrushText{2006, "Brush: the nearest corner of a cell."},
                                    BrushText{2009, "Brush: the two ends of the nearest side or diagonal."},
                                    BrushText{2010, "Brush: one cell."},
                                    BrushText{2011, "Brush: a plus of points."},
                                    BrushText{2014, "Brush: two by two cells."},
                                    BrushText{2017, "Brush: a disc of twelve cells."}};
