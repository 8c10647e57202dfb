#pragma once

#include "view/gl/surfaceshaderprogram.h"

#include <array>
#include <memory>

class CLayerShaderProgram;
class CSilhouetteShaderProgram;

/**
 * The programs of all views. They are made at the start of the window and linked when the first view has a
 * context, those for what is transparent when some of it is drawn first; all contexts share them. Main thread
 * only.
 */
class CShaderManager
{
public:
    static constexpr int VECTOR = 1; ///< keys of the programs
    static constexpr int SURFACE = 2;
    static constexpr int SILHOUETTE = 3;

    static CShaderManager& Instance();

    /** Makes the programs; nothing the second time. */
    void CreatePrograms();
    /** Frees them, with a context current that shares theirs. */
    void DeletePrograms();
    /** Links what any frame needs and isn't linked yet; stops at the first failure. */
    bool LinkAll();
    /** The preferences have changed: the next frame of any view sends their colours. */
    void InvalidateGlobalUniforms() { m_bGlobalsStale = true; }
    /** Sends them if that is due; with a context current. */
    void PushGlobalUniforms();

    /**
     * From now on GetSurfaceProgram gives the programs of a variant, which are linked if they aren't yet;
     * false if they can't be, and those that were in use stay.
     */
    bool UseVariant(ProgramVariant_e eVariant);
    /** The surface or the vector program of the variant in use; null for any other key. */
    CSurfaceShaderProgram* GetSurfaceProgram(int nKey) const;
    CSilhouetteShaderProgram* GetSilhouetteProgram() const { return m_pSilhouette.get(); }
    /** Linked; null if that fails. */
    CLayerShaderProgram* GetLayerProgram() const;

private:
    CShaderManager();
    ~CShaderManager();

    /** By variant and, in it, by key less one. */
    std::array<std::array<std::unique_ptr<CSurfaceShaderProgram>, 2>, VARIANT_COUNT> m_programs;
    ProgramVariant_e m_eVariant = VariantPlain;
    bool m_bGlobalsStale = false;
    std::unique_ptr<CSilhouetteShaderProgram> m_pSilhouette;
    std::unique_ptr<CLayerShaderProgram> m_pLayer;
};
