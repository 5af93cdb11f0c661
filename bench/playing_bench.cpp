// A host frame while the sample film plays, against the same while it stands: the 3D view draws the landscape
// with the film's path, the film goes on, the panel and the strip follow. Needs a display or a virtual one.
#include "bench/ratio.h"
#include "sandbox/app/main_window.h"
#include "sandbox/view/surface_format.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace {

constexpr int TURNS = 9;
constexpr double TURN = 1.5; // seconds of each

QWidget* moviePanel() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "dialog-2005") {
            return window;
        }
    }
    return nullptr;
}

/// Median seconds of a picture with all that happens until the next, during one turn.
double hostFrame(CMainWindow& window) {
    std::vector<double> times;
    const auto begin = std::chrono::steady_clock::now();
    const auto since = [](auto start) {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    while (since(begin) < TURN) {
        const auto start = std::chrono::steady_clock::now();
        window.view().repaint();
        QApplication::processEvents();
        times.push_back(since(start));
    }
    std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2),
                     times.end());
    return times[times.size() / 2];
}

double medianOf(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + TURNS / 2, values.end());
    return values[TURNS / 2];
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    askForOpenGl();
    const QTemporaryDir settings; // those of the person stay as they are
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    qputenv("XDG_DATA_HOME", settings.filePath("data").toUtf8());
    CMainWindow window;
    window.resize(1280, 720);
    window.show();
    const QString failure = window.openMap(QStringLiteral(VESK_SAMPLES "/jacksboro"));
    if (!failure.isEmpty()) {
        std::fprintf(stderr, "bench_playing: %s\n", qPrintable(failure));
        return 1;
    }
    window.findChild<QAction*>("movie-editor")->trigger();
    for (int i = 0; i < 30; ++i) {
        QApplication::processEvents();
    }
    auto* const play = moviePanel()->findChild<QAbstractButton*>("2047");
    moviePanel()->findChild<QAbstractButton*>("2094")->click(); // Loop: the film lasts as long as it is asked
    CMemoryMovie& movie = window.document().film().movie();
    std::vector<double> playing;
    std::vector<double> standing;
    int reached = 0;
    for (int turn = 0; turn < TURNS; ++turn) {
        standing.push_back(hostFrame(window));
        play->click();
        const int before = movie.getRangeStart();
        playing.push_back(hostFrame(window));
        reached += movie.getRangeStart() != before ? 1 : 0;
        play->click();
    }
    bench::printRatio("a host frame while the sample film plays / while it stands", medianOf(playing),
                      medianOf(standing), 1.15);
    std::printf("the film moved in %d of %d turns\n", reached, TURNS);
    return 0;
}
