#pragma once

#include "curveplot.h"

#include <QObject>
#include <QPointer>

class CamEditorModel;
class CurvePlotStack;
class ParameterModel;
class QAction;
class QLabel;
class CursorOverlay;

// "Messen": two cursors, vertical lines across all plots, placed by clicks
// on any plot (the first click places cursor 1, the second cursor 2, every
// further click or drag moves the nearer one). A box shows both master
// positions and, for every visible curve, its value at each cursor and the
// difference; calculated values come from the exact plan, stored ones from
// the stored table between its points. Escape, or the action unchecked,
// ends the mode and removes the cursors.
class MeasuringTool : public QObject
{
    Q_OBJECT
public:
    static constexpr int CursorCount = 2;

    MeasuringTool(CurvePlotStack *stack, CamEditorModel *editorModel, ParameterModel *parameterModel);
    ~MeasuringTool() override;

    QAction *action() const { return m_action; }
    QLabel *label() const { return m_label; }
    bool isActive() const;
    // The cursors placed so far, 0 .. 2.
    int placedCount() const { return m_placed; }
    double cursorMaster(int cursor) const { return m_masters[cursor]; }

    // A curve's value at a master position as the plot shows it (in its
    // scaling's units); NaN where it has none.
    double valueAt(int quantity, bool calculated, double master) const;

public slots:
    void setActive(bool active);
    // As a click at the master position does; the cursor placed or moved.
    int placeAt(double master);
    // The curves, the scaling or the visible plots changed.
    void update();
    // The action's texts and the box again, after a change of language.
    void retranslate();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void moveCursor(int cursor, double master);
    void showCursors();
    QString tableText() const;
    QString format(int quantity, double value) const;

    CurvePlotStack *m_stack;
    QPointer<CamEditorModel> m_editorModel;
    QPointer<ParameterModel> m_parameterModel;
    QAction *m_action;
    QLabel *m_label;
    CursorOverlay *m_overlays[CurvePlot::QuantityCount] = {};
    CurvePlot *m_plots[CurvePlot::QuantityCount] = {};
    QObject *m_canvases[CurvePlot::QuantityCount] = {};
    double m_masters[CursorCount] = {};
    int m_placed = 0;
    // The cursor that follows the mouse while the button is held, or -1.
    int m_dragged = -1;
};
