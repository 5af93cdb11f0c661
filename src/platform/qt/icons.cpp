#include "platform/qt/icons.h"

#include "platform/framework/module_state.h"
#include "platform/resources.h"
#include "platform/windows/back_end.h"
#include "platform/windows/functions.h"

#include <QCoreApplication>
#include <QImage>
#include <QPixmap>

#include <algorithm>
#include <memory>
#include <unordered_map>

/// An icon resource. The Qt picture of it may not outlive the application object.
struct HICON__ {
    IconImage image;
    QIcon picture;
};

namespace qtbackend {

namespace {

constexpr int ICON_EXTENT = 32;

using IconCache = std::unordered_map<UINT, std::unique_ptr<HICON__>>;

IconCache& icons() {
    static auto& cache = *new IconCache;
    return cache;
}

void dropPictures() {
    for (auto& [id, icon] : icons()) {
        icon->picture = QIcon();
    }
}

QIcon makePicture(const IconImage& image) {
    static const QCoreApplication* cleanedUpBy = nullptr;
    if (cleanedUpBy != QCoreApplication::instance()) {
        cleanedUpBy = QCoreApplication::instance();
        qAddPostRoutine(&dropPictures);
    }
    const QImage rows(image.pixels.data(), image.width, image.height, 4 * image.width,
                      QImage::Format_RGBA8888);
    return QPixmap::fromImage(rows);
}

} // namespace

QIcon iconOf(HICON icon) {
    if (icon->picture.isNull()) {
        icon->picture = makePicture(icon->image);
    }
    return icon->picture;
}

QSize iconSizeFor(int room) {
    const int extent = std::clamp(room, 1, ICON_EXTENT);
    return {extent, extent};
}

} // namespace qtbackend

HICON LoadLibraryIcon(UINT id) {
    auto& cache = qtbackend::icons();
    const auto known = cache.find(id);
    if (known != cache.end()) {
        return known->second.get();
    }
    auto image = findIcon(AfxGetModuleState()->resources(), static_cast<int>(id));
    if (!image.has_value()) {
        return nullptr;
    }
    auto made = std::make_unique<HICON__>(HICON__{std::move(*image), QIcon()});
    return cache.emplace(id, std::move(made)).first->second.get();
}
