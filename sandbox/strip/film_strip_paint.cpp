#include "sandbox/strip/film_strip.h"
#include "sandbox/strip/strip_rows.h"

#include <QPainter>
#include <QPolygonF>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double LABEL_ROOM = 96.0; // pixels from one of the ruler's texts to the next
constexpr double FULL_SCALE = 32768.0;
constexpr double WIDEST_KEY = 6.0;
constexpr int NAME_HEIGHT = 13;
constexpr int FONT_PIXELS = 11;

const QColor GROUND(38, 41, 46);
const QColor RULER_GROUND(52, 56, 62);
const QColor RULER_TEXT(208, 212, 218);
const QColor RULER_LINE(112, 118, 126);
const QColor KEYFRAME(240, 196, 84);
const QColor SOUND_GROUND(44, 66, 84);
const QColor SOUND_EDGE(96, 140, 172);
const QColor WAVE(132, 196, 236);
const QColor BROKEN_GROUND(112, 44, 44);
const QColor BROKEN_EDGE(208, 96, 88);
const QColor MARKER(116, 208, 128);
const QColor OUTSIDE(0, 0, 0, 120);
const QColor POSITION(255, 96, 80);

/// Frames from one text of the ruler to the next.
double rulerStep(double pixelsPerFrame, double rate) {
    constexpr std::array FRAMES{1.0, 2.0, 5.0, 10.0};
    constexpr std::array SECONDS{1.0, 2.0, 5.0, 10.0, 30.0, 60.0, 120.0, 300.0, 600.0, 1800.0, 3600.0};
    for (const double step : FRAMES) {
        if (step < rate && step * pixelsPerFrame >= LABEL_ROOM) {
            return step;
        }
    }
    for (const double seconds : SECONDS) {
        if (seconds * rate * pixelsPerFrame >= LABEL_ROOM) {
            return seconds * rate;
        }
    }
    return std::ceil(LABEL_ROOM / (SECONDS.back() * rate * pixelsPerFrame)) * SECONDS.back() * rate;
}

} // namespace

void CFilmStrip::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (m_pFilm == nullptr) {
        painter.fillRect(rect(), GROUND);
        return;
    }
    m_scale.fit(movie().getNumFrames(), width()); // which may have changed since the last idle moment
    if (m_ground.isNull() || groundState() != m_nGroundState) {
        drawGround();
    }
    painter.drawPixmap(0, 0, m_ground);
    drawMarkers(painter);
    m_fShownPosition = position();
    m_shownSection = section();
    painter.fillRect(QRectF(m_scale.pixelOf(m_fShownPosition), 0, 2, height()), POSITION);
}

void CFilmStrip::drawGround() {
    m_nGroundState = groundState();
    layOutSounds();
    m_ground = QPixmap(size() * devicePixelRatioF());
    m_ground.setDevicePixelRatio(devicePixelRatioF());
    m_ground.fill(GROUND);
    QPainter painter(&m_ground);
    QFont font = painter.font();
    font.setPixelSize(FONT_PIXELS);
    painter.setFont(font);
    drawRuler(painter);
    drawKeyframes(painter);
    for (const Block& block : m_blocks) {
        if (block.place.right() >= 0.0 && block.place.left() < width()) {
            drawSound(painter, block);
        }
    }
}

void CFilmStrip::drawRuler(QPainter& painter) const {
    painter.fillRect(0, 0, width(), striprows::RULER, RULER_GROUND);
    const auto rate = static_cast<double>(movie().getStepRate());
    const double step = rulerStep(m_scale.pixelsPerFrame(), rate);
    const double end = std::min(m_scale.positionAt(width()), static_cast<double>(movie().getNumFrames()));
    for (double tick = std::floor(m_scale.positionAt(0.0) / step); tick * step < end; ++tick) {
        const double frame = tick * step;
        const int x = static_cast<int>(m_scale.pixelOf(frame));
        painter.fillRect(x, 0, 1, striprows::RULER, RULER_LINE);
        painter.setPen(RULER_TEXT);
        painter.drawText(
            x + striprows::MARKER + 1, striprows::RULER - 6,
            tr("%1 s | %2").arg(frame / rate, 0, 'f', step < rate ? 2 : 0).arg(std::lround(frame)));
    }
}

void CFilmStrip::drawKeyframes(QPainter& painter) const {
    const int first = m_scale.frameAt(0.0);
    const int last = m_scale.frameAt(width());
    const double size = std::clamp(m_scale.pixelsPerFrame(), 2.0, WIDEST_KEY);
    double free = -size;
    for (int frame = first; frame <= last; ++frame) {
        const double x = m_scale.pixelOf(frame);
        if (x >= free && movie().getFrame(frame)->keyframe) {
            painter.fillRect(QRectF(x, striprows::KEYFRAMES_TOP + 2, size, striprows::KEYFRAMES - 4),
                             KEYFRAME);
            free = x + 1.0; // what falls on the same pixel is not told apart
        }
    }
}

void CFilmStrip::drawSound(QPainter& painter, const Block& block) const {
    const QRectF place = block.place.adjusted(0, 1, 0, -1);
    const bool isBroken = !block.peaks->failure().isEmpty();
    painter.fillRect(place, isBroken ? BROKEN_GROUND : SOUND_GROUND);
    if (!isBroken) {
        drawWave(painter, block);
    }
    painter.fillRect(QRectF(place.left(), place.top(), 1, place.height()),
                     isBroken ? BROKEN_EDGE : SOUND_EDGE);
    const double left = std::max(place.left(), 0.0) + 4.0;
    const QRectF text(left, place.top(), place.right() - left, NAME_HEIGHT);
    painter.setPen(RULER_TEXT);
    painter.drawText(
        text, Qt::AlignLeft | Qt::AlignVCenter,
        painter.fontMetrics().elidedText(block.name, Qt::ElideRight, static_cast<int>(text.width())));
}

void CFilmStrip::drawWave(QPainter& painter, const Block& block) const {
    const double perPixel = 1.0 / (m_scale.pixelsPerFrame() * static_cast<double>(movie().getStepRate()));
    const double height = (block.place.height() - NAME_HEIGHT - 2) / block.peaks->channels();
    const int end = static_cast<int>(std::min<double>(width(), std::ceil(block.place.right())));
    for (int channel = 0; channel < block.peaks->channels(); ++channel) {
        const double middle = block.place.top() + NAME_HEIGHT + height * (channel + 0.5);
        for (int x = std::max(0, static_cast<int>(block.place.left())); x < end; ++x) {
            const double from = (x - block.place.left()) * perPixel;
            const PeakRange peak = block.peaks->range(channel, from, from + perPixel);
            const double top = middle - peak.high / FULL_SCALE * height / 2.0;
            const double bottom = middle - peak.low / FULL_SCALE * height / 2.0;
            painter.fillRect(QRectF(x, top, 1, std::max(1.0, bottom - top)), WAVE);
        }
    }
}

void CFilmStrip::drawMarkers(QPainter& painter) const {
    const MovieSection shown = section();
    const double start = m_scale.pixelOf(shown.first);
    const double end = m_scale.pixelOf(shown.last + 1);
    const double below = height() - striprows::RULER;
    painter.fillRect(QRectF(0, striprows::RULER, std::max(start, 0.0), below), OUTSIDE);
    painter.fillRect(QRectF(end, striprows::RULER, std::max(width() - end, 0.0), below), OUTSIDE);
    painter.setPen(Qt::NoPen);
    painter.setBrush(MARKER);
    painter.setRenderHint(QPainter::Antialiasing);
    // Each lies inside the part that it bounds, so that at the film's ends neither is cut off.
    const auto draw = [&](double x, int inwards) {
        painter.drawPolygon(QPolygonF({{x, 0.0}, {x + inwards, 0.0}, {x, striprows::RULER - 1.0}}));
    };
    draw(start, striprows::MARKER);
    draw(end, -striprows::MARKER);
    painter.setRenderHint(QPainter::Antialiasing, false);
}
