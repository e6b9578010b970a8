#pragma once

#include <QPointer>
#include <QWidget>

class MotionPoint;
class MotionPointEditing;
class PositionLineEdit;
class QComboBox;
class QLabel;
class QPushButton;

// The selected motion point in fields of its own: master and slave (an edit
// commits on Enter or on leaving the field, Escape reverts), the segment type
// and "Entfernen". Without a point the fields are empty and disabled.
class PointEditView : public QWidget
{
    Q_OBJECT
public:
    explicit PointEditView(const MotionPointEditing *editing, QWidget *parent = nullptr);

    // The point is followed by a guarded pointer: a load that replaces every
    // point leaves the view empty until it is given a point again.
    void setPoint(MotionPoint *point);
    MotionPoint *point() const { return m_point; }

    PositionLineEdit *masterEdit() const { return m_master; }
    PositionLineEdit *slaveEdit() const { return m_slave; }
    QComboBox *typeBox() const { return m_type; }
    QPushButton *removeButton() const { return m_remove; }

public slots:
    void refresh();

protected:
    void changeEvent(QEvent *event) override;

private:
    // Every text set here, again after a change of language.
    void retranslate();
    void onMasterEdited(const QString &text);
    void onSlaveEdited(const QString &text);
    void onTypeChosen(int index);
    void onRemoveClicked();

    const MotionPointEditing *m_editing;
    QPointer<MotionPoint> m_point;
    PositionLineEdit *m_master;
    PositionLineEdit *m_slave;
    QComboBox *m_type;
    QPushButton *m_remove;
    QLabel *m_typeLabel;
    bool m_refreshing = false;
};
