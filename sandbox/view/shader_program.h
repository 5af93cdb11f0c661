#pragma once

#include <QOpenGLShaderProgram>
#include <memory>

/// Build the program `name` from the resources name.vert and name.frag, each behind the common part
/// scene.glsl. Needs a current context; ends the application with the compiler's log when a shader of ours
/// does not compile, because nothing could be drawn.
std::unique_ptr<QOpenGLShaderProgram> makeProgram(const char* name);
