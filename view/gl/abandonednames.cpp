#include "view/gl/abandonednames.h"

#include <QHash>
#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>

namespace {

using Names = QVector<GLuint>;

// Only contexts and groups that are alive stand here.
QHash<QOpenGLContext*, Names>& VertexArrays()
{
    static QHash<QOpenGLContext*, Names> s_names;
    return s_names;
}

QHash<QOpenGLContextGroup*, Names>& Buffers()
{
    static QHash<QOpenGLContextGroup*, Names> s_names;
    return s_names;
}

QHash<QOpenGLContextGroup*, Names>& Lists()
{
    static QHash<QOpenGLContextGroup*, Names> s_names;
    return s_names;
}

} // namespace

void AbandonedNames::Watch()
{
    QOpenGLContext* const pContext = QOpenGLContext::currentContext();
    if (!pContext || VertexArrays().contains(pContext))
        return;
    VertexArrays().insert(pContext, {});
    Buffers()[pContext->shareGroup()]; // stands from now on
    Lists()[pContext->shareGroup()];
    QObject::connect(pContext, &QOpenGLContext::aboutToBeDestroyed,
                     [pContext] { VertexArrays().remove(pContext); });
    QObject::connect(pContext->shareGroup(), &QObject::destroyed, [pGroup = pContext->shareGroup()] {
        Buffers().remove(pGroup);
        Lists().remove(pGroup);
    });
}

void AbandonedNames::LeaveBuffers(QOpenGLContextGroup* pGroup, const QVector<GLuint>& buffers)
{
    if (const auto waiting = Buffers().find(pGroup); waiting != Buffers().end())
        *waiting += buffers;
}

void AbandonedNames::LeaveLists(QOpenGLContextGroup* pGroup, const QVector<GLuint>& lists)
{
    if (const auto waiting = Lists().find(pGroup); waiting != Lists().end())
        *waiting += lists;
}

void AbandonedNames::LeaveVertexArray(QOpenGLContext* pContext, GLuint nVertexArray)
{
    if (const auto waiting = VertexArrays().find(pContext); waiting != VertexArrays().end())
        waiting->append(nVertexArray);
}

void AbandonedNames::Delete()
{
    QOpenGLContext* const pContext = QOpenGLContext::currentContext();
    if (!pContext || !VertexArrays().contains(pContext))
        return;
    const Names arrays = std::exchange(VertexArrays()[pContext], {});
    const Names buffers = std::exchange(Buffers()[pContext->shareGroup()], {});
    for (const GLuint nList : std::exchange(Lists()[pContext->shareGroup()], {}))
        glDeleteLists(nList, 1);
    QOpenGLExtraFunctions* const pGl = pContext->extraFunctions();
    if (!arrays.isEmpty())
        pGl->glDeleteVertexArrays(arrays.size(), arrays.constData());
    if (!buffers.isEmpty())
        pGl->glDeleteBuffers(buffers.size(), buffers.constData());
}
