#include "editorfixture.h"

#include "parameters/calculatedtableview.h"
#include "parameters/gridpointparameterview.h"
#include "plots/curveplotstack.h"
#include "parameterelementlist.h"
#include "views/comparisonview.h"
#include "views/camsettingsview.h"
#include "views/motionplantreeeditor.h"
#include "views/motionpointtextparser.h"
#include "views/pointeditview.h"
#include "views/positionlineedit.h"

#include <qtadvanceddocking/DockWidget.h>

#include <QClipboard>
#include <QSpinBox>
#include <QTableView>
#include <QTreeView>
#include <QTreeWidget>

namespace {

// The clipboard's lines without the header.
QStringList copiedRows()
{
    QStringList lines = QGuiApplication::clipboard()->text().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    return lines.mid(1);
}

// A key as the user types it: into the focused view of the active window,
// so that the view's own shortcuts apply.
void typeKey(QWidget *view, Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QApplication::setActiveWindow(view->window());
    view->setFocus();
    QTest::keyClick(view, key, modifiers);
}

void showDock(CamDesignerViewImplementation *window, CamDesignerViewImplementation::Dock dock)
{
    window->dock(dock)->setAsCurrentTab();
    QApplication::processEvents();
}

void selectRows(QAbstractItemView *view, const QList<int> &rows)
{
    view->selectionModel()->clear();
    for (int row : rows)
        view->selectionModel()->select(view->model()->index(row, 0),
                                       QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

} // namespace

class tst_PointClipboard : public QObject
{
    Q_OBJECT
private slots:
    void cleanup() { QCOMPARE(QApplication::topLevelWidgets().size(), 0); }
    void parseText_data();
    void parseText();
    void copyMotionPoints();
    void copyGridPointTables();
    void paste_data();
    void paste();
    void editingKeysBelongToTheFocusedField_data();
    void editingKeysBelongToTheFocusedField();
};

// Ctrl+C on the tree: the selected points, else all, with a decimal point
// and the data names, the section's too; pasted into an empty cam they are
// the same points.
void tst_PointClipboard::copyMotionPoints()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QTreeView *tree = window->motionPlanEditor()->pointTree();
    selectRows(tree, { 0, 2 });
    typeKey(tree, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(copiedRows(), QStringList({ "0.000\t0.000\trest\tPoly5\t\t", "180.000\t0.000\trest\tPoly5\t\t" }));

    MotionPoint *speed = editor.camDescription()->motionPoints().at(1);
    speed->setSectionLaw(MotionPoint::ModifiedSine);
    speed->setInflection(0.25);
    speed->setVelocity(-1.5);
    tree->selectionModel()->clear();
    window->motionPlanEditor()->copyAction()->trigger();
    QCOMPARE(copiedRows(), QStringList({ "0.000\t0.000\trest\tPoly5\t\t", "90.000\t40.000\tspeed\tModifiedSine\t0.25\t-1.5",
                                         "180.000\t0.000\trest\tPoly5\t\t" }));
    const QString copied = editor.state();

    MessageCapture messages;
    editor.description->loadWithUndo(parseJson(R"({"MotionPoints": []})"), QStringLiteral("leer"));
    typeKey(tree, Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(editor.state(), copied);
    QCOMPARE(window->undoStack()->text(window->undoStack()->count() - 1), QStringLiteral("Füge 3 Bewegungspunkte ein"));
}

// The calculated table, the stored list and the comparison copy through
// the one routine: selected rows or all, header first.
void tst_PointClipboard::copyGridPointTables()
{
    EditorFixture editor;
    CamDesignerViewImplementation *window = editor.open();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    const QPolygonF points = editor.model()->motionPlan()->positions();
    editor.parameters()->writeGridPoints(points);
    const auto gridRow = [&points](int i) {
        return QStringLiteral("%1\t%2").arg(points.at(i).x(), 0, 'f', 3).arg(points.at(i).y(), 0, 'f', 3);
    };

    auto *calculated = qobject_cast<CalculatedTableView *>(window->dock(CamDesignerViewImplementation::CalculatedDock)->widget());
    QVERIFY(calculated);
    showDock(window, CamDesignerViewImplementation::CalculatedDock);
    selectRows(calculated, { 1, 2 });
    typeKey(calculated, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(copiedRows(), QStringList({ gridRow(1), gridRow(2) }));

    auto *storedView = qobject_cast<GridPointParameterView *>(window->dock(CamDesignerViewImplementation::ParameterDock)->widget());
    QVERIFY(storedView);
    QTreeWidget *stored = storedView->elementList()->tree();
    showDock(window, CamDesignerViewImplementation::ParameterDock);
    stored->clearSelection();
    typeKey(stored, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(copiedRows().size(), points.size());

    QTableView *comparison = window->comparisonView()->table();
    showDock(window, CamDesignerViewImplementation::ComparisonDock);
    selectRows(comparison, { 4 });
    typeKey(comparison, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(copiedRows(), QStringList(gridRow(4) + QLatin1Char('\t') + gridRow(4) + QStringLiteral("\t0.000\t0.000")));
}

void tst_PointClipboard::paste_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qint64>("slaveLimit");
    QTest::addColumn<QString>("added");       // the points added, as copied
    QTest::addColumn<QString>("messageTitle"); // empty: no message
    QTest::addColumn<QString>("message");

    // Between 0 (rest) and 90 (speed) a point without type continues "rest".
    QTest::newRow("semicolons, commas, header") << "Master;Slave;Typ\n30,5;10;acceleration\n45;12,25\n135;5"
                                               << qint64(0) << "30.500 10.000 acceleration|45.000 12.250 rest|135.000 5.000 speed"
                                               << "" << "";
    QTest::newRow("refusals counted once") << "90\t1\n200\t1\n200.0004\t2\nabc\tdef\n60\t1\n70\t60"
                                           << qint64(50000) << "60.000 1.000 rest|200.000 1.000 rest"
                                           << "Nicht alle Bewegungspunkte eingefügt"
                                           << "4 von 6 Zeilen wurden nicht eingefügt: 2 auf einer schon belegten "
                                              "Master-Position, 1 außerhalb der Grenzen des Antriebsreglers, 1 nicht lesbar.";
    QTest::newRow("no point") << "Master\tSlave\nfoo\n" << qint64(0) << "" << "Einfügen nicht möglich" << "";
    QTest::newRow("every point refused") << "0;1\n90;1" << qint64(0) << "" << "Nicht alle Bewegungspunkte eingefügt"
                                         << "2 von 2 Zeilen wurden nicht eingefügt: 2 auf einer schon belegten "
                                            "Master-Position.";
}

void tst_PointClipboard::paste()
{
    QFETCH(QString, text);
    QFETCH(qint64, slaveLimit);
    QFETCH(QString, added);
    QFETCH(QString, messageTitle);
    QFETCH(QString, message);
    EditorFixture editor;
    MessageCapture messages;
    CamDesignerViewImplementation *window = editor.open();
    if (slaveLimit > 0)
        QVERIFY(editor.drive.setNativeLimits(ParameterModelImplementation::slaveArrayOf(EditorFixture::Table).toText(),
                                             -slaveLimit, slaveLimit));
    const CamEditorModel *model = editor.model();
    QGuiApplication::clipboard()->setText(text);
    window->motionPlanEditor()->pasteAction()->trigger();

    QCOMPARE(messages.count(), messageTitle.isEmpty() ? 0 : 1);
    if (!messageTitle.isEmpty())
        QCOMPARE(messages.last().title, messageTitle);
    if (!message.isEmpty())
        QCOMPARE(messages.last().text, message);
    QStringList newPoints;
    for (int row = 0; row < model->motionPointCount(); ++row) {
        const MotionPoint *point = model->motionPointAt(row);
        // A paste never takes the master of a point there before.
        if (!QList<double>({ 0, 90, 180 }).contains(point->master()))
            newPoints.append(QStringLiteral("%1 %2 %3").arg(point->master(), 0, 'f', 3).arg(point->slave(), 0, 'f', 3)
                                 .arg(point->typeDataName()));
    }
    QCOMPARE(newPoints.join(QLatin1Char('|')), added);
    // Its undo is the added points' commands' (tst_undorandom).
    QCOMPARE(window->undoStack()->count(), added.isEmpty() ? 0 : 1);
}

namespace {
enum Focus { PointField, ResolutionBox, PointTable, Plot };
enum KeyOutcome { PastedText, PastedPoints, Written, WordDeleted, DeleteAsked };
} // namespace

// Ctrl+V writes the grid points and Ctrl+Del deletes the stored ones, but
// not where the focus is in a field that takes the key itself (a line edit,
// as a table cell's editor is one, or a spin box), nor Ctrl+V in the point
// table, which pastes there. Any other widget leaves the key to the window.
void tst_PointClipboard::editingKeysBelongToTheFocusedField_data()
{
    QTest::addColumn<int>("focus");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("outcome");
    QTest::newRow("Ctrl+V in a point field") << int(PointField) << int(Qt::Key_V) << int(PastedText);
    QTest::newRow("Ctrl+V in the resolution") << int(ResolutionBox) << int(Qt::Key_V) << int(PastedText);
    QTest::newRow("Ctrl+V in the point table") << int(PointTable) << int(Qt::Key_V) << int(PastedPoints);
    QTest::newRow("Ctrl+V in the plot") << int(Plot) << int(Qt::Key_V) << int(Written);
    QTest::newRow("Ctrl+Del in a point field") << int(PointField) << int(Qt::Key_Delete) << int(WordDeleted);
    QTest::newRow("Ctrl+Del in the point table") << int(PointTable) << int(Qt::Key_Delete) << int(DeleteAsked);
}

void tst_PointClipboard::editingKeysBelongToTheFocusedField()
{
    QFETCH(int, focus);
    QFETCH(int, key);
    QFETCH(int, outcome);
    EditorFixture editor;
    MessageCapture messages(QMessageBox::No);
    CamDesignerViewImplementation *window = editor.open();
    QApplication::setActiveWindow(window);
    QVERIFY(QTest::qWaitForWindowActive(window));
    MotionPlanTreeEditor *points = window->motionPlanEditor();
    points->selectRow(1);
    QWidget *const targets[] = { points->pointEditView()->masterEdit(), points->settingsView()->resolutionBox(),
                                 points->pointTree(), window->plots()->plot(CurvePlot::Position)->canvas() };
    QWidget *target = targets[focus];
    target->setFocus();
    QCOMPARE(QApplication::focusWidget(), target);
    // A word deleted from "90.000" leaves "90.", the point's own master.
    if (auto *edit = qobject_cast<QLineEdit *>(target))
        edit->setCursorPosition(outcome == WordDeleted ? 3 : 0);
    if (auto *spin = qobject_cast<QSpinBox *>(target))
        spin->selectAll();
    const auto text = [target] { return target->property("text").toString(); };
    const QString before = text();
    QGuiApplication::clipboard()->setText(outcome == PastedPoints ? QStringLiteral("45;20") : QStringLiteral("123"));

    QTest::keyClick(target, Qt::Key(key), Qt::ControlModifier);
    const QString after = text();  // before a focus change may finish the edit
    QCoreApplication::processEvents();

    // The box asking to delete: tst_camdesignerview; the paste's undo text: copyMotionPoints.
    const bool written = !editor.parameters()->storedGridPoints().isEmpty();
    QCOMPARE(written, outcome == Written);
    QCOMPARE(messages.count(), outcome == DeleteAsked ? 1 : 0);
    QCOMPARE(window->undoStack()->count(), outcome == PastedPoints ? 1 : 0);
    if (outcome == PastedText)
        QVERIFY2(after.contains(QStringLiteral("123")), qPrintable(after));
    if (outcome == WordDeleted)
        QVERIFY2(after != before && before.startsWith(after), qPrintable(after));
}

void tst_PointClipboard::parseText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("invalid");
    QTest::addColumn<bool>("header");
    // The last row read: master, slave, type (-1: none given).
    QTest::addColumn<double>("master");
    QTest::addColumn<double>("slave");
    QTest::addColumn<int>("type");

    // Without a tab the semicolon separates; the cells are trimmed.
    QTest::newRow("semicolons, decimal commas, header")
        << "Master;Slave\r\n10,5;-2,75\r\n20; 3 ; speed " << 2 << 0 << true << 20.0 << 3.0 << int(MotionPoint::speed);
    // A comma is always the decimal mark, never a thousands' separator; two
    // marks, or a blank, make a grouping that could be read two ways. The C
    // locale reads "nan" and "inf", which pass every limit check.
    QTest::newRow("groupings, nan, inf") << "1,000;2\n1.000,5;2\n1 000;2\nnan;2\n3;inf"
                                         << 1 << 4 << false << 1.0 << 2.0 << -1;
    QTest::newRow("blank lines and a trailing separator") << "\n1;2;\n\n3;4\n\n" << 2 << 0 << false << 3.0 << 4.0 << -1;
    // Only the first line may be a header; a name must be a data name exactly.
    QTest::newRow("bad lines after the first") << "1;2\nx;2\n3;4;Rast\n5;6;turningpoint\n7\n8;9;rest;1\n10;11"
                                               << 2 << 5 << false << 10.0 << 11.0 << -1;
    QTest::newRow("nothing") << "" << 0 << 0 << false << 0.0 << 0.0 << -1;
}

void tst_PointClipboard::parseText()
{
    QFETCH(QString, text);
    QFETCH(int, rows);
    QFETCH(int, invalid);
    QFETCH(bool, header);
    QFETCH(double, master);
    QFETCH(double, slave);
    QFETCH(int, type);
    const MotionPointTextParser parser(text);
    QCOMPARE(parser.rows().size(), rows);
    QCOMPARE(parser.invalidLineCount(), invalid);
    QCOMPARE(parser.hasHeader(), header);
    if (rows > 0) {
        QCOMPARE(parser.rows().constLast().master, master);
        QCOMPARE(parser.rows().constLast().slave, slave);
        QCOMPARE(parser.rows().constLast().type, type);
    }
}

QTEST_MAIN(tst_PointClipboard)
#include "tst_pointclipboard.moc"
