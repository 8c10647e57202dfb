#pragma once

#include "frame/packs/datapack.h"

#include <QDialog>
#include <QVector>

#include <memory>

class CPreferencesPage;
class IModuleInterface;

namespace Ui {
class CPreferencesDialog;
}

/**
 * Edits the settings of the user: pages of the frame and one for each module that has one. It works on a copy
 * of the pack. "OK" and "Apply" take over what was changed in the copy, save it and emit
 * SignalPreferencesChanged; "Cancel" and Escape drop it.
 *
 *     CPreferencesDialog dialog(pParent);
 *     connect(&dialog, &CPreferencesDialog::SignalPreferencesChanged, ...);
 *     dialog.exec();
 */
class CPreferencesDialog : public QDialog
{
    Q_OBJECT

public:
    explicit CPreferencesDialog(QWidget* pParent = nullptr);
    ~CPreferencesDialog() override;

signals:
    /** The settings in CPreferences have changed, and are saved if they can be; once for each OK or Apply. */
    void SignalPreferencesChanged();

public slots:
    /** "OK": closes the dialog unless a module refuses its page. */
    void accept() override;
    /** Gives false, with the module's page in front, if a module refuses it; nothing has changed then. */
    bool Apply();

private:
    struct SModulePage
    {
        IModuleInterface* pModule;
        QWidget* pPage; // null for a module without one
        int nRow;       // of the page in the list, -1 without one
    };

    template <class Page> void AddOwnPage(const QString& sTitle);
    void AddModulePages();
    int AddPage(const QString& sTitle, QWidget* pPage);
    void TakeCopy();
    bool ValidateModules();
    void TellUnsaved();
    void OrderTabs();
    void ApplyFont();
    QSize PreferredSize() const;

    CDataPack m_before; // the settings when the copy was taken
    CDataPack m_copy;   // what the pages work on
    std::unique_ptr<Ui::CPreferencesDialog> m_pUi;
    QVector<CPreferencesPage*> m_ownPages;
    QVector<SModulePage> m_modulePages;
    bool m_bToldUnsaved = false;
};
