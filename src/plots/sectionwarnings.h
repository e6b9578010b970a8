#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QVector>

class CamEditorModel;
class MotionPlan;
class ParameterModel;

// What is wrong with the curve, section by section, where the user looks:
// the point table marks the row, the plots the master range. Taken from the
// curve report (joints that jump below the acceleration, section laws that
// cannot apply) and the drive's limits (a slave position the section runs
// through beyond them). Computed once per plan, and not while a drag samples
// coarsely; the views read it back on changed().
class SectionWarnings : public QObject
{
    Q_OBJECT
public:
    struct Warning {
        // The section's master range and the row of its start point; a
        // joint is a range of no width at the point.
        double start = 0.0;
        double end = 0.0;
        int row = -1;
        bool joint = false;
        QString text;
    };

    SectionWarnings(CamEditorModel *editorModel, ParameterModel *parameterModel, QObject *parent);

    // The one set of warnings of an editor's model, made on first request
    // (with the drive whose limits count, where one is given).
    static SectionWarnings *of(CamEditorModel *editorModel, ParameterModel *parameterModel = nullptr);

    const QVector<Warning> &warnings() const { return m_warnings; }
    // Every warning of the row's point and of the section it starts, one a line.
    QString textForRow(int row) const;

public slots:
    void update();

signals:
    void changed();

private:
    void collect(const MotionPlan &plan);

    QPointer<CamEditorModel> m_editorModel;
    QPointer<ParameterModel> m_parameterModel;
    QPointer<const MotionPlan> m_plan;
    QVector<Warning> m_warnings;
};
