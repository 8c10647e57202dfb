#pragma once

#include <QOpenGLShaderProgram>

/**
 * A linked program made of resources under ":/shaders/". Built by Link, once a context is current; nothing
 * may be set before.
 */
class CShaderProgram : public QOpenGLShaderProgram
{
    Q_OBJECT

public:
    /** An empty name means that there is no such stage. */
    CShaderProgram(const QString& sVertex, const QString& sGeometry, const QString& sFragment);
    /** A variant: the name is defined in all stages. @param sDefine  empty: none */
    void SetDefine(const QByteArray& sDefine) { m_sDefine = sDefine; }

    /** Compiles and links; true if it is linked already. The message sink says what is wrong. */
    bool Link();

protected:
    /** Fixes the locations of the attributes; before linking. */
    virtual void BindAttributes() = 0;
    /** The program is linked and bound. */
    virtual void ReadUniformLocations() = 0;

private:
    bool AddStage(QOpenGLShader::ShaderTypeBit eType, const QString& sResource);

    const QString m_sVertex;
    const QString m_sGeometry;
    const QString m_sFragment;
    QByteArray m_sDefine;
};
