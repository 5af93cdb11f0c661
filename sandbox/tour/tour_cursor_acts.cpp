#include "sandbox/tour/tour_acts.h"
#include "sandbox/tour/tour_places.h"

#include <QPainter>
#include <algorithm>

namespace tour {

namespace {

constexpr QSize CLOSE_UP(200, 150);

/// Rest the pointer at a place of one cell and require a cursor of this kind among those that show.
void requireCursor(CTourStage& stage, double u, double v, int kind) {
    stage.hands().moveTo(stage.view(), stage.positionOf(CURSOR_X + u, CURSOR_Z + v));
    const auto cursors = stage.map().getEditCursors();
    const bool shown =
        std::ranges::any_of(cursors, [&](const EditCursor& cursor) { return cursor.kind == kind; });
    require(shown, QString("no cursor of kind %1").arg(kind));
}

struct CursorView {
    int tool;
    int brush;
    double u;
    double v;
    int kind;
};

/// The view around the pointer, for a sheet of pictures side by side.
QImage takeCloseUp(CTourStage& stage) {
    const QImage picture = stage.takePicture();
    const QPoint pointer = stage.hands().screenPosition() - stage.window().geometry().topLeft();
    QRect part(QPoint(), CLOSE_UP);
    part.moveCenter(pointer);
    return picture.copy(part);
}

QImage composeSheet(const std::vector<QImage>& pictures) {
    constexpr int COLUMNS = 5;
    constexpr int GAP = 4;
    const int rows = (static_cast<int>(pictures.size()) + COLUMNS - 1) / COLUMNS;
    QImage sheet(COLUMNS * (CLOSE_UP.width() + GAP) - GAP, rows * (CLOSE_UP.height() + GAP) - GAP,
                 QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int i = 0; i < static_cast<int>(pictures.size()); ++i) {
        painter.drawImage(i % COLUMNS * (CLOSE_UP.width() + GAP), i / COLUMNS * (CLOSE_UP.height() + GAP),
                          pictures[static_cast<std::size_t>(i)]);
    }
    return sheet;
}

} // namespace

/// Every kind of cursor there is, each at the same cell, on one sheet.
void showEveryCursor(CTourStage& stage) {
    constexpr std::array<CursorView, 14> CURSORS{{
        {IDC_TOOL_RAISE, IDC_BRUSH_CELL, 0.5, 0.4, 0},
        {IDC_TOOL_RAISE, IDC_BRUSH_EDGE, 0.06, 0.5, 1},
        {IDC_TOOL_RAISE, IDC_BRUSH_EDGE, 0.5, 0.06, 2},
        {IDC_TOOL_RAISE, IDC_BRUSH_EDGE, 0.94, 0.5, 3},
        {IDC_TOOL_RAISE, IDC_BRUSH_EDGE, 0.5, 0.94, 4},
        {IDC_TOOL_RAISE, IDC_BRUSH_VERTEX, 0.1, 0.2, 5},
        {IDC_TOOL_RAISE, IDC_BRUSH_VERTEX, 0.9, 0.2, 6},
        {IDC_TOOL_RAISE, IDC_BRUSH_VERTEX, 0.1, 0.8, 7},
        {IDC_TOOL_RAISE, IDC_BRUSH_VERTEX, 0.9, 0.8, 8},
        {IDC_TOOL_RAISE, IDC_BRUSH_EDGE, 0.3, 0.3, 9},
        {IDC_TOOL_RAISE, IDC_BRUSH_EDGE, 0.7, 0.3, 10},
        {IDC_TOOL_RAISE, IDC_BRUSH_PLUS, 0.5, 0.4, 13},
        {IDC_TOOL_RAISE, IDC_BRUSH_2X2, 0.5, 0.4, 0},
        {IDC_TOOL_RAISE, IDC_BRUSH_DISC, 0.5, 0.4, 0},
    }};
    stage.hands().turnWheel(stage.view(), stage.positionOfCell(CURSOR_X, CURSOR_Z), 10);
    std::vector<QImage> closeUps;
    for (const CursorView& cursor : CURSORS) {
        stage.chooseTool(cursor.tool);
        stage.clickControl(cursor.brush);
        requireCursor(stage, cursor.u, cursor.v, cursor.kind);
        closeUps.push_back(takeCloseUp(stage));
    }
    stage.showTab(1);
    requireCursor(stage, 0.5, 0.4, 15);
    closeUps.push_back(takeCloseUp(stage));
    stage.hands().turnWheel(stage.view(), stage.positionOfCell(CURSOR_X, CURSOR_Z), -4);
    stage.setStepPicture(composeSheet(closeUps));
}

} // namespace tour
