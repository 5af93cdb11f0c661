#include "sandbox/view/editor_calls.h"

#include "host/veskutil.h"

const CEditorCalls& toolkitCalls() {
    static constexpr CEditorCalls calls{vuIsEditorActive, vuStartEditing, vuUpdateEditing, vuStopEditing,
                                        vuUpdateCursor};
    return calls;
}
