#include "sandbox/view/gl_functions.h"

#include <QOpenGLContext>
#include <QOpenGLVersionFunctionsFactory>

QOpenGLFunctions_3_3_Core* glFunctions() {
    return QOpenGLVersionFunctionsFactory::get<QOpenGLFunctions_3_3_Core>(QOpenGLContext::currentContext());
}
