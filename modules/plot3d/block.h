#pragma once

#include "simulation/item.h"

/**
 * A structured zone of a grid file. Its name is "Block 3" (the number in the file, from 1), its second name
 * the size, "(5 x 4 x 3)".
 */
class CBlock : public CItem
{
public:
    CBlock();

    /** Sets file, place in it and size, and the texts that follow from them. */
    void SetSource(const QString& sFileName, const QString& sRelativeName, qint64 nFileIndex,
                   const IVector3D& dimensions);
    qint64 GetFileIndex() const; ///< from 0
    QString GetFileName() const;
    /** "(5 x 4 x 3)". */
    QString GetGridText() const;

    qint64 GetPointCount() const override;
    qint64 GetCellCount() const override;
    QString GetTypeName() const override { return "Block"; }
    QStringList GetFileList() const override { return {GetFileName()}; }
    qint64 GetFileCount() const override { return 1; }
    /**
     * Hash of the size and of points spread over the whole block, all of them in a small one; read from the
     * file without loading the block. Empty if it can't be read. Cached.
     */
    QByteArray GetLinkKey() const override;
    /** The file and the place in it stay the block's own. */
    void CopyDataFrom(const CItem& other) override;
    void OnSizeChanged() override { m_linkKey.clear(); }

private:
    mutable QByteArray m_linkKey; // empty: not formed yet
};
