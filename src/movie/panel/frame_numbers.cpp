#include "movie/panel/frame_numbers.h"

#include "controls/stepped_value.h"
#include "resources/resource_ids.h"

namespace {

template <float qxCVector3d::*Part> float getTranslation(const qxCMovieFrame& frame) {
    return frame.translation.*Part;
}

template <float qxCVector3d::*Part> void setTranslation(qxCMovieFrame& frame, float value) {
    qxCVector3d changed = frame.translation;
    changed.*Part = value;
    frame.setTranslation(changed);
}

template <float qxCVector3d::*Part> float getRotation(const qxCMovieFrame& frame) {
    return frame.rotation.*Part;
}

template <float qxCVector3d::*Part> void setRotation(qxCMovieFrame& frame, float value) {
    qxCVector3d changed = frame.rotation;
    changed.*Part = value;
    frame.setRotation(changed);
}

template <float qxCVector3d::*Part> constexpr FrameNumber position(int editId, int spinId) {
    return {editId, spinId, TENTH_STEP, &getTranslation<Part>, &setTranslation<Part>};
}

template <float qxCVector3d::*Part> constexpr FrameNumber rotation(int editId, int spinId) {
    return {editId, spinId, WHOLE_STEP, &getRotation<Part>, &setRotation<Part>};
}

} // namespace

const std::array<FrameNumber, FRAME_NUMBER_COUNT> FRAME_NUMBERS = {{
    position<&qxCVector3d::x>(IDC_POSITION_X, IDC_POSITION_X_SPIN),
    position<&qxCVector3d::y>(IDC_POSITION_Y, IDC_POSITION_Y_SPIN),
    position<&qxCVector3d::z>(IDC_POSITION_Z, IDC_POSITION_Z_SPIN),
    rotation<&qxCVector3d::x>(IDC_ROTATION_X, IDC_ROTATION_X_SPIN),
    rotation<&qxCVector3d::y>(IDC_ROTATION_Y, IDC_ROTATION_Y_SPIN),
    rotation<&qxCVector3d::z>(IDC_ROTATION_Z, IDC_ROTATION_Z_SPIN),
    {IDC_FIELD_OF_VIEW, IDC_FIELD_OF_VIEW_SPIN, WHOLE_STEP,
     [](const qxCMovieFrame& frame) { return frame.fov; },
     [](qxCMovieFrame& frame, float value) { frame.setFov(value); }},
    {IDC_SHAKE, IDC_SHAKE_SPIN, TENTH_STEP, [](const qxCMovieFrame& frame) { return frame.shake; },
     [](qxCMovieFrame& frame, float value) { frame.setShake(value); }},
}};
