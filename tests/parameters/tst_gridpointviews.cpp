#include "boundtable.h"

#include "camdesigner/camdescriptionimplementation.h"
#include "curves/motionplan.h"
#include "helpwidget.h"
#include "model/cameditormodel.h"
#include "model/motionpoint.h"
#include "parameterelementlist.h"
#include "parameters/calculatedtablemodel.h"
#include "parameters/calculatedtableview.h"
#include "parameters/gridpointparameterview.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QSignalSpy>
#include <QTest>

class tst_GridPointViews : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void storedElementsFollowTheTable();
    void calculatedTableChecksEveryCell();
};

void tst_GridPointViews::cleanup()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

// The list shows elements 0 .. count - 1 of the table's two arrays; after a
// write (during which it hides) it comes back writable as the drive allows
// (here a drive that went read-only meanwhile).
void tst_GridPointViews::storedElementsFollowTheTable()
{
    const int points = 3;
    BoundTable bound(7);
    GridPointParameterView view(&bound.model(), &bound.drive, BoundTable::LivingSpace);
    // Shown: a hidden view lists its elements only when it is shown.
    view.show();
    MxParameterControls::ParameterElementList *list = view.elementList();
    QCOMPARE(list->coordinates().at(0).toText(), bound.master().toText());
    QCOMPARE(list->coordinates().at(1).toText(), bound.slave().toText());
    QVERIFY(view.findChild<VxHelpSystem::HelpWidget *>(QStringLiteral("helpView"))->isInitialized());

    connect(&bound.model(), &ParameterModel::writeProcessFinished, this,
            [&] { bound.drive.setReadOnly(true); });
    bound.model().writeGridPoints(curvePoints(points));
    QVERIFY(!list->isHiddenForced());
    QVERIFY(!list->isWritableForced());
    // How many it lists is checked after every action of
    // tst_randomuseractions, from none on; here that they run from 0.
    QCOMPARE(list->indexes().constLast(), points - 1);
}

void tst_GridPointViews::calculatedTableChecksEveryCell()
{
    BoundTable bound;
    const double beyond = bound.model().masterMaximum() + 10.0;
    CamDescriptionImplementation description(nullptr, QByteArray());
    description.appendPoint(new MotionPoint(0, 0, MotionPoint::rest));
    description.appendPoint(new MotionPoint(beyond, 1, MotionPoint::rest));
    CamEditorModel editorModel(nullptr, &bound.model(), &description);
    CalculatedTableView view(&editorModel, &bound.model());
    CalculatedTableModel *model = view.tableModel();
    QAbstractItemModelTester tester(model, QAbstractItemModelTester::FailureReportingMode::QtTest);

    // Headers and cell texts are copied in tst_pointclipboard; that the rows
    // follow the plan is checked after every action of tst_randomuseractions.
    const int last = model->rowCount() - 1;
    const QPointF point = editorModel.motionPlan()->positions().at(last);

    // Above the master maximum: the master cell alone says so.
    const auto image = [](const QVariant &icon) { return qvariant_cast<QIcon>(icon).pixmap(16).toImage(); };
    const QImage error = QIcon(QStringLiteral(":/Resources/General/Error_16x16.png")).pixmap(16).toImage();
    const QImage empty = QIcon(QStringLiteral(":/Resources/General/Empty_16x16.png")).pixmap(16).toImage();
    QCOMPARE(model->index(last, 0).data(Qt::ToolTipRole).toString(), bound.model().checkMasterValue(point.x()));
    QCOMPARE(image(model->index(last, 0).data(Qt::DecorationRole)), error);
    QCOMPARE(model->index(last, 1).data(Qt::ToolTipRole).toString(), QString());
    QCOMPARE(image(model->index(last, 1).data(Qt::DecorationRole)), empty);
    QCOMPARE(model->index(0, 0).data(Qt::ToolTipRole).toString(), QString());

    // Follows a plan sampled coarsely while a point is dragged, too.
    editorModel.beginCoarseSteps();
    description.pointAt(beyond)->setPosition(QPointF(50, 1));
    QCOMPARE(model->rowCount(), editorModel.motionPlan()->positions().size());
    // An edit reports its plan as rebuilt and as changed: one reset.
    QSignalSpy reset(model, &QAbstractItemModel::modelReset);
    description.pointAt(0)->setFrom(MotionPoint(0, 0.5, MotionPoint::rest));
    QCOMPARE(model->rowCount(), editorModel.motionPlan()->positions().size());
    QCOMPARE(reset.count(), 1);
}

QTEST_MAIN(tst_GridPointViews)
#include "tst_gridpointviews.moc"
