#pragma once

#include <memory>
#include <string>
#include <unordered_map>

class CSound;
class qxCMovie;

/// One file of a soundtrack.
struct SoundtrackSound {
    std::string name;        ///< as first asked for
    CSound* sound = nullptr; ///< the sound manager's; null without a device and for a file it cannot open
    float length = 0.0F;     ///< seconds, 0 when it cannot be measured
};

/// The files of a movie's soundtrack, each loaded and measured once while this lives, however many entries
/// name it. Names that differ in letter case only are one. Belongs to a panel; after the sound manager was
/// released only its end may follow.
class CSoundtrack {
public:
    /// The record of that file, made on first use. Valid as long as this.
    SoundtrackSound& findSoundtrackSound(const char* name);
    /// Give every entry of the movie its start and length, in seconds: each begins on the first whole step
    /// after the end of the one before. A step rate that makes no steps lets them follow without a pause. A
    /// sound device that was lost, or not there yet, is looked for again.
    void layOutSoundtrack(qxCMovie& movie);
    /// An entry is due: play its sound once, from its beginning, at full volume. Silent for a name that no
    /// layout has met, and for a file without sound.
    void playSoundCue(const char* name) const;

private:
    void renewDevice();

    std::unordered_map<std::string, std::unique_ptr<SoundtrackSound>> m_soundCache; ///< by folded name
};

/// Where the laid-out soundtrack ends, in seconds; 0 for an empty one.
float soundtrackEnd(qxCMovie& movie);
/// Whether the soundtrack goes on after the movie's last frame.
bool outlastsMovie(qxCMovie& movie);
/// Append frames of the engine's making until the movie is as long as its soundtrack, make the last one a
/// keyframe and tween. Ends where the engine takes no more frames or the step rate gives them no length.
/// Nothing is recorded for undo.
void extendToSoundtrack(qxCMovie& movie);
