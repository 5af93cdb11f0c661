#include "platform/qt/dispatch_scope.h"

#include <QApplication>

#include <vector>

namespace qtbackend {

namespace {

int g_depth = 0;
int g_modalRuns = 0;

std::vector<QPointer<QObject>>& ended() {
    static auto& objects = *new std::vector<QPointer<QObject>>;
    return objects;
}

/// The window that the last modal run has given the activation back to, which may take its time.
QPointer<QWidget>& activeAgain() {
    static auto& window = *new QPointer<QWidget>;
    return window;
}

} // namespace

CDispatchScope::CDispatchScope() {
    ++g_depth;
}

CDispatchScope::~CDispatchScope() {
    if (--g_depth > 0) {
        return;
    }
    for (const QPointer<QObject>& object : ended()) {
        if (object != nullptr) {
            object->deleteLater();
        }
    }
    ended().clear();
}

bool CDispatchScope::isActive() {
    return g_depth > 0;
}

void deleteWhenIdle(QObject* object) {
    if (g_depth > 0) {
        ended().emplace_back(object);
    } else {
        delete object;
    }
}

int modalRuns() {
    return g_modalRuns;
}

QWidget* windowInUse() {
    if (QWidget* const active = QApplication::activeWindow()) {
        return active;
    }
    QWidget* const modal = QApplication::activeModalWidget();
    const bool isBack = activeAgain() != nullptr && activeAgain()->isVisible();
    return modal == nullptr && isBack ? activeAgain().data() : modal;
}

CModalRun::CModalRun() : m_pFormerlyActive(windowInUse()) {
    ++g_modalRuns;
}

CModalRun::~CModalRun() {
    if (m_pFormerlyActive != nullptr && m_pFormerlyActive->isVisible()) {
        m_pFormerlyActive->activateWindow();
        activeAgain() = m_pFormerlyActive;
    }
}

} // namespace qtbackend
