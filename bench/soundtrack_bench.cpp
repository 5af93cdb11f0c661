// Laying a soundtrack out: 1,000 entries of ten files that are known, against looking 1,000 names up in a
// map; and for the first time, with the sounds loaded for a device, against libsndfile reading the same
// files.
#define AL_ALEXT_PROTOTYPES
#include "bench/ratio.h"
#include "engine/memory/engine_directories.h"
#include "engine/memory/movie/memory_movie.h"
#include "movie/soundtrack.h"
#include "platform/openal/device_opener.h"
#include "sound/sound_manager.h"

#include <AL/alc.h>
#include <AL/alext.h>
#include <sndfile.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

namespace {

namespace fs = std::filesystem;

constexpr int FILES = 10;
constexpr int ENTRIES = 1000;
constexpr int RATES[] = {44'100, 22'050}; // the files have them in turn
constexpr int RATE = RATES[0];
constexpr int SECONDS = 10;

std::string nameOf(int file) {
    return "sound of the film number " + std::to_string(file) + ".wav";
}

void require(bool condition, const char* what) {
    if (!condition) {
        std::fprintf(stderr, "bench_soundtrack: %s\n", what);
        std::exit(1);
    }
}

/// A folder of files that the engine finds.
class CSoundFolder {
public:
    CSoundFolder() : m_path(fs::temp_directory_path() / "vesk_bench_soundtrack") {
        fs::create_directories(m_path);
        for (int file = 0; file < FILES; ++file) {
            SF_INFO info{};
            info.samplerate = RATES[file % 2];
            info.channels = 2;
            info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
            const sf_count_t frames = sf_count_t{SECONDS} * info.samplerate;
            std::vector<std::int16_t> samples(static_cast<std::size_t>(2 * frames));
            for (std::size_t i = 0; i < samples.size(); ++i) {
                samples[i] = static_cast<std::int16_t>(i * 7);
            }
            SNDFILE* const sound = sf_open(pathOf(file).c_str(), SFM_WRITE, &info);
            require(sound != nullptr && sf_writef_short(sound, samples.data(), frames) == frames,
                    "cannot write a file");
            sf_close(sound);
        }
        CEngineDirectories::setDirectories({m_path.string()});
    }
    ~CSoundFolder() {
        CEngineDirectories::setDirectories({});
        fs::remove_all(m_path);
    }
    CSoundFolder(const CSoundFolder&) = delete;
    CSoundFolder& operator=(const CSoundFolder&) = delete;

    std::string pathOf(int file) const { return (m_path / nameOf(file)).string(); }
    /// The samples of all of them by libsndfile, all at hand at the end as those of a soundtrack are.
    void read() const {
        std::vector<std::vector<std::int16_t>> sounds;
        for (int file = 0; file < FILES; ++file) {
            SF_INFO info{};
            SNDFILE* const sound = sf_open(pathOf(file).c_str(), SFM_READ, &info);
            require(sound != nullptr, "cannot read a file");
            auto& samples = sounds.emplace_back(static_cast<std::size_t>(info.frames * info.channels));
            require(sf_readf_short(sound, samples.data(), info.frames) == info.frames, "a file is short");
            sf_close(sound);
        }
    }

private:
    fs::path m_path;
};

void useLoopback() {
    setDeviceOpener({[] { return alcLoopbackOpenDeviceSOFT(nullptr); },
                     {ALC_FREQUENCY, RATE, ALC_FORMAT_CHANNELS_SOFT, ALC_STEREO_SOFT, ALC_FORMAT_TYPE_SOFT,
                      ALC_FLOAT_SOFT}});
}

void benchKnown(CMemoryMovie& movie) {
    constexpr int ROUNDS = 301;
    CSoundtrack soundtrack;
    soundtrack.layOutSoundtrack(movie);
    std::map<std::string, float> lengths;
    for (int file = 0; file < FILES; ++file) {
        lengths[nameOf(file)] = static_cast<float>(file);
    }
    float sum = 0.0F;
    const auto lookUp = [&] {
        for (int i = 0; i < ENTRIES; ++i) {
            sum += lengths.find(movie.getSound(i)->name)->second;
        }
    };
    const auto medians = bench::medianSeconds({[&] { soundtrack.layOutSoundtrack(movie); }, lookUp}, ROUNDS);
    require(sum > 0.0F && movie.getSound(ENTRIES - 1)->length > 0.0F, "nothing was laid out");
    bench::printRatio("1,000 entries of ten known files against 1,000 names looked up in a map", medians[0],
                      medians[1], 10.0);
}

double secondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    const std::chrono::duration<double> spent = std::chrono::steady_clock::now() - start;
    return spent.count();
}

double medianOf(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void benchFirstTime(CMemoryMovie& movie, const CSoundFolder& folder) {
    constexpr int ROUNDS = 31;
    std::vector<double> layouts;
    std::vector<double> readings;
    for (int round = 0; round < ROUNDS; ++round) {
        require(g_soundManager.create() == 0,
                "no device"); // which is opened before the panel looks at sounds
        CSoundtrack soundtrack;
        layouts.push_back(secondsOf([&] { soundtrack.layOutSoundtrack(movie); }));
        require(g_soundManager.loadedSounds().getCount() == FILES, "a sound was not loaded");
        g_soundManager.release();
        readings.push_back(secondsOf([&] { folder.read(); }));
    }
    bench::printRatio("the same for the first time, sounds loaded, against libsndfile reading the files",
                      medianOf(layouts), medianOf(readings), 1.1);
}

} // namespace

int main() {
    const CSoundFolder folder;
    useLoopback();
    CMemoryMovie movie(nullptr, 100);
    for (int i = 0; i < ENTRIES; ++i) {
        movie.addSound(nameOf(i % FILES).c_str());
    }
    benchFirstTime(movie, folder);
    require(g_soundManager.create() == 0, "no device");
    benchKnown(movie);
    g_soundManager.release();
    return 0;
}
