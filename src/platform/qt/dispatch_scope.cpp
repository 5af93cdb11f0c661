#include "platform/qt/dispatch_scope.h"

#include <QApplication>

#include <utility>
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

/// Deletes what has ended once Qt deletes this, which is from the event loop. A modal window may have opened
/// since, out of Qt's hands on one of the objects, such as the activation of a window that has just ended:
/// then they wait for its end too.
class CBurial : public QObject {
public:
    explicit CBurial(std::vector<QPointer<QObject>> objects) : m_objects(std::move(objects)) {}
    ~CBurial() override {
        for (const QPointer<QObject>& object : m_objects) {
            if (object != nullptr) {
                deleteWhenIdle(object);
            }
        }
    }

private:
    std::vector<QPointer<QObject>> m_objects;
};

} // namespace

CDispatchScope::CDispatchScope() {
    ++g_depth;
}

CDispatchScope::~CDispatchScope() {
    if (--g_depth == 0 && !ended().empty()) {
        (new CBurial(std::exchange(ended(), {})))->deleteLater();
    }
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
