#include "host/random_session.h"

#include "terrain/map_undo_list.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iostream>
#include <limits>
#include <sstream>

namespace {

constexpr int INT_LOW = std::numeric_limits<int>::min();
constexpr int INT_HIGH = std::numeric_limits<int>::max();
constexpr int MOST_DETAILS = 24;
constexpr std::size_t LOG_LENGTH = 25;

template <typename... Values> std::string text(const char* name, const Values&... values) {
    std::ostringstream stream;
    stream << name;
    ((stream << ' ' << values), ...);
    return stream.str();
}

template <typename T> bool haveSameBytes(std::span<const T> a, std::span<const T> b) {
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size_bytes()) == 0;
}

/// Index of the first point at which two maps' layers differ.
template <typename T> std::int64_t firstDifference(std::span<const T> a, std::span<const T> b) {
    return std::ranges::mismatch(a, b).in1 - a.begin();
}

bool isSame(float a, float b) {
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool isSame(const qxCVector3d& a, const qxCVector3d& b) {
    return isSame(a.x, b.x) && isSame(a.y, b.y) && isSame(a.z, b.z);
}

int indexOf(const CMemoryMap& map, const qxCMapDetailRecord* detail) {
    for (int i = 0; i < map.getDetails().size(); ++i) {
        if (&map.getDetails()[i] == detail) {
            return i;
        }
    }
    return detail == nullptr ? -1 : -2;
}

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
        note("undo");
        m_driver.clickUndo();
        m_reference.undo();
        if (!compare()) {
            return false;
        }
    }
    return true;
}

// --- choosing
// -----------------------------------------------------------------------------------------------

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

// --- operations
// ---------------------------------------------------------------------------------------------

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
        note("undo");
        m_driver.clickUndo();
        m_reference.undo();
    } else if (kind <= 975) {
        note("select all");
        m_driver.clickSelectAll();
        m_reference.selectAll();
    } else if (kind <= 983) {
        note("de-select");
        m_driver.clickDeselect();
        m_reference.deselect();
    } else if (kind <= 996) {
        note("tab");
        m_driver.changeTab();
        m_reference.changeTab();
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
    if (chance(60)) {
        note("close");
        m_driver.closeByUser();
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

void CRandomSession::changeTool() {
    const int tool = chance(97) ? pick(0, m_reference.panel.isDetailsTab ? 7 : 12) : pick(-1, 15);
    note(text("tool", tool));
    m_driver.model()->m_nTool = m_reference.panel.tool = tool;
}

void CRandomSession::changePanel() {
    CMapEditorModel& model = *m_driver.model();
    CReferenceEditor::Panel& panel = m_reference.panel;
    switch (pick(0, 8)) {
    case 0:
        model.m_nBrushSize = panel.brush = chance(95) ? pick(0, 5) : pick(-1, 7);
        note(text("brush", panel.brush));
        return;
    case 1:
        model.m_nStrength = panel.strength = chance(93) ? pick(1, 10) : chance(50) ? 0 : wild();
        note(text("strength", panel.strength));
        return;
    case 2:
        model.m_nHeight = panel.height = chance(95) ? pick(0, 1023) : wild();
        note(text("height", panel.height));
        return;
    case 3:
        panel.hideCursor = chance(15);
        model.m_bHideCursor = panel.hideCursor ? 1 : 0;
        note(text("hide", panel.hideCursor));
        return;
    case 4:
        // A map full of details would only make the session slow.
        panel.detailTexture =
            m_reference.map->getDetails().size() < MOST_DETAILS && chance(70) ? &m_detailTexture : nullptr;
        model.m_pDetailTexture = panel.detailTexture;
        note(text("detail texture", panel.detailTexture != nullptr));
        return;
    case 5:
        m_reference.tint = {pick(0, 255), pick(0, 255), pick(0, 255), 255};
        m_driver.setTint(m_reference.tint);
        note("tint");
        return;
    default:
        return changeTool();
    }
}

// --- comparing
// ----------------------------------------------------------------------------------------------

bool CRandomSession::report(const std::string& what) {
    std::cerr << "seed " << m_nSeed << ", operation " << m_nDone << ": different " << what
              << "\nthe last operations:\n";
    for (const std::string& line : m_log) {
        std::cerr << "  " << line << '\n';
    }
    return false;
}

bool CRandomSession::isEqual(const char* what, std::int64_t actual, std::int64_t expected) {
    return actual == expected || report(text(what, actual, "instead of", expected));
}

bool CRandomSession::compare() {
    const CMemoryMap& actual = m_actualMaps[m_nMap];
    const CMemoryMap& expected = m_expectedMaps[m_nMap];
    const auto sameCursor = [](const CEditCursor& a, const CEditCursor& b) {
        return a.x == b.x && a.z == b.z && a.kind == b.kind;
    };
    if (!haveSameBytes(actual.getHeights(), expected.getHeights())) {
        const auto point = firstDifference(actual.getHeights(), expected.getHeights());
        const auto i = static_cast<std::size_t>(point);
        return report(text("heights: at point", point, actual.getHeights()[i], "instead of",
                           expected.getHeights()[i], "strength", m_reference.panel.strength));
    }
    if (!haveSameBytes(actual.getColours(), expected.getColours())) {
        return report("colours");
    }
    if (!haveSameBytes(actual.getBlends(), expected.getBlends())) {
        return report("blends");
    }
    if (!haveSameBytes(actual.getWaterFlags(), expected.getWaterFlags())) {
        return report("water");
    }
    if (!haveSameBytes(actual.getMarkers(), expected.getMarkers())) {
        return report("markers");
    }
    if (!std::ranges::equal(actual.getEditCursors(), expected.getEditCursors(), sameCursor)) {
        return report("edit cursors");
    }
    return compareDetails() &&
           isEqual("history", g_mapUndoList.getCount(),
                   static_cast<std::int64_t>(m_reference.history.size())) &&
           isEqual("open flag", m_driver.isOpen(), m_reference.isOpen) &&
           isEqual("editing flag", m_driver.isEditing(), m_reference.isEditing) &&
           (!m_reference.isOpen || comparePanel());
}

bool CRandomSession::compareDetails() {
    const CDetailList& actual = m_actualMaps[m_nMap].getDetails();
    const CDetailList& expected = m_expectedMaps[m_nMap].getDetails();
    if (!isEqual("details", actual.size(), expected.size())) {
        return false;
    }
    for (int i = 0; i < actual.size(); ++i) {
        const qxCMapDetailRecord& a = actual[i];
        const qxCMapDetailRecord& b = expected[i];
        if (a.texture != b.texture || a.type != b.type || a.highlighted != b.highlighted ||
            !isSame(a.scalar, b.scalar) || !isSame(a.point0, b.point0) || !isSame(a.point1, b.point1) ||
            !isSame(a.point2, b.point2)) {
            return report(text("detail", i));
        }
    }
    return true;
}

bool CRandomSession::comparePanel() {
    const CMapEditorModel& model = *m_driver.model();
    const CReferenceEditor::Panel& panel = m_reference.panel;
    const MapSelection& selection = model.m_selection;
    if (!isSame(model.m_fGradient, panel.gradient)) {
        return report("gradient");
    }
    return isEqual("tab", model.isDetailsTab(), panel.isDetailsTab) &&
           isEqual("tool", model.m_nTool, panel.tool) &&
           isEqual("other tool", model.m_nOtherTabTool, panel.otherTool) &&
           isEqual("brush", model.m_nBrushSize, panel.brush) &&
           isEqual("strength", model.m_nStrength, panel.strength) &&
           isEqual("height", model.m_nHeight, panel.height) &&
           isEqual("current detail", indexOf(m_actualMaps[m_nMap], model.m_pCurrentDetail),
                   indexOf(m_expectedMaps[m_nMap], panel.detail)) &&
           isEqual("selection", selection.exists, panel.selected) &&
           isEqual("selection x0", selection.x0, panel.x0) &&
           isEqual("selection z0", selection.z0, panel.z0) &&
           isEqual("selection x1", selection.x1, panel.x1) &&
           isEqual("selection z1", selection.z1, panel.z1) &&
           isEqual("stroke x", model.m_stroke.x, panel.x) && isEqual("stroke z", model.m_stroke.z, panel.z) &&
           isEqual("first update", model.m_stroke.firstUpdate, panel.first);
}
