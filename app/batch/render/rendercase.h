#pragma once

#include "app/batch/batch.h"
#include "app/batch/render/renderrequest.h"
#include "view/camera/camera.h"

class CBlockCase;
class ISelectable;

/** A case in one view, as a window opens it, shown as a request wants it. The view is empty
 * afterwards.
 */
class CRenderCase
{
public:
    static constexpr qint64 VIEW = 1;

    CRenderCase() = default;
    ~CRenderCase();
    CRenderCase(const CRenderCase&) = delete;
    CRenderCase& operator=(const CRenderCase&) = delete;

    /** On failure GetError tells in one line; BatchOk otherwise. */
    BatchStatus_e Open(const CBatchOptions& options, const SRenderRequest& request);
    /** After Open. */
    BatchStatus_e Show(const SRenderRequest& request);
    const QString& GetError() const { return m_sError; }
    /** The one that is stored with the case or its display. */
    const std::optional<SCamera>& GetCamera() const { return m_camera; }
    /** The names of all variables that the case offers. */
    QStringList VariableNames() const;

private:
    BatchStatus_e Fail(BatchStatus_e eStatus, const QString& sError);
    BatchStatus_e OpenData(const CBatchOptions& options);
    BatchStatus_e OpenCaseFile(const QString& sFileName);
    BatchStatus_e ReadDisplay(const QString& sFileName);
    BatchStatus_e ShowSurfaces(const QVector<SRenderRequest::SSurface>& surfaces);
    BatchStatus_e CheckSurface(const SRenderRequest::SSurface& surface);
    BatchStatus_e ShowScalar(const SRenderRequest& request);
    BatchStatus_e ShowVector(const QString& sName);
    BatchStatus_e FindVariable(const QString& sName, bool bVector, qint64& nId);
    /** What is on show and has a look of its own. */
    QVector<ISelectable*> Shown() const;

    CBlockCase* m_pSimulation = nullptr; // of the simulation manager
    std::optional<SCamera> m_camera;
    QString m_sError;
};
