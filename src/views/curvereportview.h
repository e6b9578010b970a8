#pragma once

#include <QPointer>
#include <QWidget>

class CamEditorModel;
class CurveReport;
class QLabel;
class QStandardItemModel;
class QTableView;

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

    // Computes all figures now, the sampling limit included, instead of
    // after the next turn of the event loop and a quiet moment.
    void refreshNow();

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    enum Title { SamplingTitle, SectionsTitle, JointsTitle, TitleCount };

    void retranslateTitles();
    void scheduleRefresh();
    void refreshIfPending();
    void refresh();
    void findSamplingLimit();
    void findSamplingLimitIfPending();
    void scheduleLimitSearch();
    void fillSections(const CurveReport &report);
    void fillJoints(const CurveReport &report);
    void fillSampling(const CurveReport &report);
    QString master(double value) const;
    QString slave(double value) const;
    QString derivative(int order, double value) const;
    // "[unit]" on a line of its own below a column header, empty without a unit.
    QString unit(int order) const;
    QString masterUnit() const;
    QString slaveUnit() const;
    static QString withUnit(const QString &number, const QString &unit);

    QPointer<CamEditorModel> m_editorModel;
    QStandardItemModel *m_sections;
    QStandardItemModel *m_joints;
    QTableView *m_sectionTable;
    QTableView *m_jointTable;
    QLabel *m_sampling;
    QLabel *m_titles[TitleCount] = {};
    QString m_errorLine;
    bool m_refreshPending = false;
    // The report stands, its sampling limit is still to be searched.
    bool m_limitPending = false;
};
