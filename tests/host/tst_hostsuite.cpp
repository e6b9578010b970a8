#include "bytearraysupport.h"
#include "defaultpathsetting.h"
#include "helpwidget.h"
#include "parameterdefinition.h"
#include "parameterelementlist.h"
#include "simulateddrive.h"
#include "system.h"
#include "testfiles.h"

#include <QApplication>
#include <QSettings>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QTemporaryDir>
#include <QtTest>

using MxParameterDefinition::ParameterAddress;
using MxParameterDefinition::ParameterCoordinate;

class TestHostSuite : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("MxHostSuiteTest"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_hostsuite"));
        QStandardPaths::setTestModeEnabled(true);
    }

    void coordinate_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("normalised");
        QTest::newRow("drive array") << "G283" << true << "G283";
        QTest::newRow("axis parameter") << "I06" << true << "I6";
        QTest::newRow("surrounding blanks") << " G68 " << true << "G68";
        QTest::newRow("lower-case group") << "g283" << false << "";
        QTest::newRow("no number") << "G" << false << "";
        QTest::newRow("empty") << "" << false << "";
    }
    void coordinate()
    {
        QFETCH(QString, text);
        QFETCH(bool, valid);
        QFETCH(QString, normalised);
        const ParameterCoordinate coordinate(text);
        QCOMPARE(coordinate.isValid(), valid);
        QCOMPARE(coordinate.toText(), normalised);
    }

    void coordinateNumbersDifferAcrossGroups()
    {
        QVERIFY(ParameterCoordinate(QStringLiteral("G6")).toNumber()
                != ParameterCoordinate(QStringLiteral("I6")).toNumber());
        QCOMPARE(ParameterCoordinate(QStringLiteral("I06")), ParameterCoordinate(QStringLiteral("I6")));
    }

    void addressText()
    {
        const ParameterAddress address(1, ParameterCoordinate(QStringLiteral("G415")));
        QCOMPARE(address.toText(), QStringLiteral("G415"));
        QCOMPARE(address.toText(ParameterAddress::WithAxis), QStringLiteral("A1:G415"));
        QCOMPARE(ParameterAddress(-1, address.coordinate()).toText(ParameterAddress::WithAxis),
                 QStringLiteral("A-:G415"));
    }

    void crc32OfKnownText()
    {
        // The check value of the standard CRC-32.
        QCOMPARE(VxByteArraySupport::ByteArraySupport("123456789", true).crc32(), quint32(0xCBF43926));
    }

    void defaultPathKeepsDirectoryOfLastFile()
    {
        QTemporaryDir directory;
        QVERIFY(directory.isValid());
        VxUtilities::DefaultPathSetting setting(QStringLiteral("CamDesigner"));
        setting.setPath(directory.filePath(QStringLiteral("cam.json")));
        QCOMPARE(VxUtilities::DefaultPathSetting(QStringLiteral("CamDesigner")).path(), directory.path());
        QCOMPARE(VxUtilities::DefaultPathSetting(QStringLiteral("Other")).path(), QDir::homePath());

        // Once the directory is gone the home directory is offered instead.
        QVERIFY(directory.remove());
        QCOMPARE(VxUtilities::DefaultPathSetting(QStringLiteral("CamDesigner")).path(), QDir::homePath());
    }

    void helpWidgetShowsPageOfId()
    {
        QTemporaryDir directory;
        QVERIFY(writeFile(directory.filePath(QStringLiteral("G283.html")), "<p>Master-Stützstellen</p>"));
        MxSystem::System::instance()->setHelpDirectory(directory.path());

        VxHelpSystem::HelpWidget help;
        QVERIFY(!help.isInitialized());
        help.initialize(MxSystem::System::instance());
        QVERIFY(help.isInitialized());
        help.showHelpForId(QStringLiteral("G283"));
        QCOMPARE(help.currentId(), QStringLiteral("G283"));
        auto *browser = help.findChild<QTextBrowser *>();
        QVERIFY(browser);
        QVERIFY(browser->toPlainText().contains(QStringLiteral("Master-Stützstellen")));
        help.showHelpForId(QStringLiteral("G999"));
        QVERIFY(browser->toPlainText().contains(QStringLiteral("G999")));
    }

    void elementListRanges_data()
    {
        QTest::addColumn<QString>("indexes");
        QTest::addColumn<int>("rows");
        QTest::newRow("101 elements") << "0-100" << 101;
        QTest::newRow("no element") << "0--1" << 0;
        QTest::newRow("single and range") << "3,5-6" << 3;
        QTest::newRow("garbage") << "a-b" << 0;
    }
    void elementListRanges()
    {
        QFETCH(QString, indexes);
        QFETCH(int, rows);
        MxParameterControls::ParameterElementList list;
        list.setCoordinates(QStringLiteral("G283,G284"));
        list.setIndexes(indexes);
        QCOMPARE(list.tree()->topLevelItemCount(), rows);
        QCOMPARE(list.tree()->columnCount(), 3);
    }

    void elementListReadsAndWritesValues()
    {
        MxSimulation::SimulatedDrive drive;
        QVERIFY(drive.definition(ParameterCoordinate(QStringLiteral("G283")))->setElementCount(3));
        QVERIFY(drive.writeValue(1, ParameterCoordinate(QStringLiteral("G283")), 2, QStringLiteral("7.5")));
        MxParameterControls::ParameterElementList list;
        list.setCoordinates(QStringLiteral("G283,G284"));
        list.setShowCoordinatesName(true);
        list.initialize(&drive, 1);
        list.setIndexes(QStringLiteral("0-2"));
        QCOMPARE(list.tree()->headerItem()->text(1), QStringLiteral("G283"));
        QCOMPARE(list.tree()->topLevelItem(2)->text(1), QStringLiteral("7.500 °"));

        list.tree()->topLevelItem(1)->setText(1, QStringLiteral("1.25"));
        QCOMPARE(drive.readValueNative(1, ParameterCoordinate(QStringLiteral("G283")), 1), QStringLiteral("0"));
        list.setWritableForced(true);
        list.tree()->topLevelItem(1)->setText(1, QStringLiteral("1.25"));
        QCOMPARE(drive.readValueNative(1, ParameterCoordinate(QStringLiteral("G283")), 1), QStringLiteral("1250"));
        list.setHiddenForced(true);
        QVERIFY(list.tree()->isHidden());
        list.setHiddenForced(false);
        QVERIFY(!list.tree()->isHidden());
    }
};

QTEST_MAIN(TestHostSuite)
#include "tst_hostsuite.moc"
