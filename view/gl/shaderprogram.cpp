#include "view/gl/shaderprogram.h"

#include "frame/messagesink.h"

#include <QFile>

CShaderProgram::CShaderProgram(const QString& sVertex, const QString& sGeometry, const QString& sFragment)
    : m_sVertex(sVertex), m_sGeometry(sGeometry), m_sFragment(sFragment)
{}

bool CShaderProgram::AddStage(QOpenGLShader::ShaderTypeBit eType, const QString& sResource)
{
    if (sResource.isEmpty())
        return true;
    QFile file(sResource);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    QByteArray text = file.readAll();
    if (!m_sDefine.isEmpty()) // behind the line of the version, which must be the first
        text.insert(text.indexOf('\n') + 1, "#define " + m_sDefine + '\n');
    return addShaderFromSourceCode(eType, text);
}

bool CShaderProgram::Link()
{
    if (isLinked())
        return true;
    const bool bCompiled = AddStage(QOpenGLShader::Vertex, m_sVertex) &&
                           AddStage(QOpenGLShader::Geometry, m_sGeometry) &&
                           AddStage(QOpenGLShader::Fragment, m_sFragment);
    if (bCompiled) {
        BindAttributes();
        if (link() && bind()) {
            ReadUniformLocations();
            release();
            return true;
        }
    }
    CMessageSink::Instance().Log(QString("Shader %1, %2: %3").arg(m_sVertex, m_sFragment, log()));
    return false;
}
