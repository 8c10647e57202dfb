#pragma once

#include "scene/iselectable.h"
#include "scene/pickedpoint.h"
#include "view/camera/cameraoperator.h"
#include "view/iviewer.h"

#include <QWidget>

#include <map>

class CAnalyzeItemViewer;
class COglViewer;
class QSplitter;

/**
 * The views of the main window in a tree of splitters. A leaf of the tree, a slot, is a splitter that holds
 * a three-dimensional view and an analysis view, one of them shown; an inner node has two splitters. Both
 * views of a slot have the slot's id; ids count from 1 and are never used twice.
 *
 * It knows nothing of cases: who connects the signals decides what a split or a close means.
 */
class CViewArea : public QWidget
{
    Q_OBJECT

public:
    explicit CViewArea(QWidget* pParent = nullptr);
    ~CViewArea() override;

    /** In the order in which they were made. */
    QVector<qint64> GetViewIds() const;
    qint64 GetActiveViewId() const { return m_nActiveId; }
    /** The id that the next new view gets. */
    qint64 GetNextViewId() const { return m_nNextId; }
    /** The view of a slot that is on show; null for an unknown id. */
    IViewer* GetViewer(qint64 nViewId) const;
    COglViewer* GetOglViewer(qint64 nViewId) const;
    CAnalyzeItemViewer* GetAnalyzeViewer(qint64 nViewId) const;

    /** Unknown ids are ignored. */
    void SetActive(qint64 nViewId);
    /**
     * Divides the slot in two halves, the old views first, and gives the id of the new slot beside it; -1
     * for an unknown id. The new three-dimensional view has the camera of the old one.
     */
    qint64 Split(qint64 nViewId, Qt::Orientation eOrientation);
    /** Removes the slot; its neighbour takes the place of both. False for the last one and unknown ids. */
    bool Close(qint64 nViewId);
    /** Fills the area with one view, or shows all again. */
    void SetExpanded(qint64 nViewId, bool bExpanded);
    /** The view that fills the area alone; -1 while all are shown. */
    qint64 GetExpandedId() const { return m_nExpandedId; }

    void SetHandleWidth(int nPixels);
    void RefreshAll();

signals:
    void SignalActiveViewChanged(qlonglong nViewId);
    /** A view has changed what the mouse does in it. */
    void SignalModeOut(OglMouseMode_e eMode);
    void SignalPointSelected(qint64 nViewId, const SPickedPoint& point, ISelectable* pSelectable);
    void SignalSplit(qlonglong nViewIndex, Qt::Orientation eOrientation, ViewSplit_e eSplit);
    void SignalExpand(qlonglong nViewIndex, bool bExpand);
    void SignalClose(qlonglong nViewIndex);
    void SignalPopupMenu();

public slots:
    /** Passes a change of a linked view's camera on to all other linked views. */
    void SlotCameraChange(qlonglong nViewIndex, CameraOperator_e eOperator, SCameraOperator camera);
    /** What the mouse does in all views, those that are yet to come included. */
    void SetMode(OglMouseMode_e eMode);

private:
    struct SSlot
    {
        QSplitter* pSplitter;
        COglViewer* pViewer;
        CAnalyzeItemViewer* pAnalyzeViewer;
        bool bShowsAnalyze; // which of the two is on show
    };

    QSplitter* MakeSplitter(Qt::Orientation eOrientation) const;
    qint64 AddSlot(QSplitter* pSplitter);
    const SSlot* FindSlot(qint64 nViewId) const;
    qint64 NextAfter(qint64 nViewId) const;
    void ShowExpandable();

    std::map<qint64, SSlot> m_slots; // by id
    QSplitter* m_pRoot;
    int m_nHandleWidth;
    qint64 m_nNextId = 1;
    qint64 m_nActiveId = -1;
    qint64 m_nExpandedId = -1;
    OglMouseMode_e m_eMode = MouseNormal;
};
