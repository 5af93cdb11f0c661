#include "sandbox/view/editor_calls.h"

#include "host/veskutil.h"

const EditorCalls& toolkitCalls() {
    static constexpr EditorCalls CALLS{vuIsEditorActive, vuStartEditing, vuUpdateEditing, vuStopEditing,
                                       vuUpdateCursor};
    return CALLS;
}
