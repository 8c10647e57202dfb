// The records of case, restart and display files: what stands in them, byte for byte.
#include "cases/autosave/autosavefile.h"
#include "cases/display/displaydocument.h"
#include "cases/files/casefile.h"
#include "cases/files/restartfile.h"
#include "frame/packs/bytestream.h"
#include "tests/support/golden.h"
#include "tests/support/print.h"

#include <QDataStream>
#include <QJsonArray>

#include <cmath>

namespace {

SCamera SomeCamera()
{
    SCamera camera;
    camera.projection.ortho(-3.0F, 5.0F, -2.0F, 4.0F, -2000.0F, 2000.0F);
    camera.view.rotate(30.0F, 1.0F, 2.0F, 3.0F);
    camera.rect = {10, 20, 640, 480};
    camera.viewCenter = {1.0, 1.0};
    camera.viewSize = {8.0, 6.0};
    camera.rotationPoint = {0.5, -0.25, 1e-3};
    return camera;
}

SCaseFile SomeCase()
{
    SCaseFile file;
    file.sModule = "Plot3D";
    file.data = "the case";
    file.display = "what is shown";
    file.camera = SStoredCamera(SomeCamera());
    return file;
}

SRestartFile SomeRestart()
{
    SRestartFile file;
    file.nModuleId = 1;
    file.key = "the data";
    file.display = "what is shown";
    file.camera = SStoredCamera(SomeCamera()).block;
    return file;
}

SDisplayDocument SomeDocument()
{
    SDisplayDocument document;
    document.overrides = {{"mirror.X", true}, {"mirror.offsetX", 0.125}};
    document.viewer = CameraToJson(SomeCamera());
    document.display = {{"meshBlocks", QJsonArray{QJsonObject{{"blockName", "Block 1"}}}}};
    return document;
}

SOldDisplayFile SomeOldDisplay()
{
    SOldDisplayFile file;
    file.display = "what is shown";
    file.camera = SStoredCamera(SomeCamera()).block;
    return file;
}

const SAutosaveFile AUTOSAVE{"Plot3D", "a", "/b", "content"};

/** The record is written as the stored file has it, and is read from it, which it gives. */
template <class Record> Record ReadKept(const char* sFile, const Record& record)
{
    Golden::Expect(sFile, record.ToBytes());
    Record read;
    EXPECT_EQ(read.FromBytes(Golden::Read(sFile)), StoredOk) << sFile;
    EXPECT_EQ(read.ToBytes(), record.ToBytes()) << sFile;
    return read;
}

template <class Record> void ExpectCutsAreRefused(const QByteArray& bytes)
{
    for (int nSize = 0; nSize < bytes.size(); ++nSize)
        ASSERT_EQ(Record().FromBytes(bytes.left(nSize)), StoredBad) << nSize;
    Record whole;
    EXPECT_EQ(whole.FromBytes(bytes), StoredOk);
    EXPECT_EQ(whole.ToBytes().trimmed(), bytes.trimmed());
}

template <class Record>
void ExpectVersionIs(double Record::*pVersion, Record record, double dVersion, StoredFile_e eExpected)
{
    record.*pVersion = dVersion;
    EXPECT_EQ(Record().FromBytes(record.ToBytes()), eExpected) << dVersion;
}

/** As a data stream writes it, which is what the format says. */
template <class... Values> QByteArray Streamed(const Values&... values)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    (stream << ... << values);
    return bytes;
}

} // namespace

TEST(StoredFiles, BytesAreThoseOfAPlainDataStream)
{
    const SCamera camera = SomeCamera();
    const QByteArray block =
        Streamed(camera.projection, camera.view, camera.rect, camera.viewCenter, camera.viewSize);
    const DVector3D& point = camera.rotationPoint;
    EXPECT_EQ(SStoredCamera(camera).block, block);
    EXPECT_EQ(SomeCase().ToBytes(), Streamed(QString("Plot3D"), 1.0, 1.0, QByteArray("the case"),
                                             QByteArray("what is shown"), block, point.x, point.y, point.z));
    EXPECT_EQ(SomeRestart().ToBytes(),
              Streamed(1.7, qint64(1), QByteArray("the data"), QByteArray("what is shown"), block));
    EXPECT_EQ(SomeOldDisplay().ToBytes(), Streamed(1.0, QByteArray("what is shown"), block));
}

TEST(StoredFiles, FilesOfFormerVersionsAreReadAndWouldBeWrittenTheSame)
{
    EXPECT_EQ(ReadKept("record.zento", SomeCase()).camera.Camera(), SomeCamera());
    ReadKept("record.srst", SomeRestart());
    EXPECT_EQ(CameraFromJson(ReadKept("record.disp", SomeDocument()).viewer), SomeCamera());
    ReadKept("record_old.disp", SomeOldDisplay());
}

TEST(StoredFiles, CutFilesAreRefusedAtEveryLength)
{
    ExpectCutsAreRefused<SCaseFile>(SomeCase().ToBytes());
    ExpectCutsAreRefused<SRestartFile>(SomeRestart().ToBytes());
    ExpectCutsAreRefused<SDisplayDocument>(SomeDocument().ToBytes().trimmed());
    ExpectCutsAreRefused<SOldDisplayFile>(SomeOldDisplay().ToBytes());
    ExpectCutsAreRefused<SAutosaveFile>(AUTOSAVE.ToBytes());
    EXPECT_EQ(SAutosaveFile().FromBytes(AUTOSAVE.ToBytes() + 'x'), StoredBad);
    EXPECT_EQ(SCaseFile().FromBytes(SomeCase().ToBytes() + 'x'), StoredOk) << "what follows is ignored";
}

TEST(StoredFiles, AVersionThatIsNotKnownYetIsRefused)
{
    ExpectVersionIs(&SCaseFile::dDisplayVersion, SomeCase(), 1.1, StoredNewer);
    ExpectVersionIs(&SCaseFile::dDataVersion, SomeCase(), std::nan(""), StoredBad);
    ExpectVersionIs(&SRestartFile::dVersion, SomeRestart(), 1.8, StoredNewer);
    ExpectVersionIs(&SRestartFile::dVersion, SomeRestart(), -0.5, StoredBad);
    ExpectVersionIs(&SDisplayDocument::dVersion, SomeDocument(), 2.0, StoredNewer);
    ExpectVersionIs(&SOldDisplayFile::dVersion, SomeOldDisplay(), 1.1, StoredNewer);
    ExpectVersionIs(&SAutosaveFile::dVersion, AUTOSAVE, 2.0, StoredNewer);
}

TEST(StoredFiles, ACaseFileIsToldByItsHead)
{
    EXPECT_TRUE(LooksLikeCaseFile(SomeCase().ToBytes().left(512)));
    EXPECT_FALSE(LooksLikeCaseFile(Streamed(QString("a\nb"), 1.0, 1.0)));
    EXPECT_FALSE(LooksLikeCaseFile(Streamed(QString("Plot3D"), 1e9, 1.0)));
    EXPECT_FALSE(LooksLikeCaseFile(QByteArray(512, '\1')));
}

TEST(StoredFiles, ADisplayFileOfAnyAgeIsTakenForWhatItIs)
{
    EXPECT_TRUE(SDisplayDocument::IsJson("\n  \n{}"));
    EXPECT_TRUE(SDisplayDocument::IsJson("\xEF\xBB\xBF{}")) << "as some editors save it";
    EXPECT_FALSE(SDisplayDocument::IsJson(SOldDisplayFile().ToBytes()));
    SDisplayDocument document;
    ASSERT_EQ(document.FromBytes("\xEF\xBB\xBF{\"disp\": {\"blocks\": []}}"), StoredOk);
    EXPECT_EQ(document.dVersion, -1.0);
    EXPECT_TRUE(document.display.contains("blocks"));
    EXPECT_EQ(SDisplayDocument().FromBytes("[1]"), StoredBad);
}

TEST(StoredFiles, WhatACameraLacksHasItsDefaultAndOneThatShowsNothingIsNone)
{
    QJsonObject viewer = CameraToJson(SomeCamera());
    QJsonObject camera = viewer["camera"].toObject();
    camera.remove("rect");
    camera["viewMatrix"] = QJsonArray{1.0, 2.0};
    viewer["camera"] = camera;
    ASSERT_TRUE(CameraFromJson(viewer));
    EXPECT_EQ(CameraFromJson(viewer)->view, QMatrix4x4());
    EXPECT_EQ(CameraFromJson(viewer)->rect, QRect());
    EXPECT_EQ(CameraFromJson(viewer)->viewSize, SomeCamera().viewSize);
    EXPECT_FALSE(CameraFromJson({}));
    camera["viewSize"] = QJsonArray{0.0, 4.0};
    viewer["camera"] = camera;
    EXPECT_FALSE(CameraFromJson(viewer));
    SCamera bad = SomeCamera();
    bad.view(1, 2) = std::nanf("");
    EXPECT_FALSE(SStoredCamera(bad).Camera());
    EXPECT_FALSE(SStoredCamera().Camera());
    const SStoredCamera stored(SomeCamera());
    EXPECT_EQ(SStoredCamera::FromBytes(stored.ToBytes()).Camera(), SomeCamera());
}
