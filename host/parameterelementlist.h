#pragma once

#include "parameterdefinition.h"

#include <QList>
#include <QWidget>

class QTreeWidget;
class QTreeWidgetItem;

namespace MxParameterInstance {
class ParameterContainer;
class ParameterProvider;
}

namespace MxParameterControls {

// Lists elements of parameters side by side: one row per element index, one
// column per coordinate after the index column. Writable cells write back
// into the container.
class ParameterElementList : public QWidget
{
    Q_OBJECT
public:
    explicit ParameterElementList(QWidget *parent = nullptr);

    // Comma-separated coordinates, e.g. "G283,G284".
    void setCoordinates(const QString &coordinates);
    QList<MxParameterDefinition::ParameterCoordinate> coordinates() const { return m_coordinates; }
    void setColumnAlignment(int column, Qt::Alignment alignment);
    void setShowCoordinatesName(bool show);
    // Lists also elements the suite hides from ordinary users.
    void setVisibleForced(bool visible);
    bool isVisibleForced() const { return m_visibleForced; }
    void setWritableForced(bool writable);
    bool isWritableForced() const { return m_writable; }
    void setHiddenForced(bool hidden);
    bool isHiddenForced() const { return m_hidden; }
    // Reads the values; the provider must be the drive's container.
    void initialize(MxParameterInstance::ParameterProvider *provider, MxParameterDefinition::eLivingSpace livingSpace);
    // Element ranges such as "0-99" or "0-4,10"; an empty range lists nothing.
    void setIndexes(const QString &indexes);
    QList<int> indexes() const { return m_indexes; }
    void resizeColumnToContents(int column);

    QTreeWidget *tree() const { return m_tree; }
    QByteArray saveState() const;
    bool restoreState(const QByteArray &state);

public slots:
    void refresh();

private:
    void rebuildHeader();
    void onItemChanged(QTreeWidgetItem *item, int column);

    QTreeWidget *m_tree;
    QList<MxParameterDefinition::ParameterCoordinate> m_coordinates;
    QList<int> m_indexes;
    QList<Qt::Alignment> m_alignments;
    MxParameterInstance::ParameterContainer *m_container = nullptr;
    MxParameterDefinition::eLivingSpace m_livingSpace = 0;
    bool m_showNames = false;
    bool m_visibleForced = false;
    bool m_writable = false;
    bool m_hidden = false;
    bool m_filling = false;
};

} // namespace MxParameterControls
