#pragma once

#include "window/preferences/keybinder.h"

#include <QWidget>

/** A page of the preferences dialog that shows and edits the pack on which the dialog works. */
class CPreferencesPage : public QWidget
{
    Q_OBJECT

public:
    /** @param pack  must live as long as the page */
    CPreferencesPage(CDataPack& pack, QWidget* pParent) : QWidget(pParent), m_pack(pack), m_binder(pack) {}

    /** Shows what the pack holds now. */
    virtual void Fill() { m_binder.Fill(); }

protected:
    CDataPack& m_pack;
    CKeyBinder m_binder;
};
