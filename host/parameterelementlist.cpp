#include "parameterelementlist.h"

#include "parameterinstance.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace MxParameterControls {

using MxParameterDefinition::ParameterCoordinate;

ParameterElementList::ParameterElementList(QWidget *parent)
    : QWidget(parent)
    , m_tree(new QTreeWidget(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tree);
    m_tree->setRootIsDecorated(false);
    m_tree->setUniformRowHeights(true);
    connect(m_tree, &QTreeWidget::itemChanged, this, &ParameterElementList::onItemChanged);
    rebuildHeader();
}

void ParameterElementList::setCoordinates(const QString &coordinates)
{
    m_coordinates.clear();
    for (const QString &text : coordinates.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const ParameterCoordinate coordinate(text);
        if (coordinate.isValid())
            m_coordinates.append(coordinate);
    }
    rebuildHeader();
    refresh();
}

void ParameterElementList::setColumnAlignment(int column, Qt::Alignment alignment)
{
    while (m_alignments.size() <= column)
        m_alignments.append(Qt::AlignLeft | Qt::AlignVCenter);
    m_alignments[column] = alignment;
    refresh();
}

void ParameterElementList::setShowCoordinatesName(bool show)
{
    m_showNames = show;
    rebuildHeader();
}

void ParameterElementList::setVisibleForced(bool visible)
{
    m_visibleForced = visible;
}

void ParameterElementList::setWritableForced(bool writable)
{
    m_writable = writable;
    refresh();
}

void ParameterElementList::setHiddenForced(bool hidden)
{
    m_hidden = hidden;
    m_tree->setHidden(hidden);
}

void ParameterElementList::initialize(MxParameterInstance::ParameterProvider *provider,
                                      MxParameterDefinition::eLivingSpace livingSpace)
{
    m_container = qobject_cast<MxParameterInstance::ParameterContainer *>(provider);
    m_livingSpace = livingSpace;
    refresh();
}

void ParameterElementList::setIndexes(const QString &indexes)
{
    m_indexes.clear();
    for (const QString &range : indexes.split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        // The range's end may be negative ("0--1"): that range is empty.
        const int dash = range.indexOf(QLatin1Char('-'), 1);
        bool firstOk = false;
        bool lastOk = true;
        const int first = range.left(dash < 0 ? range.size() : dash).trimmed().toInt(&firstOk);
        const int last = dash < 0 ? first : range.mid(dash + 1).trimmed().toInt(&lastOk);
        if (!firstOk || !lastOk)
            continue;
        for (int index = first; index <= last; ++index)
            m_indexes.append(index);
    }
    refresh();
}

void ParameterElementList::resizeColumnToContents(int column)
{
    m_tree->resizeColumnToContents(column);
}

QByteArray ParameterElementList::saveState() const
{
    return m_tree->header()->saveState();
}

bool ParameterElementList::restoreState(const QByteArray &state)
{
    return m_tree->header()->restoreState(state);
}

void ParameterElementList::rebuildHeader()
{
    QStringList labels { tr("Index") };
    for (const ParameterCoordinate &coordinate : qAsConst(m_coordinates))
        labels.append(m_showNames ? coordinate.toText() : QString());
    m_tree->setColumnCount(labels.size());
    m_tree->setHeaderLabels(labels);
}

void ParameterElementList::refresh()
{
    m_filling = true;
    m_tree->clear();
    for (int index : qAsConst(m_indexes)) {
        auto *item = new QTreeWidgetItem(m_tree);
        item->setText(0, QString::number(index));
        for (int c = 0; c < m_coordinates.size(); ++c) {
            if (m_container)
                item->setText(c + 1, m_container->readValue(m_livingSpace, m_coordinates.at(c), index, true));
        }
        for (int column = 0; column < m_alignments.size() && column < m_tree->columnCount(); ++column)
            item->setTextAlignment(column, m_alignments.at(column));
        if (m_writable)
            item->setFlags(item->flags() | Qt::ItemIsEditable);
    }
    m_filling = false;
}

void ParameterElementList::onItemChanged(QTreeWidgetItem *item, int column)
{
    if (m_filling || !m_container || !m_writable || column < 1 || column > m_coordinates.size())
        return;
    const int index = item->text(0).toInt();
    if (!m_container->writeValue(m_livingSpace, m_coordinates.at(column - 1), index, item->text(column)))
        refresh();
}

} // namespace MxParameterControls
