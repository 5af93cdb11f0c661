// What the sandbox's film strip costs: drawn anew, and with nothing moved but the film.
#include "bench/ratio.h"
#include "engine/memory/engine_directories.h"
#include "sandbox/strip/film_strip.h"

#include <QApplication>
#include <QImage>
#include <QTemporaryDir>
#include <cmath>
#include <sndfile.h>
#include <vector>

namespace {

constexpr int WIDTH = 4096;
constexpr int RATE = 44100;
constexpr int ROUNDS = 60;
constexpr int KEY_DISTANCE = 20; // frames

void writeSound(const QString& path, int seconds) {
    SF_INFO info{};
    info.samplerate = RATE;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* const file = sf_open(path.toUtf8().constData(), SFM_WRITE, &info);
    std::vector<short> second(RATE);
    for (std::size_t i = 0; i < second.size(); ++i) {
        second[i] = static_cast<short>(20000.0 * std::sin(static_cast<double>(i) * 0.05));
    }
    for (int i = 0; i < seconds; ++i) {
        sf_write_short(file, second.data(), RATE);
    }
    sf_close(file);
}

/// A strip over a film that its sound fills.
struct Stage {
    Stage(const char* sound, int frames, int seconds)
        : film(scene, frames, static_cast<float>(frames) / static_cast<float>(seconds)), strip(nullptr) {
        for (int frame = 0; frame < frames; frame += KEY_DISTANCE) {
            film.movie().getFrame(frame)->setKeyframe(true);
        }
        film.movie().addSound(sound);
        film.movie().getSound(0)->length = static_cast<float>(seconds);
        strip.resize(WIDTH, strip.height());
        strip.setFilm(&film);
    }
    void draw() { strip.render(&picture); }
    /// As after an edit: all of it.
    void redraw() {
        qxCMovieFrame& frame = *film.movie().getFrame(1);
        frame.setKeyframe(!frame.keyframe);
        draw();
    }
    /// As at a step of the film that is played or dragged.
    void step() {
        film.movie().setRangeSingleFrame((film.movie().getRangeStart() + 7) % film.movie().getNumFrames());
        draw();
    }

    CMemoryScene scene;
    CFilm film;
    CFilmStrip strip;
    QImage picture{WIDTH, 100, QImage::Format_ARGB32_Premultiplied};
};

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir folder;
    writeSound(folder.filePath("long.wav"), 600);
    writeSound(folder.filePath("short.wav"), 1);
    CEngineDirectories::setDirectories({folder.path().toStdString()});
    Stage longFilm("long.wav", 10000, 600);
    Stage shortFilm("short.wav", 100, 1);
    const auto anew = bench::medianSeconds({[&] { longFilm.redraw(); }, [&] { shortFilm.redraw(); }}, ROUNDS);
    bench::printRatio("strip drawn anew: 10,000 frames, 600 s / 100 frames, 1 s", anew[0], anew[1], 1.5);
    // A series of its own: each finds its picture as far out of the processor's cache as the other does.
    const auto step = bench::medianSeconds({[&] { longFilm.step(); }, [&] { shortFilm.step(); }}, ROUNDS);
    bench::printRatio("strip at another frame: the same two films", step[0], step[1], 1.5);
    return 0;
}
