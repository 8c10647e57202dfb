#pragma once

#include "data/io/filefailure.h"

#include <memory>

/**
 * The object behind a mask: made at the first use, since only the file tells of what class it has to be, and
 * made anew once a file that couldn't be read has changed. For one thread at a time, but for Get.
 */
template <class Inner> class CMask
{
public:
    Inner* Get() const { return m_pInner.get(); } ///< null: not made yet, or the file can't be identified
    bool IsPrepared() const { return m_pInner || m_failure.IsNoted(); }

    /**
     * @param make  make() gives a new object, ready for use, or null if the file can't be identified
     * @return whether there is an object
     */
    template <class Make> bool Prepare(const QString& sFileName, const Make& make)
    {
        if (IsPrepared())
            return m_pInner != nullptr;
        m_pInner = make();
        m_failure.Note(m_pInner ? LoadOk : LoadFailed, sFileName);
        return m_pInner != nullptr;
    }

    /** The file couldn't be identified or read, and isn't any more what it was then. */
    bool HasFileChangedSinceFailure(const QString& sFileName) const
    {
        return m_pInner ? m_pInner->HasFileChangedSinceFailure() : m_failure.HasFileChanged(sFileName);
    }
    /** For one who alone knows the mask: the next Prepare begins anew. */
    void StartAnew()
    {
        m_pInner.reset();
        m_failure.Note(LoadOk, {});
    }

private:
    std::unique_ptr<Inner> m_pInner;
    CFileFailure m_failure; // to identify the file; that of a load is the object's
};
