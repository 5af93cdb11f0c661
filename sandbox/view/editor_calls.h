#pragma once

/// The toolkit's calls that a stroke needs. A table, so that what the mouse does can be followed in a test
/// without a panel.
struct EditorCalls {
    bool (*isEditorActive)();
    void (*startEditing)(int x, int z, int edge, int corner);
    void (*updateEditing)(int x, int z, int ignored1, int ignored2, int ignored3, int amount);
    void (*stopEditing)();
    void (*updateCursor)(int x, int z, int edge, int corner);
};

/// The exports of the toolkit itself.
const EditorCalls& toolkitCalls();
