#include "platform/qt/display_probe.h"

#include "platform/qt/display_socket.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonObject>
#include <QPluginLoader>

#include <algorithm>

namespace qtbackend {

namespace {

bool holdsPlatform(const QPluginLoader& plugin, const QString& name) {
    const QJsonObject data = plugin.metaData().value(QLatin1String("MetaData")).toObject();
    const QJsonArray keys = data.value(QLatin1String("Keys")).toArray();
    return std::ranges::any_of(keys, [&name](const QJsonValue& key) {
        return key.toString().compare(name, Qt::CaseInsensitive) == 0;
    });
}

/// A plugin that lacks a library of its own is there and yet of no use.
bool isPluginUsable(const QString& name) {
    QStringList folders = {qEnvironmentVariable("QT_QPA_PLATFORM_PLUGIN_PATH")};
    for (const QString& path : QCoreApplication::libraryPaths()) {
        folders += path + QLatin1String("/platforms");
    }
    folders.removeAll(QString());
    for (const QString& folder : folders) {
        const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files);
        for (const QFileInfo& file : files) {
            QPluginLoader plugin(file.filePath());
            if (holdsPlatform(plugin, name)) {
                return plugin.load();
            }
        }
    }
    return false;
}

/// The platforms that panels can be shown on. Of the others nobody can say beforehand whether they would
/// start.
bool isDisplayThere(const QString& name) {
    if (name == QLatin1String("xcb")) {
        return answersAsX11(qgetenv("DISPLAY"));
    }
    if (name.startsWith(QLatin1String("wayland"))) {
        return isWaylandThere();
    }
    return name == QLatin1String("offscreen") || name == QLatin1String("minimal") ||
           name == QLatin1String("vnc");
}

/// In the order in which the environment asks for them.
QList<QByteArray> candidates() {
    if (const QByteArray asked = qgetenv("QT_QPA_PLATFORM"); !asked.isEmpty()) {
        return asked.split(';');
    }
    QList<QByteArray> found;
    if (!qEnvironmentVariableIsEmpty("DISPLAY")) {
        found += "xcb";
    }
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland") {
        const bool last = qgetenv("XDG_CURRENT_DESKTOP").toLower().contains("gnome");
        found.insert(last ? found.size() : 0, "wayland");
    }
    return found;
}

} // namespace

QByteArray findUsablePlatform() {
    for (const QByteArray& candidate : candidates()) {
        const QString name = QString::fromLocal8Bit(candidate.split(':').first()).toLower();
        if (isDisplayThere(name) && isPluginUsable(name)) {
            return candidate;
        }
    }
    return {};
}

} // namespace qtbackend
