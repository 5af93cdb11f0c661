#pragma once

#include "engine/qx_movie.h"

#include <memory>
#include <vector>

/// A movie of another maker's: it takes any range, moves none, and does as it likes where a movie may.
class CAwkwardMovie : public qxCMovie {
public:
    enum class Keeps { NOTHING, FIRST, LAST };

    bool refusesInsert = false;
    bool refusesDelete = false;
    bool hidesFrames = false;     ///< getFrame() gives null
    Keeps keeps = Keeps::NOTHING; ///< of a range that is all of the movie
    float stepRate = 25.0F;
    std::vector<std::unique_ptr<qxCMovieFrame>> frames;
    std::vector<std::unique_ptr<qxCMovieSound>> sounds;
    int first = 0;
    int last = 0;

    explicit CAwkwardMovie(int count) {
        for (int i = 0; i < count; ++i) {
            frames.push_back(std::make_unique<qxCMovieFrame>());
            frames.back()->fov = static_cast<float>(i);
        }
    }

    qxCScene* getScene() const override { return nullptr; }
    int getNumFrames() const override { return static_cast<int>(frames.size()); }
    qxCMovieFrame* getFrame(int index) override {
        const bool isThere = index >= 0 && index < getNumFrames() && !hidesFrames;
        return isThere ? frames[static_cast<std::size_t>(index)].get() : nullptr;
    }
    int getRangeStart() const override { return first; }
    int getRangeEnd() const override { return last; }
    void setRangeStart(int frame) override { first = frame; }
    void setRangeEnd(int frame) override { last = frame; }
    void setRangeSingleFrame(int frame) override { first = last = frame; }
    bool isRangeSingleFrame() const override { return first == last; }
    bool isInRange(int frame) const override { return first <= frame && frame <= last; }
    void insertFrame(int index, qxCMovieFrame* frame) override {
        std::unique_ptr<qxCMovieFrame> adopted(frame != nullptr ? frame : new qxCMovieFrame);
        if (!refusesInsert && index >= 0 && index <= getNumFrames()) {
            frames.insert(frames.begin() + index, std::move(adopted));
        }
    }
    void deleteFrame(int index) override {
        if (!refusesDelete && getFrame(index) != nullptr) {
            frames.erase(frames.begin() + index);
        }
    }
    void deleteRange() override {
        if (refusesDelete) {
            return;
        }
        const bool takesAll = first <= 0 && last >= getNumFrames() - 1;
        const int from = std::max(first, 0) + (takesAll && keeps == Keeps::FIRST ? 1 : 0);
        const int to = std::min(last, getNumFrames() - 1) - (takesAll && keeps == Keeps::LAST ? 1 : 0);
        if (from <= to) {
            frames.erase(frames.begin() + from, frames.begin() + to + 1);
        }
    }
    void duplicateFrame(int from, int to) override {
        calls += "duplicate" + std::to_string(from * 100 + to) + " ";
    }
    void swapFrames(int one, int other) override {
        calls += "swap" + std::to_string(one * 100 + other) + " ";
    }
    void copy() override { calls += "copy "; }
    void cut() override { calls += "cut "; }
    void paste(int index) override { calls += "paste" + std::to_string(index) + " "; }
    void updateTweening() override { ++tweenings; }
    float getStepRate() const override { return stepRate; }
    float convertFrameToTime(int frame) const override { return static_cast<float>(frame) / stepRate; }
    void updateManual(float) override {}
    void play() override {}
    void resetAnimTriggers() override {}
    qxCCamera* getChildCamera(int) override { return nullptr; }
    qxCVector3d getTargetDirection(qxCMovieFrame*, const qxCVector3d&) override { return {}; }
    int getSoundtrackSize() const override { return static_cast<int>(sounds.size()) + 1; } // one too many
    qxCMovieSound* getSound(int index) override {
        return index >= 0 && static_cast<std::size_t>(index) < sounds.size()
                   ? sounds[static_cast<std::size_t>(index)].get()
                   : nullptr;
    }
    int getSoundAtFrame(int frame) const override { return frame < 4 ? frame / 2 : -1; }
    void clearSoundtrack() override { sounds.clear(); }
    void addSound(const char* file) override { sounds.push_back(std::make_unique<qxCMovieSound>(file)); }

    std::string calls;
    int tweenings = 0;
};

/// What the frames are told apart by: their fields of view.
inline std::string fovs(qxCMovie& movie) {
    std::string text;
    for (int i = 0; i < movie.getNumFrames(); ++i) {
        text += std::to_string(static_cast<int>(movie.getFrame(i)->fov));
    }
    return text;
}
