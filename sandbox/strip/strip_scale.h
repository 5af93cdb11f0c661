#pragma once

/// Which part of a film a strip of pixels shows. Positions are in frames from the start of the film, whole
/// numbers being the frames' starts.
class CStripScale {
public:
    static constexpr double WIDEST_FRAME = 64.0; // pixels

    /// A film of so many frames on so many pixels, both at least 1. Keeps the zoom as far as it goes.
    void fit(int frames, int pixels);
    /// Enlarge by a factor; what is at this pixel stays there.
    void zoom(double factor, double pixel);
    void scroll(double pixels);
    /// Scroll no further than needed to show this position.
    void reveal(double position);

    double pixelsPerFrame() const { return m_fPixelsPerFrame; }
    double pixelOf(double position) const { return (position - m_fFirst) * m_fPixelsPerFrame; }
    double positionAt(double pixel) const { return m_fFirst + pixel / m_fPixelsPerFrame; }
    /// The frame at this pixel, held to the film.
    int frameAt(double pixel) const;

    friend bool operator==(const CStripScale&, const CStripScale&) = default;

private:
    void hold();

    int m_nFrames = 1;
    int m_nPixels = 1;
    bool m_bShowsAll = true;
    double m_fPixelsPerFrame = 1.0;
    double m_fFirst = 0.0; // position at the left edge
};
