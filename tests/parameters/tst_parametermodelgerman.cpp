#include "model/scalingimplementation.h"

#include "boundtable.h"
#include "messagecapture.h"

#include <QLocale>
#include <QtTest>

// The parameter model under a German system locale, as the drive suite runs
// at its users: "," is the decimal point of every text.
class TestParameterModelGerman : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        // The test is registered with LC_ALL=de_DE.UTF-8; without it every
        // comparison below would test the C locale again.
        QCOMPARE(QLocale::system().decimalPoint(), QLatin1Char(','));
    }

    // A rewrite with one element changed writes that element alone, under
    // random decimals and both locales, in tst_gridpointwritefaults; its
    // random values seldom meet the truncation below, so it stays here.
    void onlyChangedElementsAreWritten_data()
    {
        QTest::addColumn<double>("stored");
        QTest::addColumn<double>("written");
        QTest::addColumn<int>("elementWrites");
        // 1000 x 1.001 is 1000.999...: a truncating comparison kept 1.000.
        QTest::newRow("1.000 to 1.001") << 1.0 << 1.001 << 2;
        QTest::newRow("-1.000 to -1.001") << -1.0 << -1.001 << 2;
        // A change below the drive's resolution is none.
        QTest::newRow("1.000 to 1.0003") << 1.0 << 1.0003 << 0;
    }
    void onlyChangedElementsAreWritten()
    {
        QFETCH(double, stored);
        QFETCH(double, written);
        QFETCH(int, elementWrites);
        BoundTable bound;
        MessageCapture capture;
        bound.model().writeGridPoints({ QPointF(0, stored), QPointF(stored + 10, 2), QPointF(20, 3) });
        bound.drive.clearWriteCounts();
        bound.model().writeGridPoints({ QPointF(0, written), QPointF(written + 10, 2), QPointF(20, 3) });
        QCOMPARE(capture.count(), 0);
        // Stored values are read in German notation (the parse the stored
        // list uses too), so that equal ones are recognised.
        QCOMPARE(bound.drive.elementWrites(bound.slave().toText()) + bound.drive.elementWrites(bound.master().toText()),
                 elementWrites);
        // What was written, and the stamp over it, are checked for every
        // taken rewrite of tst_gridpointwritefaults.
    }

    // Both the limit messages and the summary take the system's decimal
    // point; the cycle time has its own formatting.
    void numbersShownWithComma()
    {
        BoundTable bound;
        QVERIFY(bound.drive.setNativeLimits(bound.master().toText(), 0, 360000));
        QCOMPARE(bound.model().checkMasterValue(400.0),
                 QStringLiteral("Der Wert 400,000 ° ist zu groß, das Maximum ist 360,000 °"));
        ScalingImplementation scaling(&bound.model());
        scaling.setCycleTime(0.00625);
        QCOMPARE(scaling.cycleTimeText(), QStringLiteral("0,0063 s"));
    }
};

QTEST_GUILESS_MAIN(TestParameterModelGerman)
#include "tst_parametermodelgerman.moc"
