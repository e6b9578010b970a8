#include "parameters/saveparameterprogress.h"

#include "boundtable.h"
#include "messagecapture.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QScopeGuard>
#include <QtTest>

// The save progress dialog, and the grid point write as the window sees it:
// the user may do anything while the write processes events.
class TestSaveParameterProgress : public QObject
{
    Q_OBJECT
private slots:
    void cleanup()
    {
        QVERIFY(QApplication::topLevelWidgets().isEmpty());
        QCOMPARE(QApplication::overrideCursor(), nullptr);
    }

    void writeAsTheWindowSeesIt_data()
    {
        QTest::addColumn<bool>("readOnly");
        QTest::addColumn<QStringList>("seen");
        // The labels and title are the designer's; the progress is what the
        // dialog itself computes.
        // Dialog shown, write in progress, wait cursor at each signal.
        QTest::newRow("written") << false
                                 << QStringList { "started 011", "progress 111", "progress 111", "progress 111",
                                                  "finished 001" };
        QTest::newRow("refused") << true << QStringList { "started 011", "finished 001" };
    }
    void writeAsTheWindowSeesIt()
    {
        QFETCH(bool, readOnly);
        QFETCH(QStringList, seen);
        BoundTable bound;
        bound.drive.setReadOnly(readOnly);
        ParameterModelImplementation &model = bound.model();
        QStringList looks;
        auto look = [&](const char *signal) {
            looks << QStringLiteral("%1 %2%3%4").arg(QLatin1String(signal)).arg(model.saveProgress()->isVisible())
                         .arg(model.isWriting()).arg(QApplication::overrideCursor() != nullptr);
        };
        connect(&model, &ParameterModel::writeProcessStarted, this, [&] { look("started"); });
        connect(&model, &ParameterModelImplementation::saveProgressed, this, [&] { look("progress"); });
        connect(&model, &ParameterModel::writeProcessFinished, this, [&] { look("finished"); });
        MessageCapture capture;
        model.writeGridPoints(curvePoints(3));
        QCOMPARE(looks, seen);
        QCOMPARE(model.saveProgress()->masterPositionProgress()->text(), readOnly ? " %1/%2" : "2/3");
        QCOMPARE(model.saveProgress()->progressBar()->value(), readOnly ? 24 : 66);  // share truncated
    }

    void userActsDuringTheWrite_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<bool>("followsAfterwards");
        QTest::newRow("second write is refused") << "write" << true;
        QTest::newRow("cam edited") << "edit" << true;
        QTest::newRow("table deleted, refused") << "delete" << true;
        QTest::newRow("editor closed") << "close" << false;
        QTest::newRow("editor closed and opened again") << "reopen" << true;
        QTest::newRow("owner destroyed") << "destroy" << false;
        QTest::newRow("owner destroyed by a queued call") << "queued" << false;
    }
    void userActsDuringTheWrite()
    {
        QFETCH(QString, action);
        QFETCH(bool, followsAfterwards);
        MxSimulation::SimulatedDrive drive;
        QPointer<QObject> owner = new QObject;
        const auto deleteOwner = qScopeGuard([&] { delete owner; });
        QPointer<ParameterModelImplementation> model =
            new ParameterModelImplementation(owner, &drive, 0, BoundTable::LivingSpace);
        model->editorOpened();
        SignalLog told(model);
        QVector<QPointF> points = curvePoints(20);
        const QVector<QPointF> original = points;
        QList<bool> writing;
        MessageCapture capture;
        connect(model.data(), &ParameterModelImplementation::saveProgressed, this, [&](int index) {
            writing << (model->isWriting() && model->saveProgress()->isVisible() && QApplication::overrideCursor());
            if (index != 5)
                return;
            if (action == QLatin1String("write"))
                model->writeGridPoints(curvePoints(30, 1.0));
            else if (action == QLatin1String("edit"))
                std::fill(points.begin(), points.end(), QPointF(1.0, 2.0));
            else if (action == QLatin1String("delete"))
                model->deleteGridPoints();
            else if (action == QLatin1String("destroy"))
                delete owner;
            else if (action == QLatin1String("queued"))
                QMetaObject::invokeMethod(this, [&] { delete owner; }, Qt::QueuedConnection);
            else
                model->editorClosed();
            if (action == QLatin1String("reopen"))
                model->editorOpened();
        });
        model->writeGridPoints(points);

        QCOMPARE(capture.count(), 0);
        QVERIFY(!writing.contains(false));
        if (model) {
            QCOMPARE(writing.size(), 20);
            QCOMPARE(told, (QStringList { "started", "size", "value", "finished" }));
            QPolygonF table;
            for (const QPointF &point : original)
                table << QPointF(std::round(point.x() * 1000.0) / 1000.0, std::round(point.y() * 1000.0) / 1000.0);
            QCOMPARE(model->storedGridPoints(), table);
        } else {
            // Nothing more is written once the model is gone; its end is still told.
            QCOMPARE(writing.size(), 6);
            QCOMPARE(told, (QStringList { "started", "finished" }));
            QCOMPARE(drive.elementWrites(QStringLiteral("G283")), 5);
            QCOMPARE(drive.elementWrites(QStringLiteral("G68")), 0);
        }
        const int before = told.size();
        QVERIFY(drive.writeValue(BoundTable::LivingSpace, coordinate("G284"), 3, QStringLiteral("42")));
        QCoreApplication::processEvents();
        QCOMPARE(told.size() - before, followsAfterwards ? 1 : 0);
    }
};

QTEST_MAIN(TestSaveParameterProgress)
#include "tst_saveparameterprogress.moc"
