#include "sandbox/view/shader_program.h"

#include <QFile>

namespace {

QByteArray readShader(const QString& name) {
    QFile file(":/shaders/" + name);
    if (!file.open(QIODevice::ReadOnly)) {
        qFatal("no shader %s", qPrintable(name));
    }
    return file.readAll();
}

QByteArray source(const QString& name) {
    return "#version 330 core\n" + readShader("scene.glsl") + "#line 1\n" + readShader(name);
}

} // namespace

std::unique_ptr<QOpenGLShaderProgram> makeProgram(const char* name) {
    auto program = std::make_unique<QOpenGLShaderProgram>();
    const QString base = name;
    if (!program->addShaderFromSourceCode(QOpenGLShader::Vertex, source(base + ".vert")) ||
        !program->addShaderFromSourceCode(QOpenGLShader::Fragment, source(base + ".frag")) ||
        !program->link()) {
        qFatal("shader %s: %s", name, qPrintable(program->log()));
    }
    return program;
}

void makeVertexArrays(QOpenGLShaderProgram& program, QOpenGLVertexArrayObject& arrays, QOpenGLBuffer& buffer,
                      std::initializer_list<FloatAttribute> attributes, std::size_t vertexSize) {
    arrays.create();
    const QOpenGLVertexArrayObject::Binder bound(&arrays);
    buffer.create();
    buffer.setUsagePattern(QOpenGLBuffer::StreamDraw);
    buffer.bind();
    int number = 0;
    for (const FloatAttribute& attribute : attributes) {
        program.enableAttributeArray(number);
        program.setAttributeBuffer(number++, GL_FLOAT, static_cast<int>(attribute.offset), attribute.count,
                                   static_cast<int>(vertexSize));
    }
}
