#pragma once

#include "frame/packs/unknownmembers.h"
#include "scene/idrawable.h"

#include <QObject>

#include <memory>

class CGLTree;

/**
 * What all drawables have in common: their identity, the two stored forms of their display state, their
 * legend and their bounds. Derived classes build geometry and draw it.
 */
class CDrawable : public QObject, public IDrawable
{
    Q_OBJECT

public:
    /** Enters itself into CDrawableManager. */
    CDrawable(qint64 nSimulationId, qint64 nViewId, qint64 nBlockId, int nShaderKey);
    ~CDrawable() override;

    void deleteLater() override { QObject::deleteLater(); }
    void deleteDisplayLists() override {}
    bool alwaysRebuild() const override { return false; }

    // Stored state (drawable_store.cpp). Members that this version doesn't know are kept, in both forms.
    QByteArray toBinary() const override;
    bool fromBinary(const QByteArray& bytes, double dVersion) override;
    QJsonObject toJson() const override;
    bool fromJson(const QJsonObject& display) override;

    // Identity.
    qint64 serial() const override { return m_nSerial; }
    void setItemId(qint64 nItemId) override { m_nItemId = nItemId; }
    qint64 itemId() const override { return m_nItemId; }
    void setViewId(qint64 nViewId) override;
    qint64 viewId() const override { return m_nViewId; }
    qint64 simulationId() const override { return m_nSimulationId; }
    qint64 blockId() const override { return m_nBlockId; }
    QVector<ISelectable*> ownerSelectables() const override { return m_owners; }
    void addOwner(ISelectable* pOwner) { m_owners.append(pOwner); }

    CAnnotationColormap* annotationColormap() const override { return m_pLegend.get(); }

    int shaderKey() const override { return m_nShaderKey; }
    QMatrix4x4 modelMatrix() const override { return m_modelMatrix; }
    DVector3D boundsMinimum() const override { return m_boundsMinimum; }
    DVector3D boundsMaximum() const override { return m_boundsMaximum; }
    bool isSelected(bool bRespect) const override;
    bool isHighlighted(bool bRespect) const override;

    SMeshStatistics meshStatistics() const override { return {}; }
    QString description() const override { return {}; }

protected:
    void ResetBounds();
    void AddToBounds(const DVector3D& point);

    double m_dTimeCode = -1.0; // level of the data built last
    QMatrix4x4 m_modelMatrix;
    DVector3D m_boundsMinimum;
    DVector3D m_boundsMaximum;

private:
    void TakeState(SDisplayState state);
    void WriteExtremes(QJsonObject& display) const;
    bool OwnerShows(bool (ISelectable::*is)() const, bool bRespect) const;

    const qint64 m_nSerial;
    const qint64 m_nSimulationId;
    qint64 m_nViewId;
    const qint64 m_nBlockId;
    const int m_nShaderKey;
    qint64 m_nItemId = -1;
    QVector<ISelectable*> m_owners;

    CUnknownMembers m_unknown;
    const std::unique_ptr<CAnnotationColormap> m_pLegend;
};
