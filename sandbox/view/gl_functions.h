#pragma once

#include <QOpenGLFunctions_3_3_Core>

/// The functions of the current context, which must be of OpenGL 3.3 core or later; null when it is not.
QOpenGLFunctions_3_3_Core* glFunctions();
