// Reading a WAV file and bringing it to a lower rate: against libsndfile, the plain loop, libsamplerate and
// sox. Usage: bench_sound [ROUNDS]
#include "bench/ratio.h"
#include "engine/memory/engine_directories.h"
#include "engine/qx_file.h"
#include "sound/downsample.h"
#include "sound/reference_downsample.h"
#include "sound/wave_image.h"
#include "sound/wave_samples.h"

#include <samplerate.h>
#include <sndfile.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <random>
#include <span>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr unsigned CHANNELS = 2;
constexpr std::size_t FRAMES = 44'100 * 60; // 10.6 MB of 16-bit stereo

std::vector<std::int16_t> music() {
    std::mt19937 noise(1);
    std::vector<std::int16_t> samples(FRAMES * CHANNELS);
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double tone = 12000.0 * std::sin(static_cast<double>(i) * 0.01);
        samples[i] = static_cast<std::int16_t>(tone + static_cast<double>(noise() % 4096));
    }
    return samples;
}

void require(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "bench_sound: %s\n", what);
        std::exit(1);
    }
}

void writeFile(const fs::path& path, const std::vector<std::int16_t>& samples) {
    SF_INFO info{};
    info.samplerate = 44100;
    info.channels = CHANNELS;
    info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    require(file != nullptr && sf_writef_short(file, samples.data(), FRAMES) == FRAMES,
            "cannot write a file");
    sf_close(file);
}

/// A file as CSound takes it in.
struct Image {
    std::unique_ptr<BYTE[]> block;
    std::span<BYTE> bytes;
};

Image readImage() {
    qxCFile file;
    require(file.open("in.wav", qxFileModeRead), "cannot read the file");
    const auto length = static_cast<std::size_t>(file.getLength());
    Image image{std::make_unique_for_overwrite<BYTE[]>(length), {}};
    file.read(image.block.get(), static_cast<int>(length), false);
    image.bytes = {image.block.get(), length};
    file.close();
    return image;
}

void readAndWalk() {
    const Image image = readImage();
    WAVEFORMATEX* format = nullptr;
    BYTE* data = nullptr;
    DWORD size = 0;
    require(parseWaveImage(image.bytes, &format, &data, &size) && size == FRAMES * 4, "misread");
}

void readByPeer(const fs::path& path) {
    SF_INFO info{};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    const auto count = static_cast<std::size_t>(info.frames * info.channels);
    const auto samples = std::make_unique_for_overwrite<std::int16_t[]>(count);
    require(sf_readf_short(file, samples.get(), info.frames) == info.frames, "the peer misread");
    sf_close(file);
}

void benchReading(const fs::path& path, int rounds) {
    const auto times = bench::medianSeconds({readAndWalk, [&] { readByPeer(path); }}, rounds);
    bench::printRatio("read and walk 10 MB / libsndfile", times[0], times[1], 1.05);
}

void benchFactor(const std::vector<std::int16_t>& samples, unsigned factor, double goal, int rounds) {
    const std::size_t frames = FRAMES / factor;
    std::vector<BYTE> ours(samples.size() * 2);
    std::vector<std::int16_t> plain(frames * CHANNELS);
    const auto restore = [&] { std::memcpy(ours.data(), samples.data(), ours.size()); };
    restore();
    downsample16(ours, frames, CHANNELS, factor);
    referenceDownsample(samples.data(), plain.data(), frames, CHANNELS, factor);
    require(std::memcmp(ours.data(), plain.data(), plain.size() * 2) == 0, "a sample differs");
    const auto times = bench::medianSeconds(
        {[&] { downsample16(ours, frames, CHANNELS, factor); },
         [&] { referenceDownsample(samples.data(), plain.data(), frames, CHANNELS, factor); }},
        rounds);
    const std::string name = "down-sample by " + std::to_string(factor) + " / plain loop";
    bench::printRatio(name.c_str(), times[0], times[1], goal);
}

/// libsamplerate works on floats: converting to and from them is part of its work here.
void benchPeerResampler(const std::vector<std::int16_t>& samples, int rounds) {
    std::vector<BYTE> ours(samples.size() * 2);
    std::vector<float> in(samples.size());
    std::vector<float> out(samples.size() / 2 + CHANNELS);
    std::vector<std::int16_t> result(out.size());
    const auto peer = [&] {
        src_short_to_float_array(samples.data(), in.data(), static_cast<int>(samples.size()));
        SRC_DATA data{};
        data.data_in = in.data();
        data.data_out = out.data();
        data.input_frames = static_cast<long>(FRAMES);
        data.output_frames = static_cast<long>(out.size() / CHANNELS);
        data.src_ratio = 0.5;
        require(src_simple(&data, SRC_LINEAR, CHANNELS) == 0, "libsamplerate failed");
        src_float_to_short_array(out.data(), result.data(),
                                 static_cast<int>(data.output_frames_gen * CHANNELS));
    };
    const auto times =
        bench::medianSeconds({[&] { downsample16(ours, FRAMES / 2, CHANNELS, 2); }, peer}, rounds);
    bench::printRatio("down-sample by 2 / libsamplerate linear", times[0], times[1], 0.10);
}

void benchWholeJob(const fs::path& in, const fs::path& out, int rounds) {
    const std::string command = "sox '" + in.string() + "' '" + out.string() + "' downsample 2";
    const auto ours = [] {
        const Image image = readImage();
        require(findWaveSamples(image.bytes, 22050).has_value(), "misread");
    };
    const auto peer = [&] { require(std::system(command.c_str()) == 0, "sox failed"); };
    const auto times = bench::medianSeconds({ours, peer}, rounds);
    bench::printRatio("read, walk and halve / sox downsample 2", times[0], times[1], 0.25);
}

} // namespace

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 31;
    const fs::path folder = fs::temp_directory_path() / "vesk-bench-sound";
    fs::create_directories(folder);
    CEngineDirectories::setDirectories({folder});
    const std::vector<std::int16_t> samples = music();
    writeFile(folder / "in.wav", samples);
    benchReading(folder / "in.wav", rounds);
    benchFactor(samples, 2, 0.45, rounds);
    benchFactor(samples, 3, 0.95, rounds);
    benchFactor(samples, 4, 0.95, rounds);
    benchPeerResampler(samples, rounds);
    benchWholeJob(folder / "in.wav", folder / "out.wav", std::min(rounds, 11));
    fs::remove_all(folder);
}
