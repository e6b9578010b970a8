#include "camdesigner/camdatafile.h"
#include "camdesigner/camdescriptionimplementation.h"
#include "camdesigner/controller.h"
#include "binaryjson.h"
#include "jsontext.h"
#include "testfiles.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace {

QJsonObject sample()
{
    return parseJson(R"({"CircularLength": 360, "Cyclic": true, "MotionLaw": "Spline",
        "MotionPoints": [[0, 0, "rest"], [180, 100, "turningPoint"]],
        "Steps": {"dynamicSteps": 200, "isDynamicStepSize": false, "staticStepSize": 0.5}})");
}

} // namespace

class tst_CamDataFile : public QObject
{
    Q_OBJECT
private slots:
    void readByContentAndSuffix_data();
    void readByContentAndSuffix();
    void saveWritesIndentedTextWhateverTheSuffix();
    void missingFileIsOnlyLogged();

private:
    QTemporaryDir m_dir;
};

void tst_CamDataFile::readByContentAndSuffix_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");  // empty: the sample loads
    const QByteArray text = QJsonDocument(sample()).toJson();
    const QByteArray binary = binaryJsonOf(sample());
    const QString noBinary = QStringLiteral("Die Datei enthält kein binäres JSON-Objekt (Qt 5).");
    // Text JSON when the last suffix contains "json" in any case, else binary.
    QTest::newRow("text in plan.Json5") << "plan.Json5" << text << "";
    // What the editor itself saves as ".dat": the user learns how to open it
    // (and only the last suffix counts, not the name).
    QTest::newRow("text in plan.json.dat, the last suffix counts")
        << "plan.json.dat" << text
        << noBinary + " Sie enthält JSON-Text; mit der Endung „.json“ lässt sie sich öffnen.";
    const QString wrongType = QStringLiteral("„%1“ hat den falschen Typ; erwartet wird %2.");
    QTest::newRow("truncated text") << "plan.json" << QByteArray(R"({"Cyclic": tr)")
                                    << "Fehler im JSON-Text an Position 12: illegal value";
    QTest::newRow("not an object") << "plan.json" << QByteArray("[1, 2]") << "Das JSON-Dokument ist kein Objekt.";
    QTest::newRow("cyclic as text") << "plan.json" << QByteArray(R"({"Cyclic": "ja"})")
                                    << wrongType.arg("Cyclic", "ein Wahrheitswert (true oder false)");
    QTest::newRow("a point a number") << "plan.json" << QByteArray(R"({"MotionPoints": [[0, 0], 5]})")
                                      << wrongType.arg("MotionPoints[1]", "eine Liste");
    QTest::newRow("a slave as text") << "plan.json" << QByteArray(R"({"MotionPoints": [[0, "0"]]})")
                                     << wrongType.arg("MotionPoints[0][1]", "eine Zahl");
    QTest::newRow("steps as text") << "plan.json" << QByteArray(R"({"Steps": {"dynamicSteps": "500"}})")
                                   << wrongType.arg("Steps.dynamicSteps", "eine Zahl");
    QTest::newRow("binary with a law of the wrong type")
        << "plan.dat" << binaryJsonOf(parseJson(R"({"MotionLaw": 1})")) << wrongType.arg("MotionLaw", "ein Text");
    QTest::newRow("no binary JSON") << "plan.dat" << QByteArray("qbjs garbage") << noBinary;
}

// A damaged file the user chose is refused with what is wrong with it: the
// cam, its signals and the undo stack stay as they were.
void tst_CamDataFile::readByContentAndSuffix()
{
    QFETCH(QString, fileName);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, reason);
    const bool loads = reason.isEmpty();
    const QString path = m_dir.filePath(fileName);
    QVERIFY(writeFile(path, bytes));
    CamDataFile::ReadStatus status = CamDataFile::ReadStatus::Unreadable;
    QString error;
    QCOMPARE(CamDataFile::read(path, &status, &error), loads ? sample() : QJsonObject());
    QCOMPARE(status, loads ? CamDataFile::ReadStatus::Loaded : CamDataFile::ReadStatus::Invalid);
    QCOMPARE(error, reason);

    CamDescriptionImplementation description(nullptr, binaryJsonOf(sample()));
    Controller stack;
    description.setUndoStack(&stack);
    const QSignalSpy changes(&description, &CamDescription::changed);
    QString message;
    QCOMPARE(description.loadFromFile(path, &message), loads);
    QCOMPARE(stack.count(), loads ? 1 : 0);
    QCOMPARE(description.toJson(), sample());
    if (loads)
        return;
    QCOMPARE(message, QStringLiteral("Die Datei „%1“ enthält keine gültigen Kurvendefinitionsdaten und wurde nicht "
                                     "geladen.\n%2").arg(fileName, reason));
    QCOMPARE(changes.count(), 0);
}

void tst_CamDataFile::saveWritesIndentedTextWhateverTheSuffix()
{
    // Deliberate asymmetry: ".dat" is saved as text but read as binary, so a
    // saved ".dat" does not read back: it is refused, not read as the
    // defaults (the row "text in plan.json.dat" above). A ".json" takes the
    // same path (the window's export and import in tst_camdesignerview).
    // Saving goes through the one atomic writer: a full disk is
    // tst_atomicfilewriter's, a failed save the window's.
    CamDescriptionImplementation description(nullptr, binaryJsonOf(sample()));
    const QString path = m_dir.filePath(QStringLiteral("saved.dat"));
    QString error;
    QVERIFY(description.saveToFile(path, &error));
    QCOMPARE(readFile(path), QJsonDocument(sample()).toJson(QJsonDocument::Indented));
}

// A missing file, or none chosen, is only logged.
void tst_CamDataFile::missingFileIsOnlyLogged()
{
    // It returns before anything is loaded.
    CamDescriptionImplementation description(nullptr, binaryJsonOf(sample()));
    QTest::ignoreMessage(QtWarningMsg, "Couldn't open save file.");
    QVERIFY(!description.loadFromFile(QString()));
}

QTEST_GUILESS_MAIN(tst_CamDataFile)
#include "tst_camdatafile.moc"
