#pragma once

#include "terrain/panel/map_editor_buttons.h"

#include "platform/framework.h"

#include <array>

/// The two tabs over the tool buttons, in their order.
enum ToolTab { TERRAIN_TAB, DETAILS_TAB };

/// What the tool buttons of the panel show and offer on each tab.
class CToolButtons {
public:
    /// `fullEditing` allows the tools of the Terrain tab, and those of the Details tab that need it.
    explicit CToolButtons(bool fullEditing) : m_bFullEditing(fullEditing) {}

    /// Learn the captions of the Terrain tab's tools from the panel, which shows them.
    void readCaptions(const CWnd& panel);
    void show(CWnd& panel, ToolTab tab) const;

private:
    const bool m_bFullEditing;
    std::array<CString, TOOL_BUTTONS.size()> m_terrainCaptions;
};
