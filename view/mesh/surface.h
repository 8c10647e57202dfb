#pragma once

#include "frame/memory/imemoryitem.h"
#include "view/drawables/drawable.h"
#include "view/gl/rawmodel.h"
#include "view/mesh/surfacelists.h"

#include <QElapsedTimer>

#include <array>

class CSurfaceShaderProgram;

/** What a surface takes [bytes]. */
struct SSurfaceMemory
{
    qint64 nArrays = 0;   ///< of main memory
    qint64 nPickTree = 0; ///< of main memory; 0 until something has been picked
    double dGpu = 0.0;    ///< with its share of the index lists that surfaces of one size have together
};

/**
 * A drawable of elements in rows and columns: the edges, the grid lines, the filled surface, contour lines
 * and arrows of it. Derived classes say where its elements are and what values they have, a whole surface at
 * a time. Arrays are built without OpenGL; draw uploads what has changed.
 */
class CSurface : public CDrawable
{
    Q_OBJECT

public:
    CSurface(qint64 nSimulationId, qint64 nViewId, qint64 nBlockId);
    ~CSurface() override;

    bool needsBuild() const override;
    void build() override;
    double reachOutOfBounds() const override;
    void deleteDisplayLists() override { m_lists.ForgetAll(); }
    void upload() override;
    void draw(bool bOverlay) override;
    void addBounds(DVector3D& minimum, DVector3D& maximum, const QMatrix4x4& view) const override;
    SPickedPoint minimumRecord() const override { return m_minimum; }
    SPickedPoint maximumRecord() const override { return m_maximum; }
    void pointInformation(SPickedPoint& point) const override;
    CGLTree& pickTree() override;
    bool hasPickTree() const override { return m_pPickTree != nullptr; }
    SPickedPoint pickedPoint(qint64 nElement) const override;
    int shaderKey() const override;
    SMeshStatistics meshStatistics() const override;

    SSurfaceSize size() const { return m_size; }
    /** With the context current that it is drawn in. */
    SSurfaceMemory memory();
    /** Positions of the elements that were built last [m]. */
    std::span<const DVector3D> positions() const { return m_positions; }

protected:
    bool AllowsDisplayType(DisplayType_e) const override { return true; }

    // What derived classes say. All are asked while build runs; an empty surface is a valid answer.
    /** Whether elements are cells; decided once a build, before all else. */
    virtual bool ElementsAreCells() const = 0;
    virtual SSurfaceSize ReadSize() = 0;
    /** Positions of all elements. LoadNever: there are no data, here as below. */
    virtual LoadStatus_e ReadPositions(std::span<DVector3D> positions) = 0;
    /** Values of a variable; what has none is NO_VALUE. They stay as they are where they can't be read. */
    virtual LoadStatus_e ReadValues(qint64 nVariableId, std::span<double> values) = 0;
    /** The same of one element, in full precision; for picking. */
    virtual double ReadValue(qint64 nVariableId, qint64 nElement) const = 0;
    virtual LoadStatus_e ReadVectors(qint64 nVariableId, std::span<DVector3D> vectors) = 0;
    /** 1.0 for live elements; LoadNever if the block has no blanking. */
    virtual LoadStatus_e ReadMask(std::span<double> mask) = 0;
    /** Address in the block, one-based. */
    virtual IVector3D AddressOf(qint64 nElement) const = 0;
    /** The level that the view shows now. */
    virtual double CurrentTime() const = 0;
    virtual QMatrix4x4 CurrentModelMatrix() const { return {}; }
    virtual QString ItemName() const = 0;

private:
    enum Stale_e {
        StaleGeometry,
        StaleNormals,
        StaleValues,
        StaleThresholds,
        StaleVectors,
        StaleContours,
        STALE_COUNT
    };

    // surface_build.cpp
    void BuildGeometry();
    void BuildHoles();
    void BuildValues();
    void BuildThresholds();
    void BuildVectors();
    void BuildContourLines();
    void RecordExtremes(std::span<const double> values);
    bool WasRead(LoadStatus_e eStatus);
    void Clear();
    void MeasureBounds();
    // surface_pick.cpp
    void ForgetPickTree();
    void FillPickTree(CGLTree& tree) const;
    bool IsHole(qint64 nElement) const;
    /** Elements that aren't shown; empty: all are. */
    std::span<const char> ShownHoles() const
    {
        return showHoles() ? std::span<const char>(m_holes) : std::span<const char>();
    }

    // surface_draw.cpp
    /** Something needs normals. They follow from the positions, so they are made to be uploaded, not kept. */
    bool IsLit() const { return drawShaded() || drawVectors(); }
    /** Three an element; empty while nothing is lit. */
    std::vector<float> MakeNormals() const;
    bool IsAnyStale(std::initializer_list<Stale_e> parts) const;
    /** What every element has on the GPU. */
    bool IsMainStale() const;
    void UploadMain();
    void UploadVectors();
    void UploadContours();
    void SetUniforms(CSurfaceShaderProgram& program) const;
    void SetMatrices(CSurfaceShaderProgram& program, const QMatrix4x4& model) const;
    void DrawWith(CSurfaceShaderProgram& program, const QMatrix4x4& model, bool bOverlay);
    void DrawShaded(CSurfaceShaderProgram& program);
    VectorArrays::SArrows Arrows() const;
    void DrawPart(SurfacePart_e ePart);
    void DrawElements(SurfacePart_e ePart);
    void DrawLines(CSurfaceShaderProgram& program, SurfacePart_e ePart, bool bOverlay);
    // surface_lists.cpp
    void ChooseForm();
    void ForgetStaleLists();
    void CallList(SurfacePart_e ePart);
    void CompileElements(SurfacePart_e ePart);
    void CompileContours();
    void CompileVectors();

    QElapsedTimer m_sinceFailure; // runs while data couldn't be read
    SSurfaceSize m_size;
    std::vector<DVector3D> m_positions;
    DVector3D m_origin;              // what positions on the GPU are relative to
    std::vector<float> m_values;     // one an element, for the GPU; empty without a scalar
    std::vector<float> m_thresholds; // three an element
    std::vector<char> m_holes;       // empty without blanking
    std::vector<DVector3D> m_vectors;
    double m_dLongestVector = 0.0;
    SurfaceArrays::SContours m_contours;
    bool m_bThresholdThere = false;
    bool m_bMaskThere = false;
    SPickedPoint m_minimum;
    SPickedPoint m_maximum;
    std::unique_ptr<CGLTree> m_pPickTree; // of the elements that stand; null until it is asked for

    QPointer<QOpenGLContext> m_pContext; // all on the GPU is of it
    bool m_bWithLists = false;           // in place of the models
    CSurfaceLists m_lists;
    CRawModel m_model;
    CRawModel m_contourModel;
    CRawModel m_vectorModel;
    std::array<std::shared_ptr<CSurfaceIndexBuffer>, SURFACE_INDICES_COUNT> m_pIndices;
    int m_nVectorIndices = 0; // on the GPU
    int m_nContourVertices = 0;
    std::array<bool, STALE_COUNT> m_bStale = {}; // built, not uploaded
};
