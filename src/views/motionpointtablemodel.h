#pragma once

#include <QAbstractTableModel>
#include <QPointer>

class CamEditorModel;
class MotionPointEditing;
class SectionWarnings;
class QWidget;

// The motion points as table rows in ascending master order, mapped one to
// one onto the description's row notifications so that selections and open
// editors survive edits. An edited cell becomes one command through the
// shared editing rules; a refused one leaves the model as it was.
class MotionPointTableModel : public QAbstractTableModel
{
    Q_OBJECT
public:
    // The last three describe the section that starts at the row.
    enum Column { MasterColumn, SlaveColumn, TypeColumn, LawColumn, InflectionColumn, VelocityColumn, ColumnCount };

    // messageParent: the widget over which refusals are shown.
    MotionPointTableModel(const MotionPointEditing *editing, QWidget *messageParent, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

    // Texts, units or segment types may show differently: every cell anew.
    void refresh();

private:
    bool sectionLawsApply() const;
    bool cellApplies(const QModelIndex &index) const;
    QVariant sectionData(const QModelIndex &index, int role) const;
    bool setSectionData(const QModelIndex &index, const QVariant &value);

    const MotionPointEditing *m_editing;
    QPointer<CamEditorModel> m_editorModel;
    QPointer<QWidget> m_messageParent;
    QPointer<SectionWarnings> m_warnings;
};
