#include "sandbox/app/film_command.h"
#include "sandbox/app/main_window.h"
#include "sandbox/app/session_memory.h"
#include "sandbox/view/surface_format.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <cstdio>

namespace {

constexpr QSize FIRST_SIZE(1280, 840);
constexpr QSize FILM_SIZE(1280, 720);

/// "1280x840" as a size; invalid when it is not one.
QSize parseSize(const QString& text) {
    const QStringList parts = text.split('x');
    const QSize size = parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
    return size.width() > 0 && size.height() > 0 ? size : QSize();
}

/// All of the window, with its frame, is within reach on a screen of any size.
void fitIntoScreen(QWidget& window) {
    const QRect available = window.screen()->availableGeometry();
    const QSize frame = window.frameGeometry().size() - window.size();
    window.resize(window.size().boundedTo(available.size() - frame));
    if (!available.contains(window.frameGeometry())) {
        window.move(available.topLeft());
    }
}

/// The panel stands by the window, whose place is known when the window manager has shown it.
void startWhenShown(CMainWindow& window) {
    constexpr int PAUSE = 10; // milliseconds
    if (window.windowHandle()->isExposed()) {
        fitIntoScreen(window);
        window.startWork();
    } else {
        QTimer::singleShot(PAUSE, &window, [&window] { startWhenShown(window); });
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
    const QCommandLineOption sizeOption("size", "Size of the window, or of a film's pictures, in pixels.",
                                        "WxH");
    parser.addOption(sizeOption);
    const QCommandLineOption filmOption(
        "film", "Write the map's film into this folder, as numbered pictures and a sound, and end.",
        "folder");
    parser.addOption(filmOption);
    parser.process(application);

    const QSize size = parser.isSet(sizeOption)   ? parseSize(parser.value(sizeOption))
                       : parser.isSet(filmOption) ? FILM_SIZE
                                                  : FIRST_SIZE;
    if (!size.isValid()) {
        std::fprintf(stderr, "--size: '%s' is not a size such as 1280x840\n",
                     qPrintable(parser.value(sizeOption)));
        return 2;
    }
    if (parser.isSet(filmOption)) {
        if (parser.positionalArguments().size() != 1) {
            std::fprintf(stderr, "--film: name the one project whose film is to be written\n");
            return 2;
        }
        return writeFilm(parser.positionalArguments().first(), parser.value(filmOption), size);
    }
    CMainWindow window;
    if (parser.isSet(sizeOption) || !sessionmemory::restoreWindow(window)) {
        window.resize(size);
    }
    if (!parser.positionalArguments().isEmpty()) {
        const QString failure = window.openMap(parser.positionalArguments().first());
        if (!failure.isEmpty()) {
            std::fprintf(stderr, "%s\n", qPrintable(failure));
            return 1;
        }
    }
    window.show();
    startWhenShown(window);
    return QApplication::exec();
}
