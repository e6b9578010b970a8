#include "curves/positionrounding.h"

#include <QLocale>
#include <QtTest>

#include <cmath>
#include <random>

// The one rounding of positions to the drive's decimal places, over random
// values of both signs and 0..6 places, with the default locale German or C;
// the test runs once under each system locale (see CMakeLists.txt).
class TestPositionRounding : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }

    void randomValues_data()
    {
        QTest::addColumn<QLocale>("locale");
        QTest::newRow("German default locale") << QLocale(QLocale::German, QLocale::Germany);
        QTest::newRow("C default locale") << QLocale::c();
    }
    void randomValues()
    {
        QFETCH(QLocale, locale);
        QLocale::setDefault(locale);
        const quint64 seed = qEnvironmentVariableIsSet("MX_ROUNDING_SEED")
            ? qgetenv("MX_ROUNDING_SEED").toULongLong()
            : 20261124u;
        std::mt19937_64 random(seed);
        std::uniform_real_distribution<double> mantissa(0.0, 10.0);
        std::uniform_int_distribution<int> exponent(-7, 7);
        std::uniform_int_distribution<int> places(0, 6);
        const QLocale system = QLocale::system();
        for (int n = 0; n < 20000; ++n) {
            const int decimals = places(random);
            const double value = (n % 2 ? -1.0 : 1.0) * mantissa(random) * std::pow(10.0, exponent(random));
            const double scale = std::pow(10.0, decimals);
            const double units = PositionRounding::units(value, decimals);
            const double rounded = PositionRounding::rounded(value, decimals);
            const QString where = QStringLiteral("seed %1 (MX_ROUNDING_SEED), value %2, %3 places")
                                      .arg(seed)
                                      .arg(value, 0, 'g', 17)
                                      .arg(decimals);
            // A whole number of units, at most half a unit away, the same for
            // both signs, and never a negative zero.
            QVERIFY2(units == std::trunc(units), qPrintable(where));
            QVERIFY2(std::fabs(value * scale - units) <= 0.5, qPrintable(where));
            QVERIFY2(PositionRounding::units(-value, decimals) == -units, qPrintable(where));
            QVERIFY2(!std::signbit(units) || units != 0.0, qPrintable(where));
            QVERIFY2(rounded == units / scale, qPrintable(where));
            // The texts the editor writes and shows read back as the same unit,
            // in the C form, the default locale's and the system locale's.
            const QString text = QString::number(rounded, 'f', decimals);
            QVERIFY2(PositionRounding::sameUnit(text.toDouble(), value, decimals), qPrintable(where + text));
            QVERIFY2(PositionRounding::sameUnit(QLocale().toDouble(QLocale().toString(rounded, 'f', decimals)), value,
                                                decimals),
                     qPrintable(where));
            const QString systemText = QString(text).replace(QLatin1Char('.'), system.decimalPoint());
            QVERIFY2(PositionRounding::sameUnit(system.toDouble(systemText), value, decimals),
                     qPrintable(where + systemText));
            // One unit more is always another value: 1000 x 1.001 lies below
            // 1001, and a truncating comparison took it for 1.000.
            QVERIFY2(!PositionRounding::sameUnit(rounded + 1.0 / scale, rounded, decimals), qPrintable(where));
        }
    }

    void halvesRoundAwayFromZero_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<double>("rounded");
        QTest::newRow("0.5") << 0.5 << 0 << 1.0;
        QTest::newRow("-0.5") << -0.5 << 0 << -1.0;
        QTest::newRow("2.5") << 2.5 << 0 << 3.0;
        QTest::newRow("-2.5") << -2.5 << 0 << -3.0;
        QTest::newRow("0.25 to one place") << 0.25 << 1 << 0.3;
        QTest::newRow("-0.125 to two places") << -0.125 << 2 << -0.13;
        QTest::newRow("1.001 to three places") << 1.001 << 3 << 1.001;
        QTest::newRow("a negative zero is zero") << -0.0004 << 3 << 0.0;
    }
    void halvesRoundAwayFromZero()
    {
        QFETCH(double, value);
        QFETCH(int, decimals);
        QFETCH(double, rounded);
        QCOMPARE(PositionRounding::rounded(value, decimals), rounded);
        QVERIFY(!std::signbit(PositionRounding::rounded(value, decimals)) || rounded != 0.0);
    }
};

QTEST_GUILESS_MAIN(TestPositionRounding)
#include "tst_positionrounding.moc"
