#include "movie/time_text.h"

#include "engine/qx_movie.h"

#include <cstdio>
#include <cstdlib>

namespace {

constexpr float SECONDS_IN_AN_INT = 2147483648.0F;
constexpr int SECONDS_PER_MINUTE = 60;
constexpr int TENTHS_PER_SECOND = 10;

} // namespace

std::string formatTime(int frame, float stepRate) {
    const float time = static_cast<float>(std::llabs(frame)) / stepRate;
    const bool isTime = time > -SECONDS_IN_AN_INT && time < SECONDS_IN_AN_INT;
    const float seconds = isTime ? (time < 0.0F ? -time : time) : 0.0F;
    long long whole = static_cast<long long>(seconds);
    long long tenths = static_cast<long long>((seconds - static_cast<float>(whole)) * 10.0F + 0.5F);
    whole += tenths / TENTHS_PER_SECOND;
    tenths %= TENTHS_PER_SECOND;
    const bool isBefore = isTime && (frame < 0) != (time < 0.0F) && (whole != 0 || tenths != 0);
    char text[48];
    std::snprintf(text, sizeof text, "%s%02lld:%02lld.%02lld", isBefore ? "-" : "",
                  whole / SECONDS_PER_MINUTE, whole % SECONDS_PER_MINUTE, tenths * 10);
    return text;
}

std::string selectionTime(const qxCMovie& movie) {
    const float stepRate = movie.getStepRate();
    if (movie.getNumFrames() == 1) {
        return formatTime(0, stepRate);
    }
    const std::string start = formatTime(movie.getRangeStart(), stepRate);
    return movie.isRangeSingleFrame() ? start : start + "-" + formatTime(movie.getRangeEnd(), stepRate);
}
