#pragma once

#include <QWidget>

class CountSpinBox;
class MotionPointEditing;
class PositionLineEdit;
class QCheckBox;
class QComboBox;
class QLabel;
class QRadioButton;
class QSpinBox;

// The settings of the whole cam: motion law, cyclic flag and circular
// length, and how the curve is sampled. Each user change pushes one command;
// the fields follow the model's changed() and never push while they do.
class CamSettingsView : public QWidget
{
    Q_OBJECT
public:
    explicit CamSettingsView(const MotionPointEditing *editing, QWidget *parent = nullptr);

    QComboBox *motionLawBox() const { return m_motionLaw; }
    QCheckBox *cyclicBox() const { return m_cyclic; }
    PositionLineEdit *circularLengthEdit() const { return m_circularLength; }
    QRadioButton *dynamicButton() const { return m_dynamic; }
    QRadioButton *staticButton() const { return m_static; }
    QSpinBox *resolutionBox() const;
    PositionLineEdit *stepSizeEdit() const { return m_stepSize; }
    QLabel *warningLabel() const { return m_warning; }
    QLabel *gridPointCountLabel() const { return m_gridPointCount; }

public slots:
    void refresh();

protected:
    void changeEvent(QEvent *event) override;

private:
    // Every text set here, again after a change of language.
    void retranslate();
    // A field's form label: the title, then the unit in brackets.
    void setLabel(QWidget *field, const QString &title, const QString &unit);
    void onMotionLawChosen(int index);
    void onCyclicClicked(bool cyclic);
    void onCircularLengthEdited(const QString &text);
    void onStepModeClicked();
    void onResolutionFinished();
    void onResolutionRefused(const QString &typed);
    void onStepSizeEdited(const QString &text);

    const MotionPointEditing *m_editing;
    QComboBox *m_motionLaw;
    QCheckBox *m_cyclic;
    PositionLineEdit *m_circularLength;
    QRadioButton *m_dynamic;
    QRadioButton *m_static;
    CountSpinBox *m_resolution;
    PositionLineEdit *m_stepSize;
    QLabel *m_gridPointCount;
    QLabel *m_warning;
    QLabel *m_lawLabel;
    QLabel *m_stepModeLabel;
    QLabel *m_resolutionLabel;
    // Set while the fields show the model, so that nothing pushes meanwhile.
    bool m_refreshing = false;
};
