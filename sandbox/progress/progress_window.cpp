#include "sandbox/progress/progress_window.h"

#include "sandbox/core/long_work.h"

#include <QDialogButtonBox>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <chrono>
#include <cmath>
#include <future>

CProgressWindow::CProgressWindow(QWidget* window, const QString& title)
    : QDialog(window), m_pTimeLeft(new QLabel(this)), m_pBar(new QProgressBar(this)) {
    constexpr int WIDTH = 380;  // pixels
    constexpr int STEPS = 1000; // of the bar
    setObjectName("progress");
    m_pTimeLeft->setObjectName("time-left");
    setWindowTitle(tr("Terrain sandbox"));
    setWindowModality(Qt::ApplicationModal);
    auto* const what = new QLabel(title, this);
    what->setTextFormat(Qt::PlainText);
    what->setWordWrap(true);
    m_pBar->setRange(0, STEPS);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &CProgressWindow::reject);
    auto* const layout = new QVBoxLayout(this);
    for (QWidget* widget : std::initializer_list<QWidget*>{what, m_pBar, m_pTimeLeft, buttons}) {
        layout->addWidget(widget);
    }
    setMinimumWidth(WIDTH);
    m_clock.start();
}

void CProgressWindow::showDone(double fraction) {
    constexpr double MILLISECONDS = 1000.0;
    m_pBar->setValue(static_cast<int>(fraction * m_pBar->maximum()));
    if (!m_bCalledOff) {
        m_pTimeLeft->setText(timeLeft(static_cast<double>(m_clock.elapsed()) / MILLISECONDS, fraction));
    }
}

void CProgressWindow::reject() {
    m_bCalledOff = true;
    m_pTimeLeft->setText(tr("Calling it off..."));
    findChild<QDialogButtonBox*>()->setEnabled(false);
}

QString timeLeft(double secondsSoFar, double fraction) {
    constexpr double LITTLE = 0.03;
    constexpr double MINUTE = 60.0;
    if (fraction < LITTLE) {
        return {};
    }
    const double left = secondsSoFar * (1.0 - fraction) / fraction;
    return left < MINUTE ? CProgressWindow::tr("about %1 s left").arg(std::ceil(left))
                         : CProgressWindow::tr("about %1 min left").arg(std::ceil(left / MINUTE));
}

bool runLongWork(QWidget* window, const QString& title, const std::function<void()>& work) {
    using namespace std::chrono_literals;
    constexpr auto MOMENT = 300ms; // what is done within it needs no window
    constexpr auto PULSE = 30ms;
    CLongWork told;
    std::future<void> done = std::async(std::launch::async, [&] {
        const CLongWork::CPart whole(&told, 0.0);
        work();
    });
    if (done.wait_for(MOMENT) != std::future_status::ready) {
        CProgressWindow progress(window, title);
        progress.show();
        QEventLoop loop;
        QTimer pulse;
        QObject::connect(&pulse, &QTimer::timeout, &loop, [&] {
            progress.showDone(told.done());
            if (progress.isCalledOff()) {
                told.callOff();
            }
            if (done.wait_for(0s) == std::future_status::ready) {
                loop.quit();
            }
        });
        pulse.start(PULSE);
        loop.exec();
    }
    done.get();
    return !told.isCalledOff();
}
