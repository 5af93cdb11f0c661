#include "sandbox/app/stroke_hints.h"

#include "sandbox/keys/map_panel.h"
#include "sandbox/view/map_view.h"

#include <QMouseEvent>
#include <QTimer>

#include <utility>

namespace {

constexpr int THIRD_BRUSH = 2010;
constexpr int FIFTH_BRUSH = 2014;

std::uint64_t changesOf(const CMemoryMap& map) {
    std::uint64_t sum = 0;
    for (const MapChange kind :
         {MapChange::HEIGHTS, MapChange::SURFACE, MapChange::DETAILS, MapChange::MATERIAL}) {
        sum += map.getChangeCount(kind);
    }
    return sum;
}

bool isPressed(int control) {
    const QAbstractButton* const button = CMapPanel::button(control);
    return button != nullptr && button->isChecked();
}

QString whyNoFlood(const CMemoryMap& map, const TerrainHit& place) {
    if (map.getPointWater(place.x, place.z)) {
        return CStrokeHints::tr("Flood: there is water here already");
    }
    return CStrokeHints::tr("Flood: the ground here is above the water level of %1")
        .arg(map.getWaterHeight());
}

QString whyNoDetail(const MapTool& tool) {
    const QString name(tool.details.name);
    return name.startsWith("Add") ? CStrokeHints::tr("%1: choose a texture with \"Detail\" first").arg(name)
                                  : CStrokeHints::tr("%1: there is no detail under the pointer").arg(name);
}

/// Nothing for a tool that is not there to change the ground.
QString whyNothing(const MapTool& tool, const CMemoryMap& map, const TerrainHit& place) {
    const QString name(tool.terrain.name);
    const bool weak = CMapPanel::strength() == 0;
    switch (tool.control) {
    case SELECT_TOOL:
    case GET_HEIGHT_TOOL:
    case GET_GRADIENT_TOOL:
        return {};
    case RAISE_TOOL:
    case MAGNET_TOOL:
        return CStrokeHints::tr("%1: drag up or down the screen").arg(name);
    case SET_HEIGHT_TOOL:
        return isPressed(THIRD_BRUSH) || isPressed(FIFTH_BRUSH)
                   ? CStrokeHints::tr("%1: the ground has this height already").arg(name)
                   : CStrokeHints::tr("%1 needs the third or the fifth brush, or a selection").arg(name);
    case FLOOD_TOOL:
        return whyNoFlood(map, place);
    case DRAIN_TOOL:
        return CStrokeHints::tr("%1: there is no water here").arg(name);
    case FLATTEN_TOOL:
        return CStrokeHints::tr("%1: the cell is flat already").arg(name);
    case PAINT_TOOL:
        return weak ? CStrokeHints::tr("%1: the strength is 0").arg(name)
                    : CStrokeHints::tr("%1: the ground is this definition already").arg(name);
    case TINT_TOOL:
        return weak ? CStrokeHints::tr("%1: the strength is 0").arg(name)
                    : CStrokeHints::tr("%1: the ground has this colour already, or is under water").arg(name);
    default:
        return weak ? CStrokeHints::tr("%1: the strength is 0").arg(name)
                    : CStrokeHints::tr("%1: there is nothing to change here").arg(name);
    }
}

} // namespace

CStrokeHints::CStrokeHints(CMapView& view, std::function<const CMemoryMap&()> map,
                           std::function<void(const QString&)> tell)
    : QObject(&view), m_view(view), m_map(std::move(map)), m_tell(std::move(tell)) {
    view.installEventFilter(this);
}

bool CStrokeHints::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease) {
        const auto& mouse = *static_cast<QMouseEvent*>(event);
        if (mouse.button() == Qt::LeftButton && event->type() == QEvent::MouseButtonRelease) {
            QTimer::singleShot(0, this, &CStrokeHints::end); // the view comes first
        } else if (mouse.button() == Qt::LeftButton && !(mouse.modifiers() & Qt::AltModifier)) {
            begin(mouse.position());
        }
    }
    return false;
}

void CStrokeHints::begin(const QPointF& place) {
    const MapTool* const tool = CMapPanel::chosenTool();
    m_start = CMapPanel::isOpen() ? m_view.pick(place) : std::nullopt;
    m_nTool = tool != nullptr ? tool->control : 0;
    m_nChanges = changesOf(m_map());
}

void CStrokeHints::end() {
    const std::optional<TerrainHit> start = std::exchange(m_start, std::nullopt);
    if (!start || !CMapPanel::isOpen() || changesOf(m_map()) != m_nChanges) {
        return;
    }
    const MapTool* const tool = toolOf(m_nTool);
    const QString why = tool == nullptr             ? tr("Choose a tool on the panel first")
                        : CMapPanel::showsDetails() ? whyNoDetail(*tool)
                                                    : whyNothing(*tool, m_map(), *start);
    if (!why.isEmpty()) {
        m_tell(why);
    }
}
