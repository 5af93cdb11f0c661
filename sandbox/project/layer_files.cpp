#include "sandbox/project/layer_files.h"

#include "sandbox/core/png_picture.h"
#include "sandbox/files/safe_file.h"
#include "sandbox/project/detail_layer.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <algorithm>

namespace {

const QRegularExpression& ourNames() {
    static const QRegularExpression names(
        "^((heights|blends|colours|water)\\.[0-9]+\\.png|details\\.[0-9]+\\.bin)$");
    return names;
}

bool beginsAsOurs(const QString& path) {
    constexpr qint64 ENOUGH = 256;
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QByteArray first = file.read(ENOUGH);
    return isDetailLayer(first) || isOurPng({reinterpret_cast<const std::uint8_t*>(first.constData()),
                                             static_cast<std::size_t>(first.size())});
}

} // namespace

ProjectLayers unusedLayerNames(const QDir& folder, int& number) {
    for (;; ++number) {
        const auto name = [number](const char* layer, const char* suffix = "png") {
            return QString("%1.%2.%3").arg(layer).arg(number).arg(suffix);
        };
        const ProjectLayers names{name("heights"), name("blends"), name("colours"), name("water"),
                                  name("details", "bin")};
        const QStringList files = filesOf(names);
        if (std::ranges::none_of(files, [&](const QString& file) { return folder.exists(file); })) {
            return names;
        }
    }
}

QStringList filesOf(const ProjectLayers& layers) {
    QStringList files = {layers.heights, layers.blends, layers.colours, layers.water, layers.details};
    files.removeAll(QString());
    return files;
}

void sweepLayers(const QDir& folder, const QStringList& kept, const QStringList& replaced) {
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden).filter(ourNames())) {
        const QString path = folder.filePath(name);
        if (!kept.contains(name) && (replaced.contains(name) || beginsAsOurs(path))) {
            static_cast<void>(removeFile(path)); // the next save tries again
        }
    }
}
