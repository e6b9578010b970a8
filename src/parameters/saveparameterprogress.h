#pragma once

#include <QWidget>

class QFormLayout;
class QLabel;
class QProgressBar;
class QVBoxLayout;

// Shows how far a grid point write has come.
class SaveParameterProgress : public QWidget
{
    Q_OBJECT
public:
    explicit SaveParameterProgress(QWidget *parent = nullptr);

    QLabel *masterPositionProgress() const { return m_masterPositionProgress; }
    QLabel *slavePositionProgress() const { return m_slavePositionProgress; }
    QProgressBar *progressBar() const { return m_progressBar; }

public slots:
    void onSaveProgressed(int master, int slave, int count);

private:
    QVBoxLayout *m_verticalLayout;
    QFormLayout *m_formLayout;
    QLabel *m_masterPosition;
    QLabel *m_masterPositionProgress;
    QLabel *m_slavePosition;
    QLabel *m_slavePositionProgress;
    QProgressBar *m_progressBar;
};
