#include "sandbox/app/main_window.h"

#include "host/veskutil.h"
#include "resources/resource_ids.h"
#include "sandbox/hands/hands.h"
#include "sandbox/strip/strip_rows.h"
#include "sandbox/window_session.h"
#include "support/ui_driver.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QToolTip>
#include <gtest/gtest.h>

#include <functional>

namespace {

QRect onScreen(const QWidget& widget) {
    return {widget.mapToGlobal(QPoint()), widget.size()};
}

/// The sandbox on its sample.
class FilmWindow : public testing::Test {
protected:
    void openEditors(const QSize& size) {
        m_pWindow->resize(size);
        m_pWindow->move(0, 0);
        m_pWindow->show();
        m_pWindow->activateWindow();
        EXPECT_TRUE(ui::waitUntilActive(m_pWindow.get()));
        EXPECT_EQ(m_pWindow->openMap(QString(VESK_SAMPLES) + "/jacksboro"), "");
        for (const char* editor : {"map-editor", "movie-editor"}) {
            m_pWindow->findChild<QAction*>(editor)->trigger();
        }
        const auto isBeside = [this] {
            const QWidget* const film = ui::dialog(IDD_MOVIE_EDITOR);
            return film != nullptr && !onScreen(*film).intersects(onScreen(m_pWindow->view()));
        };
        EXPECT_TRUE(becomesTrue(isBeside)) << "the movie editor covers the view";
    }

    CFreshSettings m_settings;
    std::unique_ptr<CMainWindow> m_pWindow = std::make_unique<CMainWindow>();
};

TEST_F(FilmWindow, BothEditorsHaveRoom) {
    openEditors({1280, 720});
    ASSERT_TRUE(ui::dialog(IDD_MAP_EDITOR) != nullptr && ui::dialog(IDD_MOVIE_EDITOR) != nullptr);
    const QRect map = onScreen(*ui::dialog(IDD_MAP_EDITOR));
    const QRect film = onScreen(*ui::dialog(IDD_MOVIE_EDITOR));
    const QRect tools = onScreen(*m_pWindow->findChild<QToolBar*>());
    EXPECT_FALSE(map.intersects(film));
    EXPECT_FALSE(map.intersects(tools) || film.intersects(tools));
    EXPECT_TRUE(onScreen(*m_pWindow).contains(map) && onScreen(*m_pWindow).contains(film));
    const auto isShownAsOpen = [&](const char* editor) {
        return m_pWindow->findChild<QAction*>(editor)->isChecked();
    };
    vuDestroyEditor();
    EXPECT_TRUE(becomesTrue([&] { return !isShownAsOpen("map-editor"); }));
    EXPECT_TRUE(vuIsMovieEditorActive() && isShownAsOpen("movie-editor"));
    vuDestroyMovieEditor();
    EXPECT_TRUE(becomesTrue([&] { return !isShownAsOpen("movie-editor"); }));
    EXPECT_TRUE(becomesTrue([&] { return m_pWindow->view().height() > 600; }))
        << "the view has its room again";
}

TEST_F(FilmWindow, ThePanelStandsBelowAWindowThatLeavesRoom) {
    openEditors({1280, 500});
    EXPECT_GE(onScreen(*ui::dialog(IDD_MOVIE_EDITOR)).top(), onScreen(*m_pWindow).bottom());
    EXPECT_EQ(m_pWindow->centralWidget()->height(), m_pWindow->view().height() + striprows::HEIGHT);
}

TEST_F(FilmWindow, TheStripMovesThroughTheFilmAndBoundsIt) {
    openEditors({1280, 720});
    auto& strip = *m_pWindow->findChild<CFilmStrip*>();
    CMemoryMovie& movie = m_pWindow->document().film().movie();
    EXPECT_FALSE(onScreen(strip).intersects(onScreen(*ui::dialog(IDD_MOVIE_EDITOR))));
    const auto at = [&](int frame, int y) { return QPointF(strip.scale().pixelOf(frame + 0.5), y); };
    constexpr int SOUNDS = striprows::SOUNDS_TOP + 10;
    CHands hands;
    hands.drag(strip, at(400, SOUNDS), at(200, SOUNDS), Qt::LeftButton);
    EXPECT_EQ(movie.getRangeStart(), 200);
    EXPECT_EQ(movie.getPose().position,
              movie.poseAt(static_cast<double>(movie.convertFrameToTime(200))).position);
    EXPECT_EQ(ui::dialog(IDD_MOVIE_EDITOR)->findChild<QLineEdit*>("2078")->text(), "00:08.00");
    hands.drag(strip, QPointF(2, 4), {strip.scale().pixelOf(50), 4}, Qt::LeftButton);
    hands.drag(strip, QPointF(strip.width() - 2, 4), {strip.scale().pixelOf(80), 4}, Qt::LeftButton);
    EXPECT_EQ(movie.getSection(), (MovieSection{50, 79}));
    ui::dialog(IDD_MOVIE_EDITOR)->findChild<QAbstractButton*>("2047")->click();
    EXPECT_TRUE(becomesTrue([&] { return movie.getPlayTime() > 2.1; }));
    EXPECT_LT(movie.getPlayTime(), 3.3) << "it began outside the section";
    hands.click(strip, at(60, SOUNDS));
    EXPECT_TRUE(movie.isPlaying()) << "a click goes to a place in the playing film";
    hands.hold(Qt::ControlModifier);
    hands.turnWheel(strip, at(100, SOUNDS), 3);
    hands.hold(Qt::NoModifier);
    EXPECT_GT(strip.scale().pixelOf(101) - strip.scale().pixelOf(100), 3.0);
}

TEST_F(FilmWindow, TheStripSaysWhyASoundIsSilent) {
    openEditors({1280, 720});
    auto& strip = *m_pWindow->findChild<CFilmStrip*>();
    CMemoryMovie& movie = m_pWindow->document().film().movie();
    movie.clearSoundtrack();
    movie.addSound("gone.wav");
    movie.addSound("grass.tga");
    ui::settle();
    strip.grab(); // what is drawn is what can be pointed at
    const auto toolTipAt = [&](int x) {
        const QPoint point(x, striprows::SOUNDS_TOP + 10);
        QHelpEvent help(QEvent::ToolTip, point, strip.mapToGlobal(point));
        QCoreApplication::sendEvent(&strip, &help);
        return QToolTip::text();
    };
    EXPECT_EQ(toolTipAt(5), "gone.wav: The file is not there.");
    EXPECT_TRUE(toolTipAt(110).startsWith("grass.tga: ")) << "it stands beside the first";
    EXPECT_TRUE(toolTipAt(600).startsWith("Frame "));
}

TEST_F(FilmWindow, TheNamesOfTheAnimationsAreOffered) {
    openEditors({1280, 720});
    CMemoryMovie& movie = m_pWindow->document().film().movie();
    movie.setRangeSingleFrame(75);
    vuMovieCameraAltered(nullptr, true);
    auto& field = ui::control<QLineEdit>(*ui::dialog(IDD_MOVIE_EDITOR), IDC_ANIM);
    ui::dialog(IDD_MOVIE_EDITOR)->activateWindow();
    ASSERT_TRUE(ui::waitUntilActive(ui::dialog(IDD_MOVIE_EDITOR)));
    ui::click(*field.findChild<QToolButton*>());
    QWidget* const list = QApplication::activePopupWidget();
    ASSERT_NE(list, nullptr);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(field.text(), "birds rise");
    EXPECT_TRUE(becomesTrue([&] { return field.hasFocus(); }));
    ui::press(Qt::Key_Tab);
    EXPECT_STREQ(movie.getFrame(75)->animTrigger, "birds rise");
}

/// The film that plays, is flown through and edited is freed with its map.
TEST_F(FilmWindow, AnotherMapTakesTheEditorsAlong) {
    openEditors({1280, 720});
    const CMemoryMovie& former = m_pWindow->document().film().movie();
    auto* play = ui::dialog(IDD_MOVIE_EDITOR)->findChild<QAbstractButton*>("2047");
    ui::dialog(IDD_MOVIE_EDITOR)->findChild<QAbstractButton*>("2081")->click();
    play->click();
    EXPECT_TRUE(former.isPlaying());
    ASSERT_TRUE(becomesTrue([&] { return former.getPlayTime() > 0.1; })) << "the host drives the film";
    ASSERT_EQ(m_pWindow->openMap(QString(VESK_SAMPLES) + "/jacksboro_fault_dem.png"), "");
    ui::settle();
    EXPECT_TRUE(vuIsEditorActive() && vuIsMovieEditorActive());
    CFilm& film = m_pWindow->document().film();
    EXPECT_FALSE(film.isLookedThrough());
    ui::dialog(IDD_MOVIE_EDITOR)->findChild<QAbstractButton*>("2045")->click();
    EXPECT_EQ(film.movie().getRangeStart(), CFilm::FIRST_FRAMES - 1);
    ui::dialog(IDD_MOVIE_EDITOR)->findChild<QAbstractButton*>("2047")->click();
    ui::settle();
    m_pWindow.reset(); // in mid-play
    EXPECT_FALSE(vuIsEditorActive() || vuIsMovieEditorActive());
}

} // namespace
