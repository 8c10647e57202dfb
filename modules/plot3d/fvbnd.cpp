#include "modules/plot3d/fvbnd.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr qint64 LONGEST_LINE = 65536; // [bytes]; longer ones are cut in pieces
constexpr int LEAST_TOKENS = 8;        // type, block, six limits
constexpr int FLAG_TOKENS = 10;        // with flag and direction

/** The words of a line without its comment. */
QStringList TokensOf(const QByteArray& line)
{
    const QString sLine = QString::fromUtf8(line);
    return sLine.left(sLine.indexOf("##")).simplified().split(' ', Qt::SkipEmptyParts);
}

/** The words of the next line that has any; empty at the end. */
QStringList NextLine(QIODevice& device)
{
    while (!device.atEnd()) {
        const QByteArray line = device.readLine(LONGEST_LINE);
        if (line.isEmpty())
            break; // the device can't be read
        if (const QStringList tokens = TokensOf(line); !tokens.isEmpty())
            return tokens;
    }
    return {};
}

bool IsWord(const QString& sToken, const char* sWord)
{
    return sToken.compare(QLatin1String(sWord), Qt::CaseInsensitive) == 0;
}

QString ReadHeader(QIODevice& device, SFvbndFile& file)
{
    const QStringList tokens = NextLine(device);
    if (tokens.isEmpty())
        return "Empty FVBND file";
    if (!IsWord(tokens[0], "FVBND"))
        return "Missing FVBND header token";
    bool bMajor = false;
    bool bMinor = false;
    file.nMajor = tokens.value(1).toInt(&bMajor);
    file.nMinor = tokens.value(2).toInt(&bMinor);
    return bMajor && bMinor ? QString() : QString("Invalid FVBND version");
}

void ReadTypeNames(QIODevice& device, SFvbndFile& file)
{
    for (QStringList tokens = NextLine(device); !tokens.isEmpty(); tokens = NextLine(device)) {
        if (tokens.size() == 1 && IsWord(tokens[0], "BOUNDARIES"))
            return;
        file.sTypeNameList.append(tokens.join(' '));
    }
}

bool ParseLimits(const QStringList& tokens, SBoundaryRecord& record)
{
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        const QString& sMin = tokens[2 + 2 * nAxis];
        const QString& sMax = tokens[3 + 2 * nAxis];
        bool bMin = false;
        bool bMax = false;
        record.min[nAxis] = sMin.toInt(&bMin);
        record.max[nAxis] = sMax.toInt(&bMax);
        record.toEnd[nAxis] = sMax == "$";
        if (!bMin || !(bMax || record.toEnd[nAxis]))
            return false;
    }
    return true;
}

bool IsTrue(const QString& sToken)
{
    const QString sUpper = sToken.toUpper();
    return sUpper == "T" || sUpper == "TRUE" || sUpper == "1";
}

/** Flag and direction; the flag came with version 1.4. */
bool ParseDirection(const QStringList& tokens, bool bHasFlag, SBoundaryRecord& record)
{
    bHasFlag = bHasFlag && tokens.size() >= FLAG_TOKENS;
    record.bFlip = bHasFlag && IsTrue(tokens[LEAST_TOKENS]);
    const QString sDirection = tokens.value(bHasFlag ? LEAST_TOKENS + 1 : LEAST_TOKENS, "1");
    bool bNumber = false;
    record.nDirection = sDirection.toInt(&bNumber) < 0 ? -1 : 1;
    return bNumber;
}

bool ParseRecord(const QStringList& tokens, const SFvbndFile& file, SBoundaryRecord& record)
{
    if (tokens.size() < LEAST_TOKENS)
        return false;
    bool bBlock = false;
    record.nType = tokens[0].toInt();
    record.nBlock = tokens[1].toInt(&bBlock);
    record.sTypeName = file.sTypeNameList.value(int(record.nType) - 1);
    const bool bHasFlag = std::pair(file.nMajor, file.nMinor) >= std::pair(1, 4);
    return record.nType >= 1 && record.nType <= file.sTypeNameList.size() && bBlock &&
           ParseLimits(tokens, record) && ParseDirection(tokens, bHasFlag, record);
}

void ReadRecords(QIODevice& device, SFvbndFile& file)
{
    for (QStringList tokens = NextLine(device); !tokens.isEmpty(); tokens = NextLine(device)) {
        SBoundaryRecord record;
        if (ParseRecord(tokens, file, record))
            file.records.append(record);
        else
            ++file.nSkipped;
    }
}

} // namespace

SFvbndFile ReadFvbnd(QIODevice& device)
{
    SFvbndFile file;
    file.sError = ReadHeader(device, file);
    if (!file.sError.isEmpty())
        return file;
    ReadTypeNames(device, file);
    ReadRecords(device, file);
    return file;
}

SFvbndFile ReadFvbnd(const QString& sFileName)
{
    SFvbndFile failed;
    QFile device(sFileName);
    if (!QFileInfo(sFileName).isFile())
        failed.sError = QString("File does not exist: %1").arg(sFileName);
    else if (!device.open(QIODevice::ReadOnly))
        failed.sError = QString("Cannot open file: %1").arg(sFileName);
    return failed.sError.isEmpty() ? ReadFvbnd(device) : failed;
}

bool ResolveBoundary(SBoundaryRecord& record, const IVector3D& dimensions)
{
    record.bIsFace = false;
    record.nFace = -1;
    for (int nAxis = 0; nAxis < 3; ++nAxis) {
        qint64& nMin = record.min[nAxis];
        qint64& nMax = record.max[nAxis];
        if (record.toEnd[nAxis])
            nMax = dimensions[nAxis];
        if (nMin == 0 && nMax == 0) {
            nMin = 1;
            nMax = dimensions[nAxis];
        }
        if (nMin > nMax)
            std::swap(nMin, nMax);
        if (nMin < 1 || nMax > dimensions[nAxis])
            return false;
        if (nMin == nMax && !record.bIsFace) {
            record.bIsFace = true;
            record.nFace = 2 * nAxis + (nMin == 1 ? 0 : 1);
        }
    }
    return true;
}
