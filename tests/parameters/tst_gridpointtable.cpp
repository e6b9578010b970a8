#include "boundtable.h"
#include "messagecapture.h"

#include <QtTest>

#include <cmath>

namespace {
const QString WriteRefused = QStringLiteral("Schreiben in Parameter nicht möglich");
constexpr int LivingSpace = BoundTable::LivingSpace;
} // namespace

// Writing, reading back, deleting and stamping a cam table, under the test
// suite's C locale. What a write that is taken leaves in the drive (elements
// with the master's places, zeros slave before master, count, references,
// grown arrays, the stamp against a CRC computed without the model) and what a deletion leaves, offline and online, are
// checked for random tables in tst_gridpointwritefaults; the order of the
// model's signals in tst_saveparameterprogress and, for a deletion, in
// tst_parametermodel.
class TestGridPointTable : public QObject
{
    Q_OBJECT
private slots:
    void refusedWriteChangesNothing_data()
    {
        QTest::addColumn<int>("table");
        QTest::addColumn<bool>("readOnly");
        QTest::addColumn<bool>("online");
        QTest::addColumn<int>("masterSize");
        QTest::addColumn<int>("slaveSize");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("fault");  // "limit" or "nan" at the last point
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        const QString resize = QStringLiteral("Ändern des Parameters nicht möglich");
        QTest::newRow("read-only") << 0 << true << false << 20 << 20 << 10 << "" << WriteRefused
                                   << "Antriebsregler ist schreibgeschützt.";
        QTest::newRow("online and both arrays too small")
            << 0 << false << true << 5 << 5 << 10 << "" << resize
            << "Die Stützstellen-Arrays müssen vergrößert werden, dies benötigt ein Neustart der Konfiguration, "
               "bitte gehen sie offline und schreiben sie erneut.";
        QTest::newRow("last point outside the limits")
            << 0 << false << false << 20 << 20 << 10 << "limit" << WriteRefused
            << "Parameter: Kurvenscheibe 0 Master-Stützstelle [9] kann nicht geschrieben werden. "
               "Wert 400000 ist zu groß max: 360000";
        // A cam whose sampling gives nothing zeroed every stored element.
        QTest::newRow("empty table") << 0 << false << false << 20 << 20 << 0 << "" << WriteRefused
                                     << "Die Stützstellentabelle ist leer; eine leere Tabelle wird nicht in den "
                                        "Antrieb geschrieben.";
        QTest::newRow("slave not a number")
            << 0 << false << false << 20 << 20 << 10 << "nan" << WriteRefused
            << "Die Stützstelle 9 hat keinen endlichen Wert (Master 4.50012, Slave nan); die Tabelle wird nicht in "
               "den Antrieb geschrieben.";
        // 20000 pairs kept the count at 3 and overwrote the first elements;
        // 70000 were counted as 4464 in 16 bits (among the random counts of
        // tst_gridpointwritefaults, refused by the same check).
        QTest::newRow("more than the arrays hold")
            << 0 << false << false << 3 << 3 << 20000 << "" << WriteRefused
            << "Die Tabelle hat 20000 Stützstellen, der Antrieb nimmt höchstens 16000 Stützstellen auf.";
        // Only both arrays too short grow them; one short array was written
        // past its end under a count it could not hold (both arrays take the
        // same check; a short master is among the random starting tables of
        // tst_gridpointwritefaults).
        QTest::newRow("slave array too short")
            << 0 << false << false << 100 << 50 << 80 << "" << WriteRefused
            << "Das Stützstellen-Array G284 hat 50 Elemente, die Tabelle hat 80 Stützstellen. Die Tabelle wird "
               "nicht geschrieben.";
        QTest::newRow("online without an element for the stamp")
            << 5 << false << true << 20 << 20 << 10 << "" << WriteRefused
            << "Die Prüfsumme der Kurvenscheibe 5 (G293) hat kein Element für diese Tabelle, bitte gehen sie offline "
               "und schreiben sie erneut.";
    }
    void refusedWriteChangesNothing()
    {
        QFETCH(int, table);
        QFETCH(bool, readOnly);
        QFETCH(bool, online);
        QFETCH(int, masterSize);
        QFETCH(int, slaveSize);
        QFETCH(int, count);
        QFETCH(QString, fault);
        QFETCH(QString, title);
        QFETCH(QString, text);
        BoundTable bound(table);
        QVERIFY(bound.drive.setNativeLimits(bound.master().toText(), -1000, 360000));
        QVERIFY(bound.resize(masterSize, slaveSize));
        bound.drive.setOnline(online);
        bound.drive.setReadOnly(readOnly);
        QVector<QPointF> points = curvePoints(count, 0.01);
        if (fault == QLatin1String("limit"))
            points.last().setX(400.0);
        else if (fault == QLatin1String("nan"))
            points.last() = QPointF(4.50012, std::nan(""));
        const QByteArray before = bound.drive.toJson();
        MessageCapture capture;
        bound.drive.clearWriteCounts();
        bound.model().writeGridPoints(points);

        QCOMPARE(capture.count(), 1);
        QCOMPARE(capture.last().title, title);
        QCOMPARE(capture.last().text, text);
        QCOMPARE(capture.last().icon, QMessageBox::Warning);
        // Neither the arrays, their sizes, the count nor the stamp change: a
        // refused write never marks a table as the editor's.
        QCOMPARE(bound.drive.totalElementWrites(), 0);
        QCOMPARE(bound.drive.toJson(), before);
    }

    void readBackDerivesByDifferences()
    {
        BoundTable bound;
        MessageCapture capture;
        bound.model().writeGridPoints({ QPointF(0, 0), QPointF(1, 2), QPointF(3, 6), QPointF(4, 10) });
        QCOMPARE(bound.model().storedVelocities(), QPolygonF({ QPointF(0, 2), QPointF(1, 2), QPointF(3, 4), QPointF(4, 4) }));
        // The accelerations (0, 1, 0, 0) are what the jerks are taken from.
        QCOMPARE(bound.model().storedJerks(),
                 QPolygonF({ QPointF(0, 1), QPointF(1, -0.5), QPointF(3, 0), QPointF(4, 0) }));

        // A repeated master would divide by zero: no derivatives at all.
        bound.model().writeGridPoints({ QPointF(0, 0), QPointF(1, 1), QPointF(1, 2) });
        QVERIFY(bound.model().storedVelocities().isEmpty());
    }

    void summary_data()
    {
        QTest::addColumn<QString>("count");
        QTest::addColumn<bool>("foreign");
        QTest::addColumn<QString>("damage");
        QTest::newRow("own table") << "" << false << "";
        // A count beyond the arrays is damage, told before everything else.
        QTest::newRow("count 5 with a wrong stamp")
            << "5" << true
            << "<html><head/><body><p> Die Stützstellentabelle ist beschädigt: Die Anzahl der Stützstellen ist 5, "
               "aber das Stützstellen-Array G283 hat nur 3 Elemente.</p></body></html>";
        QTest::newRow("count 2 is compared") << "2" << true << "";
        QTest::newRow("count 1 is never compared") << "1" << false << "";
    }
    void summary()
    {
        QFETCH(QString, count);
        QFETCH(bool, foreign);
        QFETCH(QString, damage);
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
        QCOMPARE(bound.model().storedTableSummary(), damage + (foreign ? mark + own : own));
    }

    // Failures at random places, and a drive going read-only or online in
    // the middle, are among the random cases of tst_gridpointwritefaults;
    // here what the user reads.
    void driveFailingInTheMiddleIsReported_data()
    {
        QTest::addColumn<bool>("growthRefused");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("text");
        QTest::newRow("writes fail")
            << false << WriteRefused
            << "Parameter: Kurvenscheibe 0 Master-Stützstelle [4] konnte nicht geschrieben werden, das Schreiben wurde "
               "abgebrochen. Die Stützstellen im Antrieb werden nicht als vom Kurvenscheibeneditor geschrieben "
               "gekennzeichnet.";
        QTest::newRow("growth refused")
            << true << "Ändern des Parameters nicht möglich"
            << "Der Antrieb hat das Vergrößern des Stützstellen-Arrays G284 auf 20 Elemente abgelehnt. Die Tabelle "
               "wurde nicht geschrieben.";
    }
    void driveFailingInTheMiddleIsReported()
    {
        QFETCH(bool, growthRefused);
        QFETCH(QString, title);
        QFETCH(QString, text);
        BoundTable bound;
        MessageCapture capture;
        // An own table first; that the stamp stays after a broken write is
        // checked for every fault of tst_gridpointwritefaults.
        bound.model().writeGridPoints(curvePoints(5, 3.0));
        if (growthRefused)
            bound.drive.refuseGrowthAfter(1);
        else
            bound.drive.failWritesAfter(6);
        bound.model().writeGridPoints(curvePoints(20));
        QCOMPARE(capture.count(), 1);
        QCOMPARE(capture.last().title, title);
        QCOMPARE(capture.last().text, text);
        // A refused growth undoes the one before.
        if (growthRefused) {
            QCOMPARE(bound.definition(bound.master())->elementCount(), 5);
            QCOMPARE(bound.definition(bound.slave())->elementCount(), 5);
        }
    }
};

QTEST_GUILESS_MAIN(TestGridPointTable)
#include "tst_gridpointtable.moc"
