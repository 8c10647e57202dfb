#pragma once

class QString;

/**
 * Gives a file of the user's own to the operating-system group of a case, with all rights for owner and group
 * and none for others. Nothing for an empty group, a file of somebody else and one that is of the group
 * already. Failures are ignored.
 */
void ApplyCaseGroup(const QString& sFileName, const QString& sGroup);
