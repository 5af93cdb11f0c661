// A long session of random work on the movie editor with mouse and keys, beside the same work done plainly on
// a second movie. By hand: VESK_SESSION_OPS=1000000 VESK_SESSION_SEED=7 bin/test_movie_session
#include "movie/movie_panel_fixture.h"
#include "movie/movie_reference.h"

#include "engine/memory/engine_directories.h"
#include "host/veskutil.h"
#include "module/module_state.h"
#include "movie/movie_undo_store.h"
#include "movie/panel/movie_editor_dlg.h"
#include "resources/resource_ids.h"
#include "sound/wave_bytes.h"
#include "support/modal_steps.h"
#include "support/temp_directory.h"
#include "support/ui_driver.h"

#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <array>
#include <cstdlib>
#include <iostream>
#include <random>

namespace {

constexpr int NUMBER_EDITS[] = {IDC_POSITION_X, IDC_POSITION_Y, IDC_POSITION_Z,    IDC_ROTATION_X,
                                IDC_ROTATION_Y, IDC_ROTATION_Z, IDC_FIELD_OF_VIEW, IDC_SHAKE};
constexpr int COMMANDS[] = {IDC_INSERT_FRAME, IDC_DELETE_FRAMES, IDC_ADD_KEYFRAME,  IDC_COPY_FRAMES,
                            IDC_CUT_FRAMES,   IDC_PASTE_FRAMES,  IDC_MARK_KEYFRAME, IDC_UNMARK_KEYFRAME};
constexpr int STEPS[] = {IDC_GO_TO_START, IDC_STEP_BACK,    IDC_STEP_FORWARD,
                         IDC_GO_TO_END,   IDC_PREVIOUS_KEY, IDC_NEXT_KEY};
constexpr int SPINS[] = {IDC_POSITION_X_SPIN,    IDC_POSITION_Y_SPIN, IDC_POSITION_Z_SPIN,
                         IDC_ROTATION_X_SPIN,    IDC_ROTATION_Y_SPIN, IDC_ROTATION_Z_SPIN,
                         IDC_FIELD_OF_VIEW_SPIN, IDC_SHAKE_SPIN};
constexpr int ZOOMS[] = {IDC_ZOOM_IN, IDC_ZOOM_OUT, IDC_ZOOM_FIT};

std::int64_t setting(const char* name, std::int64_t standard) {
    const char* const value = std::getenv(name);
    return value != nullptr ? std::strtoll(value, nullptr, 10) : standard;
}

/// Two movies, each with the one that the reference works on.
class MovieSession : public MoviePanelTest {
protected:
    MovieSession() {
        constexpr unsigned RATE = 1000;
        for (const auto& [name, length] : {std::pair{"long.wav", 1500U}, {"short.wav", 250U}}) {
            const wave::Bytes sound = wave::file(wave::format(1, RATE, 8), wave::Bytes(length, 200));
            m_sounds.write(name, wave::textOf(sound));
        }
        CEngineDirectories::setDirectories({m_sounds.path()});
    }
    ~MovieSession() override { CEngineDirectories::setDirectories({}); }

    struct Pair {
        Pair() {
            for (CMemoryMovie* const movie : {&actual, &expected}) {
                movie->addCamera("one");
                movie->addCamera("two");
            }
        }
        CMemoryMovie actual{nullptr, 20};
        CMemoryMovie expected{nullptr, 20};
    };

    int pick(int low, int high) { return std::uniform_int_distribution(low, high)(m_random); }
    template <std::size_t Size> int anyOf(const int (&ids)[Size]) {
        return ids[pick(0, static_cast<int>(Size) - 1)];
    }
    int press(int button) {
        m_strLast = "button " + std::to_string(button);
        click(button);
        return button;
    }
    CMemoryMovie& actual() { return m_pairs[m_nMovie].actual; }

    void reopen();
    void operate();
    void useMouse();
    void typeNumber();
    void useProperties();
    void moveCamera();
    void play();
    void setUpSounds();
    ::testing::AssertionResult alike();

    std::mt19937_64 m_random;
    std::array<Pair, 2> m_pairs;
    std::size_t m_nMovie = 0;
    CReferenceMovieEditor m_reference;
    CTempDirectory m_sounds;
    std::string m_strLast; ///< operation
};

void MovieSession::reopen() {
    m_strLast = "reopen";
    vuMovieCameraAltered(nullptr, true); // a frame whose change was dropped would go on counting as changed
    m_reference.cameraAltered(0, true);
    switch (pick(0, 2)) {
    case 0:
        click(IDC_CLOSE_MOVIE);
        break;
    case 1:
        panel()->close();
        break;
    default:
        vuDestroyMovieEditor();
    }
    m_nMovie = pick(0, 3) == 0 ? 1 - m_nMovie : m_nMovie;
    open(actual());
    m_reference.open(m_pairs[m_nMovie].expected);
}

void MovieSession::useMouse() {
    m_strLast = "useMouse";
    const auto button = pick(0, 1) == 0 ? Qt::LeftButton : Qt::RightButton;
    const bool ctrl = pick(0, 2) == 0;
    const bool cancelled = pick(0, 5) == 0;
    const int from = pick(0, CReferenceMovieEditor::WIDTH - 1);
    const int to = pick(0, CReferenceMovieEditor::WIDTH - 1);
    QWidget& timeline = *control(IDC_TIMELINE);
    const Qt::KeyboardModifiers keys = ctrl ? Qt::ControlModifier : Qt::NoModifier;
    QTest::mousePress(&timeline, button, keys, {from + 2, 20});
    QTest::mouseMove(&timeline, {to + 2, 20});
    if (cancelled) {
        ui::press(Qt::Key_Escape);
    }
    QTest::mouseRelease(&timeline, button, keys, {to + 2, 20});
    m_reference.drag(button == Qt::RightButton, ctrl, from, to, cancelled);
}

void MovieSession::typeNumber() {
    m_strLast = "typeNumber";
    const int field = pick(0, 7);
    const int id = NUMBER_EDITS[field];
    if (!isEnabled(id)) {
        return;
    }
    const float value = static_cast<float>(pick(-40, 400)) / 4.0F;
    const bool typed = pick(0, 2) != 0;
    if (typed) {
        type(id, QString::number(static_cast<double>(value)));
    } else {
        click(id);
    }
    leave();
    m_reference.typeNumber(field, typed ? std::optional(value) : std::nullopt);
    actual().updateTweening(); // a field that is left may do it or not
    m_pairs[m_nMovie].expected.updateTweening();
}

void MovieSession::useProperties() {
    m_strLast = "useProperties";
    const int what = pick(0, 6);
    m_strLast += " " + std::to_string(what);
    if (what == 6) {
        const int field = pick(0, 7);
        const bool up = pick(0, 1) == 0;
        step(SPINS[field], up);
        m_reference.spin(field, up);
    } else if (what == 0) {
        const int ids[] = {IDC_EASE_IN_DOWN, IDC_EASE_IN_UP, IDC_EASE_OUT_DOWN, IDC_EASE_OUT_UP};
        const int way = pick(0, 3);
        if (isEnabled(ids[way])) {
            click(ids[way]);
            m_reference.ease(way);
        }
    } else if (isEnabled(IDC_ANIM) && what == 1) {
        const std::string name(static_cast<std::size_t>(pick(0, 40)), 'x');
        type(IDC_ANIM, QString::fromStdString(name));
        if (name.empty()) {
            ui::press(Qt::Key_Delete);
        }
        leave();
        m_reference.setAnim(name);
    } else if (isEnabled(IDC_TARGET) && what == 2) {
        click(IDC_TARGET);
        m_reference.toggleTarget();
    } else if (isEnabled(IDC_FADE) && what >= 3 && what <= 5) {
        const int ids[] = {IDC_FRAME_CAMERA, IDC_INTERPOLATION, IDC_FADE};
        const int item = pick(0, what == 3 ? 1 : 2);
        choose(ids[what - 3], 0);
        m_reference.choose(what - 3, 0);
        for (int i = 1; i <= item; ++i) {
            ui::press(Qt::Key_Down);
            m_reference.choose(what - 3, i);
        }
    }
}

void MovieSession::moveCamera() {
    m_strLast = "moveCamera";
    const int index = pick(0, 1);
    const bool finished = pick(0, 2) == 0;
    const float value = static_cast<float>(pick(0, 3));
    for (CMemoryMovie* const movie : {&actual(), &m_pairs[m_nMovie].expected}) {
        for (int camera = 0; camera < 2; ++camera) { // the panel has posed them
            auto& node = static_cast<CMemoryCamera&>(*movie->getChildCamera(camera));
            node.position = {value, 1.0F, 2.0F};
            node.rotation = {0.0F, value * 10.0F, 0.0F};
            node.setFieldOfView(60.0F + value);
        }
    }
    vuMovieCameraAltered(actual().getChildCamera(index), finished);
    m_reference.cameraAltered(index, finished);
}

void MovieSession::play() {
    const bool loops = pick(0, 2) == 0;
    m_strLast = loops ? "loop" : "play";
    const int frames = pick(0, loops ? 500 : 30);
    const auto turnLoop = [loops] {
        if (loops) {
            click(IDC_LOOP);
        }
    };
    turnLoop();
    click(IDC_PLAY);
    actual().advance((frames + 0.5) / 25.0);
    if (actual().isPlaying()) {
        click(IDC_PLAY);
    }
    turnLoop();
    m_reference.play(frames, loops);
}

void MovieSession::setUpSounds() {
    m_strLast = "setUpSounds";
    const bool removes = pick(0, 1) == 0; // before it adds, so that films stay short
    const int added = pick(0, 2);         // none, long, short
    const bool confirms = pick(0, 3) != 0;
    const bool extends = pick(0, 1) == 0;
    std::vector<CModalSteps::Step> steps{[&](QWidget* dialog) {
        if (removes) {
            ui::control<QListWidget>(*dialog, IDC_SOUNDTRACK).selectAll();
            ui::click(ui::control(*dialog, IDC_REMOVE_SOUNDS));
        }
        if (added != 0) {
            ui::control<QListWidget>(*dialog, IDC_AVAILABLE_SOUNDS).item(added - 1)->setSelected(true);
            ui::click(ui::control(*dialog, IDC_ADD_SOUNDS));
        }
        ui::click(ui::control(*dialog, confirms ? IDOK : IDCANCEL));
    }};
    if (confirms && m_reference.setUpSounds(removes, added, extends)) {
        steps.emplace_back([extends](QWidget* box) {
            const auto answer = extends ? QMessageBox::Yes : QMessageBox::No;
            dynamic_cast<QMessageBox&>(*box).button(answer)->click();
        });
    }
    const CModalSteps person(std::move(steps));
    click(IDC_SETUP_SOUND_LIST);
    EXPECT_TRUE(person.areDone());
    ui::settle();
    panel()->activateWindow(); // as the window system does it
    ASSERT_TRUE(ui::waitUntilActive(panel()));
}

void MovieSession::operate() {
    constexpr int MOST_FRAMES = 200;
    const int dice = pick(0, 99);
    if (actual().getNumFrames() > MOST_FRAMES) {
        for (CMemoryMovie* const movie : {&actual(), &m_pairs[m_nMovie].expected}) {
            movie->setRangeStart(MOST_FRAMES / 10);
            movie->setRangeEnd(movie->getNumFrames() - 1);
        }
        m_reference.command(press(IDC_DELETE_FRAMES));
    } else if (dice < 25) {
        useMouse();
    } else if (dice < 40) {
        m_reference.step(press(anyOf(STEPS)));
    } else if (dice < 55) {
        m_reference.command(press(anyOf(COMMANDS)));
    } else if (dice < 65) {
        typeNumber();
    } else if (dice < 75) {
        useProperties();
    } else if (dice < 85) {
        moveCamera();
    } else if (dice < 88) {
        play();
    } else if (dice < 92) {
        m_reference.zoom(press(anyOf(ZOOMS)));
    } else if (dice < 93) {
        reopen();
    } else if (dice < 94) {
        setUpSounds();
    } else if (isEnabled(IDC_MOVIE_UNDO)) {
        press(IDC_MOVIE_UNDO);
        m_reference.undo();
    }
}

::testing::AssertionResult MovieSession::alike() {
    const std::string difference = m_reference.compare(actual(), g_movieUndo.getCount());
    if (!difference.empty()) {
        return ::testing::AssertionFailure() << difference;
    }
    const CTimelineCtrl& timeline = g_pMovieEditorDlg->timeline();
    if (timeline.getFirstFrame() != m_reference.firstFrame() ||
        timeline.getFrameWidth() != m_reference.frameWidth()) {
        return ::testing::AssertionFailure() << "the timeline stands elsewhere";
    }
    const auto shown = m_reference.shown();
    for (std::size_t i = 0; i < shown.numbers.size(); ++i) {
        if (text(NUMBER_EDITS[i]).toStdString() != shown.numbers[i]) {
            return ::testing::AssertionFailure() << "edit " << NUMBER_EDITS[i];
        }
    }
    if (text(IDC_MOVIE_TIME).toStdString() != shown.time ||
        isEnabled(IDC_POSITION_X) != shown.editable.value_or(isEnabled(IDC_POSITION_X))) {
        return ::testing::AssertionFailure() << "time or enabling";
    }
    return ::testing::AssertionSuccess();
}

TEST_F(MovieSession, StaysAlikeToTheReference) {
#ifdef __SANITIZE_ADDRESS__
    constexpr std::int64_t SHARE = 4'000;
#else
    constexpr std::int64_t SHARE = 20'000;
#endif
    const std::int64_t seed = setting("VESK_SESSION_SEED", 1);
    const std::int64_t count = setting("VESK_SESSION_OPS", SHARE);
    std::cout << count << " random operations, seed " << seed << std::endl;
    m_random.seed(static_cast<std::uint64_t>(seed));
    open(actual());
    m_reference.open(m_pairs[m_nMovie].expected);
    for (std::int64_t i = 0; i < count; ++i) {
        operate();
        ASSERT_TRUE(alike()) << "after operation " << i << ", " << m_strLast;
    }
}

} // namespace
