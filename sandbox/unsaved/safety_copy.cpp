#include "sandbox/unsaved/safety_copy.h"

#include <chrono>
#include <new>

namespace {

ProjectFault writeCopy(const QString& folder, Project project, KeptLayers kept, CLongWork* work) {
    const CLongWork::CPart part(work, 0.0);
    try {
        return writeProject(folder, project, kept);
    } catch (const std::bad_alloc&) {
        return {folder, "there is not enough memory"};
    }
}

} // namespace

ProjectFault CSafetyCopy::judge() {
    ProjectFault fault = m_writing.valid() ? m_writing.get() : ProjectFault();
    m_bHolds = m_bHolds && fault.reason.isEmpty();
    return fault;
}

ProjectFault CSafetyCopy::keep(const State& state, const CopyOrigin& origin, const Capture& capture) {
    if (m_writing.valid() && m_writing.wait_for(std::chrono::seconds(0)) != std::future_status::ready) {
        return {};
    }
    if (ProjectFault fault = judge(); !fault.reason.isEmpty()) {
        return fault; // the next time writes all of it again
    }
    if (m_bHolds && state == m_state && origin == m_origin) {
        return {};
    }
    if (!m_copy.isOwned()) {
        if (const QString reason = m_copy.claim(); !reason.isEmpty()) {
            return {CAutomaticCopy::room(), reason};
        }
        m_bHolds = false;
    }
    const KeptLayers kept{m_bHolds && state.heights == m_state.heights,
                          m_bHolds && state.surface == m_state.surface};
    Project project = capture(kept);
    CAutomaticCopy::mark(project, origin);
    m_pWork = std::make_unique<CLongWork>();
    m_writing = std::async(std::launch::async, writeCopy, m_copy.folder(), std::move(project), kept,
                           m_pWork.get());
    m_bHolds = true;
    m_state = state;
    m_origin = origin;
    return {};
}

void CSafetyCopy::settle() {
    if (m_pWork != nullptr) {
        m_pWork->callOff();
    }
    static_cast<void>(judge());
    m_bHolds = false;
}

bool CSafetyCopy::takeOver(const QString& folder) {
    settle();
    return m_copy.takeOver(folder);
}

void CSafetyCopy::drop() {
    settle();
    m_copy.remove();
}
