#include "externalcurveimportview.h"

#include "ui_externalcurveimportview.h"

#include <filedialog.h>
#include <messagebox.h>
#include "parameters/parametermodel.h"

#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>

#include <QFile>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPushButton>

namespace {

const char EmptyIcon[] = ":/Resources/General/Empty_16x16.png";

// The text edit would take a lone carriage return for a line of its own.
QString decodedText(const QByteArray &bytes)
{
    QString text = CurveTextConverter::decodedText(bytes);
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text;
}

} // namespace

ExternalCurveImportView::ExternalCurveImportView(ParameterModel *parameterModel, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::ExternalCurveImportView>())
{
    m_table.parameterModel = parameterModel;
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_valueSeparatorRadios = { { CurveTextConverter::Semicolon, m_ui->semicolonSeparatorRadio },
                               { CurveTextConverter::Comma, m_ui->commaSeparatorRadio },
                               { CurveTextConverter::Tab, m_ui->tapSeparatorRadio },
                               { CurveTextConverter::Blank, m_ui->spaceSeparatorRadio } };
    if (parameterModel)
        m_table.parameter = parameterModel->storedGridPoints();
    createLegend();
    createCompareRows();
    // The comparison needs more room than the text.
    m_ui->splitter_2->setStretchFactor(1, 1);
    m_ui->splitter_2->setSizes({ 2, 5 });

    connect(m_ui->importButton, &QAbstractButton::clicked, this, &ExternalCurveImportView::chooseFile);
    connect(m_ui->sourceFileEdit, &QLineEdit::editingFinished, this, &ExternalCurveImportView::onSourceFileEdited);
    connect(m_ui->importFileEdit, &QTextEdit::textChanged, this, &ExternalCurveImportView::onTextChanged);
    connect(m_ui->formatCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &ExternalCurveImportView::onFormatChanged);
    for (QRadioButton *radio : { m_ui->decimalPlacesDotSeparatorRadio, m_ui->decimalPlacesCommaSeparatorRadio })
        connect(radio, &QAbstractButton::toggled, this, &ExternalCurveImportView::onDecimalSeparatorToggled);
    for (QRadioButton *radio : m_valueSeparatorRadios)
        connect(radio, &QAbstractButton::toggled, this, &ExternalCurveImportView::onValueSeparatorToggled);
    if (parameterModel)
        connect(parameterModel, &ParameterModel::valueChanged, this,
                &ExternalCurveImportView::onParameterValuesChanged);

    bringRadiosInLine();
    updateSummary();
}

ExternalCurveImportView::~ExternalCurveImportView()
{
    // The rows read the table, which goes before the widgets do.
    m_ui->compareView->clear();
    // Owned here while detached; detaches itself if the plot holds it.
    delete m_importedCurve;
}

void ExternalCurveImportView::createLegend()
{
    QwtPlot *plot = m_ui->comparePlot;
    auto *legend = new QwtLegend;
    legend->setDefaultItemMode(QwtLegendData::Checkable);
    plot->insertLegend(legend, QwtPlot::RightLegend);
    connect(legend, &QwtLegend::checked, this, &ExternalCurveImportView::onLegendChecked);

    m_parameterCurve = new QwtPlotCurve(tr("Parameter"));
    m_parameterCurve->setPen(QPen(Qt::darkGreen));
    m_parameterCurve->setRenderHint(QwtPlotItem::RenderAntialiased, true);
    m_parameterCurve->setSamples(m_table.parameter);
    m_parameterCurve->attach(plot);
    if (auto *label = qobject_cast<QwtLegendLabel *>(legend->legendWidget(plot->itemToInfo(m_parameterCurve))))
        label->setChecked(true);

    m_importedCurve = new QwtPlotCurve;
    m_importedCurve->setTitle(tr("Importierte Kurve"));
    m_importedCurve->setPen(QPen(Qt::blue, 2, Qt::SolidLine));
    m_importedCurve->setRenderHint(QwtPlotItem::RenderAntialiased, true);
}

void ExternalCurveImportView::createCompareRows()
{
    // Made once: a refresh only shows and hides them.
    m_table.icon = QIcon(QLatin1String(EmptyIcon));
    QList<QTreeWidgetItem *> rows;
    rows.reserve(CompareRows);
    for (int row = 0; row < CompareRows; ++row)
        rows.append(new CompareRow(&m_table, row));
    QTreeWidget *view = m_ui->compareView;
    view->addTopLevelItems(rows);
    for (int row = 0; row < CompareRows; ++row)
        view->setRowHidden(row, QModelIndex(), true);
    // Wide enough for the headers, sized once: sizing to the contents
    // would measure rows on every refresh.
    view->header()->resizeSections(QHeaderView::ResizeToContents);
}

void ExternalCurveImportView::chooseFile()
{
    const QString current = m_ui->sourceFileEdit->text();
    const QString path = FileDialog::getOpenFileName(this, tr("Stützstellendateien öffnen"),
                                                     current.isEmpty() ? QString() : QFileInfo(current).path(),
                                                     tr("Stützstellendateien (*.txt *.csv)"));
    if (path.isEmpty())
        return;
    m_ui->sourceFileEdit->setText(path);
    loadFile(path);
}

void ExternalCurveImportView::onSourceFileEdited()
{
    // Loaded when the user is done with the path, not on every keystroke.
    QLineEdit *edit = m_ui->sourceFileEdit;
    if (!edit->isModified())
        return;
    edit->setModified(false);
    if (!edit->text().isEmpty())
        loadFile(edit->text());
}

void ExternalCurveImportView::loadFile(const QString &path)
{
    // The box has no informative text of its own: the headline goes into
    // the title, the reason into the text.
    const QString failure = tr("Fehler beim Öffnen einer Kurvendatei");
    if (!QFileInfo::exists(path)) {
        MessageBox::critical(this, failure, tr("Datei existiert nicht."));
        return;
    }
    // Read as bytes: a text-mode read would drop carriage-return bytes
    // inside UTF-16 characters. Line ends are evened out after decoding.
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        MessageBox::critical(this, failure,
                             tr("Datei kann nicht geöffnet werden, eventuell ist sie von einem anderen Programm "
                                "geöffnet."));
        return;
    }
    const QString text = decodedText(file.readAll());
    file.close();
    // Replaces the whole content, and with it the undo history of the edit.
    m_ui->importFileEdit->setPlainText(text);
}

void ExternalCurveImportView::onTextChanged()
{
    m_converter.setText(m_ui->importFileEdit->toPlainText());
    refresh();
}

void ExternalCurveImportView::onFormatChanged(int index)
{
    if (m_syncing)
        return;
    m_converter.setFormat(index);
    bringRadiosInLine();
    refresh();
}

void ExternalCurveImportView::onDecimalSeparatorToggled(bool checked)
{
    // A click toggles two radios; the one that became checked decides.
    if (!checked || m_syncing)
        return;
    if (m_ui->decimalPlacesCommaSeparatorRadio->isChecked())
        m_converter.setDecimalSeparator(CurveTextConverter::DecimalComma);
    else if (m_ui->decimalPlacesDotSeparatorRadio->isChecked())
        m_converter.setDecimalSeparator(CurveTextConverter::DecimalPoint);
    refresh();
}

void ExternalCurveImportView::onValueSeparatorToggled(bool checked)
{
    if (!checked || m_syncing)
        return;
    for (auto radio = m_valueSeparatorRadios.constBegin(); radio != m_valueSeparatorRadios.constEnd(); ++radio) {
        if (radio.value()->isChecked())
            m_converter.setValueSeparator(radio.key());
    }
    refresh();
}

void ExternalCurveImportView::onLegendChecked(const QVariant &itemInfo, bool on, int)
{
    if (QwtPlotItem *item = m_ui->comparePlot->infoToItem(itemInfo)) {
        item->setVisible(on);
        m_ui->comparePlot->replot();
    }
}

void ExternalCurveImportView::bringRadiosInLine()
{
    m_syncing = true;
    // The selector index is the format.
    m_ui->formatCombo->setCurrentIndex(m_converter.format());
    // A disabled radio would not take the preset.
    m_ui->valueSeparatorBox->setEnabled(true);
    m_ui->decimalSeparatorBox->setEnabled(true);
    if (QRadioButton *radio = m_valueSeparatorRadios.value(m_converter.valueSeparator()))
        radio->setChecked(true);
    if (m_converter.decimalSeparator() == CurveTextConverter::DecimalPoint)
        m_ui->decimalPlacesDotSeparatorRadio->setChecked(true);
    else if (m_converter.decimalSeparator() == CurveTextConverter::DecimalComma)
        m_ui->decimalPlacesCommaSeparatorRadio->setChecked(true);
    // The named formats show their preset and keep it.
    const bool free = m_converter.format() == CurveTextConverter::FreeFormat;
    m_ui->valueSeparatorBox->setEnabled(free);
    m_ui->decimalSeparatorBox->setEnabled(free);
    m_syncing = false;
}

void ExternalCurveImportView::refresh()
{
    m_table.imported = m_converter.convert();
    updateImportedCurve();
    showRows(qMin(m_table.imported.size(), CompareRows));
    // The rows read their cells when painted.
    m_ui->compareView->viewport()->update();
    updateSummary();
}

void ExternalCurveImportView::updateImportedCurve()
{
    QwtPlot *plot = m_ui->comparePlot;
    // Two pairs or fewer make no curve worth drawing.
    if (m_table.imported.size() > 2) {
        m_importedCurve->setSamples(m_table.imported);
        if (!m_importedCurve->plot())
            m_importedCurve->attach(plot);
        m_importedCurve->setVisible(true);
        auto *legend = static_cast<QwtLegend *>(plot->legend());
        if (auto *label = qobject_cast<QwtLegendLabel *>(legend->legendWidget(plot->itemToInfo(m_importedCurve))))
            label->setChecked(true);
    } else if (m_importedCurve->plot()) {
        m_importedCurve->detach();
    }
    plot->replot();
}

void ExternalCurveImportView::showRows(int shownNow)
{
    // Only rows that come into view or leave it are touched.
    QTreeWidget *view = m_ui->compareView;
    for (int row = shownNow; row < m_shownRows; ++row)
        view->setRowHidden(row, QModelIndex(), true);
    for (int row = m_shownRows; row < shownNow; ++row)
        view->setRowHidden(row, QModelIndex(), false);
    m_shownRows = shownNow;
}

void ExternalCurveImportView::updateSummary()
{
    m_ui->pairCountLabel->setText(
        tr("Wertepaare: %1 gelesen, %2 aufgelistet.").arg(m_table.imported.size()).arg(m_shownRows));
    const QString error = m_converter.errorMessage();
    m_ui->conversionErrorLabel->setText(error);
    m_ui->conversionErrorLabel->setVisible(!error.isEmpty());
    const QString skipped = m_converter.skippedLinesMessage();
    m_ui->skippedLinesLabel->setText(skipped);
    m_ui->skippedLinesLabel->setVisible(!skipped.isEmpty());
    // Writing fewer pairs would replace the drive's table by nothing usable.
    if (QPushButton *ok = m_ui->buttonBox->button(QDialogButtonBox::Ok))
        ok->setEnabled(m_table.imported.size() >= MinimumPairs);
}

void ExternalCurveImportView::onParameterValuesChanged()
{
    if (!m_table.parameterModel)
        return;
    m_table.parameter = m_table.parameterModel->storedGridPoints();
    m_parameterCurve->setSamples(m_table.parameter);
    m_ui->comparePlot->replot();
    m_ui->compareView->viewport()->update();
}

void ExternalCurveImportView::keyPressEvent(QKeyEvent *event)
{
    // Enter in the path field loads the file and nothing more: a dialog would
    // take it for OK and write whatever was read so far into the drive. OK
    // is clicked, or pressed while it has the focus (the button itself
    // handles that key then).
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
}

void ExternalCurveImportView::accept()
{
    m_table.imported = m_converter.convert();
    if (m_table.imported.size() < MinimumPairs)
        return;
    QPointer<ExternalCurveImportView> self(this);
    // The write processes events while it runs: no second click meanwhile,
    // and no repaint of the rows for a table that is about to be left.
    setEnabled(false);
    if (ParameterModel *model = m_table.parameterModel) {
        disconnect(model, nullptr, this, nullptr);
        model->writeGridPoints(m_table.imported);
    }
    if (!self)
        return;
    setEnabled(true);
    QDialog::accept();
}
