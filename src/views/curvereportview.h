#pragma once

#include <QPointer>
#include <QWidget>

class CamEditorModel;
class CurveReport;
class QLabel;
class QStandardItemModel;
class QTableView;
struct SamplingLimit;

// The figures of the current curve ("Kennwerte"): per section the extremes of
// velocity, acceleration and jerk with their dimensionless coefficients,
// continuity at the joints, and the error of the drive's linear
// interpolation with the coarsest sampling that stays under the resolution.
// Read-only; follows the editor model.
class CurveReportView : public QWidget
{
    Q_OBJECT
public:
    explicit CurveReportView(CamEditorModel *editorModel, QWidget *parent = nullptr);
    ~CurveReportView() override;

    QTableView *sectionTable() const { return m_sectionTable; }
    QTableView *jointTable() const { return m_jointTable; }
    QLabel *samplingLabel() const { return m_sampling; }

    // Computes the figures now instead of at the next turn of the event loop.
    void refresh();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void scheduleRefresh();
    void refreshIfPending();
    void fillSections(const CurveReport &report);
    void fillJoints(const CurveReport &report);
    void fillSampling(const CurveReport &report, const SamplingLimit *limit);
    QString master(double value) const;
    QString slave(double value) const;
    QString derivative(int order, double value) const;
    QString unit(int order) const;

    QPointer<CamEditorModel> m_editorModel;
    QStandardItemModel *m_sections;
    QStandardItemModel *m_joints;
    QTableView *m_sectionTable;
    QTableView *m_jointTable;
    QLabel *m_sampling;
    bool m_refreshPending = false;
};
