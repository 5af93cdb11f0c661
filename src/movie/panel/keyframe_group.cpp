#include "movie/panel/keyframe_group.h"

#include "controls/item_combo.h"
#include "engine/qx_movie.h"
#include "resources/resource_ids.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace {

constexpr ComboItem INTERPOLATIONS[] = {
    {"Linear", qxMovieFrameLinear}, {"Switch", qxMovieFrameSwitch}, {"Spline", qxMovieFrameSpline}};
constexpr ComboItem FADES[] = {
    {"No Fade", qxMovieFadeNone}, {"Fade In", qxMovieFadeIn}, {"Fade Out", qxMovieFadeOut}};

constexpr int FRAME_CONTROLS[] = {IDC_POSITION_X,    IDC_POSITION_Y, IDC_POSITION_Z,   IDC_ROTATION_Z,
                                  IDC_FIELD_OF_VIEW, IDC_SHAKE,      IDC_FRAME_CAMERA, IDC_INTERPOLATION,
                                  IDC_TARGET_NAME,   IDC_TARGET,     IDC_FADE,         IDC_ANIM,
                                  IDC_FADE_COLOUR};
constexpr int ROTATION_CONTROLS[] = {IDC_ROTATION_X, IDC_ROTATION_Y};
constexpr int EASE_IN_CONTROLS[] = {IDC_EASE_IN_CURVE, IDC_EASE_IN_DOWN, IDC_EASE_IN_UP};
constexpr int EASE_OUT_CONTROLS[] = {IDC_EASE_OUT_CURVE, IDC_EASE_OUT_DOWN, IDC_EASE_OUT_UP};
constexpr int UNUSED_CONTROLS[] = {IDC_BROWSE_TARGET, IDC_BROWSE_ANIM};

void enableAll(const CWnd& panel, std::span<const int> controls, bool enable) {
    for (const int id : controls) {
        panel.GetDlgItem(id)->EnableWindow(enable ? TRUE : FALSE);
    }
}

/// The place of an edit's number in the table.
std::size_t numberOf(int editId) {
    const auto number = std::ranges::find(FRAME_NUMBERS, editId, &FrameNumber::editId);
    return static_cast<std::size_t>(number - FRAME_NUMBERS.begin());
}

/// Create the display in the place of the static that the template has for it.
void createOver(CWnd& panel, int id, CEaseCurveCtrl& display) {
    const HWND placeholder = ::GetDlgItem(panel.m_hWnd, id);
    CRect rect;
    ::GetWindowRect(placeholder, rect);
    panel.ScreenToClient(rect);
    ::DestroyWindow(placeholder);
    display.Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE, rect, &panel, static_cast<UINT>(id));
}

} // namespace

void CKeyframeGroup::create(CWnd& panel) {
    addItems(m_interpolations, INTERPOLATIONS);
    addItems(m_fades, FADES);
    createOver(panel, IDC_EASE_IN_CURVE, m_easeInView);
    createOver(panel, IDC_EASE_OUT_CURVE, m_easeOutView);
    enableAll(panel, UNUSED_CONTROLS, false);
}

void CKeyframeGroup::exchange(CDataExchange* pDX) {
    DDX_Control(pDX, IDC_FRAME_CAMERA, m_cameras);
    DDX_Control(pDX, IDC_INTERPOLATION, m_interpolations);
    DDX_Control(pDX, IDC_FADE, m_fades);
    DDX_Control(pDX, IDC_FADE_COLOUR, m_fadeColour);
    for (std::size_t i = 0; i < m_numbers.size(); ++i) {
        m_numbers[i].exchange(pDX, FRAME_NUMBERS[i].editId);
    }
    DDX_Check(pDX, IDC_TARGET, m_bTarget);
    m_strTarget.exchange(pDX, IDC_TARGET_NAME);
    m_strAnim.exchange(pDX, IDC_ANIM);
}

void CKeyframeGroup::take(const qxCMovieFrame& frame, qxCMovie& movie) {
    m_interpolations.SetCurSel(frame.frameMode);
    m_fades.SetCurSel(frame.fadeMode);
    m_cameraList.show(m_cameras, movie, frame.camera);
    for (std::size_t i = 0; i < m_numbers.size(); ++i) {
        const float value = FRAME_NUMBERS[i].get(frame);
        m_numbers[i].set(std::isfinite(value) ? value : 0.0F); // a field could not read back anything else
    }
    const char* const target = frame.targetName.getString();
    m_strTarget.set(target);
    m_bTarget = frame.cameraMode != qxMovieCameraFree ? 1 : 0;
    m_strAnim.set(frame.animTrigger);
    const qxCColour colour = frame.fadeColour;
    const qxCColour shown = m_fadeColour.getColour();
    if (colour.r != shown.r || colour.g != shown.g || colour.b != shown.b) {
        m_fadeColour.setColour(colour);
        m_fadeColour.Invalidate();
    }
    m_easeInView.setValue(frame.easeIn);
    m_easeOutView.setValue(frame.easeOut);
    m_bOutdated = false;
}

CKeyframeGroup::Usable CKeyframeGroup::usable(const qxCMovieFrame* frame, const qxCMovie& movie) {
    const bool isStopped = (movie.flags & qxMovieStopped) != 0;
    if (frame == nullptr || !frame->keyframe || !isStopped || !movie.isRangeSingleFrame()) {
        return {};
    }
    const int current = movie.getRangeStart();
    return {.frame = true,
            .rotation = frame->cameraMode == qxMovieCameraFree,
            .easeIn = current != 0,
            .easeOut = current != movie.getNumFrames() - 1};
}

void CKeyframeGroup::enable(const CWnd& panel, const qxCMovieFrame* frame, const qxCMovie& movie) {
    const Usable now = usable(frame, movie);
    if (now == m_enabled) {
        return;
    }
    m_enabled = now;
    enableAll(panel, FRAME_CONTROLS, now.frame);
    enableAll(panel, ROTATION_CONTROLS, now.rotation);
    enableAll(panel, EASE_IN_CONTROLS, now.easeIn);
    enableAll(panel, EASE_OUT_CONTROLS, now.easeOut);
}

void CKeyframeGroup::forgetTyped() {
    for (CTypedField<float>& number : m_numbers) {
        number.forgetTyped();
    }
    m_strTarget.forgetTyped();
    m_strAnim.forgetTyped();
}

bool CKeyframeGroup::isTyped(int editId) const {
    if (m_bOutdated) {
        return false;
    }
    if (editId == IDC_TARGET_NAME || editId == IDC_ANIM) {
        return editId == IDC_ANIM ? m_strAnim.isTyped() : m_strTarget.isTyped();
    }
    return m_numbers[numberOf(editId)].isTyped();
}

void CKeyframeGroup::write(int controlId, qxCMovieFrame& frame) const {
    switch (controlId) {
    case IDC_FRAME_CAMERA:
        frame.setCamera(m_cameras.GetCurSel());
        break;
    case IDC_INTERPOLATION:
        frame.setFrameMode(static_cast<qxMovieFrameMode>(m_interpolations.GetCurSel()));
        break;
    case IDC_FADE:
        frame.setFadeMode(static_cast<qxMovieFadeMode>(m_fades.GetCurSel()));
        break;
    case IDC_FADE_COLOUR:
        frame.setFadeColour(m_fadeColour.getColour());
        break;
    case IDC_TARGET:
        frame.setCameraMode(m_bTarget != 0 ? qxMovieCameraTarget : qxMovieCameraFree);
        break;
    case IDC_TARGET_NAME:
        frame.setTargetName(qxCName(m_strTarget.value()));
        break;
    case IDC_ANIM:
        frame.setAnimTrigger(m_strAnim.value());
        break;
    default:
        writeEdit(controlId, frame);
    }
}

void CKeyframeGroup::writeEdit(int editId, qxCMovieFrame& frame) const {
    const std::size_t number = numberOf(editId);
    FRAME_NUMBERS[number].set(frame, m_numbers[number].value());
}
