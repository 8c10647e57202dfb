#pragma once

#include "frame/datapack.h"

#include <QBrush>

/** What drawing reads on each frame, so that it needn't look into the pack. */
struct SDrawPreferences
{
    bool bUseDisplayLists;
    qint64 nSelectionArea; ///< pick radius [pixels]
    bool bUseOutlineColor;
    double dMouseSensitivity;
    double dKeyboardSensitivity;
    qint64 nZoomSensitivity;
    bool bZoomOnMouse;
    bool bFlipZoomDirection;
    bool bHighlightInAnalyze;
    bool bHighlightOutline;
    float fPointSize;     ///< [pixels]
    float fLineThickness; ///< [pixels]
    bool bShowAxes;
    qint64 nRotationAxisVisibility; ///< 0 hide, 1 always, 2 on rotation
    bool bShowScaling;
    QColor axesColor;
    QColor highlightColor;
    QColor selectColor;
    QColor outlineColor;
    QColor previewColor;
    QVector<QColor> backgroundColors; ///< 4; the last is the background of captures
    QBrush background;                ///< made of the first three, in object-bounding mode
};

/** A formula of the user that is made again in every case that has its inputs. */
struct SStoredVariable
{
    qint64 nId = -1;
    QString sName;
    QString sFormula;
    qint64 nLocation = 0;      ///< 1 node, 2 cell centre, 0 constant
    QStringList sUsedNameList; ///< names of the variables that the formula refers to

    friend bool operator==(const SStoredVariable&, const SStoredVariable&) = default;
};

/**
 * The settings of the user (frame/preferencekeys.h), kept as one pack under one key of the settings
 * store, and the user's variables beside it. Written on the main thread; the draw settings are plain
 * values that only change between events.
 */
class CPreferences : public CDataPack
{
public:
    static CPreferences& Instance();

    CPreferences();

    /**
     * Reads the settings of that organisation and application. What can't be read has its default (the
     * message sink says so), what this version doesn't know is kept.
     */
    void Load(const QString& sOrganisation, const QString& sApplication);

    /** Writes them; the file can be read by its owner alone. False if the store can't be written. */
    bool Save(const QString& sOrganisation, const QString& sApplication) const;

    /** Takes over changed keys: the draw settings, the memory limit and the level of the message sink. */
    void Apply();

    const SDrawPreferences& Draw() const { return m_draw; }

    const QVector<SStoredVariable>& StoredVariables() const { return m_storedVariables; }
    void SetStoredVariables(const QVector<SStoredVariable>& variables) { m_storedVariables = variables; }

private:
    SDrawPreferences m_draw;
    QVector<SStoredVariable> m_storedVariables;
};
