#pragma once

#include "platform/cstring.h"
#include "platform/window_handle.h"

/// The fourteen functions that a host calls. Every one must be called on the thread that owns the host
/// window. None reports failure: a call that does not apply does nothing.

class qxCCamera;
class qxCMap;
class qxCMovie;

#define VU_API __attribute__((visibility("default")))

/// Kinds of host notification; the toolkit defines no values and sends none.
enum vuMessage : int {};

using vuMessageCallback = void (*)(vuMessage message, void* data);
using vuIntCallback = int (*)(int, int, int);

/// Open the map editor on `map`, which the host owns and keeps alive until the editor is closed. Ignored
/// when an editor is open or `map` is null. `host` becomes the panel's parent; `textureDir` is where the
/// texture import dialog opens; `fullEditing` allows the terrain tools and the panel's own Close button.
/// The callbacks are stored and never called.
VU_API void vuCreateEditor(HWND host, qxCMap* map, CString textureDir, vuMessageCallback onMessage,
                           bool fullEditing, vuIntCallback intCallback);
/// Close the map editor. Its tool settings are not remembered on this path; the undo history is.
VU_API void vuDestroyEditor();

/// Begin a brush stroke at grid cell (x, z). `edge`, 0 to 5, names the cell's nearest side or diagonal;
/// `corner`, 0 to 3, its nearest corner.
VU_API void vuStartEditing(int x, int z, int edge, int corner);
/// Continue the stroke at (x, z). `amount` is the signed drag amount since its start: a negative one raises.
VU_API void vuUpdateEditing(int x, int z, int ignored1, int ignored2, int ignored3, int amount);
/// End the stroke.
VU_API void vuStopEditing();
/// Draw the edit cursor for a pointer that hovers over cell (x, z).
VU_API void vuUpdateCursor(int x, int z, int edge, int corner);

VU_API bool vuIsEditorActive();
VU_API bool vuIsEditingInProgress();
/// Forget the remembered tool settings and the undo history. To be called before a map that was edited is
/// freed: they are matched to a map by its address alone. A panel that is still open may be closed by its own
/// Close afterwards, which remembers its settings for that address again: close the editor first.
VU_API void vuDestroySettings();

/// Open the movie editor on `movie`, which the host owns and keeps alive until the editor is closed. Ignored
/// when one is open; the sound device starts even when `movie` is null, which opens nothing. `host` becomes
/// the panel's parent; `showClose` shows the panel's own Close button.
VU_API void vuCreateMovieEditor(HWND host, qxCMovie* movie, bool showClose);
/// Close the movie editor and the sound device. What it plays is stopped first.
VU_API void vuDestroyMovieEditor();
VU_API bool vuIsMovieEditorActive();
/// The user has moved a camera of the movie, which goes into the movie's current frame; `finished`, with any
/// camera, when the move has ended.
VU_API void vuMovieCameraAltered(qxCCamera* camera, bool finished);
/// One pass of the sound service; to be called once a frame while an editor is open. In a host whose message
/// loop does not reach the panels, because it made no application object of their toolkit, they get their
/// events and paint in this call; it then lasts as long as a modal dialog that the user opens in a panel.
VU_API void vuSoundUpdate();
