#pragma once

#include "engine/memory/memory_map.h"
#include "terrain/map_editor_model.h"

/// The editor under test, as a session drives it.
class CSessionDriver {
public:
    virtual ~CSessionDriver() = default;

    virtual void open(CMemoryMap& map) = 0;
    virtual void clickClose() = 0;
    /// A close request to the window, as from its frame.
    virtual void closeWindow() = 0;
    virtual void destroy() = 0;
    virtual void destroySettings() = 0;
    virtual void start(int x, int z, int edge, int corner) = 0;
    virtual void update(int x, int z, int amount) = 0;
    virtual void stop() = 0;
    virtual void hover(int x, int z, int edge, int corner) = 0;

    /// True when the panel has controls: then its buttons may be disabled, and a read of them changes what
    /// they cannot show.
    virtual bool hasControls() const = 0;
    virtual void clickTab() = 0;
    virtual void clickTool(int tool) = 0;
    virtual void clickBrush(int brush) = 0;
    virtual void clickSelectAll() = 0;
    virtual void clickDeselect() = 0;
    virtual void clickUndo() = 0;
    virtual int shownFill() const = 0;

    virtual bool isOpen() const = 0;
    virtual bool isEditing() const = 0;
    /// Null while the editor is closed.
    virtual CMapEditorModel* model() const = 0;
};
