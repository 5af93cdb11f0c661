#include "sandbox/strip/strip_scale.h"

#include <algorithm>
#include <cmath>

void CStripScale::fit(int frames, int pixels) {
    m_nFrames = std::max(frames, 1);
    m_nPixels = std::max(pixels, 1);
    hold();
}

void CStripScale::hold() {
    const double whole = static_cast<double>(m_nPixels) / m_nFrames;
    m_fPixelsPerFrame =
        m_bShowsAll ? whole : std::clamp(m_fPixelsPerFrame, whole, std::max(whole, WIDEST_FRAME));
    m_bShowsAll = m_fPixelsPerFrame <= whole;
    m_fFirst = std::clamp(m_fFirst, 0.0, std::max(0.0, m_nFrames - m_nPixels / m_fPixelsPerFrame));
}

void CStripScale::zoom(double factor, double pixel) {
    const double there = positionAt(pixel);
    m_bShowsAll = false;
    m_fPixelsPerFrame *= factor;
    hold();
    m_fFirst = there - pixel / m_fPixelsPerFrame;
    hold();
}

void CStripScale::scroll(double pixels) {
    m_fFirst += pixels / m_fPixelsPerFrame;
    hold();
}

void CStripScale::reveal(double position) {
    const double shown = m_nPixels / m_fPixelsPerFrame;
    if (position < m_fFirst) {
        m_fFirst = position;
    } else if (position > m_fFirst + shown) {
        m_fFirst = position - shown / 2.0; // not at each frame anew while it plays
    }
    hold();
}

int CStripScale::frameAt(double pixel) const {
    return static_cast<int>(std::clamp(std::floor(positionAt(pixel)), 0.0, m_nFrames - 1.0));
}
