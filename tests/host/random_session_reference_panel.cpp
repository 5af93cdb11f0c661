#include "host/random_session_reference.h"

#include "resources/resource_ids.h"

namespace {

std::vector<int> joined(std::initializer_list<std::vector<int>> lists) {
    std::vector<int> all;
    for (const std::vector<int>& list : lists) {
        all.insert(all.end(), list.begin(), list.end());
    }
    return all;
}

int indexOf(const std::vector<int>& ids, int id) {
    const auto found = std::find(ids.begin(), ids.end(), id);
    return found == ids.end() ? -1 : static_cast<int>(found - ids.begin());
}

} // namespace

const std::vector<int> CReferenceEditor::TOOLS =
    joined({{IDC_TOOL_SELECT, IDC_TOOL_RAISE, IDC_TOOL_FLATTEN, IDC_TOOL_SET_HEIGHT, IDC_TOOL_GET_HEIGHT},
            {IDC_TOOL_TINT, IDC_TOOL_SMOOTH, IDC_TOOL_FLOOD, IDC_TOOL_DRAIN, IDC_TOOL_PAINT},
            {IDC_TOOL_GET_GRADIENT, IDC_TOOL_MAGNET, IDC_TOOL_ROUGHEN},
            {IDC_TOOL_UNUSED_13, IDC_TOOL_UNUSED_14}});
const std::vector<int> CReferenceEditor::BRUSHES = joined(
    {{IDC_BRUSH_VERTEX, IDC_BRUSH_EDGE, IDC_BRUSH_CELL}, {IDC_BRUSH_PLUS, IDC_BRUSH_2X2, IDC_BRUSH_DISC}});

void CReferenceEditor::clickTab() {
    panel.isDetailsTab = !panel.isDetailsTab;
    std::swap(panel.tool, panel.otherTool);
}

void CReferenceEditor::click(int id) {
    if (clickRadio(id)) {
        return;
    }
    if (id == IDC_UNDO) {
        undo();
    } else if (id == IDC_SELECT_ALL) {
        selectAll();
    } else if (id == IDC_DESELECT) {
        dropSelection();
        panel.x0 = panel.z0 = 0;
    } else if (id == IDC_HIDE_CURSOR) {
        panel.hideCursor = !panel.hideCursor;
    } else if (id == IDC_CLOSE) {
        closeWindow();
    }
}

bool CReferenceEditor::clickRadio(int id) {
    const int tool = indexOf(TOOLS, id);
    const int brush = indexOf(BRUSHES, id);
    if (tool >= 0) {
        panel.tool = tool;
    } else if (brush >= 0) {
        panel.brush = brush;
    }
    return tool >= 0 || brush >= 0;
}
