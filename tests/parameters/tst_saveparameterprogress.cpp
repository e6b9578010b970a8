#include "parameters/saveparameterprogress.h"

#include "boundtable.h"
#include "messagecapture.h"

#include <QApplication>
#include <QFormLayout>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QtTest>

class TestSaveParameterProgress : public QObject
{
    Q_OBJECT
private slots:
    void cleanup()
    {
        QVERIFY(QApplication::topLevelWidgets().isEmpty());
    }

    void layoutAsDesigned()
    {
        SaveParameterProgress progress;
        QCOMPARE(progress.objectName(), QStringLiteral("SaveParameterProgress"));
        QCOMPARE(progress.size(), QSize(261, 87));
        QCOMPARE(progress.windowTitle(), QStringLiteral("Stützstellentabellen scheiben"));
        auto *vertical = progress.findChild<QVBoxLayout *>(QStringLiteral("verticalLayout"));
        QVERIFY(vertical);
        QCOMPARE(vertical->contentsMargins(), QMargins(11, 11, 11, 11));
        auto *form = progress.findChild<QFormLayout *>(QStringLiteral("formLayout"));
        QVERIFY(form);
        QCOMPARE(form->rowCount(), 2);
        const QStringList labels { "masterPosition", "masterPositionProgress", "slavePosition", "slavePositionProgress" };
        const QStringList texts { "Master-Positionen", " %1/%2", "Slave-Positionen", " %1/%2" };
        for (int i = 0; i < labels.size(); ++i) {
            auto *label = progress.findChild<QLabel *>(labels.at(i));
            QVERIFY2(label, qPrintable(labels.at(i)));
            QCOMPARE(label->text(), texts.at(i));
        }
        QCOMPARE(form->itemAt(0, QFormLayout::LabelRole)->widget()->objectName(), QStringLiteral("masterPosition"));
        QCOMPARE(form->itemAt(1, QFormLayout::FieldRole)->widget()->objectName(), QStringLiteral("slavePositionProgress"));
        auto *bar = progress.findChild<QProgressBar *>(QStringLiteral("progressBar"));
        QVERIFY(bar);
        QCOMPARE(bar->value(), 24);
    }

    void progressShown_data()
    {
        QTest::addColumn<int>("master");
        QTest::addColumn<int>("slave");
        QTest::addColumn<int>("count");
        QTest::addColumn<QString>("masterText");
        QTest::addColumn<QString>("slaveText");
        QTest::addColumn<int>("percent");
        QTest::newRow("a quarter") << 40 << 40 << 160 << "40/160" << "40/160" << 25;
        QTest::newRow("share truncated") << 2 << 2 << 3 << "2/3" << "2/3" << 66;
        QTest::newRow("start") << 0 << 0 << 16000 << "0/16000" << "0/16000" << 0;
        QTest::newRow("axes apart") << 9 << 4 << 10 << "9/10" << "4/10" << 90;
    }
    void progressShown()
    {
        QFETCH(int, master);
        QFETCH(int, slave);
        QFETCH(int, count);
        QFETCH(QString, masterText);
        QFETCH(QString, slaveText);
        QFETCH(int, percent);
        SaveParameterProgress progress;
        progress.onSaveProgressed(master, slave, count);
        QCOMPARE(progress.masterPositionProgress()->text(), masterText);
        QCOMPARE(progress.slavePositionProgress()->text(), slaveText);
        QCOMPARE(progress.progressBar()->value(), percent);
    }

    void shownWhileTheModelWrites()
    {
        {
            BoundTable bound;
            SaveParameterProgress *progress = bound.model().saveProgress();
            QVERIFY(progress);
            QVERIFY(!progress->isVisible());
            QList<bool> visibleDuringWrite;
            connect(&bound.model(), &ParameterModelImplementation::saveProgressed, this,
                    [&] { visibleDuringWrite.append(progress->isVisible()); });
            QSignalSpy progressed(&bound.model(), &ParameterModelImplementation::saveProgressed);
            MessageCapture capture;
            bound.model().writeGridPoints(curvePoints(12));
            QCOMPARE(progressed.count(), 12);
            QCOMPARE(progressed.constLast(), (QList<QVariant> { 11, 11, 12 }));
            QCOMPARE(visibleDuringWrite, QList<bool>(QVector<bool>(12, true).toList()));
            QVERIFY(!progress->isVisible());
            QCOMPARE(progress->masterPositionProgress()->text(), QStringLiteral("11/12"));
        }
        // The model takes its dialog with it.
        QVERIFY(QApplication::topLevelWidgets().isEmpty());
    }

    void notShownWhenTheWriteIsRefused()
    {
        BoundTable bound;
        bound.drive.setReadOnly(true);
        QList<bool> shown;
        MessageCapture capture;
        connect(&bound.model(), &ParameterModel::writeProcessFinished, this,
                [&] { shown.append(bound.model().saveProgress()->isVisible()); });
        QSignalSpy progressed(&bound.model(), &ParameterModelImplementation::saveProgressed);
        bound.model().writeGridPoints(curvePoints(12));
        QCOMPARE(capture.count(), 1);
        QCOMPARE(progressed.count(), 0);
        QCOMPARE(shown, QList<bool> { false });
    }

    void waitCursorOnlyDuringTheWrite()
    {
        BoundTable bound;
        QList<bool> waiting;
        connect(&bound.model(), &ParameterModel::writeProcessStarted, this,
                [&] { waiting.append(QApplication::overrideCursor() != nullptr); });
        MessageCapture capture;
        bound.model().writeGridPoints(curvePoints(3));
        QCOMPARE(waiting, QList<bool> { true });
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }
};

QTEST_MAIN(TestSaveParameterProgress)
#include "tst_saveparameterprogress.moc"
