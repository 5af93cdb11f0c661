#include "sandbox/project/json_values.h"

#include <QByteArray>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

QString colourText(const qxCColour& colour) {
    const uint value = uint{colour.a} << 24U | uint{colour.r} << 16U | uint{colour.g} << 8U | colour.b;
    return QString("#%1").arg(value, 8, 16, QLatin1Char('0')).toUpper();
}

double shortest(float value) {
    constexpr double LARGEST_NUMBER = std::numeric_limits<float>::max();
    if (!std::isfinite(value)) {
        return std::isnan(value) ? 0.0 : std::copysign(LARGEST_NUMBER, value);
    }
    std::array<char, 32> text{};
    std::to_chars(text.data(), text.data() + text.size(), value);
    return QByteArray(text.data()).toDouble();
}

QJsonArray vectorText(const qxCVector3d& vector) {
    return {shortest(vector.x), shortest(vector.y), shortest(vector.z)};
}
