// veskplay FILE…: plays WAV files one after another as the movie editor would play them.
#include "engine/memory/engine_directories.h"
#include "engine/qx_file.h"
#include "sound/sound.h"
#include "sound/sound_manager.h"
#include "sound/wave_reader.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
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

std::string describeFormat(const WAVEFORMATEX& format) {
    return "format " + std::to_string(format.wFormatTag) + ", channels: " + std::to_string(format.nChannels) +
           ", bits: " + std::to_string(format.wBitsPerSample) +
           ", rate: " + std::to_string(format.nSamplesPerSec);
}

/// Playing time and format, or why there is none.
struct Examination {
    double seconds = 0.0;
    std::string format;
    std::string refusal;
};

Examination examine(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (!fs::exists(status)) {
        return {0.0, {}, "no such file"};
    }
    if (!fs::is_regular_file(status) || access(path.c_str(), R_OK) != 0) {
        return {0.0, {}, fs::is_regular_file(status) ? "no permission to read it" : "not a file"};
    }
    CWaveReader reader;
    if (FAILED(reader.open(path.c_str()))) {
        return {0.0, {}, "not a WAV file with a format and samples"};
    }
    const WAVEFORMATEX& format = *reader.format();
    const auto bytes = std::min<std::uintmax_t>(reader.dataChunk().cksize, fs::file_size(path, error));
    const double perSecond = std::max<double>(format.nAvgBytesPerSec, 1.0);
    return {static_cast<double>(bytes) / perSecond, describeFormat(format), {}};
}

/// Minutes, seconds and tenths, to the nearest tenth: "1:00.0" for 59.97.
std::string clockText(double seconds) {
    const long long tenths = std::llround(seconds * 10.0);
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%lld:%02lld.%lld", tenths / 600, tenths / 10 % 60, tenths % 10);
    return text.data();
}

void showProgress(const std::string& title, double at, double seconds, const char* end) {
    std::printf("\r%s  %s / %s%s", title.c_str(), clockText(at).c_str(), clockText(seconds).c_str(), end);
    std::fflush(stdout);
}

/// Plays to the end, with a progress line where somebody watches. False when the device went away before.
bool follow(const CSound& sound, const std::string& title, double seconds) {
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
    const bool lost = g_soundManager.isDeviceLost();
    showProgress(title, lost ? std::min(at, seconds) : seconds, seconds, "\n");
    return !lost;
}

/// The sound lives no longer than it plays, however long the list is.
bool playOpened(const fs::path& path, qxCFile& file, const std::string& title, const Examination& known) {
    CSound sound(file, 0, *g_soundManager.device(), static_cast<DWORD>(g_soundManager.sampleRate()));
    if (g_soundManager.isDeviceLost() || (sound.hasBuffer() && !sound.play(1.0F))) {
        std::fprintf(stderr, "Failed to play %s: the sound device does not answer\n", path.c_str());
        return false;
    }
    if (!sound.hasBuffer()) {
        complain(path, "the sound device does not play it (" + known.format + ")");
        return false;
    }
    if (!follow(sound, title, known.seconds)) {
        std::fprintf(stderr, "Failed to play %s to its end: the sound device went away\n", path.c_str());
        return false;
    }
    return true;
}

bool playFile(const fs::path& path, const std::string& number) {
    const Examination known = examine(path);
    if (!known.refusal.empty()) {
        complain(path, known.refusal);
        return false;
    }
    if (g_soundManager.device() == nullptr) {
        return false;
    }
    CEngineDirectories::setDirectories({path.has_parent_path() ? path.parent_path() : fs::path(".")});
    qxCFile file;
    if (!file.open(path.filename().c_str(), qxFileModeRead)) {
        complain(path, "no file by this name; rename it without ':' and control characters");
        return false;
    }
    return playOpened(path, file, number + path.filename().string(), known);
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
