#include "boundtable.h"
#include "messagecapture.h"

#include <QSignalSpy>
#include <QtTest>

#include <zlib.h>

namespace {
const QString WriteRefused = QStringLiteral("Schreiben in Parameter nicht möglich");
constexpr int LivingSpace = BoundTable::LivingSpace;
} // namespace

// Writing, reading back, deleting and stamping a cam table, under the test
// suite's C locale.
class TestGridPointTable : public QObject
{
    Q_OBJECT
private slots:
    void writeStoresTableCountAndReferences()
    {
        BoundTable bound(5);
        const QVector<QPointF> points = curvePoints(7);
        SignalLog told(&bound.model());
        MessageCapture capture;
        bound.model().writeGridPoints(points);
        QCOMPARE(capture.count(), 0);
        QCOMPARE(told, (QStringList { "started", "size", "value", "finished" }));

        QStringList masters;
        QStringList slaves;
        QByteArray buffer;
        for (int i = 0; i < points.size(); ++i) {
            masters << QString::fromLatin1(nativeOf(points.at(i).x()));
            slaves << QString::fromLatin1(nativeOf(points.at(i).y()));
            buffer += QByteArray::number(i) + nativeOf(points.at(i).x()) + nativeOf(points.at(i).y());
        }
        QCOMPARE(bound.natives(coordinate("G415")), masters);
        QCOMPARE(bound.natives(coordinate("G416")), slaves);
        QCOMPARE(bound.tableValue("G68"), QStringLiteral("7"));
        QCOMPARE(bound.tableValue("G60"), QStringLiteral("1.G415"));
        QCOMPARE(bound.tableValue("G61"), QStringLiteral("1.G416"));
        const QPolygonF stored = bound.model().storedGridPoints();
        QCOMPARE(stored.size(), 7);
        for (int i = 0; i < 7; ++i)
            QCOMPARE(stored.at(i), QPointF(std::round(points.at(i).x() * 1000.0) / 1000.0,
                                           std::round(points.at(i).y() * 1000.0) / 1000.0));
        // The stamp is the standard CRC-32 over index, master native and
        // slave native of every stored point.
        const uLong expected = crc32(crc32(0L, Z_NULL, 0), reinterpret_cast<const Bytef *>(buffer.constData()),
                                     static_cast<uInt>(buffer.size()));
        QCOMPARE(bound.drive.readValueNative(LivingSpace, coordinate("G293"), 5), QString::number(expected));
    }

    void refusedWriteChangesNoElement_data()
    {
        QTest::addColumn<bool>("readOnly");
        QTest::addColumn<bool>("online");
        QTest::addColumn<int>("arraySize");
        QTest::addColumn<int>("badPoint");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::newRow("read-only") << true << false << 20 << -1 << WriteRefused
                                   << "Antriebsregler ist schreibgeschützt.";
        QTest::newRow("online and both arrays too small")
            << false << true << 5 << -1 << "Ändern des Parameters nicht möglich"
            << "Die Stützstellen-Arrays müssen vergrößert werden, dies benötigt ein Neustart der Konfiguration, "
               "bitte gehen sie offline und schreiben sie erneut.";
        QTest::newRow("last point outside the limits")
            << false << false << 20 << 9 << WriteRefused
            << "Parameter: Kurvenscheibe 0 Master-Stützstelle [9] kann nicht geschrieben werden. "
               "Wert 400000 ist zu groß max: 360000";
    }
    void refusedWriteChangesNoElement()
    {
        QFETCH(bool, readOnly);
        QFETCH(bool, online);
        QFETCH(int, arraySize);
        QFETCH(int, badPoint);
        QFETCH(QString, title);
        QFETCH(QString, text);
        BoundTable bound;
        QVERIFY(bound.drive.setNativeLimits(bound.master().toText(), -1000, 360000));
        QVERIFY(bound.resize(arraySize, arraySize));
        bound.drive.setOnline(online);
        bound.drive.setReadOnly(readOnly);
        QVector<QPointF> points = curvePoints(10);
        if (badPoint >= 0)
            points[badPoint].setX(400.0);
        SignalLog told(&bound.model());
        MessageCapture capture;
        bound.drive.clearWriteCounts();
        bound.model().writeGridPoints(points);

        QCOMPARE(capture.count(), 1);
        QCOMPARE(capture.last().title, title);
        QCOMPARE(capture.last().text, text);
        QCOMPARE(capture.last().icon, QMessageBox::Warning);
        QCOMPARE(bound.drive.elementWrites(bound.master().toText()), 0);
        QCOMPARE(bound.drive.elementWrites(bound.slave().toText()), 0);
        QCOMPARE(told, (QStringList { "started", "finished" }));
        // The stamp is still brought up to date, unless the drive refuses writes.
        QCOMPARE(bound.drive.elementWrites(QStringLiteral("G293")), readOnly ? 0 : 1);
    }

    void growthOnlyWhenBothArraysTooSmall_data()
    {
        QTest::addColumn<int>("masterSize");
        QTest::addColumn<int>("slaveSize");
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("masterAfter");
        QTest::addColumn<int>("slaveAfter");
        QTest::addColumn<bool>("online");
        QTest::newRow("100/50 with 80 points: no growth") << 100 << 50 << 80 << 100 << 50 << false;
        QTest::newRow("50/100 with 80 points: no growth") << 50 << 100 << 80 << 50 << 100 << false;
        QTest::newRow("both too small grow to the count") << 10 << 30 << 80 << 80 << 80 << false;
        QTest::newRow("both large enough") << 90 << 90 << 80 << 90 << 90 << false;
        // Online the stamp array is not resized for a later table either.
        QTest::newRow("online, large enough") << 90 << 90 << 80 << 90 << 90 << true;
    }
    void growthOnlyWhenBothArraysTooSmall()
    {
        QFETCH(int, masterSize);
        QFETCH(int, slaveSize);
        QFETCH(int, count);
        QFETCH(int, masterAfter);
        QFETCH(int, slaveAfter);
        QFETCH(bool, online);
        BoundTable bound(5);
        QVERIFY(bound.resize(masterSize, slaveSize));
        bound.drive.setOnline(online);
        QSignalSpy sizeChanged(&bound.model(), &ParameterModel::sizeChanged);
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(count));
        QCOMPARE(capture.count(), 0);
        QCOMPARE(bound.definition(bound.master())->elementCount(), masterAfter);
        QCOMPARE(bound.definition(bound.slave())->elementCount(), slaveAfter);
        QCOMPARE(sizeChanged.count(), masterAfter != masterSize ? 1 : 0);
        QCOMPARE(bound.tableValue("G68"), QString::number(count));
        QCOMPARE(bound.definition(coordinate("G293"))->elementCount(), online ? 1 : 6);
    }

    void elementTextsAndZeroFill()
    {
        BoundTable bound;
        QVERIFY(bound.resize(6, 6));
        for (int i = 0; i < 6; ++i) {
            QVERIFY(bound.drive.writeValue(LivingSpace, bound.master(), i, QStringLiteral("99")));
            QVERIFY(bound.drive.writeValue(LivingSpace, bound.slave(), i, QStringLiteral("-99")));
        }
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("1")));
        bound.drive.clearWriteCounts();
        MessageCapture capture;
        bound.model().writeGridPoints({ QPointF(1.0, 2.345), QPointF(2.0, 3.0) });
        QStringList log;
        for (const auto &record : bound.drive.writeLog().mid(0, 12))
            log << QStringLiteral("%1[%2]=%3").arg(record.coordinate).arg(record.element).arg(record.text);
        // The slave is rounded to its three places and written with the
        // master's one; the rest is zeroed, slave before master.
        QStringList expected { "G283[0]=1.0", "G284[0]=2.3", "G283[1]=2.0", "G284[1]=3.0" };
        for (int j = 2; j < 6; ++j)
            expected << QStringLiteral("G284[%1]=0.0").arg(j) << QStringLiteral("G283[%1]=0.0").arg(j);
        QCOMPARE(log, expected);
        QCOMPARE(bound.natives(bound.slave()), (QStringList { "2300", "3000", "0", "0", "0", "0" }));
    }

    void readBackDerivesByDifferences()
    {
        BoundTable bound;
        MessageCapture capture;
        bound.model().writeGridPoints({ QPointF(0, 0), QPointF(1, 2), QPointF(3, 6), QPointF(4, 10) });
        QCOMPARE(bound.model().storedVelocities(), QPolygonF({ QPointF(0, 2), QPointF(1, 2), QPointF(3, 4), QPointF(4, 4) }));
        QCOMPARE(bound.model().storedAccelerations(),
                 QPolygonF({ QPointF(0, 0), QPointF(1, 1), QPointF(3, 0), QPointF(4, 0) }));
        QCOMPARE(bound.model().storedJerks(),
                 QPolygonF({ QPointF(0, 1), QPointF(1, -0.5), QPointF(3, 0), QPointF(4, 0) }));

        // A repeated master would divide by zero: no derivatives at all.
        bound.model().writeGridPoints({ QPointF(0, 0), QPointF(1, 1), QPointF(1, 2) });
        QCOMPARE(bound.model().storedGridPoints().size(), 3);
        QVERIFY(bound.model().storedVelocities().isEmpty());
        QVERIFY(bound.model().storedJerks().isEmpty());
    }

    void deleteOfflineEmptiesTable()
    {
        BoundTable bound(3);
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(20));
        SignalLog told(&bound.model());
        bound.model().deleteGridPoints();
        QCoreApplication::processEvents();
        // The write left the model following its arrays: the zeroing of
        // element 0 is told first, the deletion itself ends with size, value.
        QCOMPARE(told, (QStringList { "value", "size", "value" }));
        QCOMPARE(bound.tableValue("G60") + bound.tableValue("G61"), QString());
        QCOMPARE(bound.model().storedGridPointCount(), 0);
        QVERIFY(bound.model().storedGridPoints().isEmpty());
        QCOMPARE(bound.natives(bound.master()), QStringList { "0" });
        QCOMPARE(bound.natives(bound.slave()), QStringList { "0" });

        // Online nothing happens.
        bound.model().writeGridPoints(curvePoints(20));
        bound.drive.setOnline(true);
        const QByteArray before = bound.drive.toJson();
        told.clear();
        bound.model().deleteGridPoints();
        QCOMPARE(bound.drive.toJson(), before);
        QVERIFY(told.isEmpty());
        QCOMPARE(bound.model().storedGridPoints().size(), 20);
    }

    void summary_data()
    {
        QTest::addColumn<QString>("count");
        QTest::addColumn<bool>("foreign");
        QTest::newRow("own table") << "" << false;
        QTest::newRow("count 5 with a wrong stamp") << "5" << true;
        QTest::newRow("count 2 is compared") << "2" << true;
        QTest::newRow("count 1 is never compared") << "1" << false;
        QTest::newRow("count 0 is never compared") << "0" << false;
    }
    void summary()
    {
        QFETCH(QString, count);
        QFETCH(bool, foreign);
        BoundTable bound;
        MessageCapture capture;
        bound.model().writeGridPoints({ QPointF(0, 1.5), QPointF(10, 2), QPointF(20.25, -3) });
        // Another tool leaves a stamp and a count that do not fit the table;
        // the model does not follow either parameter, so its points stay.
        if (!count.isEmpty()) {
            const QString wrongStamp = QString::number(bound.model().computeCrc() ^ 1u);
            QVERIFY(bound.drive.writeValueNative(LivingSpace, coordinate("G293"), 0, wrongStamp));
            QVERIFY(bound.drive.writeValue(LivingSpace, coordinate("G68"), 0, count));
        }
        const QString own = QStringLiteral(
            "<html><head/><body><p>Stützstellen Parameter: </p><p>\tAnzahl: 3</p><p>\tErstes Element:</p><p>\t\tMaster: "
            "0.000 </p><p>\t\tSlave: 1.500</p><p>\tLetztes Element:</p><p>\t\tMaster: 20.250 </p><p>Slave: -3.000</p>"
            "</body></html>");
        const QString mark = QStringLiteral(
            "<html><head/><body><p> Stützstellenwerte wurden nicht vom Kurvenscheibeneditor beschrieben.</p></body></html>");
        QCOMPARE(bound.model().storedTableSummary(), foreign ? mark + own : own);

        // Two points are too few for a summary.
        bound.model().writeGridPoints({ QPointF(0, 1), QPointF(10, 2) });
        QVERIFY(bound.model().storedTableSummary().isEmpty());
    }

    void driveFailingInTheMiddleIsNotDetected_data()
    {
        QTest::addColumn<QString>("failure");
        QTest::newRow("writes fail") << "fail";
        QTest::newRow("goes online") << "online";
        QTest::newRow("goes read-only") << "readOnly";
    }
    void driveFailingInTheMiddleIsNotDetected()
    {
        QFETCH(QString, failure);
        BoundTable bound;
        QVERIFY(bound.resize(20, 20));
        if (failure == QLatin1String("fail"))
            bound.drive.failWritesAfter(6);
        else if (failure == QLatin1String("online"))
            bound.drive.goOnlineAfterWrites(6);
        else
            bound.drive.goReadOnlyAfterWrites(6);
        QSignalSpy finished(&bound.model(), &ParameterModel::writeProcessFinished);
        MessageCapture capture;
        const QVector<QPointF> points = curvePoints(20);
        bound.model().writeGridPoints(points);
        QCOMPARE(capture.count(), 0);
        QCOMPARE(finished.count(), 1);
        // Online the drive still takes values; only refusing drives stop the table.
        const bool refusing = failure != QLatin1String("online");
        const QStringList masters = bound.natives(bound.master());
        QCOMPARE(masters.at(2), QString::fromLatin1(nativeOf(points.at(2).x())));
        QCOMPARE(masters.at(10), refusing ? QStringLiteral("0") : QString::fromLatin1(nativeOf(points.at(10).x())));
        QCOMPARE(bound.tableValue("G68"), refusing ? QStringLiteral("0") : QStringLiteral("20"));
    }
};

QTEST_GUILESS_MAIN(TestGridPointTable)
#include "tst_gridpointtable.moc"
