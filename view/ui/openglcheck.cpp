#include "view/ui/openglcheck.h"

#include "frame/userprompt.h"
#include "view/gl/shadermanager.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <cstdio>
#include <cstdlib>

namespace {

QString Ask(GLenum eName)
{
    const auto* const pText = QOpenGLContext::currentContext()->functions()->glGetString(eName);
    return QString::fromLatin1(reinterpret_cast<const char*>(pText));
}

[[noreturn]] void End(const QString& sMessage, const QString& sLine)
{
    UserPrompt::Tell(PromptCritical, "Error!", sMessage);
    std::fputs(qPrintable(sLine), stdout);
    const QString sSystem =
        QString("System Info:\nOpenGL Vendor: %1\nOpenGL Renderer: %2\nOpenGL Version: %3\n"
                "OpenGL Shader Version: %4\nExtensions: %5")
            .arg(Ask(GL_VENDOR), Ask(GL_RENDERER), Ask(GL_VERSION), Ask(GL_SHADING_LANGUAGE_VERSION),
                 Ask(GL_EXTENSIONS));
    std::fputs(qPrintable(sSystem), stdout);
    std::fflush(stdout);
    std::_Exit(0); // no destructor may touch a context that can't draw
}

} // namespace

void RequireOpenGL()
{
    const QString sVersion = Ask(GL_VERSION);
    if (sVersion.isEmpty())
        End("Invalid OpenGL Version", QString("Invalid OpenGL Version %1\n").arg(sVersion));
    const QString sShaderVersion = Ask(GL_SHADING_LANGUAGE_VERSION);
    if (sShaderVersion.isEmpty())
        End("Invalid OpenGL Shader Version", QString("Invalid GLSL Version: %1\n").arg(sShaderVersion));
    if (!CShaderManager::Instance().LinkAll())
        End("Failed to link shaders", "Failed to link shaders\n");
}
