#pragma once

class QByteArray;
class QString;

/**
 * Writes the bytes to the file by way of a temporary file beside it, which takes its place at the end:
 * whatever happens on the way (a full disk, a crash), there is the whole old file or the whole new one.
 *
 * @return false if that isn't possible, or if there is something else than a file; what was there is as it
 * was
 */
bool ReplaceFile(const QString& sFileName, const QByteArray& bytes);
