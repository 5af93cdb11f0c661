#pragma once

#include "engine/memory/memory_map.h"
#include "terrain/model/map_editor_model.h"

#include <memory>

/// The editor under test, as a session drives it: by the calls of the host and by what the panel's buttons
/// do.
class CSessionDriver {
public:
    virtual ~CSessionDriver() = default;

    virtual void open(CMemoryMap& map) = 0;
    virtual void destroy() = 0;
    virtual void destroySettings() = 0;
    virtual void start(int x, int z, int edge, int corner) = 0;
    /// `ignored` goes in for the three arguments that are to change nothing.
    virtual void update(int x, int z, int ignored, int amount) = 0;
    virtual void stop() = 0;
    virtual void hover(int x, int z, int edge, int corner) = 0;
    virtual bool isOpen() const = 0;
    virtual bool isEditing() const = 0;
    /// Null while the editor is closed.
    virtual CMapEditorModel* model() const = 0;

    /// A close request to the window, as from its frame.
    virtual void closeWindow() = 0;
    virtual void click(int id) = 0;
    virtual void clickTab() = 0;
    /// The colour that the Tint tool drives the points towards.
    virtual void setToolTint(const qxCColour& colour) = 0;
};

/// The map editor without its panel.
std::unique_ptr<CSessionDriver> makeCoreDriver();
