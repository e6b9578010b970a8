#include "fileanswer.h"
#include "formwidget.h"
#include "messagecapture.h"
#include "simulateddrive.h"
#include "testfiles.h"

#include "import/externalcurveimportview.h"
#include "parameters/parametermodelimplementation.h"

#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTextCodec>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeWidget>
#include <QtTest>

namespace {

constexpr unsigned short Table = 5;
constexpr int LivingSpace = 1;

// A drive with the model of one cam table.
struct Bound {
    MxSimulation::SimulatedDrive drive { 2 };
    ParameterModelImplementation model { nullptr, &drive, Table, LivingSpace };
};

// Keeps what the dialog hands to the write instead of writing it.
class RecordingModel : public ParameterModelImplementation
{
public:
    using ParameterModelImplementation::ParameterModelImplementation;
    void writeGridPoints(const QVector<QPointF> &points) override { written.append(points); }
    QList<QVector<QPointF>> written;
};

QTreeWidget *compareView(QWidget *dialog) { return widget<QTreeWidget>(dialog, "compareView"); }

// The number of shown rows, which must be the first ones; -1 for a gap.
int shownRows(QWidget *dialog)
{
    QTreeWidget *view = compareView(dialog);
    int shown = 0;
    for (int row = 0; row < view->topLevelItemCount(); ++row) {
        if (!view->topLevelItem(row)->isHidden() && row != shown++)
            return -1;
    }
    return shown;
}

QwtPlotCurve *curveTitled(QWidget *dialog, const QString &title)
{
    for (QwtPlotItem *item : widget<QwtPlot>(dialog, "comparePlot")->itemList(QwtPlotItem::Rtti_PlotCurve)) {
        if (item->title().text() == title)
            return static_cast<QwtPlotCurve *>(item);
    }
    return nullptr;
}

QwtLegendLabel *legendEntry(QWidget *dialog, QwtPlotItem *item)
{
    auto *plot = widget<QwtPlot>(dialog, "comparePlot");
    return qobject_cast<QwtLegendLabel *>(static_cast<QwtLegend *>(plot->legend())->legendWidget(plot->itemToInfo(item)));
}

void setText(QWidget *dialog, const QString &text) { widget<QTextEdit>(dialog, "importFileEdit")->setPlainText(text); }

} // namespace

class tst_ExternalCurveImportView : public QObject
{
    Q_OBJECT
private slots:
    void cleanup();
    void formatsPresetTheSeparators_data();
    void formatsPresetTheSeparators();
    void compareRows_data();
    void compareRows();
    void refreshDrawsMoreThanTwoPairs();
    void listsAtMost16000RowsAndHandsOverAll();
    void enterNeverAcceptsAndOkNeedsTwoPairs();
    void fileErrors_data();
    void fileErrors();
    void encodings_data();
    void encodings();
};

void tst_ExternalCurveImportView::cleanup()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(QApplication::topLevelWidgets().size(), 0);
}

void tst_ExternalCurveImportView::formatsPresetTheSeparators_data()
{
    QTest::addColumn<QList<int>>("formats");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("valueRadio");
    QTest::addColumn<QString>("decimalRadio");
    QTest::addColumn<QStringList>("firstRow");
    // Every named format presets its separators by the same way; which
    // ones is the converter's and the example files' test.
    QTest::newRow("SERVOsoft") << QList<int> { 0 } << "10,5;;20,25" << "semicolonSeparatorRadio"
                               << "decimalPlacesCommaSeparatorRadio" << QStringList { "10.500", "20.250" };
    QTest::newRow("free after SERVOsoft keeps its preset")
        << QList<int> { 0, 3 } << "1,5;2,5" << "semicolonSeparatorRadio" << "decimalPlacesCommaSeparatorRadio"
        << QStringList { "1.500", "2.500" };
    QTest::newRow("free with the clicked radios") << QList<int> {} << "1,5 2,5" << "spaceSeparatorRadio"
                                                  << "decimalPlacesCommaSeparatorRadio" << QStringList { "1.500", "2.500" };
}

void tst_ExternalCurveImportView::formatsPresetTheSeparators()
{
    QFETCH(QList<int>, formats);
    QFETCH(QString, text);
    QFETCH(QString, valueRadio);
    QFETCH(QString, decimalRadio);
    QFETCH(QStringList, firstRow);
    Bound bound;
    ExternalCurveImportView dialog(&bound.model);
    QVERIFY(!dialog.windowFlags().testFlag(Qt::WindowContextHelpButtonHint));
    auto *combo = widget<QComboBox>(&dialog, "formatCombo");

    widget<QRadioButton>(&dialog, "spaceSeparatorRadio")->click();
    widget<QRadioButton>(&dialog, "decimalPlacesCommaSeparatorRadio")->click();
    for (int format : formats)
        combo->setCurrentIndex(format);
    setText(&dialog, text);

    const bool free = combo->currentIndex() == 3;
    QCOMPARE(widget<QGroupBox>(&dialog, "valueSeparatorBox")->isEnabled(), free);
    QCOMPARE(widget<QGroupBox>(&dialog, "decimalSeparatorBox")->isEnabled(), free);
    QVERIFY(widget<QRadioButton>(&dialog, qPrintable(valueRadio))->isChecked());
    QVERIFY(widget<QRadioButton>(&dialog, qPrintable(decimalRadio))->isChecked());
    QCOMPARE(shownRows(&dialog), 1);
    QTreeWidgetItem *row = compareView(&dialog)->topLevelItem(0);
    QCOMPARE(QStringList({ row->text(1), row->text(4) }), firstRow);
}

void tst_ExternalCurveImportView::compareRows_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("cells");
    QTest::addColumn<QString>("toolTip");  // empty: the row is not marked
    QTest::newRow("equal after rounding") << 1 << QStringList { "10.000", "10.000", "0.000", "5.000", "5.000", "0.000" }
                                          << "";
    QTest::newRow("signed differences")
        << 2 << QStringList { "20.000", "19.999", "-0.001", "10.000", "10.500", "+0.500" }
        << "Importierter Wert weicht vom Parameterwert ab: Δ Master -0.001, Δ Slave +0.500";
    QTest::newRow("beyond the stored table") << 3 << QStringList { "", "30.000", "", "", "12.000", "" }
                                             << "Kein Parameterwert: die Stützstelle kommt mit dem Import hinzu.";
}

void tst_ExternalCurveImportView::compareRows()
{
    QFETCH(int, row);
    QFETCH(QStringList, cells);
    QFETCH(QString, toolTip);
    Bound bound;
    bound.model.writeGridPoints({ { 0, 0 }, { 10, 5 }, { 20, 10 } });
    ExternalCurveImportView dialog(&bound.model);
    setText(&dialog, QStringLiteral("0;0\n10.0004;5\n19.999;10.5\n30;12\n"));

    QTreeWidget *view = compareView(&dialog);
    QTreeWidgetItem *item = view->topLevelItem(row);
    QStringList texts;
    for (int column = 0; column < view->columnCount(); ++column) {
        texts << item->text(column);
        QCOMPARE(item->toolTip(column), toolTip);
        QCOMPARE(item->background(column).style() != Qt::NoBrush, !toolTip.isEmpty());
    }
    QCOMPARE(texts, cells);
}

void tst_ExternalCurveImportView::refreshDrawsMoreThanTwoPairs()
{
    Bound bound;
    ExternalCurveImportView dialog(&bound.model);
    dialog.show();
    QwtPlotCurve *parameter = curveTitled(&dialog, QStringLiteral("Parameter"));
    QVERIFY(parameter && legendEntry(&dialog, parameter)->isChecked());

    auto *edit = widget<QTextEdit>(&dialog, "importFileEdit");
    auto *count = widget<QLabel>(&dialog, "pairCountLabel");
    auto *error = widget<QLabel>(&dialog, "conversionErrorLabel");
    setText(&dialog, QStringLiteral("0;0\n1;1"));
    QCOMPARE(shownRows(&dialog), 2);
    QVERIFY(!curveTitled(&dialog, QStringLiteral("Importierte Kurve")));
    QCOMPARE(count->text(), QStringLiteral("Wertepaare: 2 gelesen, 2 aufgelistet."));

    edit->moveCursor(QTextCursor::End);
    QTest::keyClick(edit, Qt::Key_Return);
    QTest::keyClicks(edit, QStringLiteral("2;4"));
    QwtPlotCurve *imported = curveTitled(&dialog, QStringLiteral("Importierte Kurve"));
    QVERIFY(imported && imported->isVisible() && legendEntry(&dialog, imported)->isChecked());
    QCOMPARE(imported->sample(2), QPointF(2, 4));
    QCOMPARE(compareView(&dialog)->topLevelItem(2)->text(4), QStringLiteral("4.000"));

    // The legend hides and shows a curve; the next refresh shows it again.
    QTest::mouseClick(legendEntry(&dialog, imported), Qt::LeftButton);
    QVERIFY(!imported->isVisible());
    QTest::keyClicks(edit, QStringLiteral("5"));
    QVERIFY(imported->isVisible());
    QCOMPARE(compareView(&dialog)->topLevelItem(2)->text(4), QStringLiteral("45.000"));
    QVERIFY(error->isHidden());

    // A value beyond double range converts to 0 and says so.
    QTest::keyClick(edit, Qt::Key_Return);
    QTest::keyClicks(edit, QStringLiteral("3;1") + QString(400, QLatin1Char('0')));
    QCOMPARE(compareView(&dialog)->topLevelItem(3)->text(4), QStringLiteral("0.000"));
    QVERIFY(error->isVisible() && error->text().contains(QStringLiteral("konnte nicht konvertiert werden")));

    setText(&dialog, QStringLiteral("0;0\n1;1"));
    QVERIFY(!curveTitled(&dialog, QStringLiteral("Importierte Kurve")));
    QCOMPARE(shownRows(&dialog), 2);
    QVERIFY(error->isHidden());

    // The drive's table changes while the dialog is open.
    bound.model.writeGridPoints({ { 0, 7 }, { 1, 1 }, { 2, 2 } });
    QCOMPARE(parameter->dataSize(), size_t(3));
    QCOMPARE(compareView(&dialog)->topLevelItem(0)->text(3), QStringLiteral("7.000"));
    QCOMPARE(compareView(&dialog)->topLevelItem(0)->text(5), QStringLiteral("-7.000"));
}

// 20000 pairs: 16000 listed, all 20000 handed to the write.
void tst_ExternalCurveImportView::listsAtMost16000RowsAndHandsOverAll()
{
    MxSimulation::SimulatedDrive drive { 2 };
    RecordingModel model(nullptr, &drive, Table, LivingSpace);
    ExternalCurveImportView dialog(&model);
    dialog.open();
    QString text;
    for (int i = 0; i < 20000; ++i)
        text += QStringLiteral("%1;%2\n").arg(i).arg(i * 0.5);
    setText(&dialog, text);
    QCOMPARE(shownRows(&dialog), ExternalCurveImportView::CompareRows);
    QCOMPARE(compareView(&dialog)->topLevelItem(15999)->text(4), QStringLiteral("7999.500"));
    QCOMPARE(widget<QLabel>(&dialog, "pairCountLabel")->text(), QStringLiteral("Wertepaare: 20000 gelesen, 16000 aufgelistet."));

    widget<QDialogButtonBox>(&dialog, "buttonBox")->button(QDialogButtonBox::Ok)->click();
    QVERIFY(dialog.isHidden());
    QCOMPARE(model.written.size(), 1);
    QCOMPARE(model.written.first().size(), 20000);
    QCOMPARE(model.written.first().last(), QPointF(19999, 9999.5));
}

// Enter in a field once accepted the dialog with what was read so far,
// possibly nothing, and so emptied the drive's table.
void tst_ExternalCurveImportView::enterNeverAcceptsAndOkNeedsTwoPairs()
{
    QTemporaryDir scratch;
    const QString path = scratch.filePath(QStringLiteral("kurve.csv"));
    QVERIFY(writeFile(path, "Master;Slave\n0;0\n"));
    MxSimulation::SimulatedDrive drive { 2 };
    RecordingModel model(nullptr, &drive, Table, LivingSpace);
    ExternalCurveImportView dialog(&model);
    dialog.show();
    QPushButton *ok = widget<QDialogButtonBox>(&dialog, "buttonBox")->button(QDialogButtonBox::Ok);
    auto *skipped = widget<QLabel>(&dialog, "skippedLinesLabel");
    QVERIFY(!ok->isEnabled());
    QVERIFY(skipped->isHidden());

    auto *pathEdit = widget<QLineEdit>(&dialog, "sourceFileEdit");
    QTest::keyClicks(pathEdit, path);
    QTest::keyClick(pathEdit, Qt::Key_Return);
    QCOMPARE(widget<QLabel>(&dialog, "pairCountLabel")->text(), QStringLiteral("Wertepaare: 1 gelesen, 1 aufgelistet."));
    QCOMPARE(skipped->text(), QStringLiteral("Übersprungene Zeilen ohne Wertepaar: 1; die erste ist Zeile 1: „Master;Slave“"));
    QVERIFY(skipped->isVisible());
    QVERIFY(!ok->isEnabled());
    for (QWidget *field : { static_cast<QWidget *>(pathEdit), static_cast<QWidget *>(widget<QComboBox>(&dialog, "formatCombo")),
                            static_cast<QWidget *>(widget<QRadioButton>(&dialog, "semicolonSeparatorRadio")) }) {
        QTest::keyClick(field, Qt::Key_Return);
        QTest::keyClick(field, Qt::Key_Enter);
    }
    dialog.accept();
    QVERIFY(dialog.isVisible());
    QVERIFY(model.written.isEmpty());

    // Two pairs make a table; Enter in the path field still only loads.
    setText(&dialog, QStringLiteral("0;0\n1;1"));
    QVERIFY(ok->isEnabled());
    QVERIFY(skipped->isHidden());
    QTest::keyClick(pathEdit, Qt::Key_Return);
    QVERIFY(dialog.isVisible());
    QVERIFY(model.written.isEmpty());
    ok->click();
    QVERIFY(dialog.isHidden());
    QCOMPARE(model.written, QList<QVector<QPointF>>({ { { 0, 0 }, { 1, 1 } } }));
}

void tst_ExternalCurveImportView::fileErrors_data()
{
    QTest::addColumn<bool>("directory");
    QTest::addColumn<QString>("reason");
    QTest::newRow("missing") << false << "Datei existiert nicht.";
    QTest::newRow("not readable") << true
                                  << "Datei kann nicht geöffnet werden, eventuell ist sie von einem anderen Programm "
                                     "geöffnet.";
}

void tst_ExternalCurveImportView::fileErrors()
{
    QFETCH(bool, directory);
    QFETCH(QString, reason);
    QTemporaryDir scratch;
    // A directory exists but opens as no file.
    FileAnswer answer(directory ? scratch.path() : scratch.filePath(QStringLiteral("vanished.txt")));
    MessageCapture messages;
    Bound bound;
    ExternalCurveImportView dialog(&bound.model);
    setText(&dialog, QStringLiteral("0;0\n1;1\n2;2"));

    widget<QToolButton>(&dialog, "importButton")->click();
    QCOMPARE(messages.count(), 1);
    QCOMPARE(messages.last().icon, QMessageBox::Critical);
    QCOMPARE(messages.last().title, QStringLiteral("Fehler beim Öffnen einer Kurvendatei"));
    QCOMPARE(messages.last().text, reason);
    QCOMPARE(widget<QTextEdit>(&dialog, "importFileEdit")->toPlainText(), QStringLiteral("0;0\n1;1\n2;2"));
    QCOMPARE(shownRows(&dialog), 3);
}

void tst_ExternalCurveImportView::encodings_data()
{
    const QString text = QStringLiteral("Master [°];Slave [µm]\r\n0;0\r\n90;45.5\r\n180;0\r\n");
    QTest::addColumn<QByteArray>("bytes");
    // Without a byte order mark, bytes that are no UTF-8 are read as Latin-1,
    // as SERVOsoft writes them; the random user imports every example file.
    QTest::newRow("Latin-1") << text.toLatin1();
    QTest::newRow("UTF-8 with BOM") << QByteArray("\xef\xbb\xbf") + text.toUtf8();
    QTest::newRow("UTF-16BE with BOM") << QTextCodec::codecForName("UTF-16BE")->fromUnicode(QChar(QChar::ByteOrderMark) + text);
}

// Loaded from a path typed into the path field.
void tst_ExternalCurveImportView::encodings()
{
    QFETCH(QByteArray, bytes);
    QTemporaryDir scratch;
    const QString path = scratch.filePath(QStringLiteral("kurve.csv"));
    QVERIFY(writeFile(path, bytes));
    Bound bound;
    ExternalCurveImportView dialog(&bound.model);
    dialog.show();
    auto *pathEdit = widget<QLineEdit>(&dialog, "sourceFileEdit");
    QTest::keyClicks(pathEdit, path);
    QCOMPARE(shownRows(&dialog), 0);
    QTest::keyClick(pathEdit, Qt::Key_Return);
    QCOMPARE(widget<QTextEdit>(&dialog, "importFileEdit")->toPlainText(),
             QStringLiteral("Master [°];Slave [µm]\n0;0\n90;45.5\n180;0\n"));
    QCOMPARE(shownRows(&dialog), 3);
}

QTEST_MAIN(tst_ExternalCurveImportView)
#include "tst_externalcurveimportview.moc"
