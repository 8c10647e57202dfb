#pragma once

#include "modules/plot3d/icasefileseditor.h"

/** Lets the user choose the files in the dialog, over the main window; without one there is no user. */
class CFilesDialogEditor : public ICaseFilesEditor
{
public:
    CFilesDialogEditor() : m_pFormer(Install(this)) {}
    ~CFilesDialogEditor() override { Install(m_pFormer); }
    bool EditCaseFiles(CCaseRecords& records) override;

private:
    ICaseFilesEditor* m_pFormer;
};
