#include "cases/display/overrideblocks.h"

namespace {

constexpr const char *BLOCKS = "meshBlocks", *FORMER_BLOCKS = "blocks";

} // namespace

COverrideBlocks::~COverrideBlocks()
{
    if (m_bChanged)
        m_display[ListOf(m_display)] = m_blocks;
}

QString COverrideBlocks::ListOf(const QJsonObject& display)
{
    return !display.contains(BLOCKS) && display.contains(FORMER_BLOCKS) ? FORMER_BLOCKS : BLOCKS;
}

int COverrideBlocks::Find(const QString& sName)
{
    if (!std::exchange(m_bRead, true)) {
        m_blocks = m_display[ListOf(m_display)].toArray();
        for (int n = m_blocks.size() - 1; n >= 0; --n) // of equal names the first counts
            m_placeOfBlock.insert(m_blocks[n].toObject()[BLOCK_NAME].toString(), n);
    }
    return m_placeOfBlock.value(sName, -1);
}

QJsonArray COverrideBlocks::GetList(int nBlock, const char* sList) const
{
    return m_blocks[nBlock].toObject()[DISPLAY].toObject()[sList].toArray();
}

void COverrideBlocks::SetList(int nBlock, const char* sList, const QJsonArray& list)
{
    QJsonObject block = m_blocks[nBlock].toObject();
    QJsonObject display = block[DISPLAY].toObject();
    display[sList] = list;
    block[DISPLAY] = display;
    m_blocks[nBlock] = block;
    m_bChanged = true;
}
