#include "sandbox/hands/hands.h"
#include "sandbox/tour/tour.h"
#include "sandbox/view/surface_format.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QScreen>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>
#include <cstdio>

namespace {

int runTour(CMainWindow& window, const QString& folder, const QString& first) {
    window.move(0, 0);
    window.activateWindow();
    if (!waitUntil([&] { return window.isActiveWindow() && window.windowHandle()->isExposed(); })) {
        std::fprintf(stderr, "the window does not come up\n");
        return 1;
    }
    return playTour(window, folder, first);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    askForOpenGl();
    QApplication::setApplicationName("vesktour");
    QApplication::setOrganizationName("veskutil");
    QCommandLineParser parser;
    parser.setApplicationDescription("Plays a written session with mouse and keyboard on the sandbox's "
                                     "window, and writes a picture of each "
                                     "step.");
    parser.addHelpOption();
    parser.addPositionalArgument("folder", "Where the pictures go.");
    parser.addPositionalArgument("map", "A project folder, its project.json, or a heightmap.");
    const QCommandLineOption fromOption("from", "Begin with this step, named as its picture is.", "step");
    parser.addOption(fromOption);
    parser.process(application);
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "%s\n", qPrintable(parser.helpText()));
        return 2;
    }
    const QTemporaryDir settings; // a tour leaves no trace among the files that a person opened
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    qputenv("XDG_DATA_HOME", settings.filePath("data").toUtf8());
    CMainWindow window;
    window.resize(QApplication::primaryScreen()->size());
    const QString failure = window.openMap(arguments[1]);
    if (!failure.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(failure));
        return 1;
    }
    window.show();
    QTimer::singleShot(0, &window,
                       [&] { QApplication::exit(runTour(window, arguments[0], parser.value(fromOption))); });
    return QApplication::exec();
}
