#include "view/gl/shadermanager.h"

#include "view/gl/screenshaderprogram.h"

CShaderManager& CShaderManager::Instance()
{
    static CShaderManager* const pManager = new CShaderManager; // never destroyed, see CMessageSink
    return *pManager;
}

CShaderManager::CShaderManager() = default;
CShaderManager::~CShaderManager() = default;

void CShaderManager::CreatePrograms()
{
    if (m_pSilhouette)
        return;
    for (const ProgramVariant_e eVariant : {VariantPlain, VariantPeeling}) {
        m_programs[eVariant][VECTOR - 1] = std::make_unique<CVectorShaderProgram>(eVariant);
        m_programs[eVariant][SURFACE - 1] = std::make_unique<CSurfaceShaderProgram>(eVariant);
    }
    m_pSilhouette = std::make_unique<CSilhouetteShaderProgram>();
    m_pLayer = std::make_unique<CLayerShaderProgram>();
}

void CShaderManager::DeletePrograms()
{
    m_programs = {};
    m_pSilhouette.reset();
    m_pLayer.reset();
}

bool CShaderManager::LinkAll() { return UseVariant(VariantPlain) && m_pSilhouette->Link(); }

bool CShaderManager::UseVariant(ProgramVariant_e eVariant)
{
    for (const auto& pProgram : m_programs[eVariant])
        if (!pProgram || !pProgram->Link())
            return false;
    m_eVariant = eVariant;
    return true;
}

void CShaderManager::PushGlobalUniforms()
{
    if (!std::exchange(m_bGlobalsStale, false))
        return;
    for (const auto& programs : m_programs)
        for (const auto& pProgram : programs)
            if (pProgram && pProgram->isLinked())
                pProgram->SetGlobalUniforms();
}

CSurfaceShaderProgram* CShaderManager::GetSurfaceProgram(int nKey) const
{
    return nKey == SURFACE || nKey == VECTOR ? m_programs[m_eVariant][nKey - 1].get() : nullptr;
}

CLayerShaderProgram* CShaderManager::GetLayerProgram() const
{
    return m_pLayer && m_pLayer->Link() ? m_pLayer.get() : nullptr;
}
