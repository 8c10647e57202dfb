#include "view/mesh/surfacelists.h"

#include "frame/preferences/preferences.h"
#include "view/gl/abandonednames.h"
#include "view/gl/surfaceshaderprogram.h"

#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>

namespace {

QOpenGLExtraFunctions& Gl() { return *QOpenGLContext::currentContext()->extraFunctions(); }

} // namespace

CSurfaceLists::~CSurfaceLists() { ForgetAll(); }

bool CSurfaceLists::AreUsed()
{
    if (!CPreferences::Instance().Draw().bUseDisplayLists)
        return false;
    const QOpenGLContext* const pContext = QOpenGLContext::currentContext();
    return !pContext->isOpenGLES() && pContext->format().profile() != QSurfaceFormat::CoreProfile &&
           (pContext->format().version() < qMakePair(3, 1) ||
            pContext->format().testOption(QSurfaceFormat::DeprecatedFunctions));
}

template <class Draw>
void CSurfaceLists::CompileWith(SurfacePart_e ePart, std::span<const SVertexAttribute> attributes,
                                const Draw& draw)
{
    Forget(ePart);
    AbandonedNames::Watch();
    m_pGroup = QOpenGLContextGroup::currentContextGroup();
    m_names[ePart] = glGenLists(1);
    Gl().glBindVertexArray(0);
    Gl().glBindBuffer(GL_ARRAY_BUFFER, 0);
    Gl().glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, 0);
    for (const SVertexAttribute& attribute : attributes) {
        Gl().glVertexAttribPointer(GLuint(attribute.nAttribute), attribute.nComponents, GL_FLOAT, GL_FALSE, 0,
                                   attribute.pData);
        Gl().glEnableVertexAttribArray(GLuint(attribute.nAttribute));
    }
    glNewList(m_names[ePart], GL_COMPILE);
    draw();
    glEndList();
    for (const SVertexAttribute& attribute : attributes)
        Gl().glDisableVertexAttribArray(GLuint(attribute.nAttribute));
}

void CSurfaceLists::Compile(SurfacePart_e ePart, std::span<const SVertexAttribute> attributes, GLenum eMode,
                            const QVector<quint32>& indices)
{
    CompileWith(ePart, attributes, [&] {
        if (!indices.isEmpty())
            glDrawElements(eMode, indices.size(), GL_UNSIGNED_INT, indices.constData());
    });
}

void CSurfaceLists::Compile(SurfacePart_e ePart, std::span<const SVertexAttribute> attributes, GLenum eMode,
                            int nCount)
{
    CompileWith(ePart, attributes, [&] { glDrawArrays(eMode, 0, nCount); });
}

void CSurfaceLists::Call(SurfacePart_e ePart) const
{
    if (!Has(ePart))
        return;
    glCallList(m_names[ePart]);
    // A list leaves the attributes of its last vertex behind, for all that is drawn without an array of them.
    for (int nAttribute = AttributeNormal; nAttribute < ATTRIBUTE_COUNT; ++nAttribute)
        Gl().glVertexAttrib4f(GLuint(nAttribute), 0.0F, 0.0F, 0.0F, 1.0F);
}

void CSurfaceLists::Forget(SurfacePart_e ePart)
{
    if (const GLuint nName = std::exchange(m_names[ePart], 0))
        AbandonedNames::LeaveLists(m_pGroup, {nName});
}

void CSurfaceLists::ForgetAll()
{
    for (int n = 0; n < SURFACE_PART_COUNT; ++n)
        Forget(SurfacePart_e(n));
}
