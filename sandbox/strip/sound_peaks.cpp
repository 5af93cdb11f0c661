#include "sandbox/strip/sound_peaks.h"

#include <QFile>
#include <QObject>
#include <algorithm>
#include <cmath>
#include <memory>
#include <sndfile.h>

namespace {

constexpr std::size_t FINEST = 64;      // samples in a stretch of the finest level
constexpr std::size_t MERGED = 4;       // stretches that become one of the next level
constexpr std::size_t STRETCHES = 1024; // read at a time

PeakRange joined(PeakRange one, PeakRange other) {
    return {std::min(one.low, other.low), std::max(one.high, other.high)};
}

PeakRange joined(std::span<const PeakRange> ranges) {
    PeakRange all = ranges.front();
    for (const PeakRange range : ranges.subspan(1)) {
        all = joined(all, range);
    }
    return all;
}

} // namespace

CSoundPeaks CSoundPeaks::unreadable(const QString& reason) {
    CSoundPeaks peaks;
    peaks.m_strFailure = reason;
    return peaks;
}

CSoundPeaks CSoundPeaks::read(const QString& path) {
    SF_INFO info{};
    const std::unique_ptr<SNDFILE, int (*)(SNDFILE*)> file(
        sf_open(QFile::encodeName(path).constData(), SFM_READ, &info), sf_close);
    if (file == nullptr) {
        return unreadable(QString::fromUtf8(sf_strerror(nullptr)));
    }
    const int container = info.format & SF_FORMAT_TYPEMASK;
    if (container != SF_FORMAT_WAV && container != SF_FORMAT_WAVEX) {
        return unreadable(QObject::tr("It is not a WAV file."));
    }
    CSoundPeaks peaks;
    const auto channels = static_cast<std::size_t>(info.channels);
    peaks.m_fRate = info.samplerate;
    peaks.m_channels.assign(channels, std::vector<Level>(1));
    std::vector<std::int16_t> samples(FINEST * STRETCHES * channels);
    sf_count_t all = 0;
    while (const sf_count_t count = sf_readf_short(file.get(), samples.data(), FINEST * STRETCHES)) {
        peaks.append(std::span(samples).first(static_cast<std::size_t>(count) * channels));
        all += count;
    }
    if (all == 0) {
        return unreadable(QObject::tr("There is no sound in it."));
    }
    peaks.m_fSeconds = static_cast<double>(all) / peaks.m_fRate;
    peaks.addLevels();
    return peaks;
}

void CSoundPeaks::append(std::span<const std::int16_t> interleaved) {
    const std::size_t channels = m_channels.size();
    for (std::size_t channel = 0; channel < channels; ++channel) {
        for (std::size_t first = channel; first < interleaved.size(); first += FINEST * channels) {
            const std::size_t end = std::min(first + FINEST * channels, interleaved.size());
            PeakRange peak{interleaved[first], interleaved[first]};
            for (std::size_t at = first; at < end; at += channels) {
                peak = joined(peak, {interleaved[at], interleaved[at]});
            }
            m_channels[channel].front().push_back(peak);
        }
    }
}

void CSoundPeaks::addLevels() {
    for (std::vector<Level>& levels : m_channels) {
        while (levels.back().size() > 1) {
            const std::span<const PeakRange> finer(levels.back());
            Level coarser;
            for (std::size_t first = 0; first < finer.size(); first += MERGED) {
                coarser.push_back(joined(finer.subspan(first, std::min(MERGED, finer.size() - first))));
            }
            levels.push_back(std::move(coarser));
        }
    }
}

PeakRange CSoundPeaks::range(int channel, double from, double to) const {
    if (to <= 0.0 || from >= m_fSeconds) {
        return {};
    }
    const std::vector<Level>& levels = m_channels[static_cast<std::size_t>(channel)];
    double length = static_cast<double>(FINEST) / m_fRate; // seconds of a stretch
    std::size_t level = 0;
    while (level + 1 < levels.size() && length * MERGED <= to - from) {
        ++level;
        length *= MERGED;
    }
    const std::span<const PeakRange> stretches(levels[level]);
    const auto stretchAt = [&](double seconds) {
        return std::min(static_cast<std::size_t>(std::max(seconds, 0.0) / length), stretches.size() - 1);
    };
    const std::size_t first = stretchAt(from);
    return joined(stretches.subspan(first, std::max(stretchAt(to), first + 1) - first));
}
