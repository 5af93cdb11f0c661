#pragma once

#include "engine/memory/memory_map.h"
#include "terrain/map_editor_model.h"

/// The editor under test, as a session drives it.
class CSessionDriver {
public:
    virtual ~CSessionDriver() = default;

    virtual void open(CMemoryMap& map) = 0;
    virtual void closeByUser() = 0;
    virtual void destroy() = 0;
    virtual void destroySettings() = 0;
    virtual void changeTab() = 0;
    virtual void start(int x, int z, int edge, int corner) = 0;
    virtual void update(int x, int z, int amount) = 0;
    virtual void stop() = 0;
    virtual void hover(int x, int z, int edge, int corner) = 0;
    virtual void clickSelectAll() = 0;
    virtual void clickDeselect() = 0;
    virtual void clickUndo() = 0;
    virtual void setTint(const qxCColour& tint) = 0;
    virtual bool isOpen() const = 0;
    virtual bool isEditing() const = 0;
    /// Null while the editor is closed.
    virtual CMapEditorModel* model() = 0;
};
