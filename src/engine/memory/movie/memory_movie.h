#pragma once

#include "engine/memory/movie/memory_camera.h"
#include "engine/memory/movie/movie_pose.h"
#include "engine/memory/movie/tweening.h"
#include "engine/qx_movie.h"

#include <functional>
#include <optional>
#include <set>

/// A part of a movie, in frames, both ends included.
struct MovieSection {
    int first = 0;
    int last = 0;

    friend bool operator==(const MovieSection&, const MovieSection&) = default;
};

/// A movie in memory. It holds at least one frame: a removal that would take the last one leaves the frame at
/// the range start. The range is held to the frames; one end set beyond the other takes it along. The host
/// calls advance() once a frame of its own; playing, the movie poses its cameras and raises both callbacks
/// from there.
class QX_API CMemoryMovie final : public qxCMovie, private qxCMovieFrameWatcher {
public:
    static constexpr float DEFAULT_STEP_RATE = 25.0F;

    /// At least one frame, the first and the last of them keyframes. A step rate that is not positive becomes
    /// the default. `scene` may be null, and otherwise outlives the movie.
    explicit CMemoryMovie(qxCScene* scene, int frames = 1, float stepRate = DEFAULT_STEP_RATE);
    ~CMemoryMovie() override;
    CMemoryMovie(const CMemoryMovie&) = delete;
    CMemoryMovie& operator=(const CMemoryMovie&) = delete;

    /// Append a camera, which belongs to the movie as long as that lives.
    CMemoryCamera& addCamera(const char* cameraName);
    /// Destroys the camera that was appended last, which no scene may have selected. Nothing without one.
    void removeLastCamera();
    /// Frames a second; what is not positive and finite is ignored.
    void setStepRate(float framesPerSecond);
    /// Counts every change of a frame, the frames' order, the soundtrack or the step rate.
    unsigned getRevision() const { return m_nRevision; }

    /// Pose at a time in seconds, held to the movie, also between frames. At convertFrameToTime(f) it is to
    /// the bit what updateTweening() leaves in frame f, the rotation turned to the target where there is one.
    MoviePose poseAt(double seconds) const;
    /// The pose that the cameras were last given.
    const MoviePose& getPose() const { return m_pose; }

    /// Go on by `seconds` of the host's time. Does nothing unless it plays. Sound cues and triggers that
    /// became due come once each, in their order; of several frames reached only the last is reported. Any
    /// callback may stop the movie, play it again, or destroy it.
    void advance(double seconds);
    bool isPlaying() const;
    /// Seconds from the start of the movie, while it plays.
    double getPlayTime() const { return m_playhead.time; }
    /// Play this part only; its ends are held to the frames and put in order when it plays. No value: the
    /// whole movie.
    void setSection(std::optional<MovieSection> section) { m_section = section; }
    const std::optional<MovieSection>& getSection() const { return m_section; }
    /// Called with the animation's name when playback reaches a frame with a trigger that has not fired.
    void setTriggerHandler(std::function<void(const char*)> handler);

    // Of qxCNode; the child nodes are the cameras.
    qxCScene* getScene() const override;
    int getNumChildNodes() const override;
    qxCNode* getChildNode(int index) const override;

    // Of qxCMovie.
    int getNumFrames() const override;
    qxCMovieFrame* getFrame(int index) override;
    int getRangeStart() const override;
    int getRangeEnd() const override;
    void setRangeStart(int frame) override;
    void setRangeEnd(int frame) override;
    void setRangeSingleFrame(int frame) override;
    bool isRangeSingleFrame() const override;
    bool isInRange(int frame) const override;
    /// At or before the range start the range moves along, inside it its end does. A frame that the movie
    /// makes is its pose at that place, no keyframe and without trigger.
    void insertFrame(int index, qxCMovieFrame* frame) override;
    void deleteFrame(int index) override;
    /// The frame after the range, or the last one, becomes the current one.
    void deleteRange() override;
    /// Overwrites the frame at `to`.
    void duplicateFrame(int from, int to) override;
    void swapFrames(int one, int other) override;
    void copy() override;
    void cut() override;
    /// The pasted frames become the range.
    void paste(int index) override;
    /// See CTweenSpan. Does only what changes since the last call made necessary.
    void updateTweening() override;
    float getStepRate() const override;
    float convertFrameToTime(int frame) const override;
    void updateManual(float seconds) override;
    /// From the current frame, or from the start when that is the last one; sounds that started before stay
    /// silent.
    void play() override;
    void resetAnimTriggers() override;
    qxCCamera* getChildCamera(int index) override;
    /// Of length 1. Where no node bears the target's name, or it stands at `point`, the direction in which
    /// the frame's camera looks.
    qxCVector3d getTargetDirection(qxCMovieFrame* frame, const qxCVector3d& point) override;
    int getSoundtrackSize() const override;
    qxCMovieSound* getSound(int index) override;
    int getSoundAtFrame(int frame) const override;
    void clearSoundtrack() override;
    void addSound(const char* fileName) override;

private:
    struct Playhead {
        double time = 0.0;       // seconds from the start of the movie
        double carried = 0.0;    // what was left of a host frame when the movie ended
        double cuesRaised = 0.0; // sounds that start up to here have been raised
        bool fresh = false;      // those that start right there have not
        int frameReported = -1;
        int nextTrigger = 0;   // first frame whose trigger has not been looked at
        unsigned playings = 0; // tells one play() from the next
    };

    void frameChanged(int place, bool keyframe) override;
    bool hasFrame(int index) const;
    int lastFrame() const { return getNumFrames() - 1; }
    void eraseFrames(int first, int last);
    void frameOrderChanged();
    const std::vector<int>& keyframes() const;
    void tweenChanged();
    std::optional<qxCVector3d> directionToTarget(const qxCMovieFrame& frame, const qxCVector3d& point) const;
    void aim(MoviePose& pose, const qxCMovieFrame& frame) const;
    double positionAt(double seconds) const;
    void applyPose(double seconds);
    MovieSection playedSection() const;
    void runPlayhead(const std::weak_ptr<int>& alive);
    bool stillPlaying(unsigned playing) const;
    const qxCMovieSound* nextCue(double upTo, int& lastIndex, double& lastStart) const;
    bool raiseCues(double upTo, const std::weak_ptr<int>& alive);
    bool fireTriggers(int upTo, const std::weak_ptr<int>& alive);
    void reachEnd(double end, const std::weak_ptr<int>& alive);

    qxCScene* m_pScene;
    float m_fStepRate;
    MovieFrames m_frames;
    std::vector<qxCMovieFrame> m_clipboard;
    std::vector<std::unique_ptr<CMemoryCamera>> m_cameras;
    std::vector<std::unique_ptr<qxCMovieSound>> m_sounds;
    int m_nRangeStart = 0;
    int m_nRangeEnd = 0;
    unsigned m_nRevision = 0;

    mutable std::vector<int> m_keyframes; // ascending indices, found anew when they are asked for
    mutable bool m_bKeyframesKnown = false;
    bool m_bPlacesStale = true;     // the frames do not know where they stand
    bool m_bAllStale = true;        // every frame is to be tweened anew
    std::vector<int> m_stalePlaces; // otherwise the frames that were given another value

    MoviePose m_pose;
    Playhead m_playhead;
    std::optional<MovieSection> m_section;
    std::function<void(const char*)> m_triggerHandler;
    std::set<const qxCMovieFrame*> m_fired;
    std::shared_ptr<int> m_alive = std::make_shared<int>(0); // gone with the movie, for calls that outlive it
};
