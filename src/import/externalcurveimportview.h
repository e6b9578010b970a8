#pragma once

#include "comparerow.h"
#include "curvetextconverter.h"

#include <QDialog>
#include <QMap>
#include <QPolygonF>

#include <memory>

class ParameterModel;
class QKeyEvent;
class QRadioButton;
class QVariant;
class QwtPlotCurve;

namespace Ui {
class ExternalCurveImportView;
}

// Imports a grid point table from the text file of another tool: shows the
// text for editing, converts it on every change, draws and lists it beside
// the table the drive holds now, and on acceptance writes it as the table.
// The motion points stay as they are.
class ExternalCurveImportView : public QDialog
{
    Q_OBJECT
public:
    // The comparison shows at most this many rows; further points are
    // converted and imported, but not listed.
    static constexpr int CompareRows = 16000;
    // Fewer pairs make no table: OK stays disabled.
    static constexpr int MinimumPairs = 2;

    explicit ExternalCurveImportView(ParameterModel *parameterModel, QWidget *parent = nullptr);
    ~ExternalCurveImportView() override;

    // The result of the last conversion.
    QPolygonF importedPoints() const { return m_table.imported; }

public slots:
    void accept() override;

protected:
    void keyPressEvent(QKeyEvent *event) override;

private slots:
    void chooseFile();
    void onSourceFileEdited();
    void onTextChanged();
    void onFormatChanged(int index);
    void onDecimalSeparatorToggled(bool checked);
    void onValueSeparatorToggled(bool checked);
    void onLegendChecked(const QVariant &itemInfo, bool on, int index);
    void onParameterValuesChanged();

private:
    void createLegend();
    void createCompareRows();
    void loadFile(const QString &path);
    void bringRadiosInLine();
    void refresh();
    void updateImportedCurve();
    void showRows(int shownNow);
    void updateSummary();

    std::unique_ptr<Ui::ExternalCurveImportView> m_ui;
    CurveTextConverter m_converter;
    // The imported points, the drive's table and its formatting.
    CompareTable m_table;
    QwtPlotCurve *m_parameterCurve = nullptr;
    QwtPlotCurve *m_importedCurve = nullptr;
    QMap<int, QRadioButton *> m_valueSeparatorRadios;
    int m_shownRows = 0;
    // Set while the widgets are brought in line with the converter, so that
    // their change signals do not convert once per widget.
    bool m_syncing = false;
};
