#include "terrain/map_editor_model.h"

#include "terrain/tools/detail_tools.h"

CMapEditorModel::CMapEditorModel() = default;

CMapEditorModel::~CMapEditorModel() {
    // The snapshot names a record of a map that the host may free once the editor is closed.
    forgetDetailSnapshot();
}
