#include "movie/movie_panel_fixture.h"

#include "host/veskutil.h"
#include "movie/movie_undo_store.h"
#include "resources/resource_ids.h"
#include "support/ui_driver.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionSpinBox>

MoviePanelTest::MoviePanelTest() : m_camera(m_movie.addCamera("one")) {
    m_movie.addCamera("two");
    m_scene.addNode(&m_movie);
    for (const int key : {5, 10}) {
        frame(key).setKeyframe(true);
        frame(key).setTranslation({static_cast<float>(key), 2.0F, 3.0F});
    }
    m_movie.updateTweening();
    for (int i = 0; i < m_movie.getNumFrames(); ++i) {
        frame(i).hasChanged();
    }
}

MoviePanelTest::~MoviePanelTest() {
    vuDestroyMovieEditor();
    g_movieUndo.openFor(nullptr);
    m_scene.removeNode(&m_movie);
}

void MoviePanelTest::open() {
    open(m_movie);
}

void MoviePanelTest::open(qxCMovie& movie, bool showClose) {
    vuCreateMovieEditor(nullptr, &movie, showClose);
    ASSERT_TRUE(vuIsMovieEditorActive());
    ASSERT_NE(panel(), nullptr);
    panel()->activateWindow();
    ASSERT_TRUE(ui::waitUntilActive(panel()));
}

QWidget* MoviePanelTest::panel() {
    return ui::dialog(IDD_MOVIE_EDITOR);
}

QWidget* MoviePanelTest::control(int id) {
    return &ui::control(*panel(), id);
}

QString MoviePanelTest::text(int id) {
    if (const auto* const box = qobject_cast<QComboBox*>(control(id))) {
        return box->currentText();
    }
    return ui::control<QLineEdit>(*panel(), id).text();
}

bool MoviePanelTest::isChecked(int id) {
    return ui::control<QAbstractButton>(*panel(), id).isChecked();
}

void MoviePanelTest::click(int id) {
    ui::click(*control(id));
}

void MoviePanelTest::type(int id, const QString& newText) {
    ui::type(*control(id), newText);
}

void MoviePanelTest::step(int id, bool up) {
    QWidget& spin = *control(id);
    QStyleOptionSpinBox option;
    option.initFrom(&spin);
    option.subControls = QStyle::SC_All;
    const QStyle::SubControl arrow = up ? QStyle::SC_SpinBoxUp : QStyle::SC_SpinBoxDown;
    const QRect place = spin.style()->subControlRect(QStyle::CC_SpinBox, &option, arrow, &spin);
    ui::click(spin, QPoint(spin.width() - 4, place.center().y()));
}

void MoviePanelTest::leave() {
    ui::press(Qt::Key_Return);
}

void MoviePanelTest::choose(int id, int item) {
    auto& box = ui::control<QComboBox>(*panel(), id);
    box.setFocus();
    ui::press(Qt::Key_Home);
    for (int i = 0; i < item; ++i) {
        ui::press(Qt::Key_Down);
    }
}

void MoviePanelTest::goTo(int frame) {
    ui::click(*control(IDC_TIMELINE), column(frame));
    ASSERT_EQ(m_movie.getRangeStart(), frame);
}

QPoint MoviePanelTest::column(int frame) {
    constexpr int FRAME_EDGE = 2;
    constexpr int WIDTH = 16; // 20 frames fitted into the control
    return {FRAME_EDGE + frame * WIDTH + WIDTH / 2, control(IDC_TIMELINE)->height() / 2};
}
