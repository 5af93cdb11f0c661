// A device that vanishes while it plays: OpenAL Soft writes its output to a file, which stops growing.
#include "sound/sound_fixture.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include <sys/resource.h>

namespace {

const std::filesystem::path& outputFile() {
    static const CTempDirectory DIRECTORY;
    static const std::filesystem::path PATH = DIRECTORY.path() / "heard.wav";
    return PATH;
}

/// Before OpenAL is first used: it reads its settings once.
bool playIntoFile() {
    static const CTempDirectory DIRECTORY;
    const auto settings = DIRECTORY.write("alsoft.conf", "[wave]\nfile = " + outputFile().string() + "\n");
    return setenv("ALSOFT_DRIVERS", "wave", 1) == 0 && setenv("ALSOFT_CONF", settings.c_str(), 1) == 0;
}

const bool PLAYS_INTO_FILE = playIntoFile();

/// While it lives, no file of this process grows beyond `bytes`.
class CFileSizeLimit {
public:
    explicit CFileSizeLimit(std::uintmax_t bytes) {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit = {static_cast<rlim_t>(bytes), m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~CFileSizeLimit() { setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before{};
};

using LostDevice = SoundFixture;

TEST_F(LostDevice, SoundGoesQuietAndWorkGoesOn) {
    testing::internal::CaptureStderr();
    write("long.wav", wave::file(wave::format(2, 22050, 16), wave::Bytes(22050 * 4 * 60, 1))); // a minute
    ASSERT_EQ(g_soundManager.create(), 0);
    CSound* sound = g_soundManager.loadSound(qxCName("long.wav"), 0);
    ASSERT_TRUE(sound->play(1.0F));
    {
        const CFileSizeLimit limit(std::max<std::uintmax_t>(std::filesystem::file_size(outputFile()), 8192));
        const auto patience = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (!sound->isFinished() && std::chrono::steady_clock::now() < patience) {
            std::this_thread::yield();
        }
    }
    EXPECT_TRUE(sound->isFinished());
    EXPECT_FALSE(sound->play(1.0F));
    sound->stop();
    g_soundManager.update();
    g_soundManager.stopAll();
    CSound* late = g_soundManager.loadSound(qxCName("long.wav"), 0);
    ASSERT_NE(late, nullptr);
    EXPECT_FALSE(late->hasBuffer());
    EXPECT_EQ(g_soundManager.create(), 0) << "begins anew";
    EXPECT_EQ(g_soundManager.loadedSounds().getCount(), 0);
    EXPECT_TRUE(g_soundManager.loadSound(qxCName("long.wav"), 0)->play(1.0F));
    g_soundManager.release();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
