#include "movie/panel/movie_editor_dlg.h"

#include "controls/icon_buttons.h"
#include "engine/qx_file.h"
#include "engine/qx_node_iterator.h"
#include "engine/qx_scene.h"
#include "module/export_scope.h"
#include "module/module_state.h"
#include "movie/frame_commands.h"
#include "movie/keyframe_steps.h"
#include "movie/time_text.h"
#include "resources/resource_ids.h"

#include <algorithm>
#include <limits>

BEGIN_MESSAGE_MAP(CMovieEditorDlg, CKeyframeEditorDlg)
ON_WM_HSCROLL()
ON_MESSAGE(UM_TIMELINECHANGED, &CMovieEditorDlg::onTimelineChanged)
ON_BN_CLICKED(IDC_INSERT_FRAME, &CMovieEditorDlg::onFrameCommand)
ON_BN_CLICKED(IDC_DELETE_FRAMES, &CMovieEditorDlg::onFrameCommand)
ON_BN_CLICKED(IDC_COPY_FRAMES, &CMovieEditorDlg::onFrameCommand)
ON_BN_CLICKED(IDC_CUT_FRAMES, &CMovieEditorDlg::onFrameCommand)
ON_BN_CLICKED(IDC_PASTE_FRAMES, &CMovieEditorDlg::onFrameCommand)
ON_BN_CLICKED(IDC_ADD_KEYFRAME, &CMovieEditorDlg::onFrameCommand)
ON_BN_CLICKED(IDC_MARK_KEYFRAME, &CMovieEditorDlg::onFrameCommand)
ON_BN_CLICKED(IDC_UNMARK_KEYFRAME, &CMovieEditorDlg::onFrameCommand)
ON_BN_CLICKED(IDC_MOVIE_UNDO, &CMovieEditorDlg::onUndo)
ON_BN_CLICKED(IDC_PLAY, &CMovieEditorDlg::onPlay)
ON_BN_CLICKED(IDC_PAUSE, &CMovieEditorDlg::onPlayOption)
ON_BN_CLICKED(IDC_LOOP, &CMovieEditorDlg::onPlayOption)
ON_BN_CLICKED(IDC_GO_TO_START, &CMovieEditorDlg::onGoTo)
ON_BN_CLICKED(IDC_STEP_BACK, &CMovieEditorDlg::onGoTo)
ON_BN_CLICKED(IDC_STEP_FORWARD, &CMovieEditorDlg::onGoTo)
ON_BN_CLICKED(IDC_GO_TO_END, &CMovieEditorDlg::onGoTo)
ON_BN_CLICKED(IDC_PREVIOUS_KEY, &CMovieEditorDlg::onKeySearch)
ON_BN_CLICKED(IDC_NEXT_KEY, &CMovieEditorDlg::onKeySearch)
ON_BN_CLICKED(IDC_ZOOM_IN, &CMovieEditorDlg::onZoom)
ON_BN_CLICKED(IDC_ZOOM_OUT, &CMovieEditorDlg::onZoom)
ON_BN_CLICKED(IDC_ZOOM_FIT, &CMovieEditorDlg::onZoom)
ON_BN_CLICKED(IDC_VESK_CAMERA, &CMovieEditorDlg::onCameraView)
ON_BN_CLICKED(IDC_MOVIE_CAMERA, &CMovieEditorDlg::onCameraView)
ON_BN_CLICKED(IDC_SHOW_PATH, &CMovieEditorDlg::onViewOption)
ON_BN_CLICKED(IDC_SHOW_HEIGHTS, &CMovieEditorDlg::onViewOption)
ON_BN_CLICKED(IDC_NO_FADES, &CMovieEditorDlg::onViewOption)
ON_BN_CLICKED(IDC_SETUP_SOUND_LIST, &CMovieEditorDlg::onSetupSoundList)
ON_BN_CLICKED(IDC_CLOSE_MOVIE, &CMovieEditorDlg::onCloseButton)
END_MESSAGE_MAP()

namespace {

constexpr IconButton ICON_BUTTONS[] = {
    {IDC_ZOOM_IN, IDI_ZOOM_IN},     {IDC_ZOOM_OUT, IDI_ZOOM_OUT},
    {IDC_ZOOM_FIT, IDI_ZOOM_FIT},   {IDC_GO_TO_START, IDI_GO_TO_START},
    {IDC_STEP_BACK, IDI_STEP_BACK}, {IDC_PLAY, IDI_PLAY},
    {IDC_PAUSE, IDI_PAUSE},         {IDC_STEP_FORWARD, IDI_STEP_FORWARD},
    {IDC_GO_TO_END, IDI_GO_TO_END},
};

struct FrameCommand {
    UINT controlId;
    void (*run)(qxCMovie& movie, CMovieUndoStore& store);
};

constexpr FrameCommand FRAME_COMMANDS[] = {
    {IDC_INSERT_FRAME, insertFrame},
    {IDC_DELETE_FRAMES, deleteFrames},
    {IDC_ADD_KEYFRAME, addKeyframe},
    {IDC_COPY_FRAMES, [](qxCMovie& movie, CMovieUndoStore&) { copyFrames(movie); }},
    {IDC_CUT_FRAMES, [](qxCMovie& movie, CMovieUndoStore&) { cutFrames(movie); }},
    {IDC_PASTE_FRAMES, [](qxCMovie& movie, CMovieUndoStore&) { pasteFrames(movie); }},
    {IDC_MARK_KEYFRAME, [](qxCMovie& movie, CMovieUndoStore&) { markKeyframes(movie, KeyframeMark::SET); }},
    {IDC_UNMARK_KEYFRAME,
     [](qxCMovie& movie, CMovieUndoStore&) { markKeyframes(movie, KeyframeMark::CLEARED); }},
};

/// So many frames away, where an engine may be anywhere within an int.
int framesFrom(int frame, int away) {
    using Int = std::numeric_limits<int>;
    return static_cast<int>(
        std::clamp<long long>(static_cast<long long>(frame) + away, Int::min(), Int::max()));
}

int frameToGoTo(UINT controlId, const qxCMovie& movie) {
    switch (controlId) {
    case IDC_STEP_BACK:
        return framesFrom(movie.getRangeStart(), -1);
    case IDC_STEP_FORWARD:
        return framesFrom(movie.getRangeStart(), 1);
    case IDC_GO_TO_END:
        return movie.getNumFrames() - 1;
    default:
        return 0;
    }
}

void setFlag(qxCMovie& movie, qxMovieFlag flag, bool isSet) {
    movie.flags = isSet ? movie.flags | flag : movie.flags & ~std::uint32_t{flag};
}

bool hasFlag(const qxCMovie& movie, qxMovieFlag flag) {
    return (movie.flags & flag) != 0;
}

/// The camera of the scene that the movie stands in; null when there is none.
qxCCamera* sceneCamera(qxCScene* scene) {
    qxCNodeIterator search;
    search.setRootNode(scene);
    return static_cast<qxCCamera*>(search.findFirst(qxNodeCamera)); // of this type are cameras alone
}

} // namespace

CMovieEditorDlg::CMovieEditorDlg(bool showClose)
    : CKeyframeEditorDlg(IDD_MOVIE_EDITOR, 0, 0, "Advanced >>", "Advanced <<", g_bMovieEditorActive)
    , m_bShowClose(showClose) {}

CMovieEditorDlg::~CMovieEditorDlg() {
    endWindow();
    if (g_pMovieEditorDlg == this) {
        g_pMovieEditorDlg = nullptr;
        g_bMovieEditorActive = false;
    }
}

void CMovieEditorDlg::endPlayback() {
    if (g_pPlayingMovieDlg == this) {
        g_pPlayingMovieDlg = nullptr;
        m_player.end(movie());
    }
}

void CMovieEditorDlg::onUserCloses() {
    work([this](qxCMovie& movie) {
        stopPlayback(movie);
        refresh(movie);
    });
}

void CMovieEditorDlg::letGo() {
    endPlayback();
    m_soundtrackSetup.abandon();
    m_timeline.setMovie(nullptr);
    CKeyframeEditorDlg::letGo();
}

BOOL CMovieEditorDlg::OnInitDialog() {
    CKeyframeEditorDlg::OnInitDialog();
    CenterWindow();
    GetDlgItem(IDC_CLOSE_MOVIE)->EnableWindow(m_bShowClose ? TRUE : FALSE);
    GetDlgItem(IDC_CLOSE_MOVIE)->ShowWindow(m_bShowClose ? SW_SHOW : SW_HIDE);
    setButtonIcons(*this, ICON_BUTTONS);
    keyframeGroup().create(*this);
    createTimeline();
    work([this](qxCMovie& movie) { showAtOpening(movie); });
    return TRUE;
}

void CMovieEditorDlg::createTimeline() {
    const HWND placeholder = ::GetDlgItem(m_hWnd, IDC_TIMELINE);
    CRect rect;
    ::GetWindowRect(placeholder, rect);
    ScreenToClient(rect);
    ::DestroyWindow(placeholder);
    m_timeline.create(WS_CHILD | WS_VISIBLE, rect, this, IDC_TIMELINE);
    m_timeline.setBeforeDrop([this] { settleCapture(); });
}

void CMovieEditorDlg::showAtOpening(qxCMovie& movie) {
    m_soundtrack.layOutSoundtrack(movie);
    qxCFile::findClose(); // a search that the sound list has left open
    m_timeline.setMovie(&movie);
    movie.setRangeSingleFrame(0);
    m_nCameraView = 0;
    m_bLoop = 0;
    m_player.stop(*this, movie);
    m_bPath = hasFlag(movie, qxMovieShowPath) ? 1 : 0;
    m_bHeights = hasFlag(movie, qxMovieShowHeights) ? 1 : 0;
    m_bNoFades = hasFlag(movie, qxMovieNoFades) ? 1 : 0;
    showUndo();
    fitTimeline(movie);
    refresh(movie);
}

void CMovieEditorDlg::DoDataExchange(CDataExchange* pDX) {
    CKeyframeEditorDlg::DoDataExchange(pDX);
    m_timelineScroll.exchange(pDX);
    m_strTime.exchange(pDX, IDC_MOVIE_TIME);
    DDX_Radio(pDX, IDC_VESK_CAMERA, m_nCameraView);
    DDX_Check(pDX, IDC_PAUSE, m_bPause);
    DDX_Check(pDX, IDC_LOOP, m_bLoop);
    DDX_Check(pDX, IDC_SHOW_PATH, m_bPath);
    DDX_Check(pDX, IDC_SHOW_HEIGHTS, m_bHeights);
    DDX_Check(pDX, IDC_NO_FADES, m_bNoFades);
}

void CMovieEditorDlg::refresh(qxCMovie& movie, UndoButton undoButton) {
    m_timeline.redraw();
    m_strTime.set(selectionTime(movie).c_str());
    m_timelineScroll.show(m_timeline, movie.getNumFrames());
    qxCMovieFrame* const frame = currentFrame(movie);
    if (frame != nullptr) {
        keyframeGroup().take(*frame, movie);
        if (hasFlag(movie, qxMovieStopped)) {
            movie.updateManual(movie.convertFrameToTime(movie.getRangeStart()));
        }
    }
    UpdateData(FALSE);
    keyframeGroup().enable(*this, frame, movie);
    if (undoButton == UndoButton::DISABLED) {
        GetDlgItem(IDC_MOVIE_UNDO)->EnableWindow(FALSE);
    } else {
        showUndo();
    }
}

void CMovieEditorDlg::fitTimeline(const qxCMovie& movie) {
    m_timeline.setFrameWidth(m_timeline.getClientWidth() / std::max(movie.getNumFrames(), 1));
    m_timeline.setFirstFrame(0);
    m_timeline.ensureVisible(movie.getRangeStart());
}

LRESULT CMovieEditorDlg::onTimelineChanged(WPARAM /*wParam*/, LPARAM controlId) {
    if (controlId == IDC_TIMELINE) {
        work([this](qxCMovie& movie) { refresh(movie); });
    }
    return 1;
}

void CMovieEditorDlg::onFrameCommand(UINT controlId) {
    const auto* const command = std::ranges::find(FRAME_COMMANDS, controlId, &FrameCommand::controlId);
    work([&](qxCMovie& movie) {
        settleCapture();
        command->run(movie, g_movieUndo);
        showUndo();
        if (controlId == IDC_ADD_KEYFRAME) {
            m_timeline.ensureVisible(movie.getRangeStart());
        }
        refresh(movie);
    });
}

void CMovieEditorDlg::onUndo() {
    work([this](qxCMovie& movie) {
        settleCapture();
        undoFrameCommand(movie, g_movieUndo);
        refresh(movie, UndoButton::AS_HISTORY);
    });
}

void CMovieEditorDlg::goToFrame(qxCMovie& movie, int frame) {
    movie.setRangeSingleFrame(frame);
    m_timeline.ensureVisible(movie.getRangeStart());
    refresh(movie);
}

void CMovieEditorDlg::onGoTo(UINT controlId) {
    work([&](qxCMovie& movie) {
        if (controlId == IDC_GO_TO_START || controlId == IDC_STEP_BACK) {
            movie.resetAnimTriggers(); // so that they fire again on the way forward
        }
        stopPlayback(movie);
        refresh(movie);
        goToFrame(movie, frameToGoTo(controlId, movie));
    });
}

void CMovieEditorDlg::onKeySearch(UINT controlId) {
    work([&](qxCMovie& movie) {
        const auto search = controlId == IDC_PREVIOUS_KEY ? keyframeBefore : keyframeAfter;
        if (const std::optional<int> found = search(movie, movie.getRangeStart())) {
            goToFrame(movie, *found);
        }
    });
}

void CMovieEditorDlg::onZoom(UINT controlId) {
    work([&](qxCMovie& movie) {
        if (controlId == IDC_ZOOM_FIT) {
            fitTimeline(movie);
        } else {
            const int width = m_timeline.getFrameWidth();
            m_timeline.setFrameWidth(controlId == IDC_ZOOM_IN ? width * 2 : width / 2);
        }
        refresh(movie);
    });
}

void CMovieEditorDlg::OnHScroll(UINT nSBCode, UINT nPos, CScrollBar* pScrollBar) {
    work([&](qxCMovie& movie) {
        m_timeline.setFirstFrame(m_timelineScroll.target(nSBCode, m_timeline, movie.getNumFrames()));
        refresh(movie);
        CKeyframeEditorDlg::OnHScroll(nSBCode, nPos, pScrollBar);
    });
}

void CMovieEditorDlg::startPlayback(qxCMovie& movie) {
    movie.resetAnimTriggers();
    if (isEnding()) {
        return; // the movie closed the editor, and with it the sound device, which the layout would open
                // again
    }
    m_soundtrack.layOutSoundtrack(movie);
    g_pPlayingMovieDlg = this;
    m_player.start(*this, movie, &onAnimatorMessage, &onMovieEvent);
    UpdateData(FALSE);
}

void CMovieEditorDlg::stopPlayback(qxCMovie& movie) {
    m_player.stop(*this, movie);
}

void CMovieEditorDlg::onPlay() {
    work([this](qxCMovie& movie) {
        if (hasFlag(movie, qxMovieStopped)) {
            startPlayback(movie);
        } else {
            stopPlayback(movie);
            refresh(movie);
        }
    });
}

void CMovieEditorDlg::onPlayOption() {
    readControls();
}

void CMovieEditorDlg::movieEnded(qxCMovie& movie) {
    if (m_bLoop != 0 && !m_player.isStarting()) {
        startPlayback(movie);
        return;
    }
    stopPlayback(movie);
    refresh(movie);
    goToFrame(movie, movie.getNumFrames() - 1);
}

void CMovieEditorDlg::onAnimatorMessage(qxAnimatorMessage message, std::uint32_t data) {
    runExport([=] {
        CMovieEditorDlg* const panel = g_pPlayingMovieDlg;
        if (message == qxAnimatorEnded && panel != nullptr && panel->m_player.isOurs(data)) {
            panel->work([panel](qxCMovie& movie) { panel->movieEnded(movie); });
        }
    });
}

void CMovieEditorDlg::onMovieEvent(qxMovieEvent event, const char* text, int value) {
    runExport([=] {
        CMovieEditorDlg* const panel = g_pPlayingMovieDlg;
        if (panel == nullptr) {
            return;
        }
        if (event == qxMovieSoundCue) {
            panel->m_soundtrack.playSoundCue(text);
        } else if (event == qxMovieFrameReached && panel->m_player.isNewFrame(value)) {
            panel->work([=](qxCMovie& movie) { panel->goToFrame(movie, value); });
        }
    });
}

void CMovieEditorDlg::onCameraView() {
    if (!readControls()) {
        return;
    }
    work([this](qxCMovie& movie) {
        qxCScene* const scene = movie.getScene();
        qxCCamera* const camera = m_nCameraView == 0 ? sceneCamera(scene) : movie.getChildCamera(0);
        if (scene != nullptr && camera != nullptr) {
            scene->selectCamera(camera);
        }
    });
}

void CMovieEditorDlg::onViewOption(UINT controlId) {
    if (!readControls()) {
        return;
    }
    work([&](qxCMovie& movie) {
        setFlag(movie, qxMovieShowPath, m_bPath != 0);
        setFlag(movie, qxMovieShowHeights, m_bHeights != 0);
        setFlag(movie, qxMovieNoFades, m_bNoFades != 0);
        movie.invalidateBoundingBox(true);
        if (controlId == IDC_NO_FADES) {
            refresh(movie);
        }
    });
}

void CMovieEditorDlg::onSetupSoundList() {
    work([this](qxCMovie& movie) {
        if (m_soundtrackSetup.run(movie, m_soundtrack)) {
            refresh(movie);
        }
    });
}

void CMovieEditorDlg::onCloseButton() {
    closeByUser();
}
