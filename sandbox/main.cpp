#include "sandbox/app/main_window.h"
#include "sandbox/tour/hands.h"
#include "sandbox/tour/tour.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QScreen>
#include <QSettings>
#include <QSurfaceFormat>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>
#include <cstdio>

namespace {

constexpr QSize FIRST_SIZE(1280, 840);

/// "1280x840" as a size; invalid when it is not one.
QSize parseSize(const QString& text) {
    const QStringList parts = text.split('x');
    const QSize size = parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
    return size.width() > 0 && size.height() > 0 ? size : QSize();
}

int runTour(CMainWindow& window, const QString& folder) {
    window.move(0, 0);
    window.activateWindow();
    if (!waitUntil([&] { return window.isActiveWindow() && window.windowHandle()->isExposed(); })) {
        std::fprintf(stderr, "the window does not come up\n");
        return 1;
    }
    return playTour(window, folder);
}

/// True when the processor draws in place of a graphics card, as under a virtual display.
bool isDrawnInSoftware() {
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface)) {
        return true;
    }
    const auto* text = reinterpret_cast<const char*>(context.functions()->glGetString(GL_RENDERER));
    const QString renderer = QString::fromLatin1(text);
    return renderer.contains("llvmpipe") || renderer.contains("softpipe");
}

void askForOpenGl() {
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    format.setDepthBufferSize(24);
    QSurfaceFormat::setDefaultFormat(format);
    if (!isDrawnInSoftware()) {
        format.setSamples(4); // smooth edges are worth it where they cost nothing
        QSurfaceFormat::setDefaultFormat(format);
    }
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    askForOpenGl();
    QApplication::setApplicationName("vesksandbox");
    QApplication::setOrganizationName("veskutil");
    QCommandLineParser parser;
    parser.setApplicationDescription("A window in which a heightmap is sculpted with the map editor.");
    parser.addHelpOption();
    parser.addPositionalArgument(
        "map",
        "What to open: a project folder, its project.json, or a heightmap (a grey PNG of 8 or 16 bits).",
        "[map]");
    const QCommandLineOption sizeOption("size", "Size of the window in pixels.", "WxH");
    parser.addOption(sizeOption);
    const QCommandLineOption tourOption(
        "tour",
        "Play a written session with mouse and keyboard, write a picture of each step there, and quit.",
        "folder");
    parser.addOption(tourOption);
    parser.process(application);

    const QSize size = parser.isSet(sizeOption)   ? parseSize(parser.value(sizeOption))
                       : parser.isSet(tourOption) ? QApplication::primaryScreen()->size()
                                                  : FIRST_SIZE;
    if (!size.isValid()) {
        std::fprintf(stderr, "--size: '%s' is not a size such as 1280x840\n",
                     qPrintable(parser.value(sizeOption)));
        return 2;
    }
    const QTemporaryDir tourSettings; // a tour leaves no trace among the files that a person opened
    if (parser.isSet(tourOption)) {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, tourSettings.path());
    }
    CMainWindow window;
    window.resize(size);
    if (!parser.positionalArguments().isEmpty()) {
        const QString failure = window.openMap(parser.positionalArguments().first());
        if (!failure.isEmpty()) {
            std::fprintf(stderr, "%s\n", qPrintable(failure));
            return 1;
        }
    }
    window.show();
    if (parser.isSet(tourOption)) {
        QTimer::singleShot(0, &window,
                           [&] { QApplication::exit(runTour(window, parser.value(tourOption))); });
    } else {
        // The panel stands by the window, whose place is known when the window manager has shown it.
        waitUntil([&] { return window.windowHandle()->isExposed(); });
        window.startWork();
    }
    return QApplication::exec();
}
