#include "sandbox/core/long_work.h"

namespace {

thread_local CLongWork::CPart* t_pPart = nullptr;

} // namespace

CLongWork::CPart::CPart(CLongWork* work, double share) : m_pWork(work), m_fShare(share), m_pOuter(t_pPart) {
    t_pPart = this;
}

CLongWork::CPart::~CPart() {
    if (m_pWork != nullptr) {
        m_pWork->add((1.0 - m_fReached) * m_fShare);
    }
    t_pPart = m_pOuter;
}

CLongWork* CLongWork::current() {
    return t_pPart != nullptr ? t_pPart->m_pWork : nullptr;
}

bool CLongWork::reach(double fraction) {
    CPart* const part = t_pPart;
    if (part == nullptr || part->m_pWork == nullptr) {
        return true;
    }
    part->m_pWork->add((fraction - part->m_fReached) * part->m_fShare);
    part->m_fReached = fraction;
    return !part->m_pWork->isCalledOff();
}
