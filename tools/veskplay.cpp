// veskplay FILE…: plays WAV files one after another as the movie editor would play them.
#include "engine/memory/engine_directories.h"
#include "engine/qx_name.h"
#include "sound/sound.h"
#include "sound/sound_manager.h"
#include "sound/wave_reader.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds STEP(50);
constexpr std::chrono::milliseconds DEVICE_TAIL(250); ///< what the device still holds when a sound has ended

/// Says what failed on which file and why; the last words are for what to do.
void complain(const fs::path& path, const std::string& reason) {
    std::fprintf(stderr, "Failed to open %s: %s\n", path.c_str(), reason.c_str());
}

/// Playing time in seconds, or why there is none.
struct Examination {
    double seconds = 0.0;
    std::string refusal;
};

std::string describeFormat(const WAVEFORMATEX& format) {
    return "format " + std::to_string(format.wFormatTag) + ", channels: " + std::to_string(format.nChannels) +
           ", bits: " + std::to_string(format.wBitsPerSample);
}

Examination examine(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) {
        return {0.0, "no such file"};
    }
    if (!fs::is_regular_file(status) || access(path.c_str(), R_OK) != 0) {
        return {0.0, fs::is_regular_file(status) ? "no permission to read it" : "not a file"};
    }
    CWaveReader reader;
    if (FAILED(reader.open(path.c_str()))) {
        return {0.0, "not a WAV file with a format and samples"};
    }
    const WAVEFORMATEX& format = *reader.format();
    const bool known = format.wFormatTag == WAVE_FORMAT_PCM || format.wFormatTag == WAVE_FORMAT_EXTENSIBLE;
    const bool played = known && (format.nChannels == 1 || format.nChannels == 2) &&
                        (format.wBitsPerSample == 8 || format.wBitsPerSample == 16);
    if (!played || format.nAvgBytesPerSec == 0) {
        return {0.0, describeFormat(format) + " is not played; PCM of 8 or 16 bits, one or two channels, is"};
    }
    const auto bytes = std::min<std::uintmax_t>(reader.dataChunk().cksize, fs::file_size(path, error));
    return {static_cast<double>(bytes) / format.nAvgBytesPerSec, {}};
}

void showProgress(const std::string& title, double at, double seconds, const char* end) {
    const auto minutes = [](double time) { return static_cast<int>(time) / 60; };
    const auto rest = [&](double time) { return time - 60.0 * minutes(time); };
    std::printf("\r%s  %d:%04.1f / %d:%04.1f%s", title.c_str(), minutes(at), rest(at), minutes(seconds),
                rest(seconds), end);
    std::fflush(stdout);
}

/// Plays to the end, with a progress line where somebody watches.
void follow(const CSound& sound, const std::string& title, double seconds) {
    const bool watched = isatty(STDOUT_FILENO) != 0;
    const auto start = std::chrono::steady_clock::now();
    double at = 0.0;
    while (!sound.isFinished()) {
        at = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        if (watched) {
            showProgress(title, std::min(at, seconds), seconds, "");
        }
        std::this_thread::sleep_for(STEP);
    }
    showProgress(title, std::min(at + 0.1, seconds), seconds, "\n");
}

bool playFile(const fs::path& path, const std::string& number) {
    const Examination examination = examine(path);
    if (!examination.refusal.empty()) {
        complain(path, examination.refusal);
        return false;
    }
    if (g_soundManager.device() == nullptr) {
        return false;
    }
    CEngineDirectories::setDirectories({path.has_parent_path() ? path.parent_path() : fs::path(".")});
    CSound* sound = g_soundManager.loadSound(qxCName(path.filename().c_str()), 0);
    if (sound == nullptr || !sound->hasBuffer()) {
        complain(path, sound == nullptr
                           ? "no file by this name; rename it without ':' and control characters"
                           : "the sound device does not take it; it needs whole frames and a rate "
                             "from 100 to 200000 Hz");
        return false;
    }
    if (!sound->play(1.0F)) {
        std::fprintf(stderr, "Failed to play %s: the sound device does not answer\n", path.c_str());
        return false;
    }
    follow(*sound, number + path.filename().string(), examination.seconds);
    return true;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "Usage: veskplay FILE...\nPlays WAV files one after another.\n");
        return 2;
    }
    bool well = g_soundManager.create() == 0;
    if (!well) {
        std::fprintf(stderr,
                     "Failed to open the sound device: none was found; connect one or start the sound "
                     "server\n");
    }
    for (int i = 1; i < argc; ++i) {
        std::string number = std::to_string(i);
        number.append("/").append(std::to_string(argc - 1)).append(" ");
        well = playFile(argv[i], number) && well;
    }
    if (g_soundManager.device() != nullptr) {
        std::this_thread::sleep_for(DEVICE_TAIL);
    }
    g_soundManager.release();
    return well ? 0 : 1;
}
