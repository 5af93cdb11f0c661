// The soundtrack at the panel: arranged, laid out, heard in step with the film, silent when it stops.
#include "host/veskutil.h"
#include "movie/movie_panel_fixture.h"
#include "platform/framework.h"
#include "platform/openal/device_opener.h"
#include "resources/resource_ids.h"
#include "sound/sound_fixture.h"
#include "support/modal_steps.h"
#include "support/ui_driver.h"

#include <QListWidget>
#include <QMessageBox>
#include <QTest>

#include <AL/alext.h>
#include <algorithm>

#include <dlfcn.h>
#include <random>

namespace {

constexpr unsigned RATE = 8000;
constexpr double FRAME = 0.04; // seconds, at 25 frames a second
constexpr std::size_t SAMPLES_OF_A_FRAME = 320;

bool g_deviceIsLost = false;

class SoundtrackPanel : public MoviePanelTest, protected CLoopbackSound {
protected:
    SoundtrackPanel() {
        useLoopback(static_cast<int>(RATE));
        write("short.wav", 0.3);
        write("long.wav", 1.0); // the film has 0.8 s
    }
    ~SoundtrackPanel() override { vuDestroyMovieEditor(); } // while the device is there

    void write(const char* name, double seconds) const {
        const wave::Bytes data(static_cast<std::size_t>(seconds * RATE), 200);
        m_directory.write(name, wave::textOf(wave::file(wave::format(1, RATE, 8), data)));
    }
    bool isHeard() const {
        return std::ranges::any_of(hear(SAMPLES_OF_A_FRAME), [](std::int16_t sample) { return sample != 0; });
    }
};

TEST_F(SoundtrackPanel, PlaysInStepAndIsSilentAfterwards) {
    m_movie.addSound("short.wav");
    m_movie.addSound("short.wav");
    open();
    click(IDC_PLAY);
    std::string heard;
    for (int i = 0; i < 12; ++i) {
        m_movie.advance(FRAME);
        heard += isHeard() ? 'x' : '.';
    }
    // 0.3 s are 7.5 frames; the second sound begins with the 8th frame's start, after half a frame's silence.
    EXPECT_EQ(heard, "xxxxxxxxxxxx");
    click(IDC_PLAY);
    EXPECT_FALSE(isHeard()) << "stopped";
    click(IDC_GO_TO_START);
    click(IDC_PLAY);
    m_movie.advance(FRAME);
    EXPECT_TRUE(isHeard());
    EXPECT_EQ(g_soundManager.loadedSounds().getCount(), 1) << "loaded once";
    click(IDC_CLOSE_MOVIE);
    EXPECT_FALSE(isHeard()) << "closed";
    EXPECT_FALSE(m_movie.isPlaying());
}

TEST_F(SoundtrackPanel, LoopSilencesWhatStillSounds) {
    m_movie.addSound("short.wav");
    m_movie.addSound("long.wav"); // from 0.32 s on, to beyond the end
    open();
    click(IDC_LOOP);
    click(IDC_PLAY);
    for (int i = 0; i < 20; ++i) {
        m_movie.advance(FRAME);
    }
    EXPECT_TRUE(isHeard());
    EXPECT_TRUE(m_movie.isPlaying());
    EXPECT_EQ(m_movie.getRangeStart(), 0);
    hear(7 * SAMPLES_OF_A_FRAME);
    EXPECT_FALSE(isHeard()) << "0.32 s after the loop the short sound, begun anew, is over";
}

/// A real host's frames come as they come. What is heard is the sounds' place in the film all the same.
TEST_F(SoundtrackPanel, StaysInStepForTenMinutes) {
    constexpr int FRAMES = 15'000;
    constexpr double PERIOD = 6.97; // seconds of a sound that is a beat and silence
    wave::Bytes beat(static_cast<std::size_t>(PERIOD * RATE), 128);
    std::fill_n(beat.begin(), RATE / 50, std::uint8_t{200});
    m_directory.write("beat.wav", wave::textOf(wave::file(wave::format(1, RATE, 8), beat)));
    CMemoryMovie movie(nullptr, FRAMES);
    for (int i = 0; i < 85; ++i) {
        movie.addSound("beat.wav");
    }
    open(movie);
    click(IDC_PLAY);
    std::mt19937 random(5);
    std::uniform_real_distribution<double> hostFrame(0.004, FRAME);
    std::vector<double> heardAt;
    std::size_t heard = 0;     // samples so far
    std::size_t lastSound = 0; // one of them that was not silent
    double time = 0.0;
    while (movie.isPlaying() && time < 700.0) {
        const double step = hostFrame(random);
        time += step;
        const auto upTo = static_cast<std::size_t>(time * RATE);
        const std::vector<std::int16_t> samples = hear(upTo - heard);
        for (std::size_t i = 0; i < samples.size(); i += 2, ++heard) {
            if (samples[i] != 0) {
                if (heardAt.empty() || heard - lastSound > RATE) {
                    heardAt.push_back(static_cast<double>(heard) / RATE);
                }
                lastSound = heard;
            }
        }
        movie.advance(step);
    }
    EXPECT_NEAR(time, FRAMES * FRAME, FRAME);
    ASSERT_EQ(heardAt.size(), 85U);
    for (int i = 0; i < 85; ++i) {
        const double late =
            heardAt[static_cast<std::size_t>(i)] - static_cast<double>(movie.getSound(i)->start);
        EXPECT_GE(late, -1.0 / RATE) << i;
        EXPECT_LE(late, FRAME) << i;
    }
    vuDestroyMovieEditor();
}

TEST_F(SoundtrackPanel, PlaysOnWithoutTheDeviceAndIsHeardWhenItIsBack) {
    m_movie.addSound("short.wav");
    bool isThere = false; // a device that can be listened to
    const auto playToTheEnd = [&] {
        click(IDC_PLAY);
        m_movie.advance(FRAME);
        const bool heard = isThere && isHeard();
        for (int i = 0; i < 30; ++i) {
            m_movie.advance(FRAME);
            vuSoundUpdate();
        }
        EXPECT_FALSE(m_movie.isPlaying());
        EXPECT_EQ(m_movie.getRangeStart(), 19);
        return heard;
    };
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    g_soundManager.release();
    setDeviceOpener({[]() -> ALCdevice* { return nullptr; }, {}});
    open();
    EXPECT_FALSE(playToTheEnd());
    useLoopback(static_cast<int>(RATE));
    isThere = true;
    EXPECT_TRUE(playToTheEnd()) << "a device has come";
    click(IDC_GO_TO_START);
    click(IDC_PLAY);
    g_deviceIsLost = true; // while it plays
    for (int i = 0; i < 30; ++i) {
        m_movie.advance(FRAME);
        vuSoundUpdate();
    }
    EXPECT_EQ(m_movie.getRangeStart(), 19);
    setDeviceOpener({[]() -> ALCdevice* { return nullptr; }, {}});
    isThere = false;
    playToTheEnd();
    g_deviceIsLost = false;
    useLoopback(static_cast<int>(RATE));
    isThere = true;
    EXPECT_TRUE(playToTheEnd()) << "it is back";
    EXPECT_EQ(testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr(), "");
}

TEST_F(SoundtrackPanel, MayBeClosedUnderItsDialogAndItsQuestion) {
    const auto closes = [](QWidget* shown) {
        vuDestroyMovieEditor();
        EXPECT_FALSE(shown->isVisible());
    };
    open();
    {
        const CModalSteps person({closes});
        click(IDC_SETUP_SOUND_LIST);
        EXPECT_TRUE(person.areDone());
    }
    EXPECT_EQ(panel(), nullptr);
    open();
    const CModalSteps person({[](QWidget* dialog) {
                                  ui::control<QListWidget>(*dialog, IDC_AVAILABLE_SOUNDS).selectAll();
                                  ui::click(ui::control(*dialog, IDC_ADD_SOUNDS));
                                  ui::click(ui::control(*dialog, IDOK));
                              },
                              [&](QWidget* question) {
                                  EXPECT_EQ(dynamic_cast<QMessageBox&>(*question).text(),
                                            "Extend movie to length of soundtrack ?");
                                  closes(question);
                              }});
    click(IDC_SETUP_SOUND_LIST);
    EXPECT_TRUE(person.areDone());
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(m_movie.getNumFrames(), 20);
    EXPECT_EQ(g_soundManager.device(), nullptr) << "released, and not opened again";
}

} // namespace

/// Stands before the sound library's own: a device can be lost, which one without loudspeakers never is.
extern "C" void alcGetIntegerv(ALCdevice* device, ALCenum what, ALCsizei size, ALCint* values) {
    static const auto genuine =
        reinterpret_cast<decltype(&alcGetIntegerv)>(dlsym(RTLD_NEXT, "alcGetIntegerv"));
    genuine(device, what, size, values);
    if (what == ALC_CONNECTED && g_deviceIsLost) {
        *values = ALC_FALSE;
    }
}
