#include "data/grids/savegridtask.h"

#include "data/io/plot3dwrite.h"

namespace {

/** The task's grids, one at a time in memory. */
class CGridSource : public IGridSource
{
public:
    explicit CGridSource(const std::vector<CSaveGridTask::SPart>& parts) : m_parts(parts) {}

    qint64 GetBlockCount() const override { return qint64(m_parts.size()); }
    SBlockPart GetPart(qint64 nBlock) const override
    {
        const CSaveGridTask::SPart& part = m_parts[nBlock];
        const SBlockShape shape = part.pGrid->GetShape();
        if (part.bounds.IsEmpty())
            return SBlockPart::Whole(shape.dimensions);
        return {shape.dimensions, part.bounds.min - shape.start, part.bounds.Extent()};
    }
    SBlockCoordinates Acquire(qint64 nBlock) override
    {
        IGrid& grid = *m_parts[nBlock].pGrid;
        const size_t nCount = grid.GetPointCount();
        SBlockCoordinates coordinates;
        for (int nAxis = 0; nAxis < 3; ++nAxis) {
            if (grid.IsDoublePrecision()) {
                if (const double* const pValues = grid.GetCoordinatesDouble(nAxis))
                    coordinates.doubles[nAxis] = {pValues, nCount};
            } else if (const float* const pValues = grid.GetCoordinatesSingle(nAxis)) {
                coordinates.singles[nAxis] = {pValues, nCount};
            }
        }
        return coordinates;
    }
    void Release(qint64 nBlock) override { m_parts[nBlock].pGrid->ReleaseCoordinateCopies(); }

private:
    const std::vector<CSaveGridTask::SPart>& m_parts;
};

} // namespace

CSaveGridTask::CSaveGridTask(CTaskCreator* pCreator, const QString& sFileName, quint32 nFormatCode,
                             std::vector<SPart> parts)
    : CTask(pCreator), m_sFileName(sFileName), m_nFormatCode(nFormatCode), m_parts(std::move(parts))
{}

void CSaveGridTask::ShowProgressDialog()
{
    CTask::ShowProgressDialog();
    SetProgressText("Saving grids");
}

TaskStatus_e CSaveGridTask::Work()
{
    CGridSource source(m_parts);
    const SSaveResult result = WritePlot3DGrid(m_sFileName, int(m_nFormatCode), source, this);
    m_sError = result.sMessage;
    switch (result.eStatus) {
    case SaveOk:
        return TaskOk;
    case SaveCancelled:
        return TaskAborted;
    case SaveFailed:
        break;
    }
    return TaskFailed;
}
