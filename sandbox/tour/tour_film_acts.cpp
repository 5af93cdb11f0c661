#include "sandbox/tour/tour_acts.h"

#include "host/veskutil.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <cmath>

namespace tour {

namespace {

CMemoryMovie& movieOf(CTourStage& stage) {
    return stage.window().document().film().movie();
}

QWidget& panelControl(CTourStage& stage, int id) {
    const QWidget* const panel = stage.dialog(IDD_MOVIE_EDITOR);
    require(panel != nullptr, "the movie editor is not open");
    auto* const control = findControl(*panel, id);
    require(control != nullptr, QString("the movie editor has no control %1").arg(id));
    return *control;
}

void press(CTourStage& stage, int id) {
    QWidget& control = panelControl(stage, id);
    require(control.isEnabled(), QString("control %1 is disabled").arg(id));
    stage.hands().click(control);
}

QRect onScreen(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint()), widget.size()};
}

void requireFrame(CTourStage& stage, int frame, const char* what) {
    const int now = movieOf(stage).getRangeStart();
    require(now == frame, QString("%1 leads to frame %2, not %3").arg(what).arg(now).arg(frame));
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

void showBothEditors(CTourStage& stage) {
    stage.hands().pressKey(stage.window(), Qt::Key_M);
    require(waitUntil([&] { return stage.dialog(IDD_MAP_EDITOR) != nullptr; }),
            "the map editor does not open");
    const QWidget& film = *stage.dialog(IDD_MOVIE_EDITOR);
    const QWidget& map = *stage.dialog(IDD_MAP_EDITOR);
    std::printf("film %d %d %d %d map %d %d %d %d view %d %d %d %d\n", onScreen(film).x(), onScreen(film).y(),
                onScreen(film).width(), onScreen(film).height(), onScreen(map).x(), onScreen(map).y(),
                onScreen(map).width(), onScreen(map).height(), onScreen(stage.view()).x(),
                onScreen(stage.view()).y(), onScreen(stage.view()).width(), onScreen(stage.view()).height());
}

void stepThroughFilm(CTourStage& stage) {
    press(stage, IDC_GO_TO_END);
    requireFrame(stage, movieOf(stage).getNumFrames() - 1, "\">|\"");
    press(stage, IDC_STEP_BACK);
    requireFrame(stage, movieOf(stage).getNumFrames() - 2, "\"<\"");
    press(stage, IDC_GO_TO_START);
    requireFrame(stage, 0, "\"|<\"");
    press(stage, IDC_STEP_FORWARD);
    requireFrame(stage, 1, "\">\"");
    press(stage, IDC_NEXT_KEY);
    requireFrame(stage, 75, "\"Next Key\"");
    press(stage, IDC_NEXT_KEY);
    press(stage, IDC_PREVIOUS_KEY);
    requireFrame(stage, 75, "\"Prev Key\"");
}

void lookThroughFilm(CTourStage& stage) {
    press(stage, IDC_MOVIE_CAMERA);
    press(stage, IDC_NEXT_KEY);
}

void showHeights(CTourStage& stage) {
    press(stage, IDC_VESK_CAMERA);
    press(stage, IDC_SHOW_HEIGHTS);
}

} // namespace tour
