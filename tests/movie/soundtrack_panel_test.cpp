// The soundtrack at the panel: arranged, laid out, heard in step with the film, silent when it stops.
#include "host/veskutil.h"
#include "movie/movie_panel_fixture.h"
#include "platform/framework.h"
#include "resources/resource_ids.h"
#include "sound/sound_fixture.h"
#include "support/modal_steps.h"
#include "support/ui_driver.h"

#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace {

constexpr unsigned RATE = 8000;
constexpr double FRAME = 0.04; // seconds, at 25 frames a second
constexpr std::size_t SAMPLES_OF_A_FRAME = 320;

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
    /// Add this file in "Setup Sound List", confirm, and answer what follows.
    static void add(const QString& name, std::vector<CModalSteps::Step> answers) {
        answers.insert(answers.begin(), [&](QWidget* dialog) {
            auto& list = ui::control<QListWidget>(*dialog, IDC_AVAILABLE_SOUNDS);
            list.findItems(name, Qt::MatchExactly).first()->setSelected(true);
            ui::click(ui::control(*dialog, IDC_ADD_SOUNDS));
            ui::click(ui::control(*dialog, IDOK));
        });
        const CModalSteps person(std::move(answers));
        click(IDC_SETUP_SOUND_LIST);
        EXPECT_TRUE(person.areDone());
    }
    static CModalSteps::Step answer(QMessageBox::StandardButton button) {
        return [button](QWidget* shown) {
            auto* const box = qobject_cast<QMessageBox*>(shown);
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), "Extend movie to length of soundtrack ?");
            box->button(button)->click();
        };
    }
    bool isHeard() const {
        return std::ranges::any_of(hear(SAMPLES_OF_A_FRAME), [](std::int16_t sample) { return sample != 0; });
    }
};

TEST_F(SoundtrackPanel, GrowsTheFilmWhenAsked) {
    open();
    add("short.wav", {}); // shorter than the film: nothing is asked
    EXPECT_EQ(m_movie.getSound(0)->length, 0.3F);
    add("long.wav", {answer(QMessageBox::No)});
    EXPECT_EQ(m_movie.getNumFrames(), 20);
    add("short.wav", {answer(QMessageBox::Yes)});
    EXPECT_EQ(m_movie.getNumFrames(), 41) << "each inserted in front: 0.32 + 1.0 + 0.3 s";
    EXPECT_TRUE(frame(40).keyframe);
    EXPECT_EQ(m_movie.getRangeStart(), 0);
}

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
    add("long.wav", {closes});
    EXPECT_EQ(panel(), nullptr);
    EXPECT_EQ(m_movie.getNumFrames(), 20);
    EXPECT_EQ(g_soundManager.device(), nullptr) << "released, and not opened again";
}

} // namespace
