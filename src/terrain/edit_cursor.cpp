#include "terrain/edit_cursor.h"

#include "engine/qx_map.h"
#include "terrain/grid/saturating.h"
#include "terrain/model/map_editor_model.h"

#include <array>
#include <cstddef>
#include <span>

namespace {

/// Shapes that the engine draws for an edit cursor.
enum CursorKind {
    CURSOR_CELL = 0,
    CURSOR_PLUS_FAR = 11, // the quarters of the plus, by the corner of the 2 x 2 cells they stand in
    CURSOR_PLUS_Z = 12,
    CURSOR_PLUS_ORIGIN = 13,
    CURSOR_PLUS_X = 14,
    CURSOR_DETAIL = 15,
};

constexpr std::array<int, 4> CORNER_KINDS{5, 6, 8, 7};
constexpr std::array<int, 6> EDGE_KINDS{2, 3, 4, 1, 9, 10};

struct CursorPiece {
    int dx;
    int dz;
    int kind;
};

constexpr std::array<CursorPiece, 1> CELL_PIECES{{{0, 0, CURSOR_CELL}}};
constexpr std::array<CursorPiece, 4> PLUS_PIECES{
    {{0, 0, CURSOR_PLUS_ORIGIN}, {1, 0, CURSOR_PLUS_X}, {0, 1, CURSOR_PLUS_Z}, {1, 1, CURSOR_PLUS_FAR}}};
constexpr std::array<CursorPiece, 4> BLOCK_PIECES{
    {{0, 0, CURSOR_CELL}, {1, 0, CURSOR_CELL}, {0, 1, CURSOR_CELL}, {1, 1, CURSOR_CELL}}};
constexpr std::array<CursorPiece, 12> DISC_PIECES{{{1, 0, CURSOR_CELL},
                                                   {2, 0, CURSOR_CELL},
                                                   {0, 1, CURSOR_CELL},
                                                   {1, 1, CURSOR_CELL},
                                                   {2, 1, CURSOR_CELL},
                                                   {3, 1, CURSOR_CELL},
                                                   {0, 2, CURSOR_CELL},
                                                   {1, 2, CURSOR_CELL},
                                                   {2, 2, CURSOR_CELL},
                                                   {3, 2, CURSOR_CELL},
                                                   {1, 3, CURSOR_CELL},
                                                   {2, 3, CURSOR_CELL}}};

void updateDetailCursor(CMapEditorModel& model, int x, int z, CursorUse use) {
    qxCMap& map = *model.m_pMap;
    map.addEditCursor(x, z, CURSOR_DETAIL);
    qxCMapDetailRecord* const found = map.findDetail(static_cast<float>(x), static_cast<float>(z));
    if (model.m_pCurrentDetail != nullptr) {
        model.m_pCurrentDetail->highlighted = 0;
    }
    if (found != nullptr) {
        found->highlighted = use == CursorUse::HOVER ? 1 : 0;
    }
    model.m_pCurrentDetail = found;
}

int effectiveBrushSize(const CMapEditorModel& model) {
    switch (model.m_nTool) {
    case TOOL_SELECT:
    case TOOL_SMOOTH:
    case TOOL_FLOOD:
    case TOOL_DRAIN:
    case TOOL_GET_GRADIENT:
    case TOOL_MAGNET:
        return BRUSH_CELL;
    case TOOL_GET_HEIGHT:
        return BRUSH_POINT;
    default:
        return model.m_nBrushSize;
    }
}

void addOneOf(qxCMap& map, int x, int z, std::span<const int> kinds, int index) {
    if (index >= 0 && static_cast<std::size_t>(index) < kinds.size()) {
        map.addEditCursor(x, z, kinds[static_cast<std::size_t>(index)]);
    }
}

void addPieces(qxCMap& map, int x, int z, std::span<const CursorPiece> pieces) {
    for (const CursorPiece& piece : pieces) {
        map.addEditCursor(addSaturating(x, piece.dx), addSaturating(z, piece.dz), piece.kind);
    }
}

} // namespace

void updateCursor(CMapEditorModel& model, int x, int z, int edge, int corner, CursorUse use) {
    qxCMap& map = *model.m_pMap;
    map.clearEditCursors();
    if (model.m_bHideCursor != 0 && use == CursorUse::STROKE) {
        return;
    }
    if (model.isDetailsTab() && model.m_nTool >= 0 && model.m_nTool < DETAIL_TOOL_COUNT) {
        updateDetailCursor(model, x, z, use);
        return;
    }
    switch (effectiveBrushSize(model)) {
    case BRUSH_POINT:
        return addOneOf(map, x, z, CORNER_KINDS, corner);
    case BRUSH_EDGE:
        return addOneOf(map, x, z, EDGE_KINDS, edge);
    case BRUSH_CELL:
        return addPieces(map, x, z, CELL_PIECES);
    case BRUSH_PLUS:
        return addPieces(map, x, z, PLUS_PIECES);
    case BRUSH_BLOCK:
        return addPieces(map, x, z, BLOCK_PIECES);
    case BRUSH_DISC:
        return addPieces(map, x, z, DISC_PIECES);
    default:
        return;
    }
}
