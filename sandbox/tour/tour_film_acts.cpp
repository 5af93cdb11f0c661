#include "sandbox/tour/tour_acts.h"

#include "host/veskutil.h"
#include "sandbox/strip/film_strip.h"
#include "sandbox/strip/strip_rows.h"

#include <QAbstractButton>
#include <QAction>
#include <QInputDialog>
#include <QLineEdit>
#include <QListWidget>
#include <cmath>

namespace tour {

namespace {

// Keyframes of the sample's film: the crane's second, the glider's second, and the one where the fade out
// begins.
constexpr int SECOND_KEY = 75;
constexpr int THIRD_KEY = 160;
constexpr int FADE_KEY = 430;

QRect onScreen(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint()), widget.size()};
}

void requireFrame(CTourStage& stage, int frame, const char* what) {
    const int now = stage.movie().getRangeStart();
    require(now == frame, QString("%1 leads to frame %2, not %3").arg(what).arg(now).arg(frame));
}

/// The picture's mean brightness, 0 to 255, from a part of the view that nothing covers.
double brightness(CTourStage& stage) {
    const QImage picture = stage.takePicture();
    const QRect seen = onScreen(stage.view()).translated(-stage.window().geometry().topLeft());
    double sum = 0.0;
    int count = 0;
    for (int y = seen.top() + 20; y < seen.bottom() - 40; y += 9) {
        for (int x = seen.left() + 20; x < seen.right() - 20; x += 9, ++count) {
            sum += qGray(picture.pixel(x, y));
        }
    }
    return sum / std::max(count, 1);
}

/// Go to a frame with the timeline's edit keys: to the start, then by keyframes.
void goToKey(CTourStage& stage, int frame) {
    stage.clickFilm(IDC_GO_TO_START);
    while (stage.movie().getRangeStart() < frame) {
        const int before = stage.movie().getRangeStart();
        stage.clickFilm(IDC_NEXT_KEY);
        require(stage.movie().getRangeStart() > before, QString("no keyframe at %1").arg(frame));
    }
    requireFrame(stage, frame, "\"Next Key\"");
}

} // namespace

void openMovieEditor(CTourStage& stage) {
    if (vuIsEditorActive()) {
        stage.hands().pressKey(stage.window(), Qt::Key_M);
    }
    stage.clickToolBar("reset-camera");
    stage.hands().pressKey(stage.window(), Qt::Key_T);
    require(waitUntil([&] { return vuIsMovieEditorActive() && stage.dialog(IDD_MOVIE_EDITOR) != nullptr; }),
            "the movie editor does not open");
    const QWidget& panel = *stage.dialog(IDD_MOVIE_EDITOR);
    require(waitUntil([&] { return !onScreen(panel).intersects(onScreen(stage.view())); }),
            "the panel covers the view");
    require(stage.window().findChild<QAction*>("movie-editor")->isChecked(),
            "the menu does not show it as open");
}

void stepThroughFilm(CTourStage& stage) {
    const int last = stage.movie().getNumFrames() - 1;
    const std::pair<int, int> steps[] = {{IDC_GO_TO_END, last},         {IDC_STEP_BACK, last - 1},
                                         {IDC_GO_TO_START, 0},          {IDC_STEP_FORWARD, 1},
                                         {IDC_NEXT_KEY, SECOND_KEY},    {IDC_NEXT_KEY, THIRD_KEY},
                                         {IDC_PREVIOUS_KEY, SECOND_KEY}};
    for (const auto& [button, frame] : steps) {
        stage.clickFilm(button);
        requireFrame(stage, frame, qPrintable(QString("button %1").arg(button)));
    }
    require(stage.filmText(IDC_MOVIE_TIME) == "00:03.00", "the time is not that of frame 75");
}

void stepWithKeys(CTourStage& stage) {
    const int last = stage.movie().getNumFrames() - 1;
    const CViewCamera before = stage.view().camera();
    stage.hands().click(stage.view()); // a click in the view gives it the keyboard
    const std::tuple<Qt::Key, Qt::KeyboardModifiers, int> steps[] = {
        {Qt::Key_End, Qt::NoModifier, last},
        {Qt::Key_Comma, Qt::NoModifier, last - 1},
        {Qt::Key_Home, Qt::NoModifier, 0},
        {Qt::Key_Period, Qt::NoModifier, 1},
        {Qt::Key_Greater, Qt::ShiftModifier, SECOND_KEY},
        {Qt::Key_Period, Qt::ShiftModifier, THIRD_KEY},
        {Qt::Key_Less, Qt::ShiftModifier, SECOND_KEY}};
    for (const auto& [key, modifiers, frame] : steps) {
        stage.hands().pressKey(stage.view(), key, modifiers);
        requireFrame(stage, frame, "a key");
    }
    require(stage.view().camera().eye() == before.eye(), "a key of the film moves the person's camera");
}

void selectInTimeline(CTourStage& stage) {
    QWidget& timeline = stage.filmControl(IDC_TIMELINE);
    stage.clickFilm(IDC_GO_TO_START);
    const double middle = timeline.height() / 2.0;
    stage.hands().click(timeline, QPointF(timeline.width() / 2.0, middle));
    const int clicked = stage.movie().getRangeStart();
    require(clicked > 0 && stage.movie().isRangeSingleFrame(), "a click in the timeline does not go there");
    stage.hands().drag(timeline, QPointF(40, middle), QPointF(120, middle), Qt::LeftButton);
    require(!stage.movie().isRangeSingleFrame(), "a drag in the timeline selects nothing");
    require(stage.filmText(IDC_MOVIE_TIME).contains('-'), "the time is not that of a range");
}

void zoomTimeline(CTourStage& stage) {
    QWidget& timeline = stage.filmControl(IDC_TIMELINE);
    const QPointF place(timeline.width() / 2.0, timeline.height() / 2.0);
    stage.hands().click(timeline, place);
    const int far = stage.movie().getRangeStart();
    stage.clickFilm(IDC_ZOOM_IN);
    stage.clickFilm(IDC_ZOOM_IN);
    stage.hands().click(timeline, place);
    const int near = stage.movie().getRangeStart();
    require(near < far, "\"+\" does not show fewer frames");
    stage.clickFilm(IDC_ZOOM_OUT);
    stage.hands().click(timeline, place);
    require(stage.movie().getRangeStart() > near, "\"-\" does not show more frames");
    stage.clickFilm(IDC_ZOOM_FIT);
    stage.hands().click(timeline, place);
    requireFrame(stage, far, "\"<->\"");
}

void showHeights(CTourStage& stage) {
    const auto shows = [&](qxMovieFlag flag) { return (stage.movie().flags & flag) != 0; };
    const QImage before = stage.takePicture();
    stage.clickFilm(IDC_SHOW_PATH);
    require(!shows(qxMovieShowPath), "\"Path\" does not hide the path");
    const QImage bare = stage.takePicture();
    require(bare != before, "the path is still in the view");
    stage.clickFilm(IDC_SHOW_PATH);
    stage.clickFilm(IDC_SHOW_HEIGHTS);
    require(shows(qxMovieShowPath) && shows(qxMovieShowHeights), "\"Heights\" does not show the heights");
    // Nearer, so that the picture shows cameras and heights.
    stage.view().lookFrom({205.0, 38.0, 196.0}, {262.0, 14.0, 158.0});
}

void lookThroughFilm(CTourStage& stage) {
    goToKey(stage, THIRD_KEY);
    const CViewCamera before = stage.view().camera();
    const QImage landscape = stage.takePicture();
    stage.clickFilm(IDC_MOVIE_CAMERA);
    require(stage.takePicture() != landscape, "the view does not look through the film");
    require(stage.view().camera().eye() == before.eye(), "the person's camera has moved");
    // The film's camera stands at the keyframe, low over the meadows.
    const auto hit = stage.view().pick(QPointF(stage.view().width() / 2.0, stage.view().height() - 4.0));
    require(hit.has_value() && hit->distance < 20.0, "the ground is not near the film's camera");
}

void showFade(CTourStage& stage) {
    goToKey(stage, FADE_KEY);
    const double clear = brightness(stage);
    for (int i = 0; i < 45; ++i) {
        stage.hands().pressKey(stage.view(), Qt::Key_Period);
    }
    const double faded = brightness(stage);
    require(faded < clear * 0.6, QString("the fade leaves %1 of %2").arg(faded).arg(clear));
    stage.setStepPicture(stage.takePicture());
    stage.clickFilm(IDC_NO_FADES);
    require((stage.movie().flags & qxMovieNoFades) != 0 && brightness(stage) > clear * 0.8,
            "\"No Fades\" does not take the fade away");
    stage.clickFilm(IDC_NO_FADES);
}

void flyFilmCamera(CTourStage& stage) {
    goToKey(stage, SECOND_KEY);
    for (int i = 0; i < 30; ++i) {
        stage.hands().pressKey(stage.view(), Qt::Key_Period);
    }
    qxCMovieFrame& frame = *stage.movie().getFrame(stage.movie().getRangeStart());
    require(!frame.keyframe, "the frame is a keyframe already");
    const qxCVector3d place = frame.translation;
    const qxCVector3d rotation = frame.rotation;
    const QPointF middle = QRectF(stage.view().rect()).center();
    stage.hands().drag(stage.view(), middle, middle + QPointF(80, 30), Qt::RightButton);
    require(frame.keyframe && frame.rotation != rotation && frame.translation == place,
            "looking around with the mouse makes no keyframe");
    stage.hands().turnWheel(stage.view(), middle, 2);
    require(frame.translation != place, "the wheel does not move the film's camera");
    const qxCVector3d near = frame.translation;
    stage.hands().holdKey(stage.view(), Qt::Key_E, [&] { return frame.translation.y > near.y + 1.0F; });
    require(frame.translation.y > near.y + 1.0F, "the keyboard does not lift the film's camera");
    require(stage.window().isWindowModified(), "the title does not tell of the change");
    stage.clickFilm(IDC_VESK_CAMERA);
}

void setPlace(CTourStage& stage) {
    const CFilm& film = stage.window().document().film();
    const std::size_t before = film.places().size();
    const QPointF middle = stage.view().rect().center();
    stage.hands().moveTo(stage.view(), middle);
    const auto hit = stage.view().pick(middle);
    require(hit.has_value(), "no ground in the view's middle");
    stage.answer([&] { stage.hands().pressKey(stage.view(), Qt::Key_P); }, {[&](QWidget& dialog) {
                     auto* name = dialog.findChild<QLineEdit*>();
                     require(name != nullptr, "no field for the place's name");
                     stage.hands().pressKey(*name, Qt::Key_A, Qt::ControlModifier);
                     stage.hands().type(*name, "Mill");
                     stage.setStepPicture(stage.takePicture());
                     stage.hands().pressKey(*name, Qt::Key_Return);
                 }});
    require(film.places().size() == before + 1, "no place is set");
    const CPlace& place = *film.places().back();
    require(QString(place.name.getString()) == "Mill" &&
                std::abs(static_cast<double>(place.position.x) - hit->point[0]) < 0.5,
            "the place is not where the pointer is");
}

void aimAtPlace(CTourStage& stage) {
    goToKey(stage, THIRD_KEY);
    const qxCMovieFrame& frame = *stage.movie().getFrame(THIRD_KEY);
    stage.enterText(stage.filmControl(IDC_TARGET_NAME), "Mill");
    stage.clickFilm(IDC_TARGET);
    require(frame.cameraMode == qxMovieCameraTarget && QString(frame.targetName.getString()) == "Mill",
            "the frame has no target");
    require(!stage.filmControl(IDC_ROTATION_X).isEnabled() && stage.filmControl(IDC_ROTATION_Z).isEnabled(),
            "an aimed camera can be turned by hand");
    const CPlace& mill = *stage.window().document().film().places().back();
    const qxCVector3d way = mill.position - frame.translation;
    qxCVector3d angles;
    way.toAngles(angles.x, angles.y);
    require(std::abs(stage.movie().getPose().rotation.y - angles.y) < 0.01F,
            "the camera does not turn to it");
}

void listPlaces(CTourStage& stage) {
    const CFilm& film = stage.window().document().film();
    const auto rename = [&](QWidget& dialog) {
        auto* list = dialog.findChild<QListWidget*>();
        list->setCurrentRow(list->count() - 1);
        list->setFocus();
        list->editItem(list->currentItem());
        stage.hands().pressKey(dialog, Qt::Key_A, Qt::ControlModifier);
        stage.hands().type(dialog, "Old mill");
        stage.hands().pressKey(dialog, Qt::Key_Return);
        stage.setStepPicture(stage.takePicture());
        stage.hands().pressKey(dialog, Qt::Key_Escape);
    };
    stage.answer([&] { stage.window().findChild<QAction*>("places")->trigger(); }, {rename});
    require(QString(film.places().back()->name.getString()) == "Old mill", "the place keeps its name");
    require(QString(stage.movie().getFrame(THIRD_KEY)->targetName.getString()) == "Old mill",
            "the frame has lost its target");
}

void playFilm(CTourStage& stage) {
    CMemoryMovie& movie = stage.movie();
    goToKey(stage, 0);
    stage.clickFilm(IDC_MOVIE_CAMERA);
    stage.hands().pressKey(stage.view(), Qt::Key_Space);
    require(movie.isPlaying(), "Space does not play");
    require(waitUntil([&] { return movie.getRangeStart() > 30; }), "the film does not go on");
    stage.setStepPicture(stage.takePicture());
    stage.hands().pressKey(stage.view(), Qt::Key_Space);
    require(!movie.isPlaying(), "Space does not stop");
    const int stopped = movie.getRangeStart();
    stage.clickFilm(IDC_VESK_CAMERA);
    requireFrame(stage, stopped, "the choice of a camera");
}

void scrubFilm(CTourStage& stage) {
    auto& strip = *stage.window().findChild<CFilmStrip*>();
    CMemoryMovie& movie = stage.movie();
    const auto ruler = [&](double x) { return QPointF(x, striprows::RULER / 4.0); };
    const auto sounds = [&](int frame) {
        return QPointF(strip.scale().pixelOf(frame + 0.5), striprows::SOUNDS_TOP + striprows::SOUNDS / 2.0);
    };
    stage.hands().drag(strip, ruler(2.0), ruler(strip.scale().pixelOf(SECOND_KEY)), Qt::LeftButton);
    require(movie.getSection().has_value() && movie.getSection()->first == SECOND_KEY,
            "the marker does not bound what is played");
    stage.hands().drag(strip, sounds(0), sounds(THIRD_KEY), Qt::LeftButton);
    requireFrame(stage, THIRD_KEY, "a drag in the strip");
    stage.setStepPicture(stage.takePicture());
    stage.hands().drag(strip, ruler(strip.scale().pixelOf(SECOND_KEY)), ruler(0.0), Qt::LeftButton);
    require(!movie.getSection().has_value(), "the whole film does not play again");
}

void loopFilm(CTourStage& stage) {
    CMemoryMovie& movie = stage.movie();
    stage.clickFilm(IDC_LOOP);
    stage.clickFilm(IDC_GO_TO_END);
    for (int i = 0; i < 8; ++i) {
        stage.clickFilm(IDC_STEP_BACK);
    }
    stage.clickFilm(IDC_PLAY);
    require(stage.filmControl(IDC_PAUSE).isEnabled(), "\"Pause\" is disabled while the film plays");
    require(waitUntil([&] { return movie.getRangeStart() < 100; }), "the film does not begin again");
    require(movie.isPlaying(), "the loop ends");
    stage.clickFilm(IDC_PLAY);
    stage.clickFilm(IDC_LOOP);
}

void closeMovieEditor(CTourStage& stage) {
    stage.clickFilm(IDC_MOVIE_CAMERA);
    const CViewCamera before = stage.view().camera();
    stage.clickFilm(IDC_CLOSE_MOVIE);
    require(waitUntil([&] { return !vuIsMovieEditorActive() && stage.dialog(IDD_MOVIE_EDITOR) == nullptr; }),
            "the panel does not close");
    require(waitUntil([&] { return !stage.window().findChild<QAction*>("movie-editor")->isChecked(); }),
            "the menu still shows the panel as open");
    require(!stage.window().document().film().isLookedThrough() &&
                stage.view().camera().eye() == before.eye(),
            "the person does not get the camera back");
}

} // namespace tour
