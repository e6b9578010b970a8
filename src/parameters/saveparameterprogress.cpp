#include "saveparameterprogress.h"

#include <QFormLayout>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

SaveParameterProgress::SaveParameterProgress(QWidget *parent)
    : QWidget(parent, Qt::Dialog)
    , m_verticalLayout(new QVBoxLayout(this))
    , m_formLayout(new QFormLayout())
    , m_masterPosition(new QLabel(tr("Master-Positionen"), this))
    , m_masterPositionProgress(new QLabel(QStringLiteral(" %1/%2"), this))
    , m_slavePosition(new QLabel(tr("Slave-Positionen"), this))
    , m_slavePositionProgress(new QLabel(QStringLiteral(" %1/%2"), this))
    , m_progressBar(new QProgressBar(this))
{
    setObjectName(QStringLiteral("SaveParameterProgress"));
    resize(261, 87);
    // The title's spelling is the one the users know; kept on purpose.
    setWindowTitle(tr("Stützstellentabellen scheiben"));
    m_verticalLayout->setObjectName(QStringLiteral("verticalLayout"));
    m_verticalLayout->setContentsMargins(11, 11, 11, 11);
    m_formLayout->setObjectName(QStringLiteral("formLayout"));
    m_masterPosition->setObjectName(QStringLiteral("masterPosition"));
    m_masterPositionProgress->setObjectName(QStringLiteral("masterPositionProgress"));
    m_slavePosition->setObjectName(QStringLiteral("slavePosition"));
    m_slavePositionProgress->setObjectName(QStringLiteral("slavePositionProgress"));
    m_progressBar->setObjectName(QStringLiteral("progressBar"));
    m_progressBar->setValue(24);
    m_formLayout->addRow(m_masterPosition, m_masterPositionProgress);
    m_formLayout->addRow(m_slavePosition, m_slavePositionProgress);
    m_verticalLayout->addLayout(m_formLayout);
    m_verticalLayout->addWidget(m_progressBar);
}

void SaveParameterProgress::onSaveProgressed(int master, int slave, int count)
{
    m_masterPositionProgress->setText(QStringLiteral("%1/%2").arg(master).arg(count));
    m_slavePositionProgress->setText(QStringLiteral("%1/%2").arg(slave).arg(count));
    // Floating-point share of the count; a count of zero leaves the bar alone.
    if (count > 0)
        m_progressBar->setValue(static_cast<int>((static_cast<double>(master) / count) * 100.0));
}
