#pragma once

#include "modules/plot3d/fieldview/fieldviewrestart.h"

#include <memory>

/** Takes the lines of one kind of section. */
class CFieldViewSection
{
public:
    explicit CFieldViewSection(SFieldViewRestart& restart) : m_restart(restart) {}
    virtual ~CFieldViewSection() = default;
    CFieldViewSection(const CFieldViewSection&) = delete;
    CFieldViewSection& operator=(const CFieldViewSection&) = delete;

    /** False if nothing came of it. */
    virtual bool Take(const QString& sKey, const QString& sValue) = 0;

protected:
    SFieldViewRestart& m_restart;
};

/** Of surfaces, planes and streamlines; null for a name that is of none of them. */
std::unique_ptr<CFieldViewSection> MakeFieldViewItems(const QString& sName, SFieldViewRestart& restart);
/** Of any other name: files, colours and the view. */
std::unique_ptr<CFieldViewSection> MakeFieldViewSettings(const QString& sName, SFieldViewRestart& restart);
