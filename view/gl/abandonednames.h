#pragma once

#include <QVector>
#include <qopengl.h>

class QOpenGLContext;
class QOpenGLContextGroup;

/**
 * Names of OpenGL objects whose owner goes while no context, or the wrong one, is current. They wait until a
 * fitting context is; one that goes takes its names along. Main thread only.
 */
namespace AbandonedNames {

/** Buffers belong to all contexts of the group. */
void LeaveBuffers(QOpenGLContextGroup* pGroup, const QVector<GLuint>& buffers);
/** A vertex array belongs to the one context that made it. */
void LeaveVertexArray(QOpenGLContext* pContext, GLuint nVertexArray);

/** Display lists belong to all contexts of the group too. */
void LeaveLists(QOpenGLContextGroup* pGroup, const QVector<GLuint>& lists);

/** Frees what waits for the current context or its group. Once a frame. */
void Delete();

/** Names of the current context may be left from now on. */
void Watch();

} // namespace AbandonedNames
