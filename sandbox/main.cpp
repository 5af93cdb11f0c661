#include "sandbox/app/main_window.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QSurfaceFormat>
#include <cstdio>

namespace {

/// "1280x840" as a size; invalid when it is not one.
QSize parseSize(const QString& text) {
    const QStringList parts = text.split('x');
    const QSize size = parts.size() == 2 ? QSize(parts[0].toInt(), parts[1].toInt()) : QSize();
    return size.width() > 0 && size.height() > 0 ? size : QSize();
}

void askForOpenGl() {
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    format.setDepthBufferSize(24);
    format.setSamples(4);
    QSurfaceFormat::setDefaultFormat(format);
}

} // namespace

int main(int argc, char** argv) {
    askForOpenGl();
    QApplication application(argc, argv);
    QApplication::setApplicationName("vesksandbox");
    QApplication::setOrganizationName("veskutil");
    QCommandLineParser parser;
    parser.setApplicationDescription("A window in which a heightmap is sculpted with the map editor.");
    parser.addHelpOption();
    parser.addPositionalArgument("map", "Heightmap to open: a grey PNG of 8 or 16 bits.", "[map.png]");
    const QCommandLineOption sizeOption("size", "Size of the window in pixels.", "WxH");
    parser.addOption(sizeOption);
    parser.process(application);

    CMainWindow window;
    const QSize size = parseSize(parser.value(sizeOption));
    if (parser.isSet(sizeOption) && !size.isValid()) {
        std::fprintf(stderr, "--size: '%s' is not a size such as 1280x840\n",
                     qPrintable(parser.value(sizeOption)));
        return 2;
    }
    if (size.isValid()) {
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
    return QApplication::exec();
}
