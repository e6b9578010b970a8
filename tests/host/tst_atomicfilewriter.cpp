#include "atomicfilewriter.h"
#include "fulldisk.h"
#include "simulateddrive.h"
#include "testfiles.h"

#include <QtTest>

using VxUtilities::AtomicFileWriter;

namespace {

// A device that takes at most a few bytes per write, and nothing at all
// once its room is used up: a short write, as a full disk gives one.
class NarrowDevice : public QIODevice
{
public:
    NarrowDevice(qint64 perWrite, qint64 room)
        : m_perWrite(perWrite)
        , m_room(room)
    {
        open(QIODevice::WriteOnly);
    }
    QByteArray taken;

protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *data, qint64 size) override
    {
        const qint64 count = std::min({ size, m_perWrite, m_room - qint64(taken.size()) });
        taken.append(data, int(count));
        return count;
    }

private:
    qint64 m_perWrite;
    qint64 m_room;
};

} // namespace

// Every save of the suite and the editor goes through this one writer: it
// replaces a file whole or leaves the old one byte for byte.
class TestAtomicFileWriter : public QObject
{
    Q_OBJECT
private slots:
    void shortWrites_data()
    {
        QTest::addColumn<qint64>("perWrite");
        QTest::addColumn<qint64>("room");
        QTest::addColumn<bool>("complete");
        QTest::newRow("taken in pieces") << qint64(3) << qint64(100) << true;
        QTest::newRow("room for all but one byte") << qint64(1000) << qint64(25) << false;
        QTest::newRow("no room") << qint64(1000) << qint64(0) << false;
    }
    void shortWrites()
    {
        QFETCH(qint64, perWrite);
        QFETCH(qint64, room);
        QFETCH(bool, complete);
        const QByteArray bytes = "twenty-six bytes of text.\n";
        NarrowDevice device(perWrite, room);
        QCOMPARE(AtomicFileWriter::writeAll(device, bytes), complete);
        QCOMPARE(device.taken, bytes.left(int(room)));
    }

    // Replacing a file and refusing a missing folder are held by the curve
    // text writer's test, which writes through this writer.

    // On a real full disk the save fails with the system's reason, the old
    // file is as it was and no temporary file is left behind. The simulated
    // drive's project file is saved through it as well.
    void fullDisk()
    {
        FullDisk disk;
        if (!disk.isMounted())
            QSKIP("a tmpfs cannot be mounted here (needs root)");
        const QString path = disk.filePath(QStringLiteral("file.txt"));
        const QString drivePath = disk.filePath(QStringLiteral("drive.json"));
        const QByteArray old = "the old content\n";
        QVERIFY(writeFile(path, old));
        MxSimulation::SimulatedDrive drive;
        QString error;
        QVERIFY(drive.save(drivePath, &error));
        const QByteArray oldDrive = readFile(drivePath);
        QVERIFY(disk.fill());

        QVERIFY(!AtomicFileWriter::write(path, QByteArray(8192, 'n'), &error));
        QCOMPARE(error, FullDisk::noSpaceText());
        QCOMPARE(readFile(path), old);
        drive.setNativeLimits(QStringLiteral("G68"), 0, 10);
        QVERIFY(!drive.save(drivePath, &error));
        QCOMPARE(error, FullDisk::noSpaceText());
        QCOMPARE(readFile(drivePath), oldDrive);
        QCOMPARE(disk.files(), QStringList({ QStringLiteral("drive.json"), QStringLiteral("file.txt") }));
    }
};

QTEST_GUILESS_MAIN(TestAtomicFileWriter)
#include "tst_atomicfilewriter.moc"
