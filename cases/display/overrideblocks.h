#pragma once

#include <QHash>
#include <QJsonArray>
#include <QJsonObject>

/**
 * The blocks of a display, by name, with what stands under them. A case may have thousands of blocks, and a
 * table as many keys: the list is looked through once, and written back once, when this goes.
 */
class COverrideBlocks
{
public:
    static constexpr const char *BLOCK_NAME = "blockName", *DISPLAY = "disp";

    explicit COverrideBlocks(QJsonObject& display) : m_display(display) {}
    ~COverrideBlocks();
    Q_DISABLE_COPY_MOVE(COverrideBlocks)

    /** The member that lists them: new files and older ones name it differently. */
    static QString ListOf(const QJsonObject& display);

    /** The place of the first block with this name; -1 if there is none. */
    int Find(const QString& sName);
    /** A list of what stands under the block. */
    QJsonArray GetList(int nBlock, const char* sList) const;
    void SetList(int nBlock, const char* sList, const QJsonArray& list);

private:
    QJsonObject& m_display;
    QJsonArray m_blocks; // empty until one is looked for
    bool m_bRead = false;
    bool m_bChanged = false;
    QHash<QString, int> m_placeOfBlock;
};
