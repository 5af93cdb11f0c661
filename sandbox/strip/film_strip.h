#pragma once

#include "sandbox/film/film.h"
#include "sandbox/strip/sound_peaks.h"
#include "sandbox/strip/strip_scale.h"

#include <QPixmap>
#include <QWidget>
#include <map>
#include <vector>

/// The film from its start to its end: a ruler, the keyframes, the waveforms of its sounds, where it stands,
/// and two markers between which it plays. A click or drag moves the current frame. Knows the movie alone;
/// the owner passes on what `scrubbed` says.
class CFilmStrip : public QWidget {
    Q_OBJECT

public:
    explicit CFilmStrip(QWidget* parent);

    /// Show this film, which outlives its stay here, or none.
    void setFilm(CFilm* film);
    /// Look whether the film has changed or gone on, and draw what has.
    void follow();

    QSize sizeHint() const override;
    const CStripScale& scale() const { return m_scale; }

signals:
    /// The film was moved to another frame and, stopped, posed there.
    void scrubbed();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    enum class Drag { NONE, SCRUB, START, END };
    /// A soundtrack entry as it is drawn.
    struct Block {
        QRectF place;
        QString name;
        double start = 0.0;
        double length = 0.0;
        const CSoundPeaks* peaks = nullptr;
    };

    CMemoryMovie& movie() const { return m_pFilm->movie(); }
    double position() const;
    MovieSection section() const;
    std::size_t groundState() const;
    const CSoundPeaks& peaksOf(const QString& name);
    void layOutSounds();
    QString textAt(QPointF point) const;
    Drag gripAt(QPointF point) const;
    void scrubTo(double pixel);
    void moveMarker(double pixel);
    // How it is drawn: film_strip_paint.cpp.
    void drawGround();
    void drawRuler(QPainter& painter) const;
    void drawKeyframes(QPainter& painter) const;
    void drawSound(QPainter& painter, const Block& block) const;
    void drawWave(QPainter& painter, const Block& block) const;
    void drawMarkers(QPainter& painter) const;

    CFilm* m_pFilm = nullptr;
    CStripScale m_scale;
    std::map<QString, CSoundPeaks> m_peaks; // by the sounds' names, read once
    std::vector<Block> m_blocks;
    QPixmap m_ground; // all but the markers and where the film stands
    std::size_t m_nGroundState = 0;
    double m_fShownPosition = -1.0;
    MovieSection m_shownSection;
    Drag m_drag = Drag::NONE;
};
