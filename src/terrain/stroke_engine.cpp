#include "terrain/stroke_engine.h"

#include "engine/qx_map.h"
#include "terrain/edit_cursor.h"
#include "terrain/model/map_editor_model.h"
#include "terrain/model/map_selection.h"
#include "terrain/tools/detail_tools.h"
#include "terrain/tools/drag_tools.h"
#include "terrain/tools/height_tools.h"
#include "terrain/tools/surface_tools.h"

namespace {

void pick(CMapEditorModel& model, int x, int z) {
    model.m_stroke.x = x;
    model.m_stroke.z = z;
}

/// One tool's step at the picked point.
using ToolStep = void (*)(CMapEditorModel& model);

ToolStep stepAtPointer(int tool) {
    switch (tool) {
    case TOOL_FLATTEN:
        return flatten;
    case TOOL_SET_HEIGHT:
        return setHeight;
    case TOOL_GET_HEIGHT:
        return getHeight;
    case TOOL_TINT:
        return tintGround;
    case TOOL_SMOOTH:
        return smooth;
    case TOOL_FLOOD:
        return flood;
    case TOOL_DRAIN:
        return drain;
    case TOOL_PAINT:
        return paint;
    case TOOL_GET_GRADIENT:
        return getGradient;
    case TOOL_ROUGHEN:
        return roughen;
    default:
        return nullptr;
    }
}

void applyTerrainTool(CMapEditorModel& model, int x, int z, int amount) {
    switch (model.m_nTool) {
    case TOOL_SELECT:
        pick(model, x, z);
        model.m_selection.x1 = x;
        model.m_selection.z1 = z;
        return;
    case TOOL_RAISE: // Raise and Magnet stay at the point picked at the start: a drag changes their amount
        return raise(model, amount);
    case TOOL_MAGNET:
        return magnet(model, amount);
    default:
        if (const ToolStep step = stepAtPointer(model.m_nTool)) {
            pick(model, x, z);
            step(model);
        }
    }
}

void markRubberBand(CMapEditorModel& model, int x, int z, Mark mark) {
    drawMarkRect(*model.m_pMap, model.m_selection.x0, model.m_selection.z0, x, z, mark);
}

void markPoint(CMapEditorModel& model, int x, int z, Mark mark) {
    drawMarkRect(*model.m_pMap, x, z, x, z, mark);
}

void eraseLastMark(CMapEditorModel& model) {
    const StrokeState& stroke = model.m_stroke;
    if (!stroke.hasLastPoint()) {
        return;
    }
    if (model.m_nTool == TOOL_SELECT) {
        markRubberBand(model, stroke.lastX, stroke.lastZ, Mark::OFF);
    } else {
        markPoint(model, stroke.lastX, stroke.lastZ, Mark::OFF);
    }
}

void drawNewMark(CMapEditorModel& model) {
    const StrokeState& stroke = model.m_stroke;
    if (!stroke.hasLastPoint()) {
        return;
    }
    if (model.m_nTool == TOOL_SELECT) {
        markRubberBand(model, model.m_selection.x1, model.m_selection.z1, Mark::ON);
    } else {
        markPoint(model, stroke.x, stroke.z, Mark::ON);
    }
}

} // namespace

void strokeStart(CMapEditorModel& model, int x, int z, int edge, int corner) {
    model.m_stroke = {.x = x, .z = z, .edge = edge, .corner = corner};
    // A snapshot serves its own stroke only. Without this a tool that is chosen in the middle of this one
    // would put heights of an earlier stroke back.
    model.m_snapshot.area.owner = HeightSnapshot::Owner::NONE;
    model.m_snapshot.brush.size = 0;
    if (model.isDetailsTab()) {
        if (startDetailTool(model) == FirstUpdate::AT_ONCE) {
            strokeUpdate(model, x, z, 0);
        }
        return;
    }
    if (model.m_nTool == TOOL_SELECT) {
        startSelection(model, x, z);
        return;
    }
    strokeUpdate(model, x, z, 0);
    if (model.m_nTool != TOOL_RAISE && model.m_nTool != TOOL_MAGNET) {
        dropSelection(model);
    }
}

void strokeUpdate(CMapEditorModel& model, int x, int z, int amount) {
    StrokeState& stroke = model.m_stroke;
    const bool isDetailsTab = model.isDetailsTab();
    if (isDetailsTab) {
        updateDetailTool(model, x, z, amount);
    } else {
        eraseLastMark(model);
        applyTerrainTool(model, x, z, amount);
    }
    updateCursor(model, stroke.x, stroke.z, stroke.edge, stroke.corner, CursorUse::STROKE);
    stroke.lastX = stroke.x;
    stroke.lastZ = stroke.z;
    if (!isDetailsTab) {
        drawNewMark(model);
    }
    stroke.firstUpdate = false;
}

void strokeEnd(CMapEditorModel& model) {
    const StrokeState& stroke = model.m_stroke;
    if (!model.isDetailsTab()) {
        if (model.m_nTool == TOOL_SELECT) {
            completeSelection(model);
        } else if (model.m_nTool == TOOL_RAISE) {
            dropSelection(model);
        }
        if (stroke.hasLastPoint() && !model.m_selection.exists) {
            markPoint(model, stroke.lastX, stroke.lastZ, Mark::OFF);
        }
    }
    model.m_pMap->clearEditCursors();
}
