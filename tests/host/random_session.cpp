#include "host/random_session.h"

#include <algorithm>
#include <limits>

namespace {

constexpr int INT_LOW = std::numeric_limits<int>::min();
constexpr int INT_HIGH = std::numeric_limits<int>::max();
constexpr int MOST_DETAILS = 24;
constexpr std::size_t LOG_LENGTH = 25;

} // namespace

CRandomSession::CRandomSession(CSessionDriver& driver, CReferenceEditor& reference, std::uint64_t seed,
                               int closings)
    : m_driver(driver)
    , m_reference(reference)
    , m_nClosings(closings)
    , m_random(seed)
    , m_actualMaps{{{32, nullptr}, {13, nullptr}}}
    , m_expectedMaps{{{32, nullptr}, {13, nullptr}}}
    , m_nSeed(seed) {
    paintDefinitions();
}

void CRandomSession::paintDefinitions() {
    for (std::size_t i = 0; i < m_actualMaps.size(); ++i) {
        for (CMemoryMap* map : {&m_actualMaps[i], &m_expectedMaps[i]}) {
            qxCMapMultiTexture* const rock = map->addMultiTexture();
            rock->tint1 = {90, 80, 70, 255};
            rock->tint2 = {200, 190, 20, 255};
            rock->blend = 0.7F;
            rock->variation = 0.5F;
            map->heightScale = 0.5F;
            map->waterLevel = 30.25F;
        }
    }
}

bool CRandomSession::run(std::int64_t count) {
    for (std::int64_t i = 0; i < count; ++i) {
        if (const CMapEditorModel* const model = m_driver.model()) {
            m_reference.tint = model->getToolTint();
        }
        operate();
        ++m_nDone;
        m_nPeakHistory = std::max(m_nPeakHistory, m_reference.history.size());
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
    if (!m_driver.isOpen()) {
        open();
    }
    while (!m_reference.history.empty()) {
        clickUndo();
        if (!compare()) {
            return false;
        }
    }
    return true;
}

int CRandomSession::pick(int low, int high) {
    return std::uniform_int_distribution<int>(low, high)(m_random);
}

bool CRandomSession::chance(int percent) {
    return pick(1, 100) <= percent;
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

void CRandomSession::note(const std::string& operation) {
    m_log.push_back(operation);
    if (m_log.size() > LOG_LENGTH) {
        m_log.pop_front();
    }
}

void CRandomSession::operate() {
    if (m_driver.isOpen()) {
        operateOpen();
    } else {
        operateClosed();
    }
}

void CRandomSession::operateClosed() {
    if (chance(60)) {
        open();
    } else {
        strayCall();
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
    } else if (kind <= 780) {
        changePanel();
    } else if (kind <= 860) {
        strayCall();
    } else if (kind <= 960) {
        clickUndo();
    } else if (kind <= 975) {
        note("select all");
        m_driver.clickSelectAll();
        m_reference.selectAll();
    } else if (kind <= 983) {
        note("de-select");
        m_driver.clickDeselect();
        m_reference.deselect();
    } else if (kind <= 996) {
        clickTab();
    } else {
        open(); // a second time: ignored
    }
}

void CRandomSession::open() {
    if (!m_driver.isOpen() && chance(10)) {
        m_nMap = 1 - m_nMap;
    }
    note(text("open map", m_nMap));
    m_driver.open(m_actualMaps[m_nMap]);
    m_reference.open(&m_expectedMaps[m_nMap]);
}

void CRandomSession::close() {
    const int way = pick(0, 2);
    if (way == 0) {
        note("close");
        m_driver.clickClose();
        m_reference.closeByUser();
    } else if (way == 1) {
        note("close window");
        m_driver.closeWindow();
        m_reference.closeByUser();
    } else {
        note("destroy");
        m_driver.destroy();
        m_reference.destroy();
    }
}

void CRandomSession::stroke() {
    m_nX = coordinate(m_nX);
    m_nZ = coordinate(m_nZ);
    const int edge = chance(96) ? pick(0, 5) : wild();
    const int corner = chance(96) ? pick(0, 3) : wild();
    note(text("start", m_nX, m_nZ, edge, corner));
    m_driver.start(m_nX, m_nZ, edge, corner);
    m_reference.startEditing(m_nX, m_nZ, edge, corner);
    for (int updates = pick(0, 4); updates > 0; --updates) {
        strayCall();
    }
    if (chance(95)) {
        note("stop");
        m_driver.stop();
        m_reference.stopEditing();
    }
}

/// One call of the host, in or out of order.
void CRandomSession::strayCall() {
    const int kind = pick(1, 1000);
    m_nX = coordinate(m_nX);
    m_nZ = coordinate(m_nZ);
    if (kind <= 800) {
        const int amount = chance(94) ? pick(-60, 60) : wild();
        note(text("update", m_nX, m_nZ, amount));
        m_driver.update(m_nX, m_nZ, amount);
        m_reference.updateEditing(m_nX, m_nZ, amount);
    } else if (kind <= 950) {
        const int edge = pick(-1, 6);
        const int corner = pick(-1, 4);
        note(text("hover", m_nX, m_nZ, edge, corner));
        m_driver.hover(m_nX, m_nZ, edge, corner);
        m_reference.hover(m_nX, m_nZ, edge, corner);
    } else if (kind <= 997) {
        note("stop");
        m_driver.stop();
        m_reference.stopEditing();
    } else if (pick(1, 1000) <= m_nClosings) {
        note("destroy");
        m_driver.destroy();
        m_reference.destroy();
    } else if (pick(1, 1000) <= m_nClosings) {
        note("destroy settings");
        m_driver.destroySettings();
        m_reference.destroySettings();
    }
}

void CRandomSession::clickUndo() {
    note("undo");
    m_driver.clickUndo();
    if (!m_driver.hasControls() || m_reference.panel.undoEnabled) {
        m_reference.undo();
    }
}

void CRandomSession::clickTab() {
    note("tab");
    m_driver.clickTab();
    if (m_driver.hasControls()) {
        m_reference.readControls();
    }
    m_reference.changeTab();
}

void CRandomSession::clickTool() {
    const int lastTool = m_reference.panel.isDetailsTab ? 7 : 12;
    const int tool = pick(0, chance(97) ? lastTool : 14);
    note(text("tool", tool));
    m_driver.clickTool(tool);
    if (m_driver.hasControls()) {
        if (tool > lastTool) {
            return; // its button is disabled
        }
        m_reference.readControls();
    }
    m_reference.panel.tool = tool;
    m_reference.refreshBrushes();
}

void CRandomSession::clickBrush() {
    const int brush = pick(0, 5);
    note(text("brush", brush));
    m_driver.clickBrush(brush);
    if (m_driver.hasControls()) {
        if (!m_reference.panel.brushesEnabled) {
            return;
        }
        m_reference.readControls();
    }
    m_reference.panel.brush = brush;
}

void CRandomSession::changePanel() {
    CMapEditorModel& model = *m_driver.model();
    CReferenceEditor::Panel& panel = m_reference.panel;
    switch (pick(0, 9)) {
    case 0:
        model.m_nBrushSize = panel.brush = chance(95) ? pick(0, 5) : pick(-1, 7);
        note(text("set brush", panel.brush));
        break;
    case 1:
        model.m_nStrength = panel.strength = chance(93) ? pick(1, 10) : chance(50) ? 0 : wild();
        note(text("set strength", panel.strength));
        break;
    case 2:
        model.m_nHeight = panel.height = chance(95) ? pick(0, 1023) : wild();
        note(text("set height", panel.height));
        break;
    case 3:
        panel.hideCursor = chance(15);
        model.m_bHideCursor = panel.hideCursor ? 1 : 0;
        note(text("set hide cursor", panel.hideCursor));
        break;
    case 4:
        // A map full of details would only make the session slow.
        panel.detailTexture =
            m_reference.map->getDetails().size() < MOST_DETAILS && chance(70) ? &m_detailTexture : nullptr;
        model.m_pDetailTexture = panel.detailTexture;
        note(text("set detail texture", panel.detailTexture != nullptr));
        return;
    case 5:
        model.m_nTool = panel.tool = chance(20) ? pick(-1, 15) : pick(0, 12);
        note(text("set tool", panel.tool));
        break;
    case 6:
        clickBrush();
        return;
    default:
        clickTool();
        return;
    }
    model.showMembers(); // the controls follow as far as they can
}
