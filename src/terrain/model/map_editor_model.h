#pragma once

#include "engine/qx_colour.h"
#include "terrain/model/stroke_snapshot.h"

class qxCMap;
class qxCMapDetailRecord;
class qxCTexture;

/// Tool indices of the Terrain tab, in the order of the panel's tool buttons.
enum TerrainTool {
    TOOL_SELECT = 0,
    TOOL_RAISE = 1,
    TOOL_FLATTEN = 2,
    TOOL_SET_HEIGHT = 3,
    TOOL_GET_HEIGHT = 4,
    TOOL_TINT = 5,
    TOOL_SMOOTH = 6,
    TOOL_FLOOD = 7,
    TOOL_DRAIN = 8,
    TOOL_PAINT = 9,
    TOOL_GET_GRADIENT = 10,
    TOOL_MAGNET = 11,
    TOOL_ROUGHEN = 12,
};

/// Tool indices of the Details tab.
enum DetailTool {
    DETAIL_ADD_QUAD = 0,
    DETAIL_DELETE = 1,
    DETAIL_MOVE = 2,
    DETAIL_ROTATE = 3,
    DETAIL_SCALE = 4,
    DETAIL_ADD_POINT = 5,
    DETAIL_DUPLICATE = 6,
    DETAIL_FLIP = 7,
    DETAIL_TOOL_COUNT = 8,
};

/// Where the stroke is. A stroke runs from the host's start to its stop.
struct StrokeState {
    int x = 0; ///< picked cell; also its corner of the lowest coordinates
    int z = 0;
    int edge = 0;   ///< 0 to 5, fixed for the stroke
    int corner = 0; ///< 0 to 3, fixed for the stroke
    int lastX = -1; ///< point marked by the previous update; (-1, -1): none
    int lastZ = -1;
    bool firstUpdate = true;  ///< until the end of the stroke's first update
    bool hasRecorded = false; ///< the stroke has records in the history

    qxCMapDetailRecord* addedDetail = nullptr; ///< what the stroke's start placed; null: nothing

    bool hasLastPoint() const { return lastX != -1 || lastZ != -1; }
};

/// The rectangular selection, in cells. The corners are ordered and the size is set once it exists.
struct MapSelection {
    int x0 = 0; ///< anchor corner
    int z0 = 0;
    int x1 = 0; ///< opposite corner
    int z1 = 0;
    int width = 0; ///< x1 - x0 + 1
    int height = 0;
    bool exists = false; ///< a completed selection is in force, its outline is on the marker layer
};

/// What the map editor's tools work on, apart from the map: the settings that the panel shows and the state
/// of stroke and selection. The panel derives from it; the tools know no window. Borrows map, texture and
/// detail, which the host owns and keeps alive as long as the editor is open.
class CMapEditorModel {
public:
    CMapEditorModel() = default;
    virtual ~CMapEditorModel() = default;
    CMapEditorModel(const CMapEditorModel&) = delete;
    CMapEditorModel& operator=(const CMapEditorModel&) = delete;

    qxCMap* m_pMap = nullptr;
    int m_nTool = -1;         ///< TerrainTool or DetailTool, by the visible tab; -1 none
    int m_nOtherTabTool = 0;  ///< the tool of the tab that is not shown
    int m_nBrushSize = -1;    ///< BrushSize, -1 none
    int m_nStrength = 0;      ///< 1 to 10; 0 until the panel's slider was first read
    int m_nHeight = 0;        ///< target height of Set Hgt, 0 to 1023; written by Get Hgt
    float m_fGradient = 0.0F; ///< written by Get Grad
    int m_bHideCursor = 0;    ///< hide the edit cursor during strokes
    qxCTexture* m_pDetailTexture = nullptr;
    qxCMapDetailRecord* m_pCurrentDetail = nullptr;

    StrokeState m_stroke;
    MapSelection m_selection;
    StrokeSnapshot m_snapshot;

    /// True while the Details tab is selected.
    virtual bool isDetailsTab() const = 0;
    /// Show the members in the panel's controls.
    virtual void showMembers() = 0;
    /// Colour of the Tint tool's swatch; its alpha is not used.
    virtual qxCColour getToolTint() const = 0;
};
