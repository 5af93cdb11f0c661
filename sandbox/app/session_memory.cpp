#include "sandbox/app/session_memory.h"

#include "sandbox/keys/map_panel.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QWidget>

namespace sessionmemory {

namespace {

constexpr const char* GEOMETRY = "window/geometry";
constexpr const char* FOLDER = "lastFolder";
constexpr const char* SIGHTS = "sights";
constexpr const char* HAND = "hand";
constexpr qsizetype MOST_SIGHTS = 20;
constexpr int COORDINATES = 6;
constexpr Hand FIRST_HAND{RAISE_TOOL, 2017, 5};

} // namespace

void keepWindow(const QWidget& window) {
    QSettings().setValue(GEOMETRY, window.saveGeometry());
}

bool restoreWindow(QWidget& window) {
    return window.restoreGeometry(QSettings().value(GEOMETRY).toByteArray());
}

QString folder() {
    const QString kept = QSettings().value(FOLDER).toString();
    return !kept.isEmpty() && QFileInfo(kept).isDir() ? kept : QDir::homePath();
}

void keepFolder(const QString& path) {
    QSettings().setValue(FOLDER, QFileInfo(path).absolutePath());
}

void keepSight(const QString& path, const Sight& sight) {
    QSettings settings;
    QVariantList kept = settings.value(SIGHTS).toList();
    kept.removeIf([&path](const QVariant& entry) { return entry.toList().value(0).toString() == path; });
    QVariantList entry{path};
    for (const double number : sight.eye) {
        entry << number;
    }
    for (const double number : sight.target) {
        entry << number;
    }
    kept.prepend(QVariant(entry));
    settings.setValue(SIGHTS, kept.mid(0, MOST_SIGHTS));
}

std::optional<Sight> sightOf(const QString& path) {
    const QVariantList kept = QSettings().value(SIGHTS).toList();
    for (const QVariant& candidate : kept) {
        const QVariantList entry = candidate.toList();
        if (entry.value(0).toString() == path && entry.size() == 1 + COORDINATES) {
            const auto at = [&entry](int i) { return entry[i].toDouble(); };
            return Sight{{at(1), at(2), at(3)}, {at(4), at(5), at(6)}};
        }
    }
    return std::nullopt;
}

Hand handOnPanel() {
    const MapTool* const tool = CMapPanel::chosenTool();
    return {tool != nullptr ? tool->control : 0, CMapPanel::chosenBrush(), CMapPanel::strength()};
}

void putOnPanel(const Hand& hand) {
    CMapPanel::press(hand.tool); // first: the brushes can be pressed with some tools only
    CMapPanel::press(hand.brush);
    CMapPanel::setStrength(hand.strength);
}

void keepHand(const Hand& hand) {
    QSettings().setValue(HAND, QVariantList{hand.tool, hand.brush, hand.strength});
}

Hand lastHand() {
    const QVariantList kept = QSettings().value(HAND).toList();
    return kept.size() == 3 ? Hand{kept[0].toInt(), kept[1].toInt(), kept[2].toInt()} : FIRST_HAND;
}

} // namespace sessionmemory
