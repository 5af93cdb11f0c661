// The movie editor's refresh: nothing changed, one value changed, and every control given another value.
#include "bench/ratio.h"
#include "engine/memory/memory_scene.h"
#include "engine/memory/movie/memory_movie.h"
#include "host/veskutil.h"
#include "module/module_state.h"
#include "movie/panel/movie_editor_dlg.h"
#include "resources/resource_ids.h"

#include <QApplication>
#include <array>
#include <string>

namespace {

constexpr int FRAMES = 10'000;
constexpr int CAMERAS = 16;
constexpr int ROUNDS = 401;

class CRefreshBench {
public:
    CRefreshBench() {
        for (int i = 0; i < CAMERAS; ++i) {
            m_movie.addCamera(("camera " + std::to_string(i)).c_str());
        }
        for (int i = 0; i < FRAMES; i += 10) {
            qxCMovieFrame& key = *m_movie.getFrame(i);
            const auto value = static_cast<float>(i % 370);
            key.setTranslation({value, value / 2.0F, value / 3.0F});
            key.setRotation({value / 4.0F, value / 5.0F, value / 6.0F});
            key.setFov(20.0F + value / 9.0F);
            key.setKeyframe(true);
        }
        m_movie.updateTweening();
        giveOtherValues(*m_movie.getFrame(100), 1.0F);
        giveOtherValues(*m_movie.getFrame(5000), 2.0F);
        m_movie.getFrame(5000)->setKeyframe(false);
        m_movie.updateTweening();
        vuCreateMovieEditor(nullptr, &m_movie, true);
        m_movie.setRangeSingleFrame(100);
        refresh();
    }
    ~CRefreshBench() { vuDestroyMovieEditor(); }

    static void refresh() { g_pMovieEditorDlg->SendMessage(UM_TIMELINECHANGED, 0, IDC_TIMELINE); }
    void refreshOneChanged() {
        m_movie.getFrame(100)->fov = (m_fValue += 1.0F);
        refresh();
    }
    /// Another frame, with another value of everything, in another list of cameras.
    void refreshAllChanged() {
        m_bOther = !m_bOther;
        m_movie.setRangeSingleFrame(m_bOther ? 5000 : 100);
        m_movie.getChildCamera(3)->name.setString(m_bOther ? "other" : "camera 3");
        g_pMovieEditorDlg->timeline().setFirstFrame(m_bOther ? 4900 : 0);
        refresh();
    }

    /// The movie plays, or stands again; its clock stands still, and the frames are reached by hand.
    void playOrStop() {
        ::SendMessage(::GetDlgItem(g_pMovieEditorDlg->m_hWnd, IDC_PLAY), BM_CLICK, 0, 0);
        m_nReached = 200;
    }
    void reachFrame() { qxCMovie::getCallback()(qxMovieFrameReached, nullptr, ++m_nReached); }

private:
    static void giveOtherValues(qxCMovieFrame& frame, float value) {
        frame.setTranslation({value, value, value});
        frame.setRotation({value, value, value});
        frame.setFov(value);
        frame.setShake(value);
        frame.setCamera(static_cast<int>(value));
        frame.setFrameMode(static_cast<qxMovieFrameMode>(value));
        frame.setFadeMode(static_cast<qxMovieFadeMode>(value));
        frame.setFadeColour({static_cast<std::uint8_t>(value), 0, 0, 255});
        frame.setCameraMode(value < 2.0F ? qxMovieCameraTarget : qxMovieCameraFree);
        frame.setTargetName(qxCName(value < 2.0F ? "mill" : "bridge"));
        frame.setAnimTrigger(value < 2.0F ? "turn" : "rise");
        frame.setEaseIn(value / 4.0F);
        frame.setEaseOut(value / 3.0F);
        frame.setKeyframe(true);
    }

    CMemoryScene m_scene;
    CMemoryMovie m_movie{&m_scene, FRAMES};
    float m_fValue = 10.0F;
    bool m_bOther = false;
    int m_nReached = 0;
};

/// Median seconds of a frame reached and of every control written, in turns: between two runs of one of them
/// the machine is not the same.
std::array<double, 2> reachedAndAll(CRefreshBench& bench, const std::function<void()>& reach,
                                    const std::function<void()>& all) {
    constexpr int TURNS = 21;
    std::array<std::vector<double>, 2> times;
    for (int turn = 0; turn < TURNS; ++turn) {
        bench.playOrStop();
        times[0].push_back(bench::medianSeconds({reach}, ROUNDS / TURNS)[0]);
        bench.playOrStop();
        times[1].push_back(bench::medianSeconds({all}, ROUNDS / TURNS)[0]);
    }
    for (std::vector<double>& series : times) {
        std::nth_element(series.begin(), series.begin() + TURNS / 2, series.end());
    }
    return {times[0][TURNS / 2], times[1][TURNS / 2]};
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication application(argc, argv);
    CRefreshBench bench;
    const auto seen = [](const std::function<void()>& work) {
        return [work] {
            work();
            QApplication::processEvents();
        };
    };
    const std::function<void()> all = [&] { bench.refreshAllChanged(); };
    const std::function<void()> one = [&] { bench.refreshOneChanged(); };
    const std::function<void()> none = [&] { CRefreshBench::refresh(); };
    const auto calls = bench::medianSeconds({none, all, one, none}, ROUNDS);
    const auto shown = bench::medianSeconds({seen(none), seen(all), seen([] {}), seen(one)}, ROUNDS);
    bench::printRatio("refresh with its painting, nothing changed, against every control written", shown[0],
                      shown[1], 0.02);
    bench::printRatio("refresh with its painting, one value changed, against every control written", shown[3],
                      shown[1], 0.15);
    constexpr double HOST_FRAME = 1.0 / 60.0; // seconds
    const auto reached = reachedAndAll(bench, seen([&] { bench.reachFrame(); }), seen(all));
    bench::printRatio("one frame reached while it plays, with its painting, against every control written",
                      reached[0], reached[1], 0.2);
    std::printf("one frame reached against a host frame of 1/60 s: %.4fx\n", reached[0] / HOST_FRAME);
    std::printf("empty turn of the event loop: %.3f us\n", shown[2] * 1e6);
    std::printf(
        "the call alone: nothing changed %.3fx, one value changed %.3fx  (%.3f us for every control)\n",
        calls[0] / calls[1], calls[2] / calls[1], calls[1] * 1e6);
    return 0;
}
