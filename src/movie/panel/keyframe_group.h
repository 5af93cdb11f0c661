#pragma once

#include "controls/colour_button.h"
#include "controls/ease_curve_ctrl.h"
#include "controls/typed_field.h"
#include "movie/panel/camera_list.h"
#include "movie/panel/frame_numbers.h"

#include <optional>

class qxCMovie;

/// The "Keyframe Properties" of the panel: shows one frame in their controls, enables those that may be used,
/// and writes a control's value into a frame. The movie it is shown of is handed to each call.
class CKeyframeGroup {
public:
    /// Fill the lists and create the ease displays; the controls are attached.
    void create(CWnd& panel);
    /// The panel's data exchange, as far as it is this group's.
    void exchange(CDataExchange* pDX);

    /// Take over what the frame holds. What the data exchange covers shows with the next one.
    void take(const qxCMovieFrame& frame, qxCMovie& movie);
    /// Enable what may be used with this frame, which is the current one; null for none.
    void enable(const CWnd& panel, const qxCMovieFrame* frame, const qxCMovie& movie);

    /// Before the controls are read: nothing counts as typed.
    void forgetTyped();
    /// The frame has changed under what stands in the edits: it must not be written back.
    void outdate() { m_bOutdated = true; }
    /// Whether the edit has been read with a text that a person typed since it was shown.
    bool isTyped(int editId) const;

    /// Write the value of an edit, of a list, or of the "Target" check box into the frame.
    void write(int controlId, qxCMovieFrame& frame) const;

private:
    /// What of the group may be used.
    struct Usable {
        bool frame = false;    ///< the frame's properties
        bool rotation = false; ///< the angles that a target decides
        bool easeIn = false;
        bool easeOut = false;

        friend bool operator==(const Usable&, const Usable&) = default;
    };

    static Usable usable(const qxCMovieFrame* frame, const qxCMovie& movie);
    void writeEdit(int editId, qxCMovieFrame& frame) const;

    std::array<CTypedField<float>, FRAME_NUMBER_COUNT> m_numbers;
    CTypedField<CString> m_strTarget;
    CTypedField<CString> m_strAnim;
    int m_bTarget = 0;
    bool m_bOutdated = false;

    CComboBox m_cameras;
    CComboBox m_interpolations;
    CComboBox m_fades;
    CCameraList m_cameraList;
    CColourButton m_fadeColour;
    CEaseCurveCtrl m_easeInView;
    CEaseCurveCtrl m_easeOutView;
    std::optional<Usable> m_enabled; ///< as the controls are now
};
