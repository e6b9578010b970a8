#pragma once

#include <QCoreApplication>
#include <QPoint>
#include <QPointer>

#include <memory>

class CamEditorModel;
class CurvePlotStack;
class MotionPointEditing;
class ParameterModel;
class PointSelection;
class QAction;
class QContextMenuEvent;
class QUndoStack;

// The plots' context menu and the actions behind it: on the position plot's
// canvas a motion point is inserted on the curve or the one under the mouse
// removed; everywhere the measuring cursors, the whole curve, and the export
// of all visible plots or of the one under the mouse as a picture file.
class PlotContextMenu
{
    Q_DECLARE_TR_FUNCTIONS(CurvePlotStack)
public:
    PlotContextMenu(CurvePlotStack *stack, CamEditorModel *editorModel, ParameterModel *parameterModel,
                    QUndoStack *undoStack);
    ~PlotContextMenu();

    QAction *wholeCurveAction() const { return m_wholeCurveAction; }
    QAction *exportAction() const { return m_exportAction; }
    QAction *insertPointAction() const { return m_insertPointAction; }
    QAction *removePointAction() const { return m_removePointAction; }
    double lastInsertDeviation() const { return m_lastInsertDeviation; }

    void exec(QContextMenuEvent *event);
    // Asks for a file and writes one plot (or, with -1, the visible ones).
    void exportPlot(int quantity);
    void retranslate();

private:
    // The point edits, at the position on the position plot's canvas where
    // the menu was opened.
    void insertPoint();
    void removePoint();

    CurvePlotStack *m_stack;
    QPointer<CamEditorModel> m_editorModel;
    QPointer<ParameterModel> m_parameterModel;
    QPointer<PointSelection> m_selection;
    std::unique_ptr<MotionPointEditing> m_editing;
    QAction *m_wholeCurveAction;
    QAction *m_exportAction;
    QAction *m_insertPointAction;
    QAction *m_removePointAction;
    QPoint m_menuPosition;
    double m_lastInsertDeviation;
};
