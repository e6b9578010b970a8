#pragma once

#include <QPointer>
#include <QPolygonF>

#include <qwt_plot.h>

class CamEditorModel;
class DenseCurve;
class ParameterModel;
class QwtPlotCurve;
class QwtPlotTextLabel;

// The small picture of a cam on the host's page: the calculated position
// curve in front of the curve stored in the drive's table, without axes.
// It follows the editor model and the drive's table, and says when the
// editor is open.
class PreviewView : public QwtPlot
{
    Q_OBJECT
public:
    PreviewView(CamEditorModel *editorModel, ParameterModel *parameterModel, unsigned short camTable,
                QWidget *parent = nullptr);
    ~PreviewView() override;

    // The cam's summary followed by the stored table's summary.
    QString toolTipText() const;

    bool isEditorOpen() const { return m_editorOpen; }
    void setEditorOpen(bool open);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    const QwtPlotCurve *calculatedCurve() const;
    // The text in the picture's corner: the table, and whether its editor is open.
    QString labelText() const;
    const QwtPlotCurve *storedCurve() const;

public slots:
    void refresh();

signals:
    // The curves and the tool-tip text were brought up to date.
    void refreshed();

protected:
    void changeEvent(QEvent *event) override;

private:
    void updateScales();
    void updateLabel();

    QPointer<CamEditorModel> m_editorModel;
    QPointer<ParameterModel> m_parameterModel;
    unsigned short m_camTable;
    bool m_editorOpen = false;
    bool m_replotPending = false;
    DenseCurve *m_stored;
    // The drive's table as last handed to the stored curve (shared).
    DenseCurve *m_calculated;
    QwtPlotTextLabel *m_label;
};
