#include "sandbox/tour/tour_acts.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <cmath>

namespace tour {

namespace {

constexpr int KEY = 340; // a keyframe of the sample's film in its middle

qxCMovieFrame& keyframe(CTourStage& stage) {
    return *stage.movie().getFrame(KEY);
}

void goToKeyframe(CTourStage& stage) {
    stage.clickFilm(IDC_GO_TO_END);
    while (stage.movie().getRangeStart() > KEY) {
        stage.clickFilm(IDC_PREVIOUS_KEY);
    }
    require(stage.movie().getRangeStart() == KEY, "the keyframe is not found");
}

void requireValue(float value, float wanted, const char* what) {
    require(std::abs(value - wanted) < 1e-3F, QString("%1 is %2, not %3").arg(what).arg(value).arg(wanted));
}

/// Choose the next entry of a list with the keyboard.
void chooseNext(CTourStage& stage, int id) {
    QWidget& combo = stage.filmControl(id);
    combo.setFocus();
    stage.hands().pressKey(combo, Qt::Key_Down);
}

void clickHalf(CTourStage& stage, int upDown, double height) {
    QWidget& control = stage.filmControl(upDown);
    stage.hands().click(control, QPointF(control.width() / 2.0, control.height() * height));
}

} // namespace

void editNumbers(CTourStage& stage) {
    goToKeyframe(stage);
    const std::pair<int, const char*> entries[] = {{IDC_POSITION_X, "250"},   {IDC_POSITION_Y, "16.5"},
                                                   {IDC_POSITION_Z, "270"},   {IDC_ROTATION_Z, "5"},
                                                   {IDC_FIELD_OF_VIEW, "42"}, {IDC_SHAKE, "0.2"}};
    for (const auto& [field, text] : entries) {
        stage.enterText(stage.filmControl(field), text);
    }
    const qxCMovieFrame& frame = keyframe(stage);
    require(frame.translation == qxCVector3d(250.0F, 16.5F, 270.0F), "the position is not taken over");
    requireValue(frame.rotation.z, 5.0F, "the roll");
    requireValue(frame.fov, 42.0F, "the field of view");
    requireValue(frame.shake, 0.2F, "the shake");
    const float roll = frame.rotation.z;
    clickHalf(stage, IDC_ROTATION_Z_SPIN, 0.25);
    require(frame.rotation.z != roll, "the up-down control does not turn the camera");
    const float shake = frame.shake;
    stage.enterText(stage.filmControl(IDC_SHAKE), "0.9");
    stage.clickFilm(IDC_MOVIE_UNDO);
    requireValue(keyframe(stage).shake, shake, "the shake after \"Undo\"");
}

void chooseFrameProperties(CTourStage& stage) {
    goToKeyframe(stage);
    const qxMovieFrameMode mode = keyframe(stage).frameMode;
    const auto* interpolation = qobject_cast<QComboBox*>(&stage.filmControl(IDC_INTERPOLATION));
    require(interpolation != nullptr && interpolation->currentText() == "Spline", "it is no spline");
    stage.filmControl(IDC_INTERPOLATION).setFocus();
    stage.hands().pressKey(stage.filmControl(IDC_INTERPOLATION), Qt::Key_Up);
    require(keyframe(stage).frameMode == qxMovieFrameSwitch, "the interpolation stays as it was");
    chooseNext(stage, IDC_INTERPOLATION);
    require(keyframe(stage).frameMode == mode, "the interpolation does not come back");
    chooseNext(stage, IDC_FADE);
    require(keyframe(stage).fadeMode == qxMovieFadeIn, "the fade stays as it was");
    stage.filmControl(IDC_FRAME_CAMERA).setFocus();
    stage.hands().pressKey(stage.filmControl(IDC_FRAME_CAMERA), Qt::Key_Up);
    require(keyframe(stage).camera == 0, "the camera stays as it was");
    chooseNext(stage, IDC_FRAME_CAMERA);
    require(keyframe(stage).camera == 1, "the camera does not come back");
    stage.enterText(stage.filmControl(IDC_ANIM), "wave");
    require(QString(keyframe(stage).animTrigger) == "wave", "the animation is not taken over");
}

void chooseFadeColour(CTourStage& stage) {
    goToKeyframe(stage);
    stage.setStepPicture(stage.chooseColour(stage.filmControl(IDC_FADE_COLOUR), QColor(220, 200, 160)));
    const qxCColour& colour = keyframe(stage).getFadeColour();
    require(colour.r == 220 && colour.g == 200 && colour.b == 160, "the fade keeps its colour");
}

void ease(CTourStage& stage) {
    goToKeyframe(stage);
    const float in = keyframe(stage).easeIn;
    const float out = keyframe(stage).easeOut;
    for (int i = 0; i < 3; ++i) {
        stage.clickFilm(IDC_EASE_IN_UP);
        stage.clickFilm(IDC_EASE_OUT_DOWN);
    }
    require(keyframe(stage).easeIn > in && keyframe(stage).easeOut < out, "the eases stay as they were");
    stage.clickFilm(IDC_EASE_IN_DOWN);
    stage.clickFilm(IDC_EASE_OUT_UP);
    require(keyframe(stage).easeIn > in && keyframe(stage).easeOut < out, "one step takes three back");
    stage.clickFilm(IDC_GO_TO_START);
    require(!stage.filmControl(IDC_EASE_IN_UP).isEnabled(), "one can ease into the first frame");
    goToKeyframe(stage);
}

void markKeyframes(CTourStage& stage) {
    goToKeyframe(stage);
    for (int i = 0; i < 20; ++i) {
        stage.clickFilm(IDC_STEP_FORWARD);
    }
    const int frame = stage.movie().getRangeStart();
    require(!stage.filmControl(IDC_FADE).isEnabled(), "a frame that is no keyframe can be edited");
    stage.clickFilm(IDC_MARK_KEYFRAME);
    require(stage.movie().getFrame(frame)->keyframe && stage.filmControl(IDC_FADE).isEnabled(),
            "the frame does not become a keyframe");
    stage.setStepPicture(stage.takePicture());
    stage.clickFilm(IDC_UNMARK_KEYFRAME);
    require(!stage.movie().getFrame(frame)->keyframe, "the frame stays a keyframe");
}

void insertFrames(CTourStage& stage) {
    CMemoryMovie& movie = stage.movie();
    const int before = movie.getNumFrames();
    goToKeyframe(stage);
    stage.clickFilm(IDC_INSERT_FRAME);
    require(movie.getNumFrames() == before + 1 && movie.getFrame(KEY + 1)->keyframe,
            "no frame is inserted before the current one");
    stage.clickFilm(IDC_STEP_BACK);
    stage.clickFilm(IDC_DELETE_FRAMES);
    require(movie.getNumFrames() == before && movie.getFrame(KEY)->keyframe, "the frame is not deleted");
    stage.clickFilm(IDC_ADD_KEYFRAME);
    require(movie.getNumFrames() == before + 1 && movie.getRangeStart() == before &&
                movie.getFrame(before)->keyframe,
            "no keyframe is added at the end");
    stage.clickFilm(IDC_DELETE_FRAMES);
    require(movie.getNumFrames() == before, "the keyframe is not deleted");
}

void copyFrames(CTourStage& stage) {
    CMemoryMovie& movie = stage.movie();
    const int before = movie.getNumFrames();
    goToKeyframe(stage);
    stage.clickFilm(IDC_COPY_FRAMES);
    stage.clickFilm(IDC_GO_TO_START);
    stage.clickFilm(IDC_PASTE_FRAMES);
    require(movie.getNumFrames() == before + 1, "nothing is pasted");
    const int pasted = movie.getRangeStart();
    require(movie.getFrame(pasted)->translation == movie.getFrame(KEY + 1)->translation,
            "another frame is pasted than was copied");
    stage.clickFilm(IDC_CUT_FRAMES);
    require(movie.getNumFrames() == before && movie.getFrame(KEY)->keyframe, "nothing is cut");
}

void setUpSounds(CTourStage& stage) {
    CMemoryMovie& movie = stage.movie();
    const int before = movie.getSoundtrackSize();
    const auto addBell = [&](QWidget& dialog) {
        auto* available = findControl<QAbstractItemView>(dialog, IDC_AVAILABLE_SOUNDS);
        auto* add = findControl(dialog, IDC_ADD_SOUNDS);
        require(available != nullptr && add != nullptr, "the sound list lacks its controls");
        const QModelIndexList found =
            available->model()->match(available->model()->index(0, 0), Qt::DisplayRole, "bell.wav", 1);
        require(!found.isEmpty(), "the sample's bell is not offered");
        stage.hands().click(*available->viewport(), QRectF(available->visualRect(found.first())).center());
        stage.hands().click(*add);
        stage.setStepPicture(stage.takePicture());
        stage.hands().click(*findControl(dialog, OK_BUTTON));
    };
    stage.answer([&] { stage.clickFilm(IDC_SETUP_SOUND_LIST); }, {addBell});
    require(movie.getSoundtrackSize() == before + 1, "the sound is not in the soundtrack");
    // The focus of a list that was just opened is on its first entry: new sounds go in front of it.
    require(movie.getSound(0)->length > 1.0F, "the sound has no length");
}

} // namespace tour
