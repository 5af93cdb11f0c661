// The preview of a texture definition: everything made anew, only the variation changed, nothing changed;
// against a straight loop over arrays with the same arithmetic and against QPainter doing the same mix.
#include "bench/ratio.h"
#include "engine/memory/engine_directories.h"
#include "engine/memory/memory_map.h"
#include "engine/memory/memory_scene.h"
#include "engine/qx_random.h"
#include "engine/qx_texture.h"
#include "terrain/texture_preview.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>

namespace {

constexpr int EDGE = CTexturePreview::MAP_EDGE;
constexpr std::size_t PIXELS = static_cast<std::size_t>(EDGE) * EDGE;
constexpr int ROUNDS = 301;

/// A 256 x 256 true-colour TGA of noise.
void writeTexture(const std::filesystem::path& path, int seed) {
    std::ofstream file(path, std::ios::binary);
    const unsigned char header[18] = {0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 1, 0, 1, 24, 0x20};
    file.write(reinterpret_cast<const char*>(header), sizeof header);
    std::mt19937 noise(static_cast<unsigned>(seed));
    for (std::size_t i = 0; i < PIXELS * 3; ++i) {
        file.put(static_cast<char>(noise() & 0xFF));
    }
}

std::uint8_t mixed(std::uint8_t from, std::uint8_t to, float t) {
    const float start = from;
    return static_cast<std::uint8_t>(
        static_cast<int>(start + (static_cast<float>(to) - start) * t + (to > from ? 0.999F : 0.0F)));
}

/// The engine's interpolate() and tint() written into the loops, where no call is in the way.
qxCColour mixed(const qxCColour& from, const qxCColour& to, float t) {
    return {mixed(from.r, to.r, t), mixed(from.g, to.g, t), mixed(from.b, to.b, t), mixed(from.a, to.a, t)};
}
qxCColour tinted(const qxCColour& colour, const qxCColour& by) {
    return {colour.r * by.r / 255, colour.g * by.g / 255, colour.b * by.b / 255, colour.a};
}

/// The same pictures over plain arrays: the floor.
class CStraightLoop {
public:
    void load(const char* smooth, const char* rough) {
        const auto fill = [](const char* name, std::vector<qxCColour>& pixels) {
            qxCImageFile image;
            image.load(name, false);
            pixels.assign(std::as_const(image).getPixels().begin(), std::as_const(image).getPixels().end());
        };
        fill(smooth, m_smooth);
        fill(rough, m_rough);
    }

    void makeMaps(const CTexturePreview::Definition& definition) {
        qxCColour tints[9][9];
        float blends[9][9];
        qxCRandom random;
        random.setSeed(123);
        for (auto& column : tints) {
            for (qxCColour& node : column) {
                node = mixed(definition.tint1, definition.tint2, random.get(1.0F));
            }
        }
        random.setSeed(345);
        for (auto& column : blends) {
            for (float& node : column) {
                node = std::clamp(definition.blend + random.get(-definition.variation, definition.variation),
                                  0.0F, 1.0F);
            }
        }
        for (int y = 0; y < EDGE; ++y) {
            const float u = static_cast<float>(y % 32) / 32.0F;
            const int bj = y / 32;
            for (int bi = 0; bi < 8; ++bi) {
                const qxCColour left = mixed(tints[bi][bj], tints[bi][bj + 1], u);
                const qxCColour right = mixed(tints[bi + 1][bj], tints[bi + 1][bj + 1], u);
                const float leftBlend = blends[bi][bj] + u * (blends[bi][bj + 1] - blends[bi][bj]);
                const float rightBlend =
                    blends[bi + 1][bj] + u * (blends[bi + 1][bj + 1] - blends[bi + 1][bj]);
                for (int step = 0; step < 32; ++step) {
                    const float w = static_cast<float>(step) / 32.0F;
                    const std::size_t at = static_cast<std::size_t>(y * EDGE + bi * 32 + step);
                    m_tints[at] = mixed(left, right, w);
                    m_blends[at] = leftBlend + w * (rightBlend - leftBlend);
                }
            }
        }
    }

    void composite() {
        for (std::size_t i = 0; i < PIXELS; ++i) {
            m_out[i] = tinted(mixed(m_smooth[i], m_rough[i], m_blends[i]), m_tints[i]);
        }
        benchmark::DoNotOptimize(m_out.data());
    }

private:
    std::vector<qxCColour> m_smooth, m_rough;
    std::vector<qxCColour> m_tints = std::vector<qxCColour>(PIXELS);
    std::vector<float> m_blends = std::vector<float>(PIXELS);
    std::vector<qxCColour> m_out = std::vector<qxCColour>(PIXELS);
};

/// The blend and the multiply with Qt's own compositing: the rough image through a mask over the smooth one,
/// then the tint map multiplied.
class CPainterComposite {
public:
    CPainterComposite() {
        m_smooth.fill(Qt::darkGreen);
        m_rough.fill(Qt::darkGray);
        m_mask.fill(QColor(0, 0, 0, 90));
        m_tint.fill(QColor(200, 180, 150));
    }

    void run() {
        QImage masked = m_rough;
        QPainter painter(&masked);
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.drawImage(0, 0, m_mask);
        painter.end();
        painter.begin(&m_out);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(0, 0, m_smooth);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.drawImage(0, 0, masked);
        painter.setCompositionMode(QPainter::CompositionMode_Multiply);
        painter.drawImage(0, 0, m_tint);
    }

private:
    static QImage makeImage() { return {EDGE, EDGE, QImage::Format_ARGB32_Premultiplied}; }
    QImage m_smooth = makeImage(), m_rough = makeImage(), m_mask = makeImage(), m_tint = makeImage(),
           m_out = makeImage();
};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "vesk_preview_bench";
    std::filesystem::create_directories(folder);
    writeTexture(folder / "smooth.tga", 1);
    writeTexture(folder / "rough.tga", 2);
    CEngineDirectories::setDirectories({folder});

    CMemoryScene scene;
    CMemoryMap map(64, &scene);
    const auto addTexture = [&](qxMapLayerType layer, const char* fileName) {
        qxCTexture* texture = scene.createTexture();
        texture->setFilename(fileName);
        scene.addTexture(texture);
        map.setTexture(layer, texture);
    };
    addTexture(qxMapLayerSmooth, "smooth.tga");
    addTexture(qxMapLayerRough, "rough.tga");

    CTexturePreview::Definition definition{{200, 180, 90, 255}, {90, 140, 60, 255}, 0.5F, 0.3F};
    auto preview = std::make_unique<CTexturePreview>();
    CStraightLoop straight;
    CPainterComposite painter;
    const auto show = [&] { benchmark::DoNotOptimize(preview->showDefinition(definition, map)); };
    const auto invalidate = [&](std::initializer_list<CTexturePreview::Item> items) {
        for (const CTexturePreview::Item item : items) {
            preview->invalidate(item);
        }
    };
    using Preview = CTexturePreview;
    const std::vector<double> seconds =
        bench::medianSeconds({
                                 [&] {
                                     preview->invalidateAll();
                                     show();
                                 },
                                 [&] {
                                     straight.load("smooth.tga", "rough.tga");
                                     straight.makeMaps(definition);
                                     straight.composite();
                                 },
                                 [&] {
                                     invalidate({Preview::TINT_MAP, Preview::BLEND_MAP, Preview::COMPOSITE});
                                     show();
                                 },
                                 [&] {
                                     straight.makeMaps(definition);
                                     straight.composite();
                                 },
                                 [&] {
                                     invalidate({Preview::COMPOSITE});
                                     show();
                                 },
                                 [&] { painter.run(); },
                                 [&] {
                                     invalidate({Preview::BLEND_MAP, Preview::COMPOSITE});
                                     show();
                                 },
                                 [&] { show(); },
                             },
                             ROUNDS);
    std::filesystem::remove_all(folder);

    bench::printRatio("preview, all dirty, images loaded / straight loop", seconds[0], seconds[1], 1.3);
    bench::printRatio("preview, all dirty, images kept / straight loop", seconds[2], seconds[3], 1.3);
    bench::printRatio("preview composite / QPainter blend and multiply", seconds[4], seconds[5], 0.27);
    bench::printRatio("preview, all but the images / QPainter blend and multiply", seconds[2], seconds[5],
                      0.27);
    bench::printRatio("preview, variation changed / all dirty", seconds[6], seconds[0], 0.6);
    bench::printRatio("preview, nothing changed / all dirty", seconds[7], seconds[0], 0.02);
    return 0;
}
