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

/// Numbers of other widgets of that panel.
enum MapPanelControl {
    TABS = 2030,
    STRENGTH = 1406,
    RAISE_TOOL = 1401,
    SMOOTH_TOOL = 1144,
    FLOOD_TOOL = 1402,
    DRAIN_TOOL = 1422,
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
