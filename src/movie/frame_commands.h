#pragma once

class CMovieUndoStore;
class qxCMovie;

/// The commands that change the structure of a movie. They act on its selection range and end with the
/// tweening; what shows the movie is the caller's. What an engine refuses is not recorded.

/// Insert a frame of the engine's making in front of the current frame.
void insertFrame(qxCMovie& movie, CMovieUndoStore& store);
/// Remove the selected frames; the range shrinks to its start.
void deleteFrames(qxCMovie& movie, CMovieUndoStore& store);
/// Copy to the movie's clipboard; the range shrinks to its start. Neither this nor cut and paste is recorded.
void copyFrames(qxCMovie& movie);
void cutFrames(qxCMovie& movie);
/// Insert the clipboard's frames in front of the current frame; the range shrinks to its start.
void pasteFrames(qxCMovie& movie);
/// Append a copy of the last frame and make it the current one. Does nothing in a movie without frames.
void addKeyframe(qxCMovie& movie, CMovieUndoStore& store);

enum class KeyframeMark { SET, CLEARED };
/// Mark the selected frames as keyframes, or not. Not recorded.
void markKeyframes(qxCMovie& movie, KeyframeMark mark);

/// Take the newest record back: a changed frame gets all its former values again, an inserted one goes, a
/// deleted one comes back. The range is left to the engine. With an empty history only the tweening is done.
void undoFrameCommand(qxCMovie& movie, CMovieUndoStore& store);
