#pragma once

#include <QColor>
#include <QMatrix3x3>
#include <QMatrix4x4>
#include <QOpenGLShaderProgram>
#include <QVector2D>
#include <QVector3D>

#include <array>
#include <vector>

/**
 * The uniforms of a program with the value that each was sent last. A value is sent only if there is such a
 * uniform and it differs, so that a program can serve thousands of drawables a frame; NaN always differs.
 * Set needs the program to be bound.
 */
class CUniformCache
{
public:
    /** Reads the location of each name; indices into the list are what Set takes. Forgets all values. */
    void ReadLocations(QOpenGLShaderProgram& program, std::span<const char* const> names);

    void Set(int nUniform, float fValue);
    void Set(int nUniform, const QVector2D& value);
    void Set(int nUniform, const QVector3D& value);
    void Set(int nUniform, const QColor& color);
    void Set(int nUniform, const QMatrix3x3& matrix);
    void Set(int nUniform, const QMatrix4x4& matrix);
    /** A texture unit. */
    void SetUnit(int nUniform, int nTextureUnit);

private:
    static constexpr float NEVER_SENT = 999999.0F;

    struct SUniform
    {
        int nLocation = -1;
        std::array<float, 16> sent = {};
    };

    /** Keeps the numbers; false if they were sent already or there is no such uniform. */
    bool Change(int nUniform, const float* pNumbers, int nCount);

    QOpenGLShaderProgram* m_pProgram = nullptr;
    std::vector<SUniform> m_uniforms;
};
