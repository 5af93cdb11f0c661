#pragma once

#include <QApplication>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

/// Plays the user of modal dialogs: each step runs once, with the next modal window that comes up after the
/// step before it. A step must end its window, or open the next one. One that failed has its window closed,
/// so that the test ends.
class ModalSteps : public QObject {
public:
    using Step = std::function<void(QWidget*)>;

    explicit ModalSteps(std::vector<Step> steps) : m_steps(std::move(steps)) { wait(); }

    bool areDone() const { return m_next == m_steps.size(); }

private:
    void wait() {
        if (!areDone()) {
            QTimer::singleShot(1, this, [this] { look(); });
        }
    }

    void look() {
        QWidget* const shown = QApplication::activeModalWidget();
        if (shown == nullptr || !shown->isActiveWindow() ||
            std::ranges::count(m_seen, shown, &QPointer<QWidget>::data) != 0) {
            wait();
            return;
        }
        const QPointer<QWidget> window = m_seen.emplace_back(shown);
        const Step& step = m_steps[m_next++];
        wait(); // a window that this step opens is for the next one
        step(shown);
        if (testing::Test::HasFatalFailure() && window != nullptr) {
            window->close();
        }
    }

    std::vector<Step> m_steps;
    std::vector<QPointer<QWidget>> m_seen;
    std::size_t m_next = 0;
};
