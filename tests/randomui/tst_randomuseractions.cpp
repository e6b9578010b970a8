// Seeded random sequences of user actions on the editor's own widgets, the
// window opened from the host's button as a host does it. After every step
// each panel must show what the model holds, the undo stack must hold the
// texts of the actions done, and a refused input must change nothing; at
// the end, undoing everything must give back the first document.
//
// MX_RANDOM_UI_SEEDS ("1-20" or "4,9") and MX_RANDOM_UI_STEPS run others
// or more; a failure names the seed, the step and the actions that led to it.

#include "randomuser.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTest>

#include <cstdio>

namespace {

const char StartCam[] = R"({"Cyclic": true, "CircularLength": 360,
    "MotionPoints": [[0, 0, "rest"], [90, 40, "speed"], [180, 100, "acceleration"], [270, 20, "turningPoint"]]})";
constexpr int DefaultSteps = 200;
const unsigned DefaultSeeds[] = { 1, 2, 3 };

QList<unsigned> seeds()
{
    const QString text = qEnvironmentVariable("MX_RANDOM_UI_SEEDS");
    QList<unsigned> result;
    for (const QString &part : text.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const QStringList range = part.split(QLatin1Char('-'));
        const unsigned first = range.first().trimmed().toUInt();
        const unsigned last = range.size() > 1 ? range.last().trimmed().toUInt() : first;
        for (unsigned seed = first; seed <= last; ++seed)
            result << seed;
    }
    if (result.isEmpty())
        result = QList<unsigned>(std::begin(DefaultSeeds), std::end(DefaultSeeds));
    return result;
}

int steps()
{
    const int steps = qEnvironmentVariableIntValue("MX_RANDOM_UI_STEPS");
    return steps > 0 ? steps : DefaultSteps;
}

// The seed, the step and the way there, for a replay: the actions go to the
// error output line by line (a test message is cut short, and the test's own
// output stops after a number of lines), the message names the rest.
QByteArray report(unsigned seed, int step, const QString &problem, const QStringList &log)
{
    std::fprintf(stderr, "actions of seed %u:\n", seed);
    for (int i = 0; i < log.size(); ++i)
        std::fprintf(stderr, "  %d: %s\n", i, qUtf8Printable(log.at(i)));
    return QStringLiteral("seed %1, step %2 (replay: MX_RANDOM_UI_SEEDS=%1 MX_RANDOM_UI_STEPS=%3): %4")
        .arg(seed)
        .arg(step)
        .arg(step + 1)
        .arg(problem)
        .toUtf8();
}

} // namespace

class tst_RandomUserActions : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void userActions_data();
    void userActions();
};

void tst_RandomUserActions::cleanup()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

void tst_RandomUserActions::userActions_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed : seeds())
        QTest::newRow(qPrintable(QStringLiteral("seed %1").arg(seed))) << seed;
}

void tst_RandomUserActions::userActions()
{
    QFETCH(unsigned, seed);
    const int count = steps();
    RandomUser user(seed, StartCam);
    const RandomUser::State first = user.state();
    QString problem = user.check();
    if (!problem.isEmpty())
        QFAIL(report(seed, -1, problem, user.log()).constData());
    QElapsedTimer timer;
    timer.start();
    for (int step = 0; step < count; ++step) {
        user.step();
        problem = user.check();
        if (!problem.isEmpty())
            QFAIL(report(seed, step, problem, user.log()).constData());
    }
    const qint64 elapsed = timer.elapsed();
    qInfo("seed %u: %d steps in %lld ms, %.1f steps/s; %s", seed, count, elapsed, count * 1000.0 / qMax<qint64>(elapsed, 1),
          qUtf8Printable(user.summary()));

    // Only the window's own stack can undo: closing it ends its history.
    problem = user.undoAndRedoAll(false);
    if (!problem.isEmpty())
        QFAIL(report(seed, count, problem, user.log()).constData());
    if (user.isFirstWindow())
        QVERIFY2(user.state() == first, qPrintable(user.state().describe() + QStringLiteral(" for ") + first.describe()));
}

QTEST_MAIN(tst_RandomUserActions)
#include "tst_randomuseractions.moc"
