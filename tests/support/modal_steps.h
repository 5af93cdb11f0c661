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
/// step before it. A step must end its window, or open the next one. A window that nobody expected and one
/// that its step left open fail the test and are closed.
class CModalSteps : public QObject {
public:
    using Step = std::function<void(QWidget*)>;

    explicit CModalSteps(std::vector<Step> steps) : m_steps(std::move(steps)) { wait(); }

    bool areDone() const { return m_nNext == m_steps.size(); }

private:
    void wait() {
        QTimer::singleShot(1, this, [this] { look(); });
    }

    void look() {
        QWidget* const shown = QApplication::activeModalWidget();
        wait(); // a window that a step opens is for the next one
        if (shown == nullptr || !shown->isActiveWindow() ||
            std::ranges::count(m_seen, shown, &QPointer<QWidget>::data) != 0) {
            return;
        }
        const QPointer<QWidget> window = m_seen.emplace_back(shown);
        if (areDone()) {
            ADD_FAILURE() << "unexpected window: " << shown->windowTitle().toStdString();
        } else {
            const Step& step = m_steps[m_nNext++];
            step(shown);
        }
        if (window != nullptr && window->isVisible()) {
            ADD_FAILURE() << "window left open: " << window->windowTitle().toStdString();
            window->close();
        }
    }

    std::vector<Step> m_steps;
    std::vector<QPointer<QWidget>> m_seen;
    std::size_t m_nNext = 0;
};
