#include "platform/qt/application.h"

#include <QApplication>

namespace qtbackend {

bool ensureApplication() {
    if (QCoreApplication::instance() == nullptr) {
        static int count = 1;
        static char name[] = "veskutil";
        static char* arguments[] = {&name[0], nullptr};
        new QApplication(count, &arguments[0]); // is its own registry, and the process's from here on
        QGuiApplication::setQuitOnLastWindowClosed(false);
    }
    return qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

QFont dialogFont(const QString& face, int pointSize) {
    QFont font = QApplication::font();
    const bool logical = face.isEmpty() || face == QLatin1String("MS Sans Serif") ||
                         face.startsWith(QLatin1String("MS Shell Dlg"));
    if (!logical) {
        font.setFamily(face);
    }
    if (pointSize > 0) {
        font.setPointSize(pointSize);
    }
    return font;
}

} // namespace qtbackend
