#pragma once

#include "data/grids/igrid.h"
#include "frame/tasks/task.h"

#include <vector>

/**
 * Writes grids as a three-dimensional multi-block Plot3D file in the background (see WritePlot3DGrid: a
 * former file stays if it fails or is cancelled). The grids are the task's until its end.
 */
class CSaveGridTask : public CTask
{
    Q_OBJECT

public:
    /** What of a grid is written; without bounds all of it. */
    struct SPart
    {
        CLease<IGrid> pGrid;
        SIJKRange bounds; ///< one-based; empty: the whole grid
    };

    /** @param nFormatCode  decides precision and Fortran records */
    CSaveGridTask(CTaskCreator* pCreator, const QString& sFileName, quint32 nFormatCode,
                  std::vector<SPart> parts);

    void ShowProgressDialog() override;
    void Abort() override { MarkAborted(); }
    /** Why it failed; empty if it didn't. After the end. */
    QString GetError() const { return m_sError; }

protected:
    TaskStatus_e Work() override;

private:
    const QString m_sFileName;
    const quint32 m_nFormatCode;
    std::vector<SPart> m_parts;
    QString m_sError;
};
