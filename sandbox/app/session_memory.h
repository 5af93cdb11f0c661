#pragma once

#include "sandbox/core/view_camera.h"

#include <QString>

#include <optional>

class QWidget;

/// What the program keeps from session to session beside the files: the window's size and place, the folder
/// of the last file, what the hand held, and from where each map was seen last. In the settings of the user.
namespace sessionmemory {

void keepWindow(const QWidget& window);
/// False when none was kept, and nothing is done.
bool restoreWindow(QWidget& window);

/// The folder of the file that was opened or saved last; the user's own before the first.
QString folder();
void keepFolder(const QString& path);

/// Where a map of this path was seen from; the last twenty maps are kept.
struct Sight {
    CViewCamera::Vector eye{};
    CViewCamera::Vector target{};
};
void keepSight(const QString& path, const Sight& sight);
std::optional<Sight> sightOf(const QString& path);

/// The tool, the brush and the strength on the panel of the map editor: read them off, and set them.
struct Hand {
    int tool = 0; ///< the numbers of their buttons
    int brush = 0;
    int strength = 0;
    friend bool operator==(const Hand&, const Hand&) = default;
};
Hand handOnPanel();
void putOnPanel(const Hand& hand);
void keepHand(const Hand& hand);
/// At first one whose first drag shows.
Hand lastHand();

} // namespace sessionmemory
