#pragma once

#include "frame/packs/datapack.h"
#include "frame/preferences/storedvariable.h"

/** Everything that the settings store of the program holds for CPreferences. */
struct SSettings
{
    CDataPack pack;
    QVector<SStoredVariable> variables;
};

/**
 * What two instances of the program that share a settings store make of it together: the store as it is now
 * with the changes that one instance made since it last read or wrote it.
 *
 *  - A setting is a key of the pack.
 *  - A remote computer is one thing: it is taken over whole. One that is new here gets a free id if the other
 *    instance has given its id away meanwhile.
 *  - Files used here since then lead the list of recent files, those of the store follow.
 *  - User variables are told apart by their names; a new one gets an id that is free.
 *
 * @param store  what the store holds now
 * @param base   what this instance last read from it or wrote to it
 * @param own    what this instance has now
 */
SSettings MergeSettings(const SSettings& store, const SSettings& base, const SSettings& own);

/** Assigns the sub-pack, or removes it if the new content is empty. */
void ReplaceSubPack(CDataPack& pack, const QString& sPath, const CDataPack& content);
