#pragma once

#include "frame/preferences/settingsmerge.h"

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

/**
 * The settings of the user (frame/preferences/preferencekeys.h), kept as one pack under one key of the
 * settings store, and the user's variables beside it. Written on the main thread; the draw settings are plain
 * values that only change between events.
 */
class CPreferences : public CDataPack
{
public:
    static CPreferences& Instance();

    CPreferences();

    /**
     * Reads the settings of that organisation and application. What can't be read and what is out of range
     * has its default (the message sink says so), what this version doesn't know is kept.
     */
    void Load(const QString& sOrganisation, const QString& sApplication);

    /**
     * Writes what has changed here since the last Load or Save into what the store holds now, so that several
     * instances of the program can share it (see MergeSettings). Recent files, remote computers and user
     * variables of other instances come in here too.
     *
     * @return false if the store can't be written: nothing has changed here then, and the next Save tries
     *         again. Never waits for more than a few seconds.
     */
    bool Save(const QString& sOrganisation, const QString& sApplication);

    /**
     * Takes over changed keys: brings them into range, then sets the draw settings, the memory limit and the
     * level of the message sink.
     */
    void Apply();

    const SDrawPreferences& Draw() const { return m_draw; }

    const QVector<SStoredVariable>& StoredVariables() const { return m_storedVariables; }
    void SetStoredVariables(const QVector<SStoredVariable>& variables) { m_storedVariables = variables; }

private:
    SSettings Content() const;
    SSettings Repaired(SSettings stored) const;

    SDrawPreferences m_draw;
    QVector<SStoredVariable> m_storedVariables;
    SSettings m_saved; // as the last Load or Save left them
};
