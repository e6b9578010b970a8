#pragma once

#include <QDialog>
#include <QPolygonF>

#include <memory>

class CurveTextWriter;
class QRadioButton;

namespace Ui {
class GridPointExportDialog;
}

// Writes a grid point table as the text file of another tool: the calculated
// grid points or the table the drive holds, in one of the formats the import
// reads, with the drive's decimal places. A refused choice or a failed write
// is told by a message box and the dialog stays open.
class GridPointExportDialog : public QDialog
{
    Q_OBJECT
public:
    GridPointExportDialog(const QPolygonF &calculated, const QPolygonF &stored, int masterDecimalPlaces,
                          int slaveDecimalPlaces, QWidget *parent = nullptr);
    ~GridPointExportDialog() override;

public slots:
    void accept() override;

private slots:
    void chooseFile();
    void onFormatChanged(int format);
    void updateOkButton();

private:
    // The separator radios show the format's own separators, enabled only for
    // the free format.
    void bringSeparatorsInLine(int decimalSeparator, int valueSeparator);
    // A writer with the choices of the form and the given format.
    CurveTextWriter chosenWriter(int format) const;

    std::unique_ptr<Ui::GridPointExportDialog> m_ui;
    QPolygonF m_calculated;
    QPolygonF m_stored;
    int m_masterDecimalPlaces;
    int m_slaveDecimalPlaces;
    // By CurveTextConverter::ValueSeparator.
    QRadioButton *m_valueSeparatorRadios[4] = {};
};
