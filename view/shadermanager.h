#pragma once

#include <memory>

class CShaderProgram;
class CSilhouetteShaderProgram;
class CSurfaceShaderProgram;
class CVectorShaderProgram;

/**
 * The programs of all views. They are made at the start of the window and linked when the first view has a
 * context; all contexts share them. Main thread only.
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
    /** Links what isn't linked yet; stops at the first failure. */
    bool LinkAll();
    /** The preferences have changed: the next frame of any view sends their colours. */
    void InvalidateGlobalUniforms() { m_bGlobalsStale = true; }
    /** Sends them if that is due; with a context current. */
    void PushGlobalUniforms();

    /** The surface or the vector program; null for any other key. */
    CSurfaceShaderProgram* GetSurfaceProgram(int nKey) const;
    CSilhouetteShaderProgram* GetSilhouetteProgram() const { return m_pSilhouette.get(); }

private:
    CShaderManager();
    ~CShaderManager();

    bool m_bGlobalsStale = false;
    std::unique_ptr<CVectorShaderProgram> m_pVector;
    std::unique_ptr<CSurfaceShaderProgram> m_pSurface;
    std::unique_ptr<CSilhouetteShaderProgram> m_pSilhouette;
};
