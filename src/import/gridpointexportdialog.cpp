#include "gridpointexportdialog.h"
#include "ui_gridpointexportdialog.h"

#include <filedialog.h>
#include <messagebox.h>
#include "curvetextconverter.h"
#include "curvetextwriter.h"
#include "defaultpathsetting.h"

#include <QPushButton>

#include <iterator>

namespace {
// Start folder of the file dialog, kept by the host apart from the cam files.
const char DefaultPathKind[] = "CamDesignerGridPointText";
} // namespace

GridPointExportDialog::GridPointExportDialog(const QPolygonF &calculated, const QPolygonF &stored,
                                             int masterDecimalPlaces, int slaveDecimalPlaces, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::GridPointExportDialog>())
    , m_calculated(calculated)
    , m_stored(stored)
    , m_masterDecimalPlaces(masterDecimalPlaces)
    , m_slaveDecimalPlaces(slaveDecimalPlaces)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_valueSeparatorRadios[CurveTextConverter::Semicolon] = m_ui->semicolonSeparatorRadio;
    m_valueSeparatorRadios[CurveTextConverter::Comma] = m_ui->commaSeparatorRadio;
    m_valueSeparatorRadios[CurveTextConverter::Tab] = m_ui->tabSeparatorRadio;
    m_valueSeparatorRadios[CurveTextConverter::Blank] = m_ui->spaceSeparatorRadio;

    m_ui->calculatedRadio->setText(tr("Berechnete Stützstellen (%1)").arg(m_calculated.size()));
    m_ui->storedRadio->setText(tr("Im Antriebsregler gespeicherte Tabelle (%1)").arg(m_stored.size()));
    m_ui->calculatedRadio->setEnabled(!m_calculated.isEmpty());
    m_ui->storedRadio->setEnabled(!m_stored.isEmpty());
    (m_calculated.isEmpty() && !m_stored.isEmpty() ? m_ui->storedRadio : m_ui->calculatedRadio)->setChecked(true);
    m_ui->decimalPlacesLabel->setText(tr("Master %1, Slave %2 (des Antriebsreglers)")
                                          .arg(m_masterDecimalPlaces)
                                          .arg(m_slaveDecimalPlaces));
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setText(tr("Exportieren"));
    m_ui->buttonBox->button(QDialogButtonBox::Cancel)->setText(tr("Abbrechen"));

    // The writer starts as the converter does: free format, point, semicolon.
    const CurveTextWriter defaults;
    m_ui->formatCombo->setCurrentIndex(defaults.format());
    bringSeparatorsInLine(defaults.decimalSeparator(), defaults.valueSeparator());

    connect(m_ui->formatCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &GridPointExportDialog::onFormatChanged);
    connect(m_ui->chooseFileButton, &QToolButton::clicked, this, &GridPointExportDialog::chooseFile);
    connect(m_ui->fileEdit, &QLineEdit::textChanged, this, &GridPointExportDialog::updateOkButton);
    connect(m_ui->buttonBox, &QDialogButtonBox::accepted, this, &GridPointExportDialog::accept);
    updateOkButton();
}

GridPointExportDialog::~GridPointExportDialog() = default;

void GridPointExportDialog::bringSeparatorsInLine(int decimalSeparator, int valueSeparator)
{
    (decimalSeparator == CurveTextConverter::DecimalComma ? m_ui->decimalCommaRadio : m_ui->decimalPointRadio)
        ->setChecked(true);
    if (valueSeparator >= 0 && valueSeparator < int(std::size(m_valueSeparatorRadios)))
        m_valueSeparatorRadios[valueSeparator]->setChecked(true);
    const bool free = m_ui->formatCombo->currentIndex() == CurveTextConverter::FreeFormat;
    m_ui->decimalSeparatorBox->setEnabled(free);
    m_ui->valueSeparatorBox->setEnabled(free);
}

CurveTextWriter GridPointExportDialog::chosenWriter(int format) const
{
    CurveTextWriter writer;
    writer.setDecimalSeparator(m_ui->decimalCommaRadio->isChecked() ? CurveTextConverter::DecimalComma
                                                                     : CurveTextConverter::DecimalPoint);
    for (int index = 0; index < int(std::size(m_valueSeparatorRadios)); ++index) {
        if (m_valueSeparatorRadios[index]->isChecked())
            writer.setValueSeparator(index);
    }
    writer.setFormat(format);
    writer.setDecimalPlaces(m_masterDecimalPlaces, m_slaveDecimalPlaces);
    return writer;
}

void GridPointExportDialog::onFormatChanged(int format)
{
    // A named format shows its own separators; the free format keeps them.
    const CurveTextWriter writer = chosenWriter(format);
    bringSeparatorsInLine(writer.decimalSeparator(), writer.valueSeparator());
}

void GridPointExportDialog::updateOkButton()
{
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(!m_ui->fileEdit->text().trimmed().isEmpty());
}

void GridPointExportDialog::chooseFile()
{
    VxUtilities::DefaultPathSetting defaultPath { QLatin1String(DefaultPathKind) };
    const QString current = m_ui->fileEdit->text().trimmed();
    const QString path = FileDialog::getSaveFileName(this, tr("Stützstellentabelle exportieren"),
                                                     current.isEmpty() ? defaultPath.path() : current,
                                                     tr("Stützstellendateien (*.txt *.csv)"));
    if (path.isEmpty())
        return;
    m_ui->fileEdit->setText(path);
    defaultPath.setPath(path);
}

void GridPointExportDialog::accept()
{
    const QString path = m_ui->fileEdit->text().trimmed();
    if (path.isEmpty())
        return;
    const CurveTextWriter writer = chosenWriter(m_ui->formatCombo->currentIndex());
    QString error;
    if (!writer.write(path, m_ui->storedRadio->isChecked() ? m_stored : m_calculated, &error)) {
        MessageBox::warning(this, tr("Stützstellentabelle nicht exportiert"), error);
        return;
    }
    QDialog::accept();
}
