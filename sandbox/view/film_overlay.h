#pragma once

#include "sandbox/film/film_marks.h"
#include "sandbox/view/thick_lines.h"

/// Draws a film into the landscape: its path, cameras, heights and places. What hills hide of it shows
/// faintly. Lives as long as the renderer's context; needs it current.
class CFilmOverlay {
public:
    void create() { m_lines.create(); }
    void destroy() { m_lines.destroy(); }
    /// Show another film, null for none; it must outlive its stay here.
    void setFilm(CFilm* film);
    /// Draw over what is drawn already. `groundState` changes whenever the ground does.
    void draw(const HeightField& ground, std::uint64_t groundState, const QMatrix4x4& worldToClip,
              QSize viewPixels, double pixelRatio);
    /// What names the things drawn last.
    const std::vector<FilmLabel>& labels() const { return m_labels; }

private:
    void addLines(const std::vector<FilmLine>& lines, std::uint8_t opacity);

    CFilm* m_pFilm = nullptr;
    CThickLines m_lines;
    FilmMarks m_lasting; ///< of the film and the ground at m_nState
    std::uint64_t m_nState = 0;
    bool m_bKnown = false;
    std::vector<FilmLabel> m_labels;
};
