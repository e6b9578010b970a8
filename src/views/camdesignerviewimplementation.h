#pragma once

#include <QByteArray>
#include <QMainWindow>
#include <QPointer>

#include <memory>

class CalculatedTableView;
class QAction;
class CamEditorModel;
class CurvePlotStack;
class CurveReportView;
class ComparisonView;
class Controller;
class GridPointParameterView;
class MotionPlanTreeEditor;
class ParameterModelImplementation;
class QAbstractButton;
class QLabel;
class QPushButton;
class ScalingView;
class UndoView;

namespace Ui {
class CamDesignerView;
}
namespace ads {
class CDockManager;
class CDockWidget;
}
namespace MxParameterInstance {
class ParameterProvider;
}

// The editor's main window: the panels as dockable widgets, the menus, tool
// bars and shortcuts of every whole-cam action, and the layout kept in the
// host's settings. It deletes itself when closed, then emits closed().
// Its sources: camdesignerviewimplementation.cpp (construction, controls,
// events), camdesignerviewlayout.cpp (docks and settings) and
// camdesignerviewactions.cpp (file and drive actions).
class CamDesignerViewImplementation : public QMainWindow
{
    Q_OBJECT
public:
    enum Dock {
        MotionPlanDock,
        ScalingDock,
        CalculatedDock,
        ComparisonDock,
        ParameterDock,
        ReportDock,
        PlotDock,
        DockCount
    };

    CamDesignerViewImplementation(ParameterModelImplementation *parameterModel, CamEditorModel *editorModel,
                                  MxParameterInstance::ParameterProvider *provider, QWidget *parent = nullptr);
    ~CamDesignerViewImplementation() override;

    Controller *undoStack() const { return m_undoStack.get(); }
    ads::CDockManager *dockManager() const { return m_dockManager; }
    ads::CDockWidget *dock(Dock which) const { return m_docks[which]; }
    // The second write control, beside the cam definition data.
    QPushButton *writeButton() const { return m_writeButton; }
    CurvePlotStack *plots() const { return m_plots; }
    // The editing panels; null where the window has no editor model.
    MotionPlanTreeEditor *motionPlanEditor() const { return m_motionPlanEditor; }
    ScalingView *scalingView() const { return m_scalingView; }
    ComparisonView *comparisonView() const { return m_comparisonView; }
    CurveReportView *reportView() const { return m_reportView; }

signals:
    void closed();
    void showImportDescriptionDialogRequest();

public slots:
    void showUndoView(bool show);
    void openImportMotionPlanDialog();
    void openExportMotionPlanDialog();
    void openImportParameterDialog();
    void saveParameterValues();
    void openCloseDialog();
    void openParameterImportExternDialog();
    void resetView();
    void deleteGrid();
    void checkReadOnly();
    void onMotionPointsChanged();

private slots:
    void msgBoxClosed(QAbstractButton *button);

protected:
    void showEvent(QShowEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    // The panels and the curves share the window's width.
    void shareWidthWithPlots();
    void createDocks();
    void arrangeDocks();
    void applyStyleSheet();
    void connectActions();
    // The action that shows or hides a plot (a CurvePlot::Quantity).
    QAction *plotAction(int quantity) const;
    void restoreSettings();
    void addMissingReportDock();
    void saveSettings() const;
    void onDecimalPlacesChanged();
    void updateWriteControls();
    // "Stützstellentabelle als Text exportieren", beside the import.
    void addGridPointExport();
    void retranslateGridPointExport(QAction *action);
    // Every text set in code, again after a change of language (undo texts
    // already on the stack keep the language they were made in).
    void retranslate();
    void retranslateDocks();
    void showCurrentTabs();

    std::unique_ptr<Ui::CamDesignerView> m_ui;
    std::unique_ptr<Controller> m_undoStack;
    QPointer<ParameterModelImplementation> m_parameterModel;
    QPointer<CamEditorModel> m_editorModel;
    MxParameterInstance::ParameterProvider *m_provider;
    ads::CDockManager *m_dockManager = nullptr;
    ads::CDockWidget *m_docks[DockCount] = {};
    QPushButton *m_writeButton = nullptr;
    CalculatedTableView *m_calculatedTable = nullptr;
    CurvePlotStack *m_plots = nullptr;
    GridPointParameterView *m_gridPointView = nullptr;
    QLabel *m_readOnlyLabel = nullptr;
    MotionPlanTreeEditor *m_motionPlanEditor = nullptr;
    ScalingView *m_scalingView = nullptr;
    ComparisonView *m_comparisonView = nullptr;
    CurveReportView *m_reportView = nullptr;
    std::unique_ptr<UndoView> m_undoView;
    // The arrangement of construction, for "Zurücksetzen".
    QByteArray m_defaultDockState;
    bool m_layoutRestored = false;
    bool m_shown = false;
};
