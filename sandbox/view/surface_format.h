#pragma once

/// Asks for the OpenGL that the views need, as the format of every surface to come. Wants the application
/// object, and no window made yet.
void askForOpenGl();
