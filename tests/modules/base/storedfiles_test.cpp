// The records of case, restart and display files: what stands in them, byte for byte.
#include "frame/bytestream.h"
#include "modules/base/casefile.h"
#include "modules/base/displaydocument.h"
#include "modules/base/restartfile.h"
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
    SOldDisplayFile old;
    old.display = "what is shown";
    old.camera = block;
    EXPECT_EQ(old.ToBytes(), Streamed(1.0, QByteArray("what is shown"), block));
}

TEST(StoredFiles, FilesOfFormerVersionsAreReadAndWouldBeWrittenTheSame)
{
    Golden::Expect("record.zento", SomeCase().ToBytes());
    Golden::Expect("record.srst", SomeRestart().ToBytes());
    Golden::Expect("record.disp", SomeDocument().ToBytes());
    SOldDisplayFile old;
    old.display = "what is shown";
    old.camera = SomeRestart().camera;
    Golden::Expect("record_old.disp", old.ToBytes());

    SCaseFile caseFile;
    ASSERT_EQ(caseFile.FromBytes(Golden::Read("record.zento")), StoredOk);
    EXPECT_EQ(caseFile.ToBytes(), SomeCase().ToBytes());
    EXPECT_EQ(caseFile.camera.Camera(), SomeCamera());
    SRestartFile restart;
    ASSERT_EQ(restart.FromBytes(Golden::Read("record.srst")), StoredOk);
    EXPECT_EQ(restart.ToBytes(), SomeRestart().ToBytes());
    SDisplayDocument document;
    ASSERT_EQ(document.FromBytes(Golden::Read("record.disp")), StoredOk);
    EXPECT_EQ(document.ToBytes(), SomeDocument().ToBytes());
    EXPECT_EQ(CameraFromJson(document.viewer), SomeCamera());
    SOldDisplayFile readOld;
    ASSERT_EQ(readOld.FromBytes(Golden::Read("record_old.disp")), StoredOk);
    EXPECT_EQ(readOld.ToBytes(), old.ToBytes());
}

TEST(StoredFiles, CutFilesAreRefusedAtEveryLength)
{
    const QByteArray caseBytes = SomeCase().ToBytes(), restartBytes = SomeRestart().ToBytes();
    for (int nSize = 0; nSize < caseBytes.size(); ++nSize)
        EXPECT_EQ(SCaseFile().FromBytes(caseBytes.left(nSize)), StoredBad) << nSize;
    for (int nSize = 0; nSize < restartBytes.size(); ++nSize)
        EXPECT_EQ(SRestartFile().FromBytes(restartBytes.left(nSize)), StoredBad) << nSize;
    const QByteArray json = SomeDocument().ToBytes().trimmed();
    for (int nSize = 0; nSize < json.size(); ++nSize)
        EXPECT_EQ(SDisplayDocument().FromBytes(json.left(nSize)), StoredBad) << nSize;
}

TEST(StoredFiles, AVersionThatIsNotKnownYetIsRefused)
{
    SCaseFile caseFile = SomeCase();
    caseFile.dDisplayVersion = 1.1;
    EXPECT_EQ(SCaseFile().FromBytes(caseFile.ToBytes()), StoredNewer);
    caseFile.dDataVersion = std::nan("");
    EXPECT_EQ(SCaseFile().FromBytes(caseFile.ToBytes()), StoredBad);
    SRestartFile restart = SomeRestart();
    restart.dVersion = 1.8;
    EXPECT_EQ(SRestartFile().FromBytes(restart.ToBytes()), StoredNewer);
    SDisplayDocument document = SomeDocument();
    document.dVersion = 2.0;
    EXPECT_EQ(SDisplayDocument().FromBytes(document.ToBytes()), StoredNewer);
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
