#include "host/random_session.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int INT_LOW = std::numeric_limits<int>::min();
constexpr int INT_HIGH = std::numeric_limits<int>::max();
constexpr std::size_t LOG_LENGTH = 25;

} // namespace

CRandomSession::CRandomSession(CReferenceEditor& reference, std::uint64_t seed, int closings)
    : m_reference(reference)
    , m_nClosings(closings)
    , m_random(seed)
    , m_actualMaps{{{32, &m_scene}, {13, nullptr}}}
    , m_expectedMaps{{{32, &m_scene}, {13, nullptr}}}
    , m_nSeed(seed) {
    makeMaps();
}

bool CRandomSession::run(std::int64_t count) {
    for (std::int64_t i = 0; i < count; ++i) {
        operate();
        ++m_nDone;
        if (!compare()) {
            return false;
        }
    }
    return true;
}

CRandomSession::~CRandomSession() {
    m_driver.destroy();
    m_reference.destroy();
    m_driver.destroySettings();
    m_reference.destroySettings();
}

bool CRandomSession::undoAll() {
    if (m_driver.model() == nullptr) {
        open();
    }
    while (!m_reference.history.empty()) {
        both("undo", [](auto& editor) { editor.undo(); });
        if (!compare()) {
            return false;
        }
    }
    return true;
}

int CRandomSession::wild() {
    switch (pick(0, 5)) {
    case 0:
        return INT_LOW + pick(0, 3);
    case 1:
        return INT_HIGH - pick(0, 5);
    case 2:
        return pick(-70'000, 70'000);
    case 3:
        return pick(INT_LOW, INT_HIGH);
    default:
        return pick(-40, 80);
    }
}

int CRandomSession::coordinate(int near) {
    const int last = m_actualMaps[m_nMap].getGridDim();
    const int kind = pick(1, 100);
    if (kind <= 3) {
        return wild();
    }
    if (kind <= 50 && near >= 0 && near <= last) {
        return std::clamp(near + pick(-2, 2), -1, last + 1);
    }
    return kind <= 60 ? pick(-6, last + 6) : pick(0, last - 1);
}

/// Somewhere, on the Details tab often to a detail, wherever it was dragged.
void CRandomSession::movePointer() {
    const CDetailList& details = m_expectedMaps[m_nMap].getDetails();
    if (m_reference.panel.isDetailsTab && details.size() > 0 && chance(45)) {
        const qxCMapDetailRecord& detail = details[pick(0, details.size() - 1)];
        const qxCVector3d middle = (detail.point1 + detail.point2) * 0.5F;
        if (std::abs(middle.x) + std::abs(middle.z) < 1000.0F) {
            m_nX = static_cast<int>(std::floor(middle.x));
            m_nZ = static_cast<int>(std::floor(middle.z));
            return;
        }
    }
    m_nX = coordinate(m_nX);
    m_nZ = coordinate(m_nZ);
}

void CRandomSession::note(const std::string& operation) {
    m_log.push_back(operation);
    if (m_log.size() > LOG_LENGTH) {
        m_log.pop_front();
    }
}

void CRandomSession::operate() {
    if (m_driver.model() != nullptr) {
        operateOpen();
    } else if (chance(70)) {
        open();
    } else {
        workOnMap();
    }
}

void CRandomSession::operateOpen() {
    if (pick(1, 10'000) <= m_nClosings) {
        close();
        return;
    }
    const int kind = pick(1, 1000);
    if (kind <= 500) {
        stroke();
    } else if (kind <= 770) {
        setMembers();
    } else if (kind <= 780) {
        workOnMap();
    } else if (kind <= 900) {
        strayCall();
    } else if (kind <= 960) {
        both("undo", [](auto& editor) { editor.undo(); });
    } else if (kind <= 975) {
        both("select all", [](auto& editor) { editor.selectAll(); });
    } else if (kind <= 983) {
        both("deselect", [](auto& editor) { editor.deselect(); });
    } else {
        both("tab", [](auto& editor) { editor.clickTab(); });
    }
}

void CRandomSession::open() {
    m_nMap = chance(10) ? 1 - m_nMap : m_nMap;
    note(text("open map", m_nMap));
    m_driver.open(m_actualMaps[m_nMap]);
    m_reference.open(m_expectedMaps[m_nMap]);
}

void CRandomSession::close() {
    const bool byUser = chance(66);
    both(byUser ? "close" : "destroy", [=](auto& editor) { byUser ? editor.close() : editor.destroy(); });
    if (chance(10)) {
        both("destroy settings", [](auto& editor) { editor.destroySettings(); });
    }
}

void CRandomSession::stroke() {
    movePointer();
    const int edge = chance(96) ? pick(0, 5) : wild();
    const int corner = chance(96) ? pick(0, 3) : wild();
    both(text("start", m_nX, m_nZ, edge, corner),
         [=, this](auto& editor) { editor.start(m_nX, m_nZ, edge, corner); });
    for (int updates = pick(0, 4); updates > 0; --updates) {
        strayCall();
    }
    if (chance(95)) {
        both("stop", [](auto& editor) { editor.stop(); });
    }
}

/// One call of the host, in or out of order.
void CRandomSession::strayCall() {
    const int kind = pick(1, 1000);
    movePointer();
    if (kind <= 800) {
        const int amount = chance(94) ? pick(-60, 60) : wild();
        both(text("update", m_nX, m_nZ, amount),
             [=, this](auto& editor) { editor.update(m_nX, m_nZ, amount); });
    } else if (kind <= 950) {
        const int edge = pick(-1, 6);
        const int corner = pick(-1, 4);
        both(text("hover", m_nX, m_nZ, edge, corner),
             [=, this](auto& editor) { editor.hover(m_nX, m_nZ, edge, corner); });
    } else {
        both("stop", [](auto& editor) { editor.stop(); });
    }
}

/// What the panel's controls set, and what only a host that meddles can.
void CRandomSession::setMembers() {
    CTestPanel& model = *m_driver.model();
    ReferencePanel& panel = m_reference.panel;
    switch (pick(0, 8)) {
    case 0:
    case 1:
        model.m_nBrushSize = panel.brush = chance(95) ? pick(0, 5) : pick(-1, 7);
        break;
    case 2:
        model.m_nStrength = panel.strength = chance(93) ? pick(1, 10) : chance(50) ? 0 : wild();
        break;
    case 3:
        model.m_nHeight = panel.height = chance(95) ? pick(0, 1023) : wild();
        break;
    case 4:
        panel.hideCursor = chance(15);
        model.m_bHideCursor = panel.hideCursor ? 1 : 0;
        break;
    case 5:
        setDetailTexture();
        break;
    case 6:
        model.tint = panel.toolTint = anyColour();
        break;
    default:
        model.m_nTool = panel.tool = chance(3) ? pick(-1, 15) : pick(0, panel.isDetailsTab ? 7 : 12);
        break;
    }
    note(text("tool", panel.tool, "brush", panel.brush, "strength", panel.strength, "height", panel.height,
              "tint", panel.toolTint.r, panel.toolTint.g, panel.toolTint.b));
}

void CRandomSession::setDetailTexture() {
    constexpr int MOST_DETAILS = 24; // a map full of them would only make the session slow
    const bool some = m_reference.map->getDetails().size() < MOST_DETAILS && chance(70);
    qxCTexture* const texture = some ? m_scene.getTexture(pick(0, 2)) : nullptr;
    m_driver.model()->m_pDetailTexture = m_reference.panel.detailTexture = texture;
}

void CRandomSession::makeMaps() {
    for (int i = 0; i < 3; ++i) {
        m_scene.addTexture(m_scene.createTexture());
    }
    for (auto* const maps : {&m_actualMaps, &m_expectedMaps}) {
        for (CMemoryMap& map : *maps) {
            *map.addMultiTexture() = {{90, 80, 70, 255}, {200, 190, 20, 255}, 0.7F, 0.5F};
            map.setTexture(qxMapLayerRough, m_scene.getTexture(1));
            map.heightScale = 0.5F;
            map.waterLevel = 30.25F;
        }
    }
}

/// What the host changes of its map that a stroke then reads.
void CRandomSession::workOnMap() {
    const qxCMapMultiTexture definition = {anyColour(), anyColour(), 0.25F, 0.95F};
    const int kind = pick(0, 3);
    const int number = pick(0, 4);
    note(text("work on map", kind, number));
    for (CMemoryMap* const map : {&m_actualMaps[m_nMap], &m_expectedMaps[m_nMap]}) {
        if (kind == 0) {
            map->waterLevel = static_cast<float>(number) * 12.3F;
        } else if (kind == 1) {
            *map->addMultiTexture() = definition;
        } else if (kind == 2) {
            map->removeMultiTexture(number);
        } else {
            map->setCurrentMultiTexture(number);
        }
    }
}
