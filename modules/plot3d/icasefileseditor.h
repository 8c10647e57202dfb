#pragma once

class CCaseRecords;
class QString;

/** Who lets the user choose the files of a case. The module's widgets install themselves. */
class ICaseFilesEditor
{
public:
    virtual ~ICaseFilesEditor() = default;
    /**
     * The records hold the choice afterwards, if the user accepted it; they are valid then.
     *
     * @return false for a cancel
     */
    virtual bool EditCaseFiles(CCaseRecords& records) = 0;

    /** Makes pEditor (not owned, may be null: no user) the one in use; gives the former one. */
    static ICaseFilesEditor* Install(ICaseFilesEditor* pEditor);
    static ICaseFilesEditor* Installed();
};
