#include "externalcurveimportview.h"

#include "ui_externalcurveimportview.h"

#include "camdesigner/filedialog.h"
#include "camdesigner/messagebox.h"
#include "parameters/parametermodel.h"

#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>

#include <QFile>
#include <QFileInfo>
#include <QTextCodec>

#include <cmath>

namespace {

enum Column { MasterParameter, MasterImported, MasterDelta, SlaveParameter, SlaveImported, SlaveDelta, ColumnCount };

const char EmptyIcon[] = ":/Resources/General/Empty_16x16.png";
// Light enough to keep the numbers readable.
const QColor DifferenceColor(255, 160, 160);

// Exact, not fuzzy: a keystroke that changes the last digit must refill its row.
bool samePoint(const QPointF &a, const QPointF &b)
{
    return a.x() == b.x() && a.y() == b.y();
}

// Curve files come from Windows tools as often as from others: a byte-order
// mark decides, else UTF-8 if the bytes are valid UTF-8, else Latin-1.
QString decodedText(const QByteArray &bytes)
{
    QString text;
    if (QTextCodec *unicode = QTextCodec::codecForUtfText(bytes, nullptr)) {
        text = unicode->toUnicode(bytes);
    } else {
        QTextCodec::ConverterState state;
        text = QTextCodec::codecForMib(106)->toUnicode(bytes.constData(), bytes.size(), &state);
        if (state.invalidChars > 0)
            text = QString::fromLatin1(bytes);
    }
    // The UTF-16 decoders keep the byte-order mark.
    if (text.startsWith(QChar(QChar::ByteOrderMark)))
        text.remove(0, 1);
    // The text edit would take a lone carriage return for a line of its own.
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return text;
}

void setIfChanged(QTreeWidgetItem *item, int column, const QString &text)
{
    if (item->text(column) != text)
        item->setText(column, text);
}

} // namespace

ExternalCurveImportView::ExternalCurveImportView(ParameterModel *parameterModel, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::ExternalCurveImportView>())
    , m_parameterModel(parameterModel)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_valueSeparatorRadios = { { CurveTextConverter::Semicolon, m_ui->semicolonSeparatorRadio },
                               { CurveTextConverter::Comma, m_ui->commaSeparatorRadio },
                               { CurveTextConverter::Tab, m_ui->tapSeparatorRadio },
                               { CurveTextConverter::Blank, m_ui->spaceSeparatorRadio } };
    if (m_parameterModel)
        m_parameterPoints = m_parameterModel->storedGridPoints();
    createLegend();
    createCompareRows();

    connect(m_ui->importButton, &QAbstractButton::clicked, this, &ExternalCurveImportView::chooseFile);
    connect(m_ui->sourceFileEdit, &QLineEdit::editingFinished, this, &ExternalCurveImportView::onSourceFileEdited);
    connect(m_ui->importFileEdit, &QTextEdit::textChanged, this, &ExternalCurveImportView::onTextChanged);
    connect(m_ui->formatCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &ExternalCurveImportView::onFormatChanged);
    for (QRadioButton *radio : { m_ui->decimalPlacesDotSeparatorRadio, m_ui->decimalPlacesCommaSeparatorRadio })
        connect(radio, &QAbstractButton::toggled, this, &ExternalCurveImportView::onDecimalSeparatorToggled);
    for (QRadioButton *radio : m_valueSeparatorRadios)
        connect(radio, &QAbstractButton::toggled, this, &ExternalCurveImportView::onValueSeparatorToggled);
    if (m_parameterModel)
        connect(m_parameterModel, &ParameterModel::valueChanged, this,
                &ExternalCurveImportView::onParameterValuesChanged);

    bringRadiosInLine();
    updateSummary();
}

ExternalCurveImportView::~ExternalCurveImportView()
{
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
    m_parameterCurve->setSamples(m_parameterPoints);
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
    // Made once: a refresh only fills, shows and hides them.
    QTreeWidgetItem prototype;
    for (int column = 0; column < ColumnCount; ++column)
        prototype.setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    prototype.setIcon(MasterParameter, QIcon(QLatin1String(EmptyIcon)));
    QList<QTreeWidgetItem *> rows;
    rows.reserve(CompareRows);
    for (int row = 0; row < CompareRows; ++row)
        rows.append(prototype.clone());
    QTreeWidget *view = m_ui->compareView;
    view->addTopLevelItems(rows);
    for (int row = 0; row < CompareRows; ++row)
        view->setRowHidden(row, QModelIndex(), true);
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
    const QPolygonF previous = m_importedPoints;
    m_importedPoints = m_converter.convert();
    updateImportedCurve();

    QTreeWidget *view = m_ui->compareView;
    view->setUpdatesEnabled(false);
    // Only rows whose pair changed, or that come into view, are filled: a
    // keystroke in a long file changes one pair, not thousands.
    const int shownNow = qMin(m_importedPoints.size(), CompareRows);
    for (int row = 0; row < shownNow; ++row) {
        if (row >= m_shownRows || !samePoint(previous.at(row), m_importedPoints.at(row)))
            fillRows(row, row + 1);
    }
    showRows(m_shownRows, shownNow);
    view->setUpdatesEnabled(true);
    updateSummary();
}

void ExternalCurveImportView::updateImportedCurve()
{
    QwtPlot *plot = m_ui->comparePlot;
    // Two pairs or fewer make no curve worth drawing.
    if (m_importedPoints.size() > 2) {
        m_importedCurve->setSamples(m_importedPoints);
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

void ExternalCurveImportView::fillRows(int first, int last)
{
    if (!m_parameterModel)
        return;
    const ParameterModel &model = *m_parameterModel;
    const double masterScale = std::pow(10.0, model.masterDecimalPlaces());
    const double slaveScale = std::pow(10.0, model.slaveDecimalPlaces());
    // Differences in units of the last decimal place, as the write rounds.
    const auto delta = [](double imported, double parameter, double scale) {
        return std::round(imported * scale) - std::round(parameter * scale);
    };
    const auto deltaText = [](double scaledDelta, const QString &text) {
        return scaledDelta > 0.0 ? QLatin1Char('+') + text : text;
    };
    QTreeWidget *view = m_ui->compareView;
    for (int row = first; row < last; ++row) {
        QTreeWidgetItem *item = view->topLevelItem(row);
        const QPointF imported = m_importedPoints.at(row);
        setIfChanged(item, MasterImported, model.masterValueToText(imported.x()));
        setIfChanged(item, SlaveImported, model.slaveValueToText(imported.y()));
        QString toolTip;
        if (row < m_parameterPoints.size()) {
            const QPointF parameter = m_parameterPoints.at(row);
            const double masterDelta = delta(imported.x(), parameter.x(), masterScale);
            const double slaveDelta = delta(imported.y(), parameter.y(), slaveScale);
            const QString masterText =
                deltaText(masterDelta, model.masterValueToText(masterDelta / masterScale));
            const QString slaveText = deltaText(slaveDelta, model.slaveValueToText(slaveDelta / slaveScale));
            setIfChanged(item, MasterParameter, model.masterValueToText(parameter.x()));
            setIfChanged(item, SlaveParameter, model.slaveValueToText(parameter.y()));
            setIfChanged(item, MasterDelta, masterText);
            setIfChanged(item, SlaveDelta, slaveText);
            if (masterDelta != 0.0 || slaveDelta != 0.0)
                toolTip = tr("Importierter Wert weicht vom Parameterwert ab: Δ Master %1, Δ Slave %2")
                              .arg(masterText, slaveText);
        } else {
            for (int column : { MasterParameter, SlaveParameter, MasterDelta, SlaveDelta })
                setIfChanged(item, column, QString());
            toolTip = tr("Kein Parameterwert: die Stützstelle kommt mit dem Import hinzu.");
        }
        if (item->toolTip(MasterParameter) == toolTip)
            continue;
        const QBrush background = toolTip.isEmpty() ? QBrush() : QBrush(DifferenceColor);
        for (int column = 0; column < ColumnCount; ++column) {
            item->setBackground(column, background);
            item->setToolTip(column, toolTip);
        }
    }
}

void ExternalCurveImportView::showRows(int shownBefore, int shownNow)
{
    QTreeWidget *view = m_ui->compareView;
    for (int row = shownNow; row < shownBefore; ++row)
        view->setRowHidden(row, QModelIndex(), true);
    for (int row = shownBefore; row < shownNow; ++row)
        view->setRowHidden(row, QModelIndex(), false);
    m_shownRows = shownNow;
}

void ExternalCurveImportView::updateSummary()
{
    m_ui->pairCountLabel->setText(
        tr("Wertepaare: %1 gelesen, %2 aufgelistet.").arg(m_importedPoints.size()).arg(m_shownRows));
    const QString error = m_converter.errorMessage();
    m_ui->conversionErrorLabel->setText(error);
    m_ui->conversionErrorLabel->setVisible(!error.isEmpty());
}

void ExternalCurveImportView::onParameterValuesChanged()
{
    if (!m_parameterModel)
        return;
    m_parameterPoints = m_parameterModel->storedGridPoints();
    m_parameterCurve->setSamples(m_parameterPoints);
    m_ui->comparePlot->replot();
    m_ui->compareView->setUpdatesEnabled(false);
    fillRows(0, m_shownRows);
    m_ui->compareView->setUpdatesEnabled(true);
}

void ExternalCurveImportView::accept()
{
    m_importedPoints = m_converter.convert();
    QPointer<ExternalCurveImportView> self(this);
    // The write processes events while it runs: no second click meanwhile,
    // and no refill of the rows for a table that is about to be left.
    setEnabled(false);
    if (m_parameterModel) {
        disconnect(m_parameterModel, nullptr, this, nullptr);
        m_parameterModel->writeGridPoints(m_importedPoints);
    }
    if (!self)
        return;
    setEnabled(true);
    QDialog::accept();
}
