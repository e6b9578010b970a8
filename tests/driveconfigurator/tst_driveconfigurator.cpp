#include "configuratortest.h"

using namespace ConfiguratorTest;

class tst_DriveConfigurator : public ConfiguratorTestCase
{
    Q_OBJECT
private slots:
    void exampleProject();
    void editWriteSaveAndReload();
    void refusalsOfTheDrive_data();
    void refusalsOfTheDrive();
    void importFromAnotherProject();
    void stampFollowsTheDrive();
};

void tst_DriveConfigurator::exampleProject()
{
    DriveConfiguratorWindow window;
    QVERIFY(window.openProject(ExampleProject));
    QVERIFY(!window.isWindowModified());
    QCOMPARE(window.windowTitle(), QStringLiteral("example-project.mxdrive[*] – Antriebskonfigurator"));
    for (int table = 0; table < DriveProject::TableCount; ++table) {
        const CamTableCell *cell = window.page()->cell(table);
        const bool used = table == 0 || table == 3 || table == 7;
        QVERIFY2(used == (cell->storedCount() > 1), qPrintable(QString::number(table)));
        QCOMPARE(cell->stamp(), used ? CamTableCell::Stamp::Editor : CamTableCell::Stamp::None);
        QCOMPARE(cell->description()->isEmpty(), table != 0 && table != 3);
    }
    // What the cams of tables 0 and 3 hold, the project import lists.
}

// The whole way of one cam: edit in the tree, write, reopen the editor,
// save, and read the file into a fresh window.

void tst_DriveConfigurator::editWriteSaveAndReload()
{
    const QString path = copyOfExample();
    MessageCapture messages;
    const QString savedPath = m_directory.filePath(QStringLiteral("gespeichert.mxdrive"));
    QFile::remove(savedPath);
    {
        DriveConfiguratorWindow window;
        QVERIFY(window.openProject(path));
        window.show();
        CamTableCell *cell = window.page()->cell(0);
        CamDesignerViewImplementation *editor = openEditor(window, 0);
        QVERIFY(editor);
        QCOMPARE(editor->windowTitle(), QStringLiteral("Kurvenscheibe 0 – beispiel.mxdrive"));
        QVERIFY(cell->button()->isChecked());
        QVERIFY(QTest::qWaitForWindowExposed(editor));

        auto *tree = editor->findChild<MotionPlanTreeEditor *>();
        QVERIFY(tree);
        tree->selectRow(0);
        QTest::mouseClick(tree->addButton(), Qt::LeftButton);
        QCOMPARE(cell->description()->toJson().value(QStringLiteral("MotionPoints")).toArray().size(), 5);
        QVERIFY(window.isWindowModified());

        // Dragging in the plots and undoing are the editor's tests; here the
        // project must follow the edit.
        QCOMPARE(window.project()->description(0), cell->description()->toJson());

        actionNamed(editor, WriteText)->trigger();
        QCOMPARE(messages.count(), 0);
        const int calculated = static_cast<CamDesignerImplementation *>(cell->designer())
                                   ->editorModel()->motionPlan()->positions().size();
        QTRY_COMPARE(cell->storedCount(), calculated);
        QTRY_COMPARE(cell->stamp(), CamTableCell::Stamp::Editor);
        const int written = cell->storedCount();
        QVERIFY(written > 2);

        // Closed and opened again: one window. The size and the plots it had
        // are the editor's test and the next project's.
        editor->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!cell->button()->isChecked());
        QCOMPARE(editorWindows().size(), 0);
        editor = openEditor(window, 0);
        QVERIFY(editor);
        QCOMPARE(editorWindows().size(), 1);
        openEditor(window, 0);
        QCOMPARE(editorWindows().size(), 1);

        FileAnswer answer(savedPath);
        actionNamed(&window, QStringLiteral("Speichern &unter…"))->trigger();
        QVERIFY(!window.isWindowModified());
        QCOMPARE(editor->windowTitle(), QStringLiteral("Kurvenscheibe 0 – gespeichert.mxdrive"));

        DriveConfiguratorWindow fresh;
        QVERIFY(fresh.openProject(savedPath));
        for (int table = 0; table < DriveProject::TableCount; ++table) {
            const CamTableCell *before = window.page()->cell(table);
            const CamTableCell *after = fresh.page()->cell(table);
            QCOMPARE(after->description()->toJson(), before->description()->toJson());
            QCOMPARE(after->storedCount(), before->storedCount());
            QCOMPARE(after->storedCrc(), before->storedCrc());
            QCOMPARE(after->computedCrc(), before->computedCrc());
        }
        QCOMPARE(fresh.page()->cell(0)->storedCount(), written);
        QCOMPARE(fresh.page()->cell(0)->stamp(), CamTableCell::Stamp::Editor);
        // Another host window's project leaves this window's editor open.
        QCOMPARE(editorWindows(), QList<CamDesignerViewImplementation *> { editor });
    }
    QCOMPARE(messages.count(), 0);
}

void tst_DriveConfigurator::refusalsOfTheDrive_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("status");
    QTest::newRow("write while read-only") << "readOnlyAction" << WriteText << "Schreiben in Parameter nicht möglich"
                                           << "Antriebsregler: offline, schreibgeschützt";
    QTest::newRow("deleting while online") << "onlineAction" << DeleteText << "Stützstellen löschen nicht möglich"
                                           << "Antriebsregler: online, beschreibbar";
}

// The drive's states from the host's tool bar; the editor of table 1, which
// takes table 0's cam from the project, refuses what the state forbids.
void tst_DriveConfigurator::refusalsOfTheDrive()
{
    QFETCH(QString, state);
    QFETCH(QString, action);
    QFETCH(QString, title);
    QFETCH(QString, status);
    DriveConfiguratorWindow window;
    QVERIFY(window.openProject(copyOfExample()));
    window.show();
    CamDesignerViewImplementation *editor = openEditor(window, 1);
    QVERIFY(editor);
    actionNamed(editor, ImportText)->trigger();
    auto *dialog = editor->findChild<ImportDescriptionDialog *>();
    QVERIFY(dialog && dialog->isVisible());
    auto *list = dialog->findChild<QListWidget *>(QStringLiteral("descriptionList"));
    QCOMPARE(list->count(), 2);  // tables 0 and 3; table 7 has no cam definition data
    QCOMPARE(list->item(0)->text(), QStringLiteral("Kurvenscheibe 0: 4 Bewegungspunkte, Polynom fünften Grades, zyklisch"));
    QVERIFY(list->item(1)->text().endsWith(QStringLiteral("Kubischer Spline")));
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok), Qt::LeftButton);
    QCOMPARE(window.project()->description(1), window.project()->description(0));
    if (action == DeleteText) {  // something to delete: written while offline
        actionNamed(editor, WriteText)->trigger();
        QTRY_VERIFY(window.page()->cell(1)->storedCount() > 1);
    }
    const int stored = window.page()->cell(1)->storedCount();

    QAction *toggle = window.findChild<QAction *>(state);
    for (QWidget *widget : toggle->associatedWidgets()) {
        if (auto *button = qobject_cast<QAbstractButton *>(widget))
            QTest::mouseClick(button, Qt::LeftButton);
    }
    QVERIFY(toggle->isChecked());
    QCOMPARE(window.findChild<QLabel *>(QStringLiteral("driveStateLabel"))->text(), status);
    MessageCapture messages(QMessageBox::Yes);
    actionNamed(editor, action)->trigger();
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().title, title);
    QTest::qWait(150);
    QCOMPARE(window.page()->cell(1)->storedCount(), stored);

    MessageCapture discard(QMessageBox::Discard);
    window.close();
}

// "Anderes Projekt…" lists every table of the chosen file; a damaged one is refused.

void tst_DriveConfigurator::importFromAnotherProject()
{
    DriveConfiguratorWindow window;
    window.show();
    CamDesignerViewImplementation *editor = openEditor(window, 4);
    QVERIFY(editor);
    actionNamed(editor, ImportText)->trigger();
    auto *dialog = editor->findChild<ImportDescriptionDialog *>();
    QVERIFY(dialog);
    auto *list = dialog->findChild<QListWidget *>(QStringLiteral("descriptionList"));
    QCOMPARE(list->count(), 1);
    QCOMPARE(list->item(0)->flags(), Qt::NoItemFlags);
    QPushButton *load = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
    QVERIFY(!load->isEnabled());

    auto *other = dialog->findChild<QPushButton *>(QStringLiteral("otherProjectButton"));
    const QString damaged = m_directory.filePath(QStringLiteral("leer.mxdrive"));
    QVERIFY(writeFile(damaged, "[]"));
    MessageCapture messages;
    {
        FileAnswer answer(damaged);
        QTest::mouseClick(other, Qt::LeftButton);
    }
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().title, QStringLiteral("Projekt kann nicht gelesen werden"));
    QCOMPARE(list->count(), 1);
    {
        FileAnswer answer(ExampleProject);
        QTest::mouseClick(other, Qt::LeftButton);
    }
    QCOMPARE(list->count(), 2);
    list->setCurrentRow(1);
    QTest::mouseClick(load, Qt::LeftButton);
    const QJsonObject spline = window.page()->cell(4)->description()->toJson();
    QCOMPARE(spline.value("MotionLaw").toString(), QStringLiteral("Spline"));
    QCOMPARE(editor->undoStack()->text(0), QStringLiteral("Lade Kurvendefinitionsdaten : Kurvenscheibe 3 aus example-project.mxdrive"));
    actionNamed(editor, QStringLiteral("&Rückgängig"))->trigger();
    QVERIFY(window.page()->cell(4)->description()->isEmpty());
    QCOMPARE(messages.count(), 1);
    MessageCapture discard(QMessageBox::Discard);
    window.close();
}

// The stamp and the count follow the drive, whoever changes it.

void tst_DriveConfigurator::stampFollowsTheDrive()
{
    DriveConfiguratorWindow window;
    QVERIFY(window.openProject(copyOfExample()));
    CamTableCell *cell = window.page()->cell(3);
    auto *label = cell->findChild<QLabel *>(QStringLiteral("stampLabel"));
    QCOMPARE(label->text(), QStringLiteral("CRC: Kurvenscheibeneditor"));
    MxSimulation::SimulatedDrive *drive = window.project()->drive();
    QVERIFY(drive->writeValueNative(DriveProject::LivingSpace, MxParameterDefinition::ParameterCoordinate("G293"), 3,
                                    QString::number(cell->computedCrc() ^ 1u)));
    QTRY_COMPARE(label->text(), QStringLiteral("CRC: fremd"));
    QVERIFY(window.isWindowModified());
    QVERIFY(drive->writeValue(DriveProject::LivingSpace, MxParameterDefinition::ParameterCoordinate("G68"), 3,
                              QStringLiteral("1")));
    QTRY_COMPARE(cell->findChild<QLabel *>(QStringLiteral("countLabel"))->text(), QStringLiteral("Stützstellen: 1"));
    QCOMPARE(label->text(), QStringLiteral("CRC: –"));
    QCOMPARE(window.page()->cell(0)->stamp(), CamTableCell::Stamp::Editor);
}

// English from the menu: the host's texts change at once and the choice is kept.

QTEST_MAIN(tst_DriveConfigurator)
#include "tst_driveconfigurator.moc"
