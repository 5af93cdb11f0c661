#pragma once

#include "engine/memory/memory_map.h"

#include <QWidget>

#include <string>
#include <vector>

/// What holds of the map panel at rest, whatever was done to it: between two events, with no dialog over it.
class CPanelInvariants {
public:
    /// The panel was opened on this map, which starts a history or goes on with one.
    void begin(CMemoryMap& map, bool fullEditing);
    /// The host changed of the map what the panel shows, and the panel is not told.
    void noteMapEdit() { m_bShownAnew = false; }
    /// The host emptied the history.
    void noteHistoryCleared() { m_bKnowsStart = false; }

    /// False when a rule is broken, which getBroken() then names.
    bool check(const QWidget& panel, CMemoryMap& map);
    const std::string& getBroken() const;
    /// The history and what shows it, right after a stroke was stopped.
    bool checkHistory(const QWidget& panel) const;
    /// Takes everything back by the panel's button: the map is as it was when the history began.
    bool checkUndoToTheEnd(QWidget& panel, CMemoryMap& map);

private:
    bool checkSettings(const QWidget& panel) const;
    bool checkSurface(const QWidget& panel, CMemoryMap& map) const;
    bool checkValues(CMemoryMap& map) const;
    bool checkEnabled(const QWidget& panel) const;
    void rememberStart(CMemoryMap& map);

    bool m_bFullEditing = true;
    bool m_bShownAnew = false;  ///< the panel shows the map as it is
    bool m_bKnowsStart = false; ///< the map when the history was empty, of which it has dropped nothing
    std::vector<std::uint16_t> m_startHeights;
    std::vector<qxCColour> m_startColours;
    std::vector<std::uint16_t> m_startBlends;
};
