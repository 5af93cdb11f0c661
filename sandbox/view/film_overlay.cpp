#include "sandbox/view/film_overlay.h"

#include "sandbox/view/gl_functions.h"

#include <QHash>

namespace {

constexpr float LINE_WIDTH = 2.0F;   // pixels
constexpr std::uint8_t OPAQUE = 255; // as the line's own colour says
constexpr std::uint8_t BEHIND = 70;  // of 255, where a hill is in front
constexpr CThickLines::Colour EDGE{0, 0, 0, 110};
constexpr float EDGE_WIDTH = 4.0F; // pixels

} // namespace

void CFilmOverlay::setFilm(CFilm* film) {
    m_pFilm = film;
    m_bKnown = false;
    m_labels.clear();
}

void CFilmOverlay::addLines(const std::vector<FilmLine>& lines, std::uint8_t opacity) {
    for (const FilmLine& line : lines) {
        CThickLines::Colour colour = line.colour;
        colour[3] = static_cast<std::uint8_t>(colour[3] * opacity / OPAQUE);
        m_lines.addSegment(line.from, line.to, colour);
    }
}

void CFilmOverlay::draw(const HeightField& ground, std::uint64_t groundState, const QMatrix4x4& worldToClip,
                        QSize viewPixels, double pixelRatio) {
    if (m_pFilm == nullptr) {
        return;
    }
    const std::uint64_t state = qHashMulti(0, m_pFilm->state(), groundState);
    if (!m_bKnown || state != m_nState) {
        m_lasting = markFilm(*m_pFilm, ground);
        m_nState = state;
        m_bKnown = true;
    }
    const FilmMarks current = markCurrent(*m_pFilm, ground);
    m_labels = m_lasting.labels;
    m_labels.insert(m_labels.end(), current.labels.begin(), current.labels.end());

    m_lines.clear();
    const auto both = [&](std::uint8_t opacity) {
        return m_lines.collect([&] {
            addLines(m_lasting.lines, opacity);
            addLines(current.lines, opacity);
        });
    };
    const CThickLines::Range edges = m_lines.collect([&] {
        for (const FilmLine& line : current.lines) {
            m_lines.addSegment(line.from, line.to, EDGE);
        }
    });
    const CThickLines::Range faint = both(BEHIND);
    const CThickLines::Range clear = both(OPAQUE);
    m_lines.begin(worldToClip, viewPixels);
    glFunctions()->glDisable(GL_DEPTH_TEST);
    m_lines.draw(faint, LINE_WIDTH * static_cast<float>(pixelRatio));
    glFunctions()->glEnable(GL_DEPTH_TEST);
    m_lines.draw(edges, EDGE_WIDTH * static_cast<float>(pixelRatio));
    m_lines.draw(clear, LINE_WIDTH * static_cast<float>(pixelRatio));
    m_lines.end();
}
