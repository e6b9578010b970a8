#pragma once

#include <QWidget>

#include <memory>

class CamEditorModel;
class CamSettingsView;
class MotionPoint;
class MotionPointEditing;
class MotionPointTableModel;
class ParameterModel;
class PointEditView;
class QAction;
class QGroupBox;
class QModelIndex;
class QPushButton;
class QTreeView;
class QUndoStack;

// The cam definition data in one panel: the cam's settings, the motion
// points in ascending master order (edited in place), "Hinzufügen" and
// "&Punkt entfernen", copy and paste of points as text, and the selected
// point in the point edit view. The
// selection follows the user: a new point is selected, after a removal its
// neighbour, and recalculations keep it.
class MotionPlanTreeEditor : public QWidget
{
    Q_OBJECT
public:
    MotionPlanTreeEditor(CamEditorModel *editorModel, ParameterModel *parameterModel, QUndoStack *undoStack,
                         QWidget *parent = nullptr);
    ~MotionPlanTreeEditor() override;

    CamSettingsView *settingsView() const { return m_settings; }
    QTreeView *pointTree() const { return m_tree; }
    PointEditView *pointEditView() const { return m_pointEdit; }
    QPushButton *addButton() const { return m_add; }
    QPushButton *removeButton() const { return m_remove; }
    QAction *removeAction() const { return m_removeAction; }
    QAction *copyAction() const { return m_copyAction; }
    QAction *pasteAction() const { return m_pasteAction; }

    // The row of the selected point, -1 without one.
    int currentRow() const;
    void selectRow(int row);

public slots:
    void addPoint();
    void removePoint();
    void refresh();
    // Ctrl+V with the focus in the point table, and Ctrl+Shift+V.
    void pastePoints();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    // Every text set here, again after a change of language.
    void retranslate();
    void onCurrentChanged(const QModelIndex &current);
    void rememberSelection();
    void restoreSelection();

    std::unique_ptr<MotionPointEditing> m_editing;
    MotionPointTableModel *m_model;
    CamSettingsView *m_settings;
    QTreeView *m_tree;
    PointEditView *m_pointEdit;
    QPushButton *m_add;
    QPushButton *m_remove;
    QAction *m_removeAction;
    QAction *m_copyAction;
    QAction *m_pasteAction;
    QGroupBox *m_camBox;
    QGroupBox *m_pointsBox;
    QGroupBox *m_pointBox;
    // The selected point's master across a reset of all rows (a load).
    double m_selectedMaster = 0.0;
    bool m_hadSelection = false;
};
