#include "gridpointparameterview.h"

#include "helpwidget.h"
#include "widgets/tableclipboard.h"
#include "model/jsondifference.h"
#include "parameterelementlist.h"
#include "parametermodel.h"
#include "system.h"

#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int IndexColumn = 0;
constexpr int MasterColumn = 1;
constexpr int SlaveColumn = 2;

} // namespace

GridPointParameterView::GridPointParameterView(ParameterModel *model,
                                               MxParameterInstance::ParameterProvider *provider,
                                               MxParameterDefinition::eLivingSpace livingSpace, QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_list(new MxParameterControls::ParameterElementList)
    , m_help(new VxHelpSystem::HelpWidget)
{
    m_list->setObjectName(QStringLiteral("elementList"));
    m_help->setObjectName(QStringLiteral("helpView"));
    m_help->initialize(MxSystem::System::instance());

    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(m_list);
    splitter->addWidget(m_help);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);

    m_list->setCoordinates(model->masterCoordinateText() + QLatin1Char(',') + model->slaveCoordinateText());
    m_list->setColumnAlignment(MasterColumn, Qt::AlignRight | Qt::AlignVCenter);
    m_list->setColumnAlignment(SlaveColumn, Qt::AlignRight | Qt::AlignVCenter);
    m_list->setShowCoordinatesName(true);
    m_list->setVisibleForced(true);
    m_list->setWritableForced(!model->isReadOnly());
    m_list->initialize(provider, livingSpace);
    TableClipboard::addCopyAction(m_list->tree());
    updateIndexes();

    // The help of the array whose element is current.
    connect(m_list->tree(), &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem *, QTreeWidgetItem *) {
        const int column = m_list->tree()->currentColumn();
        if (m_model)
            m_help->showHelpForId(column == SlaveColumn ? m_model->slaveCoordinateText()
                                                        : m_model->masterCoordinateText());
    });
    connect(model, &ParameterModel::sizeChanged, this, &GridPointParameterView::updateIndexes);
    connect(model, &ParameterModel::valueChanged, this, &GridPointParameterView::updateIndexes);
    connect(model, &ParameterModel::writeProcessStarted, this, &GridPointParameterView::hideList);
    connect(model, &ParameterModel::writeProcessFinished, this, &GridPointParameterView::showList);
    connect(model, &ParameterModel::readOnlyChanged, this, [this] {
        if (m_model)
            m_list->setWritableForced(!m_model->isReadOnly());
    });
}

GridPointParameterView::~GridPointParameterView() = default;

QByteArray GridPointParameterView::saveState() const
{
    return m_list->saveState();
}

bool GridPointParameterView::restoreState(const QByteArray &state)
{
    m_restoredState = state;
    return m_list->restoreState(state);
}

MxParameterControls::ParameterElementList *GridPointParameterView::elementList()
{
    listPendingIndexes();
    return m_list;
}

void GridPointParameterView::logDifferences(const QJsonObject &before, const QJsonObject &after)
{
    m_log.append(JsonDifference::compare(before, after));
}

void GridPointParameterView::updateIndexes()
{
    if (!m_model)
        return;
    if (!isVisible()) {
        m_indexesPending = true;
        return;
    }
    listIndexes();
}

void GridPointParameterView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    listPendingIndexes();
}

void GridPointParameterView::listPendingIndexes()
{
    if (!m_indexesPending || !m_model)
        return;
    listIndexes();
    // The first listing sizes the columns to their contents; the widths the
    // user left are restored over it, as when the list was filled at once.
    if (!m_listed && !m_restoredState.isEmpty())
        m_list->restoreState(m_restoredState);
    m_listed = true;
}

void GridPointParameterView::listIndexes()
{
    m_indexesPending = false;
    // With no stored point the range reads "0--1", which lists nothing.
    m_list->setIndexes(QStringLiteral("0-%1").arg(m_model->storedGridPointCount() - 1));
    for (int column : { IndexColumn, MasterColumn, SlaveColumn })
        m_list->resizeColumnToContents(column);
}

void GridPointParameterView::hideList()
{
    m_list->setHiddenForced(true);
}

void GridPointParameterView::showList()
{
    m_list->setHiddenForced(false);
    if (m_model)
        m_list->setWritableForced(!m_model->isReadOnly());
}
