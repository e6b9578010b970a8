#include "boundtable.h"
#include "messagecapture.h"

#include <QSignalSpy>
#include <QtTest>

#include <zlib.h>

using MxParameterDefinition::ParameterCoordinate;

namespace {
const QString WriteRefused = QStringLiteral("Schreiben in Parameter nicht möglich");
constexpr int LivingSpace = BoundTable::LivingSpace;

ParameterCoordinate coordinate(const char *text)
{
    return ParameterCoordinate(QString::fromLatin1(text));
}
} // namespace

// The parameter model under the test suite's C locale ("." as decimal point).
class TestParameterModel : public QObject
{
    Q_OBJECT
private slots:
    void tableCoordinates_data()
    {
        QTest::addColumn<int>("table");
        QTest::addColumn<QString>("master");
        QTest::addColumn<QString>("slave");
        QTest::newRow("table 0") << 0 << "G283" << "G284";
        QTest::newRow("table 4, end of the first range") << 4 << "G291" << "G292";
        QTest::newRow("table 5, start of the second range") << 5 << "G415" << "G416";
        QTest::newRow("table 15") << 15 << "G435" << "G436";
        QTest::newRow("table 16 does not exist") << 16 << "" << "";
    }
    void tableCoordinates()
    {
        QFETCH(int, table);
        QFETCH(QString, master);
        QFETCH(QString, slave);
        BoundTable bound(table);
        QCOMPARE(bound.model().masterCoordinateText(), master);
        QCOMPARE(bound.model().slaveCoordinateText(), slave);
    }

    void unknownTableReadsAndWritesNothing()
    {
        BoundTable bound(16);
        QCOMPARE(bound.model().storedGridPointCount(), 0);
        QVERIFY(bound.model().storedGridPoints().isEmpty());
        QVERIFY(bound.model().storedTableSummary().isEmpty());
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(4));
        QCOMPARE(bound.drive.totalElementWrites(), 0);
    }

    void valueTexts_data()
    {
        QTest::addColumn<int>("masterDecimals");
        QTest::addColumn<int>("slaveDecimals");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("masterText");
        QTest::addColumn<QString>("slaveText");
        QTest::newRow("drive default") << 3 << 3 << 12.5 << "12.500" << "12.500";
        QTest::newRow("axes differ") << 1 << 4 << -0.26 << "-0.3" << "-0.2600";
        QTest::newRow("no decimals") << 0 << 2 << 359.6 << "360" << "359.60";
    }
    void valueTexts()
    {
        QFETCH(int, masterDecimals);
        QFETCH(int, slaveDecimals);
        QFETCH(double, value);
        QFETCH(QString, masterText);
        QFETCH(QString, slaveText);
        BoundTable bound;
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QString::number(masterDecimals)));
        QVERIFY(bound.drive.writeValue(LivingSpace, coordinate("I06"), 0, QString::number(slaveDecimals)));
        QCOMPARE(bound.model().masterDecimalPlaces(), masterDecimals);
        QCOMPARE(bound.model().slaveDecimalPlaces(), slaveDecimals);
        QCOMPARE(bound.model().masterValueToText(value), masterText);
        QCOMPARE(bound.model().slaveValueToText(value), slaveText);
    }

    void textToValue_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("master");
        QTest::addColumn<double>("slave");
        QTest::newRow("plain") << "12.5" << 12.5 << 12.5;
        QTest::newRow("master unit") << "12.5 °" << 12.5 << 0.0;
        QTest::newRow("slave unit") << "7.25 mm" << 0.0 << 7.25;
        QTest::newRow("unit is case-sensitive") << "7.25 MM" << 0.0 << 0.0;
    }
    void textToValue()
    {
        QFETCH(QString, text);
        QFETCH(double, master);
        QFETCH(double, slave);
        BoundTable bound;
        QCOMPARE(bound.model().masterUnit(), QStringLiteral("°"));
        QCOMPARE(bound.model().slaveUnit(), QStringLiteral("mm"));
        QCOMPARE(bound.model().masterTextToValue(text), master);
        QCOMPARE(bound.model().slaveTextToValue(text), slave);
    }

    void roundingHalfAwayFromZero_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("rounded");
        QTest::newRow("half up") << 0.25 << 0.3;
        QTest::newRow("half down for negatives") << -0.25 << -0.3;
        QTest::newRow("below half") << 0.24 << 0.2;
        QTest::newRow("odd half") << 0.35 << 0.4;
    }
    void roundingHalfAwayFromZero()
    {
        QFETCH(double, value);
        QFETCH(double, rounded);
        BoundTable bound;
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("1")));
        QVERIFY(bound.drive.writeValue(LivingSpace, coordinate("I06"), 0, QStringLiteral("1")));
        QCOMPARE(bound.model().roundMaster(value), rounded);
        QCOMPARE(bound.model().roundSlave(value), rounded);
    }

    void valueCheckMessages_data()
    {
        QTest::addColumn<bool>("master");
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("message");
        QTest::newRow("master at maximum") << true << 360.0 << "";
        QTest::newRow("master at minimum") << true << -1.0 << "";
        QTest::newRow("master above")
            << true << 360.5 << "Der Wert 360.500 ° ist zu groß, das Maximum ist 360.000 °";
        QTest::newRow("master below") << true << -2.0 << "Der Wert -2.000 ° ist zu klein, das Minimum ist -1.000 °";
        QTest::newRow("slave above") << false << 100.25 << "Der Wert 100.250 mm ist zu groß, das Maximum ist 100.000 mm";
        QTest::newRow("slave inside") << false << -100.0 << "";
    }
    void valueCheckMessages()
    {
        QFETCH(bool, master);
        QFETCH(double, value);
        QFETCH(QString, message);
        BoundTable bound;
        QVERIFY(bound.drive.setNativeLimits(bound.master().toText(), -1000, 360000));
        QVERIFY(bound.drive.setNativeLimits(bound.slave().toText(), -100000, 100000));
        QCOMPARE(master ? bound.model().checkMasterValue(value) : bound.model().checkSlaveValue(value), message);
    }

    void valueCheckWithOwnMinimum()
    {
        BoundTable bound;
        QVERIFY(bound.drive.setNativeLimits(bound.master().toText(), -1000, 360000));
        QCOMPARE(bound.model().checkMasterValue(5.0, 10.0),
                 QStringLiteral("Der Wert 5.000 ° ist zu klein, das Minimum ist 10.000 °"));
        QCOMPARE(bound.model().checkMasterValue(-1.0, -5.0), QString());
        QCOMPARE(bound.model().checkSlaveValue(1.0, 2.0),
                 QStringLiteral("Der Wert 1.000 mm ist zu klein, das Minimum ist 2.000 mm"));
    }

    void gridPointCheck_data()
    {
        QTest::addColumn<QPointF>("point");
        QTest::addColumn<QString>("message");
        const QString master = QStringLiteral("Parameter: Kurvenscheibe 0 Master-Stützstelle [3] kann nicht geschrieben "
                                              "werden. Wert %1");
        const QString slave = QStringLiteral("Parameter: Kurvenscheibe 0 Slave-Stützstelle [3] kann nicht geschrieben "
                                             "werden. Wert %1");
        QTest::newRow("master equal to maximum passes") << QPointF(360.0, 0.0) << QString();
        QTest::newRow("rounds onto the maximum") << QPointF(360.0004, 0.0) << QString();
        QTest::newRow("one step above the maximum")
            << QPointF(360.001, 0.0) << master.arg(QStringLiteral("360001 ist zu groß max: 360000"));
        QTest::newRow("one step below the minimum")
            << QPointF(-1.001, 0.0) << master.arg(QStringLiteral("-1001 ist zu klein min: -1000"));
        QTest::newRow("slave not checked after master failed")
            << QPointF(400.0, 500.0) << master.arg(QStringLiteral("400000 ist zu groß max: 360000"));
        // The slave detail quotes the master array's limits although the
        // slave limits decide (kept as the users know it).
        QTest::newRow("slave above its own maximum quotes the master maximum")
            << QPointF(0.0, 100.001) << slave.arg(QStringLiteral("100001 ist zu groß max: 360000"));
        QTest::newRow("slave below its own minimum quotes the master minimum")
            << QPointF(0.0, -100.001) << slave.arg(QStringLiteral("-100001 ist zu klein min: -1000"));
        QTest::newRow("slave equal to its maximum passes") << QPointF(0.0, 100.0) << QString();
    }
    void gridPointCheck()
    {
        QFETCH(QPointF, point);
        QFETCH(QString, message);
        BoundTable bound;
        QVERIFY(bound.drive.setNativeLimits(bound.master().toText(), -1000, 360000));
        QVERIFY(bound.drive.setNativeLimits(bound.slave().toText(), -100000, 100000));
        QCOMPARE(bound.model().checkGridPoint(3, point), message);
    }

    void writeStoresTableCountAndReferences()
    {
        BoundTable bound(5);
        const QVector<QPointF> points = curvePoints(7);
        QSignalSpy started(&bound.model(), &ParameterModel::writeProcessStarted);
        QSignalSpy finished(&bound.model(), &ParameterModel::writeProcessFinished);
        QSignalSpy sizeChanged(&bound.model(), &ParameterModel::sizeChanged);
        QSignalSpy valueChanged(&bound.model(), &ParameterModel::valueChanged);
        MessageCapture capture;
        bound.model().writeGridPoints(points);
        QCOMPARE(capture.count(), 0);
        QCOMPARE(started.count(), 1);
        QCOMPARE(finished.count(), 1);
        QCOMPARE(sizeChanged.count(), 1);
        QCOMPARE(valueChanged.count(), 1);

        QStringList masters;
        QStringList slaves;
        for (const QPointF &point : points) {
            masters << QString::fromLatin1(nativeOf(point.x()));
            slaves << QString::fromLatin1(nativeOf(point.y()));
        }
        QCOMPARE(bound.natives(coordinate("G415")), masters);
        QCOMPARE(bound.natives(coordinate("G416")), slaves);
        QCOMPARE(bound.tableValue("G68"), QStringLiteral("7"));
        QCOMPARE(bound.tableValue("G60"), QStringLiteral("1.G415"));
        QCOMPARE(bound.tableValue("G61"), QStringLiteral("1.G416"));
        QCOMPARE(bound.model().storedGridPointCount(), 7);
        const QPolygonF stored = bound.model().storedGridPoints();
        QCOMPARE(stored.size(), 7);
        for (int i = 0; i < 7; ++i) {
            QCOMPARE(stored.at(i).x(), std::round(points.at(i).x() * 1000.0) / 1000.0);
            QCOMPARE(stored.at(i).y(), std::round(points.at(i).y() * 1000.0) / 1000.0);
        }
    }

    void crcStampIsStandardCrc32OfTable()
    {
        BoundTable bound(5);
        const QVector<QPointF> points = curvePoints(12);
        MessageCapture capture;
        bound.model().writeGridPoints(points);

        // Index, master native, slave native, for every stored point.
        QByteArray buffer;
        for (int i = 0; i < points.size(); ++i)
            buffer += QByteArray::number(i) + nativeOf(points.at(i).x()) + nativeOf(points.at(i).y());
        const uLong expected = crc32(crc32(0L, Z_NULL, 0), reinterpret_cast<const Bytef *>(buffer.constData()),
                                     static_cast<uInt>(buffer.size()));
        QVERIFY(bound.definition(coordinate("G293"))->elementCount() >= 6);
        QCOMPARE(bound.drive.readValueNative(LivingSpace, coordinate("G293"), 5), QString::number(expected));
        QCOMPARE(bound.model().computeCrc(), quint32(expected));
    }

    void stampIsNotResizedOnline()
    {
        BoundTable bound(5);
        QVERIFY(bound.resize(10, 10));
        bound.drive.setOnline(true);
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(10));
        QCOMPARE(capture.count(), 0);
        QCOMPARE(bound.definition(coordinate("G293"))->elementCount(), 1);
        QCOMPARE(bound.tableValue("G68"), QStringLiteral("10"));
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
        for (int i = 0; i < arraySize; ++i)
            QVERIFY(bound.drive.writeValue(LivingSpace, bound.master(), i, QString::number(i * 7)));
        const QStringList masters = bound.natives(bound.master());
        const QStringList slaves = bound.natives(bound.slave());
        bound.drive.setOnline(online);
        bound.drive.setReadOnly(readOnly);
        QVector<QPointF> points = curvePoints(10);
        if (badPoint >= 0)
            points[badPoint].setX(400.0);

        QSignalSpy finished(&bound.model(), &ParameterModel::writeProcessFinished);
        QSignalSpy valueChanged(&bound.model(), &ParameterModel::valueChanged);
        MessageCapture capture;
        bound.drive.clearWriteCounts();
        bound.model().writeGridPoints(points);

        QCOMPARE(capture.count(), 1);
        QCOMPARE(capture.last().title, title);
        QCOMPARE(capture.last().text, text);
        QCOMPARE(capture.last().icon, QMessageBox::Warning);
        QCOMPARE(bound.natives(bound.master()), masters);
        QCOMPARE(bound.natives(bound.slave()), slaves);
        QCOMPARE(bound.drive.elementWrites(bound.master().toText()), 0);
        QCOMPARE(bound.drive.elementWrites(bound.slave().toText()), 0);
        QCOMPARE(finished.count(), 1);
        QCOMPARE(valueChanged.count(), 0);
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
        QTest::newRow("100/50 with 80 points: no growth") << 100 << 50 << 80 << 100 << 50;
        QTest::newRow("50/100 with 80 points: no growth") << 50 << 100 << 80 << 50 << 100;
        QTest::newRow("both too small grow to the count") << 10 << 30 << 80 << 80 << 80;
        QTest::newRow("both large enough") << 90 << 90 << 80 << 90 << 90;
    }
    void growthOnlyWhenBothArraysTooSmall()
    {
        QFETCH(int, masterSize);
        QFETCH(int, slaveSize);
        QFETCH(int, count);
        QFETCH(int, masterAfter);
        QFETCH(int, slaveAfter);
        BoundTable bound;
        QVERIFY(bound.resize(masterSize, slaveSize));
        QSignalSpy sizeChanged(&bound.model(), &ParameterModel::sizeChanged);
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(count));
        QCOMPARE(capture.count(), 0);
        QCOMPARE(bound.definition(bound.master())->elementCount(), masterAfter);
        QCOMPARE(bound.definition(bound.slave())->elementCount(), slaveAfter);
        QCOMPARE(sizeChanged.count(), masterAfter != masterSize ? 1 : 0);
        QCOMPARE(bound.tableValue("G68"), QString::number(count));
    }

    void restIsZeroedSlaveBeforeMaster()
    {
        BoundTable bound;
        QVERIFY(bound.resize(10, 10));
        for (int i = 0; i < 10; ++i) {
            QVERIFY(bound.drive.writeValue(LivingSpace, bound.master(), i, QStringLiteral("99")));
            QVERIFY(bound.drive.writeValue(LivingSpace, bound.slave(), i, QStringLiteral("-99")));
        }
        bound.drive.clearWriteCounts();
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(6));

        QStringList rest;
        for (const auto &record : bound.drive.writeLog()) {
            if ((record.coordinate == bound.master().toText() || record.coordinate == bound.slave().toText())
                && record.element >= 6)
                rest << QStringLiteral("%1[%2]=%3").arg(record.coordinate).arg(record.element).arg(record.text);
        }
        QStringList expected;
        for (int j = 6; j < 10; ++j)
            expected << QStringLiteral("G284[%1]=0.000").arg(j) << QStringLiteral("G283[%1]=0.000").arg(j);
        QCOMPARE(rest, expected);
        QCOMPARE(bound.natives(bound.master()).mid(6), QStringList(QVector<QString>(4, QStringLiteral("0")).toList()));
        QCOMPARE(bound.natives(bound.slave()).mid(6), QStringList(QVector<QString>(4, QStringLiteral("0")).toList()));
    }

    void slaveTextTakesMasterDecimals()
    {
        BoundTable bound;
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("1")));
        MessageCapture capture;
        bound.model().writeGridPoints({ QPointF(1.0, 2.345), QPointF(2.0, 3.0) });
        QStringList slaveTexts;
        for (const auto &record : bound.drive.writeLog()) {
            if (record.coordinate == bound.slave().toText())
                slaveTexts << record.text;
        }
        // Rounded to the slave's three places, written with the master's one.
        QCOMPARE(slaveTexts, (QStringList { "2.3", "3.0" }));
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
    }

    void repeatedMasterGivesNoDerivatives()
    {
        BoundTable bound;
        MessageCapture capture;
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
        QStringList order;
        connect(&bound.model(), &ParameterModel::sizeChanged, this, [&] { order << QStringLiteral("size"); });
        connect(&bound.model(), &ParameterModel::valueChanged, this, [&] { order << QStringLiteral("value"); });
        bound.model().deleteGridPoints();
        // The write left the model following its arrays, so the zeroing of
        // element 0 is announced first; the deletion itself ends with these two.
        QCOMPARE(order.mid(order.indexOf(QStringLiteral("size"))), (QStringList { "size", "value" }));
        QCOMPARE(bound.tableValue("G60"), QString());
        QCOMPARE(bound.tableValue("G61"), QString());
        QCOMPARE(bound.model().storedGridPointCount(), 0);
        QVERIFY(bound.model().storedGridPoints().isEmpty());
        QCOMPARE(bound.natives(bound.master()), QStringList { "0" });
        QCOMPARE(bound.natives(bound.slave()), QStringList { "0" });
    }

    void deleteOnlineDoesNothing()
    {
        BoundTable bound(3);
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(20));
        bound.drive.setOnline(true);
        const QByteArray before = bound.drive.toJson();
        QSignalSpy valueChanged(&bound.model(), &ParameterModel::valueChanged);
        bound.model().deleteGridPoints();
        QCOMPARE(bound.drive.toJson(), before);
        QCOMPARE(valueChanged.count(), 0);
        QCOMPARE(bound.model().storedGridPoints().size(), 20);
    }

    void summaryOfOwnTable()
    {
        BoundTable bound;
        MessageCapture capture;
        bound.model().writeGridPoints({ QPointF(0, 1.5), QPointF(10, 2), QPointF(20.25, -3) });
        QCOMPARE(bound.model().storedTableSummary(),
                 QStringLiteral("<html><head/><body><p>Stützstellen Parameter: </p><p>\tAnzahl: 3</p><p>\tErstes "
                                "Element:</p><p>\t\tMaster: 0.000 </p><p>\t\tSlave: 1.500</p><p>\tLetztes "
                                "Element:</p><p>\t\tMaster: 20.250 </p><p>Slave: -3.000</p></body></html>"));
    }

    void summaryOfShortTableIsEmpty()
    {
        BoundTable bound;
        MessageCapture capture;
        bound.model().writeGridPoints({ QPointF(0, 1), QPointF(10, 2) });
        QVERIFY(bound.model().storedTableSummary().isEmpty());
    }

    void summaryMarksForeignTable_data()
    {
        QTest::addColumn<QString>("count");
        QTest::addColumn<bool>("foreign");
        QTest::newRow("count 5 with a wrong stamp") << "5" << true;
        QTest::newRow("count 2 is compared") << "2" << true;
        QTest::newRow("count 1 is never compared") << "1" << false;
        QTest::newRow("count 0 is never compared") << "0" << false;
    }
    void summaryMarksForeignTable()
    {
        QFETCH(QString, count);
        QFETCH(bool, foreign);
        BoundTable bound;
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(5));
        QVERIFY(!bound.model().storedTableSummary().contains(QStringLiteral("nicht vom Kurvenscheibeneditor")));
        // Another tool leaves a stamp and a count that do not fit the table;
        // the model does not follow either parameter, so its points stay.
        const QString wrongStamp = QString::number(bound.model().computeCrc() ^ 1u);
        QVERIFY(bound.drive.writeValueNative(LivingSpace, coordinate("G293"), 0, wrongStamp));
        QVERIFY(bound.drive.writeValue(LivingSpace, coordinate("G68"), 0, count));
        const QString summary = bound.model().storedTableSummary();
        QVERIFY(summary.contains(QStringLiteral("Anzahl: 5")));
        QCOMPARE(summary.startsWith(QStringLiteral(
                     "<html><head/><body><p> Stützstellenwerte wurden nicht vom Kurvenscheibeneditor beschrieben.</p>"
                     "</body></html><html>")),
                 foreign);
        QCOMPARE(summary.contains(QStringLiteral("nicht vom Kurvenscheibeneditor")), foreign);
    }

    void outsideChangeOfOwnArrayIsFollowed()
    {
        BoundTable bound;
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(5));
        bound.model().setConnections();
        QSignalSpy valueChanged(&bound.model(), &ParameterModel::valueChanged);
        QVERIFY(bound.drive.writeValue(LivingSpace, bound.slave(), 2, QStringLiteral("42")));
        QCOMPARE(valueChanged.count(), 1);
        QCOMPARE(bound.model().storedGridPoints().at(2).y(), 42.0);
        // The stamp follows the outside change.
        QCOMPARE(bound.drive.readValueNative(LivingSpace, coordinate("G293"), 0),
                 QString::number(bound.model().computeCrc()));
        QVERIFY(!bound.model().storedTableSummary().contains(QStringLiteral("nicht vom")));
    }

    void changesElsewhereAreIgnored_data()
    {
        QTest::addColumn<int>("livingSpace");
        QTest::addColumn<QString>("array");
        QTest::newRow("other axis") << 2 << "G284";
        QTest::newRow("drive-wide space") << 0 << "G283";
        QTest::newRow("other table") << 1 << "G286";
    }
    void changesElsewhereAreIgnored()
    {
        QFETCH(int, livingSpace);
        QFETCH(QString, array);
        BoundTable bound;
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(5));
        bound.model().setConnections();
        QSignalSpy valueChanged(&bound.model(), &ParameterModel::valueChanged);
        QVERIFY(bound.drive.writeValue(livingSpace, ParameterCoordinate(array), 0, QStringLiteral("42")));
        QCOMPARE(valueChanged.count(), 0);
    }

    void ownWritesAreNotFollowed()
    {
        BoundTable bound;
        bound.model().setConnections();
        QSignalSpy valueChanged(&bound.model(), &ParameterModel::valueChanged);
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(30));
        QCOMPARE(valueChanged.count(), 1);
        // Tracking is back after the write.
        QVERIFY(bound.drive.writeValue(LivingSpace, bound.master(), 0, QStringLiteral("-0.5")));
        QCOMPARE(valueChanged.count(), 2);
    }

    void decimalPlacesChange_data()
    {
        QTest::addColumn<QString>("coordinate");
        QTest::addColumn<int>("livingSpace");
        QTest::addColumn<QString>("value");
        QTest::addColumn<int>("signalCount");
        QTest::newRow("master places") << "G46" << 0 << "2" << 1;
        QTest::newRow("slave places") << "I06" << 1 << "4" << 1;
        QTest::newRow("same value") << "G46" << 0 << "3" << 0;
        QTest::newRow("other axis") << "I06" << 2 << "4" << 0;
    }
    void decimalPlacesChange()
    {
        QFETCH(QString, coordinate);
        QFETCH(int, livingSpace);
        QFETCH(QString, value);
        QFETCH(int, signalCount);
        BoundTable bound;
        bound.model().setConnections();
        QSignalSpy spy(&bound.model(), &ParameterModel::decimalPlacesChanged);
        QVERIFY(bound.drive.writeValue(livingSpace, ParameterCoordinate(coordinate), 0, value));
        QCOMPARE(spy.count(), signalCount);
        const int expected = signalCount ? value.toInt() : 3;
        QCOMPARE(coordinate == QLatin1String("G46") ? bound.model().masterDecimalPlaces()
                                                     : bound.model().slaveDecimalPlaces(),
                 expected);
    }

    void unitsAndLimitsFollowTheDrive()
    {
        BoundTable bound;
        bound.model().setConnections();
        QVERIFY(bound.drive.writeValue(0, coordinate("G49"), 0, QStringLiteral("mm")));
        QVERIFY(bound.drive.writeValue(LivingSpace, coordinate("I09"), 0, QStringLiteral("Inc")));
        QCOMPARE(bound.model().masterUnit(), QStringLiteral("mm"));
        QCOMPARE(bound.model().slaveUnit(), QStringLiteral("Inc"));
        QVERIFY(bound.drive.setNativeLimits(bound.slave().toText(), 0, 5000));
        QCOMPARE(bound.model().slaveMaximum(), 5.0);
        QCOMPARE(bound.model().slaveMinimum(), 0.0);
        QVERIFY(!bound.model().checkSlaveValue(5.001).isEmpty());
    }

    void decimalPlacesSlotsAreSilent()
    {
        BoundTable bound;
        QSignalSpy spy(&bound.model(), &ParameterModel::decimalPlacesChanged);
        QVERIFY(bound.drive.writeValue(0, coordinate("G46"), 0, QStringLiteral("5")));
        bound.model().updateDecimalPlacesMaster();
        QCOMPARE(bound.model().masterDecimalPlaces(), 5);
        QCOMPARE(spy.count(), 0);
    }

    void connectionStatesAreForwarded()
    {
        BoundTable bound;
        QStringList order;
        connect(&bound.model(), &ParameterModel::readOnlySetToChange, this, [&] { order << QStringLiteral("pending"); });
        connect(&bound.model(), &ParameterModel::readOnlyChanged, this, [&] { order << QStringLiteral("changed"); });
        bound.drive.setReadOnly(true);
        QVERIFY(bound.model().isReadOnly());
        bound.drive.setOnline(true);
        QVERIFY(bound.model().isOnline());
        QCOMPARE(order, (QStringList { "pending", "changed", "pending", "changed" }));
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

    void tableSurvivesProjectFile()
    {
        QTemporaryDir directory;
        const QString first = directory.filePath(QStringLiteral("first.json"));
        const QString second = directory.filePath(QStringLiteral("second.json"));
        QVector<QPointF> points = curvePoints(50);
        QStringList masters;
        {
            BoundTable bound(7);
            MessageCapture capture;
            bound.model().writeGridPoints(points);
            masters = bound.natives(bound.master());
            QString error;
            QVERIFY2(bound.drive.save(first, &error), qPrintable(error));
        }
        BoundTable reopened(7);
        QString error;
        QVERIFY2(reopened.drive.load(first, &error), qPrintable(error));
        QCOMPARE(reopened.natives(reopened.master()), masters);
        QCOMPARE(reopened.model().storedGridPointCount(), 50);
        QVERIFY(!reopened.model().storedTableSummary().contains(QStringLiteral("nicht vom")));
        QVERIFY(reopened.drive.save(second, &error));
        QFile a(first);
        QFile b(second);
        QVERIFY(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
        QCOMPARE(b.readAll(), a.readAll());
    }
};

QTEST_GUILESS_MAIN(TestParameterModel)
#include "tst_parametermodel.moc"
