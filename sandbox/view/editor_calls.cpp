#include "sandbox/view/editor_calls.h"

#include "host/veskutil.h"

const CEditorCalls& toolkitCalls() {
    static constexpr CEditorCalls CALLS{vuIsEditorActive, vuStartEditing, vuUpdateEditing, vuStopEditing,
                                        vuUpdateCursor};
    return CALLS;
}
