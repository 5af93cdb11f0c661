#include "sandbox/strip/film_strip.h"

#include "engine/memory/engine_directories.h"
#include "sandbox/strip/strip_rows.h"

#include <QHash>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <algorithm>
#include <cmath>

namespace {

constexpr double ZOOM_A_NOTCH = 1.25;
constexpr double SCROLL_A_NOTCH = 60.0; // pixels
constexpr double NOTCH = 120.0;         // as the framework counts a wheel's turn
constexpr double BARE_WIDTH = 96.0;     // pixels of a sound without length: its name

CSoundPeaks peaksOfFile(const QString& name) {
    const auto path = CEngineDirectories::resolve(name.toStdString());
    return path ? CSoundPeaks::read(QString::fromStdString(path->string()))
                : CSoundPeaks::unreadable(QObject::tr("The file is not there."));
}

} // namespace

CFilmStrip::CFilmStrip(QWidget* parent) : QWidget(parent) {
    setObjectName("film-strip");
    setAccessibleName(tr("Film"));
    setFixedHeight(striprows::HEIGHT);
    setMouseTracking(true);
    hide();
}

QSize CFilmStrip::sizeHint() const {
    return {200, striprows::HEIGHT};
}

void CFilmStrip::setFilm(CFilm* film) {
    m_pFilm = film;
    m_drag = Drag::NONE;
    m_scale = {};
    m_blocks.clear();
    m_peaks.clear();
    m_ground = {};
    setVisible(film != nullptr);
    follow();
}

double CFilmStrip::position() const {
    const CMemoryMovie& film = movie();
    return film.isPlaying() ? film.getPlayTime() * static_cast<double>(film.getStepRate())
                            : film.getRangeStart();
}

MovieSection CFilmStrip::section() const {
    const int last = movie().getNumFrames() - 1;
    const MovieSection asked = movie().getSection().value_or(MovieSection{0, last});
    return {std::min(asked.first, last), std::min(asked.last, last)};
}

std::size_t CFilmStrip::groundState() const {
    CMemoryMovie& film = movie();
    std::size_t state = qHashMulti(1, film.getRevision(), film.getStepRate(), m_scale.pixelsPerFrame(),
                                   m_scale.positionAt(0.0), width());
    // The panel lays the sounds out without a word to the movie.
    for (int index = 0; index < film.getSoundtrackSize(); ++index) {
        const qxCMovieSound& sound = *film.getSound(index);
        state = qHashMulti(state, sound.start, sound.length);
    }
    return state;
}

void CFilmStrip::follow() {
    if (m_pFilm == nullptr) {
        return;
    }
    m_scale.fit(movie().getNumFrames(), width());
    const double now = position();
    if (now != m_fShownPosition && m_drag == Drag::NONE) {
        m_scale.reveal(now);
    }
    if (now != m_fShownPosition || section() != m_shownSection || m_ground.isNull() ||
        groundState() != m_nGroundState) {
        update();
    }
}

const CSoundPeaks& CFilmStrip::peaksOf(const QString& name) {
    const auto known = m_peaks.find(name);
    if (known != m_peaks.end() && known->second.failure().isEmpty()) {
        return known->second;
    }
    return m_peaks.insert_or_assign(name, peaksOfFile(name)).first->second; // it may be there by now
}

void CFilmStrip::layOutSounds() {
    m_blocks.clear();
    const auto rate = static_cast<double>(movie().getStepRate());
    double bareEnd = -1.0; // sounds without length begin at one time, and stand beside each other
    for (int index = 0; index < movie().getSoundtrackSize(); ++index) {
        const qxCMovieSound& sound = *movie().getSound(index);
        const QString name = QString::fromUtf8(sound.name);
        const auto start = static_cast<double>(sound.start);
        const auto length = static_cast<double>(sound.length);
        double left = m_scale.pixelOf(start * rate);
        double right = m_scale.pixelOf((start + length) * rate);
        if (right - left < 1.0) {
            left = std::max(left, bareEnd);
            right = left + BARE_WIDTH;
            bareEnd = right + 1.0;
        }
        m_blocks.push_back({QRectF(left, striprows::SOUNDS_TOP, right - left, striprows::SOUNDS), name, start,
                            length, &peaksOf(name)});
    }
    std::ranges::stable_partition(m_blocks, [](const Block& block) { return block.length > 0.0; });
}

QString CFilmStrip::textAt(QPointF point) const {
    for (auto block = m_blocks.rbegin(); block != m_blocks.rend(); ++block) {
        if (block->place.contains(point)) {
            const QString& failure = block->peaks->failure();
            return failure.isEmpty() ? tr("%1: from %2 s to %3 s")
                                           .arg(block->name)
                                           .arg(block->start, 0, 'f', 2)
                                           .arg(block->start + block->length, 0, 'f', 2)
                                     : tr("%1: %2").arg(block->name, failure);
        }
    }
    if (gripAt(point) != Drag::NONE) {
        return tr("The film plays between the two markers. Drag to move this one");
    }
    const int frame = m_scale.frameAt(point.x());
    return tr("Frame %1, %2 s\nDrag: move through the film. Wheel: scroll. Ctrl+wheel: zoom")
        .arg(frame)
        .arg(frame / static_cast<double>(movie().getStepRate()), 0, 'f', 2);
}

bool CFilmStrip::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && m_pFilm != nullptr) {
        const auto* help = static_cast<QHelpEvent*>(event);
        QToolTip::showText(help->globalPos(), textAt(help->pos()), this);
        return true;
    }
    return QWidget::event(event);
}

void CFilmStrip::resizeEvent(QResizeEvent*) {
    follow();
}

CFilmStrip::Drag CFilmStrip::gripAt(QPointF point) const {
    if (point.y() >= striprows::RULER) {
        return Drag::NONE;
    }
    const MovieSection shown = section();
    const double toStart = point.x() - m_scale.pixelOf(shown.first);
    const double toEnd = point.x() - m_scale.pixelOf(shown.last + 1);
    if (std::min(std::abs(toStart), std::abs(toEnd)) > striprows::MARKER) {
        return Drag::NONE;
    }
    return std::abs(toStart) < std::abs(toEnd) ? Drag::START : Drag::END;
}

void CFilmStrip::mousePressEvent(QMouseEvent* event) {
    if (m_pFilm == nullptr || event->button() != Qt::LeftButton) {
        return;
    }
    m_drag = gripAt(event->position());
    if (m_drag == Drag::NONE) {
        m_drag = Drag::SCRUB;
        scrubTo(event->position().x());
    }
}

void CFilmStrip::mouseMoveEvent(QMouseEvent* event) {
    if (m_pFilm == nullptr) {
        return;
    }
    if (m_drag == Drag::SCRUB) {
        scrubTo(event->position().x());
    } else if (m_drag != Drag::NONE) {
        moveMarker(event->position().x());
    }
    const bool grips = m_drag == Drag::NONE && gripAt(event->position()) != Drag::NONE;
    setCursor(grips ? Qt::SizeHorCursor : Qt::ArrowCursor);
}

void CFilmStrip::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_drag = Drag::NONE;
    }
}

void CFilmStrip::scrubTo(double pixel) {
    const int frame = m_scale.frameAt(pixel);
    if (frame == movie().getRangeStart() && movie().isRangeSingleFrame()) {
        return;
    }
    movie().setRangeSingleFrame(frame);
    if (movie().isPlaying()) {
        movie().play(); // it goes on from there
    } else {
        movie().updateManual(movie().convertFrameToTime(frame));
    }
    emit scrubbed();
    follow();
}

void CFilmStrip::moveMarker(double pixel) {
    MovieSection moved = section();
    const int border = static_cast<int>(std::lround(m_scale.positionAt(pixel)));
    const int last = movie().getNumFrames() - 1;
    if (m_drag == Drag::START) {
        moved.first = std::clamp(border, 0, moved.last);
    } else {
        moved.last = std::clamp(border - 1, moved.first, last);
    }
    const bool isWhole = moved == MovieSection{0, last};
    movie().setSection(isWhole ? std::nullopt : std::optional(moved)); // the whole film also when it grows
    follow();
}

void CFilmStrip::wheelEvent(QWheelEvent* event) {
    if (m_pFilm == nullptr) {
        return;
    }
    const QPoint turned = event->angleDelta();
    const double notches = (turned.y() != 0 ? turned.y() : turned.x()) / NOTCH;
    if (event->modifiers().testFlag(Qt::ControlModifier)) {
        m_scale.zoom(std::pow(ZOOM_A_NOTCH, notches), event->position().x());
    } else {
        m_scale.scroll(-notches * SCROLL_A_NOTCH);
    }
    follow();
    event->accept();
}
