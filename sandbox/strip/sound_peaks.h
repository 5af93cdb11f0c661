#pragma once

#include <QString>
#include <cstdint>
#include <span>
#include <vector>

/// The lowest and the highest sample of a stretch of sound.
struct PeakRange {
    std::int16_t low = 0;
    std::int16_t high = 0;
};

/// A sound as it is drawn at any zoom: the peaks of short stretches, and of ever longer ones above them, so
/// that a column of a picture costs the same however much sound it stands for.
class CSoundPeaks {
public:
    /// The peaks of a WAV file. One that cannot be read has a failure and no channels.
    static CSoundPeaks read(const QString& path);
    /// Stands for a sound of which there is nothing to draw, with the reason as a person reads it.
    static CSoundPeaks unreadable(const QString& reason);

    const QString& failure() const { return m_strFailure; }
    int channels() const { return static_cast<int>(m_channels.size()); }
    double seconds() const { return m_fSeconds; }
    /// The peaks from one time to another, in seconds from the start of the sound; silence outside it.
    PeakRange range(int channel, double from, double to) const;

private:
    using Level = std::vector<PeakRange>;

    void append(std::span<const std::int16_t> interleaved);
    void addLevels();

    QString m_strFailure;
    double m_fSeconds = 0.0;
    double m_fRate = 1.0;                       // samples a second
    std::vector<std::vector<Level>> m_channels; // of each channel its levels, the finest first
};
