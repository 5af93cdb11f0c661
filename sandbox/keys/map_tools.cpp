#include "sandbox/keys/map_tools.h"

#include <algorithm>

namespace {

constexpr std::array TOOLS{
    MapTool{
        1399,
        Qt::Key_1,
        {"Select", "Drag a rectangle of cells that Raise, Set Hgt, Tint and Paint then work on as a whole."},
        {"Add Quad Detail", "Lays a square of the \"Detail\" texture on the ground; drag on to move it."}},
    MapTool{RAISE_TOOL,
            Qt::Key_2,
            {"Raise",
             "Drag up to raise the brush's points, down to lower them; with Ctrl held the other way round."},
            {"Delete Detail", "Removes the detail under the pointer."}},
    MapTool{FLATTEN_TOOL,
            Qt::Key_3,
            {"Flatten", "Brings the four corners of a cell to their average height."},
            {"Move Detail", "Drags the detail under the pointer over the ground."}},
    MapTool{SET_HEIGHT_TOOL,
            Qt::Key_4,
            {"Set Hgt", "Sets points to \"Height\": the selection, one cell or four by four points."},
            {"Rotate Detail", "Turns the detail under the pointer by the distance dragged up or down."}},
    MapTool{GET_HEIGHT_TOOL,
            Qt::Key_5,
            {"Get Hgt", "Reads the height of the nearest corner into \"Height\"."},
            {"Scale Detail", "Drag up to enlarge the detail under the pointer, down to make it smaller."}},
    MapTool{TINT_TOOL,
            Qt::Key_6,
            {"Tint", "Mixes the colour of the \"Tint\" swatch into the points, more with each move."},
            {"Add Point Detail", "Stands an upright picture on the ground, which always faces you."}},
    MapTool{
        SMOOTH_TOOL,
        Qt::Key_7,
        {"Smooth",
         "Moves the corners of a cell towards the average around them; Shift held does so with any tool."},
        {"Duplicate Detail", "Makes a copy of the detail under the pointer and drags that."}},
    MapTool{
        FLOOD_TOOL,
        Qt::Key_8,
        {"Flood",
         "Fills the low ground around the cell with water up to the water level; with Ctrl held it drains."},
        {"Flip Detail", "Mirrors the detail under the pointer."}},
    MapTool{DRAIN_TOOL,
            Qt::Key_9,
            {"Drain", "Removes the water that is joined to the cell; with Ctrl held it floods."},
            {}},
    MapTool{PAINT_TOOL, Qt::Key_0, {"Paint", "Paints the current texture definition."}, {}},
    MapTool{GET_GRADIENT_TOOL,
            Qt::Key_G,
            {"Get Grad", "Shows the slope at the point in \"Grad\", in degrees."},
            {}},
    MapTool{MAGNET_TOOL,
            Qt::Key_N,
            {"Magnet", "Drag up or down to lift or lower a rounded bump; its radius is the strength."},
            {}},
    MapTool{1218, Qt::Key_R, {"Roughen", "Shakes the corners of a cell up and down at random."}, {}},
};

} // namespace

std::span<const MapTool> mapTools() {
    return TOOLS;
}

const MapTool* toolOf(int control) {
    const auto found = std::ranges::find(TOOLS, control, &MapTool::control);
    return found != TOOLS.end() ? &*found : nullptr;
}
