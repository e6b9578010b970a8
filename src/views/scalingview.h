#pragma once

#include <QPointer>
#include <QWidget>

class CamEditorModel;
class QComboBox;
class QLabel;
class QLineEdit;
class QUndoStack;
class Scaling;

// How the curve's derivatives are shown: over the master or over time (the
// cycle time), and velocities between master and slave or in revolutions
// per minute of the output or the motor. Below, the units that follow.
class ScalingView : public QWidget
{
    Q_OBJECT
public:
    ScalingView(CamEditorModel *editorModel, QUndoStack *undoStack, QWidget *parent = nullptr);

    QComboBox *masterAxisBox() const { return m_masterAxis; }
    QLineEdit *cycleTimeEdit() const { return m_cycleTime; }
    QComboBox *velocityBox() const { return m_velocity; }
    QLabel *unitsLabel() const { return m_units; }

public slots:
    void refresh();

protected:
    void changeEvent(QEvent *event) override;

private:
    // Every text set here, again after a change of language.
    void retranslate();
    void onMasterAxisChosen(int index);
    void onCycleTimeFinished();
    void onVelocityChosen(int index);
    // The cycle time as the field shows it: the display text without " s".
    QString cycleTimeFieldText() const;

    QPointer<CamEditorModel> m_editorModel;
    QPointer<Scaling> m_scaling;
    QPointer<QUndoStack> m_undoStack;
    QComboBox *m_masterAxis;
    QLineEdit *m_cycleTime;
    QComboBox *m_velocity;
    QLabel *m_units;
    QLabel *m_masterAxisLabel;
    QLabel *m_cycleTimeLabel;
    QLabel *m_velocityLabel;
    bool m_refreshing = false;
};
