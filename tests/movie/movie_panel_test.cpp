#include "movie/movie_panel_fixture.h"

#include "host/veskutil.h"
#include "resources/resource_ids.h"
#include "support/ui_driver.h"

namespace {

TEST_F(MoviePanelTest, StepsThroughTheMovie) {
    open();
    const struct {
        int button;
        int frame;
        const char* time;
    } steps[] = {{IDC_GO_TO_END, 19, "00:00.80"},    {IDC_STEP_BACK, 18, "00:00.70"},
                 {IDC_PREVIOUS_KEY, 10, "00:00.40"}, {IDC_PREVIOUS_KEY, 5, "00:00.20"},
                 {IDC_STEP_FORWARD, 6, "00:00.20"},  {IDC_NEXT_KEY, 10, "00:00.40"},
                 {IDC_GO_TO_START, 0, "00:00.00"},   {IDC_PREVIOUS_KEY, 0, "00:00.00"}};
    for (const auto& step : steps) {
        click(step.button);
        EXPECT_EQ(m_movie.getRangeStart(), step.frame);
        EXPECT_EQ(text(IDC_MOVIE_TIME), step.time);
    }
}

} // namespace
