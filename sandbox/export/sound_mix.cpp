#include "sandbox/export/sound_mix.h"

#include "engine/qx_file.h"
#include "host/veskutil.h"
#include "sandbox/export/loopback.h"

#include <QDataStream>
#include <QIODevice>
#include <QWidget>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <sndfile.h>
#include <span>
#include <vector>

namespace {

constexpr std::int64_t PAIR_BYTES = 4;     // a sample of each channel
constexpr std::uint32_t HEADER_BYTES = 44; // of the file, of which RIFF counts all but the first eight

struct StereoSound {
    std::vector<std::int16_t> samples; ///< in pairs; none when the file is not played
    int rate = 0;
};

/// A sound of the engine, as the toolkit plays it: 8 or 16 bits, one channel on both sides.
StereoSound readSound(const char* name) {
    std::array<char, qxCFile::MAX_PATH_LENGTH> path{};
    SF_INFO info{};
    if (!qxCFile::getFullPathName(name, path.data())) {
        return {};
    }
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file(sf_open(path.data(), SFM_READ, &info), sf_close);
    const int kind = info.format & SF_FORMAT_SUBMASK;
    const bool isPlayed = (kind == SF_FORMAT_PCM_U8 || kind == SF_FORMAT_PCM_16) &&
                          (info.channels == 1 || info.channels == 2) && info.frames > 0;
    if (file == nullptr || !isPlayed) {
        return {};
    }
    StereoSound sound{std::vector<std::int16_t>(static_cast<std::size_t>(info.frames) * 2), info.samplerate};
    const sf_count_t read = sf_readf_short(file.get(), sound.samples.data(), info.frames);
    if (info.channels == 1) {
        for (auto at = static_cast<std::size_t>(read); at-- > 0;) { // from the end: they lie in the same room
            sound.samples[at * 2 + 1] = sound.samples[at * 2] = sound.samples[at];
        }
    }
    sound.samples.resize(static_cast<std::size_t>(read) * 2);
    return sound;
}

std::size_t pairsIn(double seconds) {
    return static_cast<std::size_t>(std::max(0.0, std::round(seconds * MIX_RATE)));
}

void writeWave(QByteArray& wave, std::span<const std::int16_t> samples) {
    constexpr quint16 PCM = 1;
    constexpr quint16 CHANNELS = 2;
    constexpr quint16 BITS = 16;
    const auto bytes = static_cast<quint32>(samples.size_bytes());
    QDataStream stream(&wave, QIODevice::WriteOnly);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.writeRawData("RIFF", 4);
    stream << quint32{bytes + HEADER_BYTES - 8};
    stream.writeRawData("WAVEfmt ", 8);
    stream << quint32{16} << PCM << CHANNELS << quint32{MIX_RATE} << quint32{MIX_RATE * PAIR_BYTES}
           << quint16{PAIR_BYTES} << BITS;
    stream.writeRawData("data", 4);
    stream << bytes;
    for (const std::int16_t sample : samples) {
        stream << sample;
    }
}

} // namespace

void layOutSounds(qxCMovie& movie) {
    if (vuIsMovieEditorActive()) {
        return;
    }
    QWidget host; // a panel wants a window to belong to; no event lets either be seen
    vuCreateMovieEditor(reinterpret_cast<HWND>(host.winId()), &movie, true);
    vuDestroyMovieEditor();
}

QString mixSounds(qxCMovie& movie, QByteArray& wave, QStringList& silent) {
    const double seconds = movie.getNumFrames() / static_cast<double>(movie.getStepRate());
    if (!(seconds * MIX_RATE * PAIR_BYTES < std::numeric_limits<std::uint32_t>::max() - HEADER_BYTES)) {
        return "the film is longer than a WAV file can be";
    }
    CLoopback device(MIX_RATE);
    if (!device.isReady()) {
        return "there is no sound device to mix with";
    }
    std::vector<std::int16_t> mix(pairsIn(seconds) * 2);
    std::size_t heard = 0;
    const auto hearUntil = [&](double time) {
        const std::size_t end = std::clamp(pairsIn(time) * 2, heard, mix.size());
        device.hear(std::span(mix).subspan(heard, end - heard));
        heard = end;
    };
    for (int index = 0; index < movie.getSoundtrackSize(); ++index) {
        const qxCMovieSound& entry = *movie.getSound(index);
        hearUntil(static_cast<double>(entry.start));
        const StereoSound sound = readSound(entry.name);
        if (sound.samples.empty() || !device.play(sound.samples, sound.rate)) {
            silent.append(QString::fromUtf8(entry.name));
        }
    }
    hearUntil(seconds);
    writeWave(wave, mix);
    return {};
}
