#include "module/visit.h"

#include <utility>

namespace {

int g_nVisits = 0; ///< under way, without those at rest under a modal window
CEndOfVisits* g_pFirstWaiting = nullptr;

} // namespace

void CVisit::tellWaiting() {
    while (g_nVisits == 0 && g_pFirstWaiting != nullptr) {
        CEndOfVisits& told = *g_pFirstWaiting;
        g_pFirstWaiting = std::exchange(told.m_pNext, nullptr);
        told.m_bWaiting = false;
        told.onVisitsOver(); // may free it
    }
}

CVisit::CVisit() {
    ++g_nVisits;
}

CVisit::~CVisit() {
    --g_nVisits;
    tellWaiting();
}

void CVisit::whenOver(CEndOfVisits& waiting) {
    if (waiting.m_bWaiting) {
        return;
    }
    if (g_nVisits == 0) {
        waiting.onVisitsOver();
        return;
    }
    waiting.m_bWaiting = true;
    waiting.m_pNext = std::exchange(g_pFirstWaiting, &waiting);
}

CModalPause::CModalPause() : m_nAtRest(std::exchange(g_nVisits, 0)) {
    CVisit::tellWaiting();
}

CModalPause::~CModalPause() {
    g_nVisits = m_nAtRest;
}
