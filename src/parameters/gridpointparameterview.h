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

    // The list, brought up to date first if the table changed while hidden.
    MxParameterControls::ParameterElementList *elementList();

    // The list's own state (column widths), kept in the host's settings.
    QByteArray saveState() const;
    bool restoreState(const QByteArray &state);

    // Appends a line per difference between two documents to the log: the
    // key path joined with ", ", then ": deleted", ": created" or
    // ": changed from OLD to NEW".
    void logDifferences(const QJsonObject &before, const QJsonObject &after);
    QStringList differenceLog() const { return m_log; }

public slots:
    // The element range 0 .. stored count - 1. While the view is hidden (a
    // tab behind others) the 16000 elements are listed when it is shown.
    void updateIndexes();
    // Hidden while a write runs: the elements change one by one.
    void hideList();
    void showList();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void listIndexes();
    void listPendingIndexes();

    QPointer<ParameterModel> m_model;
    MxParameterControls::ParameterElementList *m_list;
    VxHelpSystem::HelpWidget *m_help;
    QStringList m_log;
    bool m_indexesPending = false;
    bool m_listed = false;
    // Applied again after the first listing, which sizes the columns.
    QByteArray m_restoredState;
};
