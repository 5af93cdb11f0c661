#include "sandbox/tour/tour.h"

#include <QDir>
#include <cstdio>

namespace {

void takeStep(CTourStage& stage, const TourStep& step, int number, const QDir& folder) {
    step.act(stage);
    const QString name = QString("%1-%2.png").arg(number, 2, 10, QChar('0')).arg(step.name);
    constexpr int QUICK = 75; // compressed lightly: the deflate pass would take longer than the drawing
    require(stage.takeStepPicture().save(folder.filePath(name), "PNG", QUICK),
            "cannot write " + folder.filePath(name));
}

} // namespace

int playTour(CMainWindow& window, const QString& folder, const QString& first) {
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "cannot make the folder %s\n", qPrintable(folder));
        return 1;
    }
    CTourStage stage(window);
    int number = 0;
    bool hasBegun = first.isEmpty();
    for (const TourStep& step : tourSteps()) {
        ++number;
        hasBegun = hasBegun || first == step.name;
        if (!hasBegun) {
            continue;
        }
        try {
            takeStep(stage, step, number, QDir(folder));
        } catch (const CTourFailure& failure) {
            std::fprintf(stderr, "tour step %d, %s: %s\n", number, step.name, failure.what());
            return 1;
        }
    }
    if (!hasBegun) {
        std::fprintf(stderr, "the tour has no step %s\n", qPrintable(first));
    }
    return hasBegun ? 0 : 2;
}
