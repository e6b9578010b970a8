#include "curves/camsectionfifthpolynomial.h"

#include <QtTest>

#include <array>
#include <cmath>

using Coefficients = std::array<double, 6>;
Q_DECLARE_METATYPE(Coefficients)

namespace {

CamSectionFifthPolynomial *makeSection(QObject *parent, double start, double end, const Coefficients &a)
{
    auto *section = new CamSectionFifthPolynomial(parent, start, end);
    section->setA0(a[0]);
    section->setA1(a[1]);
    section->setA2(a[2]);
    section->setA3(a[3]);
    section->setA4(a[4]);
    section->setA5(a[5]);
    return section;
}

} // namespace

class TestCamSectionFifthPolynomial : public QObject
{
    Q_OBJECT
private slots:
    void containment_data()
    {
        QTest::addColumn<double>("start");
        QTest::addColumn<double>("end");
        QTest::addColumn<double>("master");
        QTest::addColumn<bool>("contained");

        QTest::newRow("start belongs") << 10.0 << 20.0 << 10.0 << true;
        QTest::newRow("end belongs") << 10.0 << 20.0 << 20.0 << true;
        QTest::newRow("inside") << 10.0 << 20.0 << 12.5 << true;
        QTest::newRow("a millionth beyond the end") << 10.0 << 20.0 << 20.000001 << false;
        QTest::newRow("a millionth before the start") << 10.0 << 20.0 << 9.999999 << false;
        QTest::newRow("start after end holds nothing at start") << 20.0 << 10.0 << 20.0 << false;
        QTest::newRow("start after end holds nothing between") << 20.0 << 10.0 << 15.0 << false;
        QTest::newRow("empty interval holds its point") << 5.0 << 5.0 << 5.0 << true;
        QTest::newRow("not a number") << 10.0 << 20.0 << std::nan("") << false;
    }

    void containment()
    {
        QFETCH(double, start);
        QFETCH(double, end);
        QFETCH(double, master);
        QFETCH(bool, contained);
        const CamSectionFifthPolynomial section(nullptr, start, end);
        QCOMPARE(section.contains(master), contained);
    }

    // The terms are summed a0 + a1 t + ... + a5 t^5 with std::pow, in this order,
    // t measured from the start, also before the start and after the end.
    // Coefficients of mixed magnitude make other orders or a Horner scheme give
    // other last digits for at least one of these positions.
    void sumsPowersLowestFirst()
    {
        const Coefficients a{ 0.1, -1.0 / 3.0, 0.7, 1e-3 / 7.0, -2.0 / 9.0 * 1e-4, 3e-7 / 11.0 };
        const CamSectionFifthPolynomial *section = makeSection(this, 1.25, 200.0, a);
        bool hornerDiffers = false;
        for (double master : { -40.0, 1.25, 3.3, 17.1, 42.42, 77.7, 123.456, 199.9, 260.0 }) {
            const double t = master - 1.25;
            const double position = a[0] + a[1] * std::pow(t, 1) + a[2] * std::pow(t, 2) + a[3] * std::pow(t, 3)
                + a[4] * std::pow(t, 4) + a[5] * std::pow(t, 5);
            const double velocity = a[1] + 2.0 * a[2] * std::pow(t, 1) + 3.0 * a[3] * std::pow(t, 2)
                + 4.0 * a[4] * std::pow(t, 3) + 5.0 * a[5] * std::pow(t, 4);
            const double acceleration = 2.0 * a[2] + 6.0 * a[3] * std::pow(t, 1) + 12.0 * a[4] * std::pow(t, 2)
                + 20.0 * a[5] * std::pow(t, 3);
            const double jerk = 6.0 * a[3] + 24.0 * a[4] * std::pow(t, 1) + 60.0 * a[5] * std::pow(t, 2);
            QCOMPARE(qint64(qFloatDistance(section->position(master), position)), qint64(0));
            QCOMPARE(qint64(qFloatDistance(section->velocity(master), velocity)), qint64(0));
            QCOMPARE(qint64(qFloatDistance(section->acceleration(master), acceleration)), qint64(0));
            QCOMPARE(qint64(qFloatDistance(section->jerk(master), jerk)), qint64(0));
            const double horner = ((((a[5] * t + a[4]) * t + a[3]) * t + a[2]) * t + a[1]) * t + a[0];
            hornerDiffers = hornerDiffers || horner != position;
        }
        // Guards the test itself: the data must be able to tell the orders apart.
        QVERIFY(hornerDiffers);
        delete section;
    }
};

QTEST_GUILESS_MAIN(TestCamSectionFifthPolynomial)
#include "tst_camsectionfifthpolynomial.moc"
