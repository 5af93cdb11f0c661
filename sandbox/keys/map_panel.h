#pragma once

#include "sandbox/keys/map_tools.h"

#include <QAbstractButton>

class QTabBar;

/// Eyes and hands on the map editor's panel. Everything is done by its own controls, so that it shows what
/// happened; while it is closed, or a control cannot be used, nothing is done.
class CMapPanel {
public:
    /// The panel's window, or null.
    static QWidget* window();
    static bool isOpen() { return window() != nullptr; }
    static bool showsDetails();
    /// Show the other tab.
    static void turnTabs();
    /// False when that button cannot be pressed.
    static bool press(int control);
    /// The same for a button of the half that may be folded away, where none can be pressed: that half comes
    /// up for the moment.
    static bool pressUnfolded(int control);
    static QAbstractButton* button(int control);
    /// The tool that is chosen, or null.
    static const MapTool* chosenTool();
    /// What the tool is on the tab that is shown.
    static const ToolText& textOf(const MapTool& tool) {
        return showsDetails() ? tool.details : tool.terrain;
    }
    /// The button of the brush that is chosen; 0 for none.
    static int chosenBrush();
    /// 0 to 10; 0 also while the panel is closed.
    static int strength();
    static void setStrength(int strength);
    /// Choose a brush so many sizes larger.
    static void stepBrush(int steps);
    /// Move the strength slider so many steps to the right.
    static void stepStrength(int steps);

private:
    static QTabBar* tabs();
};
