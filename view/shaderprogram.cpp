#include "view/shaderprogram.h"

#include "frame/messagesink.h"

CShaderProgram::CShaderProgram(const QString& sVertex, const QString& sGeometry, const QString& sFragment)
    : m_sVertex(sVertex), m_sGeometry(sGeometry), m_sFragment(sFragment)
{}

bool CShaderProgram::AddStage(QOpenGLShader::ShaderTypeBit eType, const QString& sResource)
{
    return sResource.isEmpty() || addShaderFromSourceFile(eType, sResource);
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
