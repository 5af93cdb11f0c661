#pragma once

#include "sandbox/core/terrain_picker.h"

#include <QObject>

#include <functional>
#include <optional>

class CMapView;
class CMemoryMap;

/// Says why a stroke in the view changed nothing: many tools have conditions, and the panel is silent about
/// them.
class CStrokeHints : public QObject {
public:
    /// `map` gives the map at hand; `tell` shows a sentence.
    CStrokeHints(CMapView& view, std::function<const CMemoryMap&()> map,
                 std::function<void(const QString&)> tell);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void begin(const QPointF& place);
    void end();

    CMapView& m_view;
    std::function<const CMemoryMap&()> m_map;
    std::function<void(const QString&)> m_tell;
    std::optional<TerrainHit> m_start; // of the stroke that runs
    int m_nTool = 0;                   // with which it began
    std::uint64_t m_nChanges = 0;      // of the map when it began
};
