#include "movie/movie_panel_fixture.h"

#include "controls/ease_curve_ctrl.h"
#include "engine/memory/movie/animator_clock.h"
#include "engine/qx_ease_curve.h"
#include "host/veskutil.h"
#include "module/module_state.h"
#include "movie/panel/movie_editor_dlg.h"
#include "resources/resource_ids.h"
#include "support/ui_driver.h"

#include <QAbstractSlider>
#include <QImage>
#include <QMouseEvent>
#include <QPixmap>
#include <QTest>
#include <QWheelEvent>

namespace {

std::string range(const qxCMovie& movie) {
    return std::to_string(movie.getRangeStart()) + "-" + std::to_string(movie.getRangeEnd());
}

class MovieTimelineTest : public MoviePanelTest {
protected:
    static void moveTo(QPoint place) { QTest::mouseMove(control(IDC_TIMELINE), place); }
    static void turnWheel(int notches, int x, Qt::KeyboardModifiers keys) {
        QWidget& timeline = *control(IDC_TIMELINE);
        const QPointF place(x, 20);
        QWheelEvent event(place, timeline.mapToGlobal(place), {}, {0, notches * 120}, Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&timeline, &event);
    }
    static CTimelineCtrl& timeline() { return g_pMovieEditorDlg->timeline(); }
    static QImage picture() { return control(IDC_TIMELINE)->grab().toImage(); }
};

TEST_F(MovieTimelineTest, DropsAPressWhoseReleaseWentElsewhere) {
    open();
    QWidget& display = *control(IDC_TIMELINE);
    QTest::mousePress(&display, Qt::RightButton, Qt::NoModifier, column(5));
    QMouseEvent elsewhere(QEvent::MouseMove, column(7), display.mapToGlobal(column(7)), Qt::NoButton,
                          Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&display, &elsewhere);
    QTest::mouseRelease(&display, Qt::RightButton, Qt::NoModifier, column(7));
    EXPECT_EQ(range(m_movie), "0-0");
    EXPECT_TRUE(frame(5).keyframe);
}

TEST_F(MovieTimelineTest, ScrollsOnWhileADragIsBeyondItsEdge) {
    open();
    click(IDC_ZOOM_IN);
    click(IDC_ZOOM_IN);
    EXPECT_EQ(timeline().getFrameWidth(), 64);
    const int shown = timeline().getClientWidth() / 64;
    QTest::mousePress(control(IDC_TIMELINE), Qt::LeftButton, Qt::NoModifier, {10, 10});
    moveTo({timeline().getClientWidth() + 3, 10});
    EXPECT_TRUE(ui::waitUntil([&] { return m_movie.getRangeEnd() == 19; }));
    EXPECT_EQ(timeline().getFirstFrame(), 20 - shown);
    moveTo({-1, 10});
    EXPECT_TRUE(ui::waitUntil([&] { return timeline().getFirstFrame() == 0; }));
    EXPECT_EQ(range(m_movie), "0-0");
    QTest::mouseRelease(control(IDC_TIMELINE), Qt::LeftButton, Qt::NoModifier, {-1, 10});
}

TEST_F(MovieTimelineTest, AnswersTheWheelTheScrollBarAndThePointer) {
    open();
    turnWheel(1, 100, Qt::ControlModifier);
    EXPECT_EQ(timeline().getFrameWidth(), 32);
    moveTo({100, 20});
    EXPECT_EQ(control(IDC_TIMELINE)->toolTip(), "Frame 6, 00:00.20");
    turnWheel(-1, 100, Qt::NoModifier);
    EXPECT_EQ(timeline().getFirstFrame(), 4);
    auto& bar = ui::control<QAbstractSlider>(*panel(), IDC_TIMELINE_SCROLL);
    EXPECT_EQ(bar.value(), 4);
    EXPECT_EQ(bar.maximum(), 19);
    bar.triggerAction(QAbstractSlider::SliderPageStepAdd);
    EXPECT_EQ(timeline().getFirstFrame(), 9);
    bar.triggerAction(QAbstractSlider::SliderToMaximum);
    EXPECT_EQ(timeline().getFirstFrame(), 19);
    vuDestroyMovieEditor();
    CMemoryMovie longMovie(nullptr, 100'000);
    open(longMovie);
    auto& longBar = ui::control<QAbstractSlider>(*panel(), IDC_TIMELINE_SCROLL);
    longBar.setSliderDown(true);
    longBar.setSliderPosition(80'000);
    EXPECT_EQ(timeline().getFirstFrame(), 80'000);
}

TEST_F(MovieTimelineTest, DrawsFourPicturesASecondWhileTheMoviePlays) {
    holdAnimatorClock(100.0F);
    open();
    const QImage stopped = picture();
    m_movie.flags = 0;
    frame(3).setAnimTrigger("mill");
    timeline().redraw();
    EXPECT_EQ(picture(), stopped);
    holdAnimatorClock(100.26F);
    timeline().redraw();
    const QImage later = picture();
    EXPECT_NE(later, stopped);
    frame(4).setAnimTrigger("mill");
    holdAnimatorClock(1.0F);
    timeline().redraw();
    EXPECT_NE(picture(), later) << "a clock that was set back";
    holdAnimatorClock(std::nullopt);
}

TEST_F(MovieTimelineTest, DrawsTheCurveOfAnEaseValue) {
    constexpr int EDGE = 2;
    open();
    for (const QSize size : {QSize(46, 26), QSize(1, 1)}) {
        CEaseCurveCtrl display;
        ASSERT_TRUE(display.Create(nullptr, nullptr, WS_CHILD | WS_VISIBLE,
                                   CRect(0, 0, size.width() + 2 * EDGE, size.height() + 2 * EDGE),
                                   g_pMovieEditorDlg, 9000));
        for (const auto& [set, value] : {std::pair{0.5F, 0.5F}, {-0.3F, 0.0F}, {1.7F, 1.0F}, {0.2F, 0.2F}}) {
            display.setValue(set);
            EXPECT_EQ(display.getValue(), value);
            const QImage image =
                control(9000)->grab().toImage().copy(EDGE, EDGE, size.width(), size.height());
            for (int x = 0; x < size.width(); ++x) {
                const float t = static_cast<float>(x) / static_cast<float>(size.width());
                const float f = (value * t) / ((1.0F - 2.0F * value) * (1.0F - t) + value);
                for (int y = 0; y < size.height(); ++y) {
                    const bool isSet =
                        f >= 0.0F &&
                        y == size.height() - 1 - static_cast<int>(f * static_cast<float>(size.height() - 1));
                    ASSERT_EQ(image.pixelColor(x, y), isSet ? QColor(0, 255, 0) : QColor(0, 0, 0))
                        << value << " at " << x << ", " << y;
                }
            }
        }
    }
}

} // namespace
