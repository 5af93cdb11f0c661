// Opening a heightmap against libpng decoding it alone, and saving a project against writing its layers with
// libpng on as many threads; then, in a program of its own for each, the most memory a map of 8193 x 8193
// points takes. Needs a place for 2 GB in the temporary folder.
#include "bench/ratio.h"
#include "sandbox/app/map_document.h"
#include "sandbox/core/png_picture.h"
#include "sandbox/files/heightmap_file.h"
#include "sandbox/files/safe_file.h"
#include "sandbox/project/colour_layer.h"

#include <QApplication>
#include <QTemporaryDir>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <sys/resource.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

constexpr int EDGE = 4097;
constexpr int LARGEST_EDGE = 8193;
constexpr int ROUNDS = 5;

/// Hills with a grain, as measured ground has.
std::vector<std::uint16_t> hills(int edge) {
    std::vector<std::uint16_t> heights;
    heights.reserve(static_cast<std::size_t>(edge) * static_cast<std::size_t>(edge));
    std::uint32_t grain = 1;
    for (int z = 0; z < edge; ++z) {
        for (int x = 0; x < edge; ++x) {
            grain = grain * 1664525U + 1013904223U;
            heights.push_back(static_cast<std::uint16_t>(
                20'000.0 + 9'000.0 * std::sin(x / 173.0) * std::cos(z / 219.0) + (grain >> 28U)));
        }
    }
    return heights;
}

void require(const QString& failure) {
    if (!failure.isEmpty()) {
        std::fprintf(stderr, "bench_files: %s\n", qPrintable(failure));
        std::exit(1);
    }
}

void decodeAlone(const QString& path) {
    QByteArray bytes;
    require(readWholeFile(path, HEIGHTMAP_MAX_FILE_SIZE, bytes));
    const std::span file(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                         static_cast<std::size_t>(bytes.size()));
    PngHeader header;
    PngPicture picture;
    require(QString::fromStdString(readPngHeader(file, header)));
    require(QString::fromStdString(decodePng(file, header, picture)));
}

/// The layers of a project as pictures, each written to a file, the colours by a thread of their own.
void writeLayersAlone(CMemoryMap& map, const QString& folder) {
    const int edge = map.getGridDim() + 1;
    const auto write = [&](const char* name, PngKind kind, const void* values, std::size_t bytes) {
        const auto file = encodePng({edge, edge, kind, {static_cast<const std::uint8_t*>(values), bytes}});
        require(replaceFile(folder + '/' + name, {file->data(), static_cast<qsizetype>(file->size())}));
    };
    const auto heights = map.getHeights();
    const auto blends = map.getBlends();
    const auto colours = map.getColours();
    const std::vector<std::uint16_t> water(heights.size(), 0);
    const std::jthread other([&] { write("colours", PngKind::COLOUR, colours.data(), colours.size() * 4); });
    write("heights", PngKind::GREY_16, heights.data(), heights.size() * 2);
    write("blends", PngKind::GREY_16, blends.data(), blends.size() * 2);
    write("water", PngKind::GREY_16, water.data(), water.size() * 2);
}

/// The most memory, in bytes a point, that a program took in which this ran.
template <class Work> double bytesAPoint(Work work) {
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024.0 / LARGEST_EDGE / LARGEST_EDGE;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir folder;
    qputenv("XDG_DATA_HOME", folder.filePath("data").toUtf8());
    const QString picture = folder.filePath("hills.png");
    const QString largest = folder.filePath("largest.png");
    require(writeHeightmapFile(picture, EDGE, hills(EDGE), HeightmapBits::SIXTEEN));
    const double none = bytesAPoint([] {});
    const QApplication application(argc, argv);
    CMapDocument document;
    const auto open = bench::medianSeconds(
        {[&] { require(document.open(picture, [] {}).error); }, [&] { decodeAlone(picture); }}, ROUNDS);
    bench::printRatio("opening a heightmap of 4097 x 4097, against libpng decoding it", open[0], open[1],
                      1.5);
    const auto save =
        bench::medianSeconds({[&] { require(document.saveProject(folder.filePath("project")).error); },
                              [&] { writeLayersAlone(document.map(), folder.path()); }},
                             ROUNDS);
    bench::printRatio("saving its project, against writing its layers with libpng", save[0], save[1], 1.2);
    if (argc > 1) {
        require(writeHeightmapFile(largest, LARGEST_EDGE, hills(LARGEST_EDGE), HeightmapBits::SIXTEEN));
        const double opened = bytesAPoint([&] {
            CMapDocument large;
            require(large.open(largest, [] {}).error);
        });
        std::printf("a map of 8193 x 8193 opened: %.1f bytes a point at most (goal <= 24)\n", opened - none);
        const QString project = folder.filePath("large project");
        const double saved = bytesAPoint([&] {
            CMapDocument large;
            require(large.open(largest, [] {}).error);
            require(large.saveProject(project).error);
        });
        const double again = bytesAPoint([&] { require(CMapDocument().open(project, [] {}).error); });
        std::printf("saved as a project: %.1f, that project opened: %.1f\n", saved - none, again - none);
    }
    return 0;
}
