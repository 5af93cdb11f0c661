#pragma once

#include <QOpenGLBuffer>
#include <QOpenGLShaderProgram>
#include <QOpenGLVertexArrayObject>
#include <cstddef>
#include <initializer_list>
#include <memory>

/// Build the program `name` from the resources name.vert and name.frag, each behind the common part
/// scene.glsl. Needs a current context; ends the application with the compiler's log when a shader of ours
/// does not compile, because nothing could be drawn.
std::unique_ptr<QOpenGLShaderProgram> makeProgram(const char* name);

/// An attribute of floats within a vertex.
struct FloatAttribute {
    std::size_t offset; ///< bytes from the vertex's beginning
    int count;          ///< of floats
};

/// Make `arrays` and `buffer`, for vertices that are written anew for each picture; attribute i of the
/// program is the i-th of `attributes`. `vertexSize` in bytes.
void makeVertexArrays(QOpenGLShaderProgram& program, QOpenGLVertexArrayObject& arrays, QOpenGLBuffer& buffer,
                      std::initializer_list<FloatAttribute> attributes, std::size_t vertexSize);
