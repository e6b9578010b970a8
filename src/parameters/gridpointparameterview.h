#pragma once

#include "parameterdefinition.h"

#include <QPointer>
#include <QStringList>
#include <QWidget>

class ParameterModel;
class QJsonObject;

namespace MxParameterControls {
class ParameterElementList;
}
namespace MxParameterInstance {
class ParameterProvider;
}
namespace VxHelpSystem {
class HelpWidget;
}

// The stored grid point table as the drive holds it: the elements of the
// table's master and slave arrays side by side, straight from the drive's
// parameters, with the suite's help below.
class GridPointParameterView : public QWidget
{
    Q_OBJECT
public:
    GridPointParameterView(ParameterModel *model, MxParameterInstance::ParameterProvider *provider,
                           MxParameterDefinition::eLivingSpace livingSpace, QWidget *parent = nullptr);
    ~GridPointParameterView() override;

    MxParameterControls::ParameterElementList *elementList() const { return m_list; }

    // The list's own state (column widths), kept in the host's settings.
    QByteArray saveState() const;
    bool restoreState(const QByteArray &state);

    // Appends a line per difference between two documents to the log: the
    // key path joined with ", ", then ": deleted", ": created" or
    // ": changed from OLD to NEW".
    void logDifferences(const QJsonObject &before, const QJsonObject &after);
    QStringList differenceLog() const { return m_log; }

public slots:
    // The element range 0 .. stored count - 1.
    void updateIndexes();
    // Hidden while a write runs: the elements change one by one.
    void hideList();
    void showList();

private:
    QPointer<ParameterModel> m_model;
    MxParameterControls::ParameterElementList *m_list;
    VxHelpSystem::HelpWidget *m_help;
    QStringList m_log;
};
