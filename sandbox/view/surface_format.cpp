#include "sandbox/view/surface_format.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QSurfaceFormat>

namespace {

/// True when the processor draws in place of a graphics card, as under a virtual display.
bool isDrawnInSoftware() {
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface)) {
        return true;
    }
    const auto* text = reinterpret_cast<const char*>(context.functions()->glGetString(GL_RENDERER));
    const QString renderer = QString::fromLatin1(text);
    return renderer.contains("llvmpipe") || renderer.contains("softpipe");
}

} // namespace

void askForOpenGl() {
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    format.setDepthBufferSize(24);
    QSurfaceFormat::setDefaultFormat(format);
    if (!isDrawnInSoftware()) {
        format.setSamples(4); // smooth edges are worth it where they cost nothing
        QSurfaceFormat::setDefaultFormat(format);
    }
}
