#include "../views/editorfixture.h"
#include "fileanswer.h"
#include "formwidget.h"
#include "messagecapture.h"
#include "testfiles.h"

#include "curves/motionplan.h"
#include "import/curvetextconverter.h"
#include "import/gridpointexportdialog.h"
#include "model/cameditormodel.h"
#include "parameters/parametermodelimplementation.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QtTest>

#include <cmath>

namespace {

QPolygonF imported(const QString &path, int format)
{
    CurveTextConverter converter;
    converter.setFormat(format);
    converter.setText(QString::fromLatin1(readFile(path)));
    return converter.convert();
}

QPolygonF rounded(const QPolygonF &points, const ParameterModel &model)
{
    QPolygonF result;
    for (const QPointF &point : points)
        result.append(QPointF(model.roundMaster(point.x()), model.roundSlave(point.y())));
    return result;
}

} // namespace

class tst_GridPointExportDialog : public QObject
{
    Q_OBJECT
private slots:
    void cleanup()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(QApplication::topLevelWidgets().size(), 0);
    }

    // Refused, then written in a named format; after a write to the drive the
    // stored table is offered too.
    void exportsFromTheEditorWindow()
    {
        QTemporaryDir scratch;
        const QString path = scratch.filePath(QStringLiteral("kurve.csv"));
        EditorFixture editor;
        CamDesignerViewImplementation *window = editor.open();
        QAction *action = actionNamed(window, QStringLiteral("Stützstellentabelle als Text exportieren"));
        QVERIFY(action);
        action->trigger();
        auto *dialog = window->findChild<GridPointExportDialog *>();
        QVERIFY(dialog && dialog->isVisible());
        QVERIFY(!widget<QRadioButton>(dialog, "storedRadio")->isEnabled());
        QVERIFY(widget<QRadioButton>(dialog, "calculatedRadio")->isChecked());
        QPushButton *ok = widget<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok);
        QVERIFY(!ok->isEnabled());

        FileAnswer answer(path);
        // The chosen path is where the files below are read.
        widget<QToolButton>(dialog, "chooseFileButton")->click();

        MessageCapture messages;
        widget<QRadioButton>(dialog, "decimalCommaRadio")->click();
        widget<QRadioButton>(dialog, "commaSeparatorRadio")->click();
        ok->click();
        QCOMPARE(messages.count(), 1);
        QCOMPARE(messages.last().title, QStringLiteral("Stützstellentabelle nicht exportiert"));
        QVERIFY(messages.last().text.startsWith(QStringLiteral("Das Komma kann nicht zugleich")));
        QVERIFY(dialog->isVisible());
        QVERIFY(!QFile::exists(path));

        auto *format = widget<QComboBox>(dialog, "formatCombo");
        format->setCurrentIndex(CurveTextConverter::CodeSys);
        // Its own separators replace the refused pair; which ones is the
        // writer's test.
        ok->click();
        QTRY_VERIFY(!window->findChild<GridPointExportDialog *>());
        QCOMPARE(messages.count(), 1);
        ParameterModelImplementation model(nullptr, &editor.drive, EditorFixture::Table, EditorFixture::LivingSpace);
        const QPolygonF calculated = editor.implementation()->editorModel()->motionPlan()->positions();
        QVERIFY(calculated.size() > 10);
        QCOMPARE(imported(path, CurveTextConverter::CodeSys), rounded(calculated, model));

        // The stored table, once the drive holds one.
        actionNamed(window, QStringLiteral("Schreibt die berechneten Stützstellen in Parameter"))->trigger();
        const QPolygonF stored = ParameterModelImplementation(nullptr, &editor.drive, EditorFixture::Table,
                                                              EditorFixture::LivingSpace).storedGridPoints();
        QCOMPARE(stored.size(), calculated.size());
        action->trigger();
        dialog = window->findChild<GridPointExportDialog *>();
        widget<QRadioButton>(dialog, "storedRadio")->click();
        widget<QComboBox>(dialog, "formatCombo")->setCurrentIndex(CurveTextConverter::TwinCat2);
        widget<QToolButton>(dialog, "chooseFileButton")->click();
        widget<QDialogButtonBox>(dialog, "buttonBox")->button(QDialogButtonBox::Ok)->click();
        QTRY_VERIFY(!window->findChild<GridPointExportDialog *>());
        QCOMPARE(imported(path, CurveTextConverter::TwinCat2), stored);
        window->close();
    }
};

QTEST_MAIN(tst_GridPointExportDialog)
#include "tst_gridpointexportdialog.moc"
