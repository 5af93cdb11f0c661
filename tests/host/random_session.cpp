#include "host/random_session.h"

#include "resources/resource_ids.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int INT_LOW = std::numeric_limits<int>::min();
constexpr int INT_HIGH = std::numeric_limits<int>::max();
constexpr std::size_t LOG_LENGTH = 25;

} // namespace

CRandomSession::CRandomSession(CSessionDriver& driver, CReferenceEditor& reference, std::uint64_t seed,
                               int closings)
    : m_driver(driver)
    , m_reference(reference)
    , m_nClosings(closings)
    , m_random(seed)
    , m_actualMaps{{{32, &m_actualScene}, {13, nullptr}}}
    , m_expectedMaps{{{32, &m_expectedScene}, {13, nullptr}}}
    , m_nSeed(seed) {
    m_reference.isEditing = driver.isEditing();
    makeMaps();
}

bool CRandomSession::run(std::int64_t count) {
    for (std::int64_t i = 0; i < count; ++i) {
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
        click(IDC_UNDO);
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
    if (m_driver.isOpen()) {
        operateOpen();
    } else {
        operateClosed();
    }
}

void CRandomSession::operateClosed() {
    const int kind = pick(1, 100);
    if (kind <= 60) {
        open();
    } else if (kind <= 75) {
        workOnMap();
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
    } else if (kind <= 640) {
        setMembers();
    } else if (kind <= 730) {
        clickTool();
    } else if (kind <= 780) {
        usePanel();
    } else if (kind <= 900) {
        strayCall();
    } else if (kind <= 960) {
        click(IDC_UNDO);
    } else if (kind <= 983) {
        click(kind <= 975 ? IDC_SELECT_ALL : IDC_DESELECT);
    } else if (kind <= 996) {
        both("tab", [](auto& editor) { editor.clickTab(); });
    } else {
        open(); // a second time: ignored
    }
}

void CRandomSession::open() {
    const bool wasOpen = m_driver.isOpen();
    if (!wasOpen && chance(10)) {
        m_nMap = 1 - m_nMap;
    }
    note(text("open map", m_nMap));
    m_driver.open(m_actualMaps[m_nMap]);
    m_reference.open(m_expectedMaps[m_nMap]);
}

void CRandomSession::close() {
    const int way = pick(0, 2);
    if (way == 0) {
        click(IDC_CLOSE);
    } else if (way == 1) {
        both("close window", [](auto& editor) { editor.closeWindow(); });
    } else {
        both("destroy", [](auto& editor) { editor.destroy(); });
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
        const int ignored = pick(-1, 6); // may read like the edge and the corner of another place
        both(text("update", m_nX, m_nZ, ignored, amount),
             [=, this](auto& editor) { editor.update(m_nX, m_nZ, ignored, amount); });
    } else if (kind <= 950) {
        const int edge = pick(-1, 6);
        const int corner = pick(-1, 4);
        both(text("hover", m_nX, m_nZ, edge, corner),
             [=, this](auto& editor) { editor.hover(m_nX, m_nZ, edge, corner); });
    } else if (kind <= 997) {
        both("stop", [](auto& editor) { editor.stop(); });
    } else if (pick(1, 1000) <= m_nClosings) {
        both("destroy", [](auto& editor) { editor.destroy(); });
    } else if (pick(1, 1000) <= m_nClosings) {
        both("destroy settings", [](auto& editor) { editor.destroySettings(); });
    }
}

void CRandomSession::click(int id) {
    both(text("click", id), [id](auto& editor) { editor.click(id); });
}

void CRandomSession::clickTool() {
    const std::vector<int>& tools = CReferenceEditor::TOOLS;
    const int lastTool = m_reference.panel.isDetailsTab ? 7 : 12;
    click(chance(25)   ? anyOf(CReferenceEditor::BRUSHES)
          : chance(97) ? tools[static_cast<std::size_t>(pick(0, lastTool))]
                       : anyOf(tools));
}

/// Members of the model set past the controls, which then follow as far as they can.
void CRandomSession::setMembers() {
    CMapEditorModel& model = *m_driver.model();
    ReferencePanel& panel = m_reference.panel;
    switch (pick(0, 5)) {
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
        setDetailTexture();
        break;
    default:
        model.m_nTool = panel.tool = chance(20) ? pick(-1, 15) : pick(0, 12);
        note(text("set tool", panel.tool));
        break;
    }
    model.showMembers();
}
