#include "comparisonview.h"

#include "comparisontablemodel.h"

#include "widgets/tableclipboard.h"
#include "parameters/parametermodel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>
#include <QVBoxLayout>

namespace {
const char EqualStyle[] = "QLabel { background: #d8f0d8; padding: 4px; }";
const char DifferentStyle[] = "QLabel { background: #ffd7d7; padding: 4px; }";
} // namespace

ComparisonView::ComparisonView(CamEditorModel *editorModel, ParameterModel *parameterModel, QWidget *parent)
    : QWidget(parent)
    , m_parameterModel(parameterModel)
    , m_model(new ComparisonTableModel(editorModel, parameterModel, this))
    , m_status(new QLabel)
    , m_summary(new QLabel)
    , m_table(new QTableView)
{
    m_status->setObjectName(QStringLiteral("comparisonStatus"));
    m_status->setWordWrap(true);
    m_summary->setObjectName(QStringLiteral("storedSummary"));
    m_summary->setTextFormat(Qt::RichText);
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setWordWrap(false);
    // Fixed sizes: measuring 16000 rows' contents would cost more than the data.
    m_table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_table->verticalHeader()->setDefaultSectionSize(m_table->fontMetrics().height() + 6);
    m_table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    TableClipboard::addCopyAction(m_table);

    // The summary beside the table, so that the rows keep the height.
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_status);
    auto *body = new QHBoxLayout;
    body->addWidget(m_table, 1);
    body->addWidget(m_summary, 0, Qt::AlignTop);
    layout->addLayout(body, 1);
    connect(m_model, &QAbstractItemModel::modelReset, this, &ComparisonView::updateHeader);
    updateHeader();
}

void ComparisonView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        updateHeader();
    QWidget::changeEvent(event);
}

void ComparisonView::updateHeader()
{
    const int firstDiffering = m_model->firstDifferingRow();
    if (firstDiffering < 0) {
        m_status->setText(tr("Der Antriebsregler enthält genau die berechneten Stützstellen (%1).")
                              .arg(m_model->calculatedCount()));
        m_status->setStyleSheet(QLatin1String(EqualStyle));
    } else {
        m_status->setText(tr("Der Antriebsregler enthält andere Stützstellen als berechnet: %1 berechnet, %2 "
                             "gespeichert, %3 Zeilen verschieden, die erste ist Zeile %4.")
                              .arg(m_model->calculatedCount())
                              .arg(m_model->storedCount())
                              .arg(m_model->differingRowCount())
                              .arg(firstDiffering));
        m_status->setStyleSheet(QLatin1String(DifferentStyle));
    }
    const QString summary = m_parameterModel ? m_parameterModel->storedTableSummary() : QString();
    m_summary->setText(summary);
    m_summary->setVisible(!summary.isEmpty());
}
