#include "view/shadermanager.h"

#include "view/silhouetteshaderprogram.h"
#include "view/surfaceshaderprogram.h"

CShaderManager& CShaderManager::Instance()
{
    static CShaderManager* const pManager = new CShaderManager; // never destroyed, see CMessageSink
    return *pManager;
}

CShaderManager::CShaderManager() = default;
CShaderManager::~CShaderManager() = default;

void CShaderManager::CreatePrograms()
{
    if (m_pSurface)
        return;
    m_pVector = std::make_unique<CVectorShaderProgram>();
    m_pSurface = std::make_unique<CSurfaceShaderProgram>();
    m_pSilhouette = std::make_unique<CSilhouetteShaderProgram>();
}

void CShaderManager::DeletePrograms()
{
    m_pVector.reset();
    m_pSurface.reset();
    m_pSilhouette.reset();
}

bool CShaderManager::LinkAll()
{
    return m_pSurface && m_pVector->Link() && m_pSurface->Link() && m_pSilhouette->Link();
}

void CShaderManager::PushGlobalUniforms()
{
    if (!std::exchange(m_bGlobalsStale, false))
        return;
    for (const int nKey : {SURFACE, VECTOR})
        if (CSurfaceShaderProgram* const pProgram = GetSurfaceProgram(nKey); pProgram && pProgram->isLinked())
            pProgram->SetGlobalUniforms();
}

CSurfaceShaderProgram* CShaderManager::GetSurfaceProgram(int nKey) const
{
    return nKey == SURFACE ? m_pSurface.get() : nKey == VECTOR ? m_pVector.get() : nullptr;
}
