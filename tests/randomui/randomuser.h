#pragma once

#include "../views/editorfixture.h"
#include "messagecapture.h"

#include <QJsonObject>
#include <QPolygonF>
#include <QStringList>

#include <memory>
#include <random>
#include <vector>

class CalculatedTableView;
class QComboBox;
class QLineEdit;
class CamEditorModel;
class ComparisonView;
class Controller;
class CurvePlotStack;
class MotionPoint;
class GridPointParameterView;
class MotionPlanTreeEditor;
class ParameterModelImplementation;
class ScalingView;

// A user who opens the editor from the host's button and does random things
// to its widgets, one step at a time; after each step check() tells what
// the editor shows or holds that it should not (empty when all is right).
class RandomUser
{
public:
    RandomUser(unsigned seed, const char *cam);
    ~RandomUser();

    // One random action; what it was is appended to the log.
    void step();
    QString check();
    // Every command undone through the action: must give the data that stood
    // when the window was opened, and redone the data of now.
    QString undoAndRedoAll(bool redo = true);
    // Whether the window is still the first of the run, whose stack goes
    // back to the first document.
    bool isFirstWindow() const { return m_windows == 1; }
    const QStringList &log() const { return m_log; }
    // How many steps pushed, undid or redid, were refused, or left the stack.
    QString summary() const;

    // What an action must have done to the undo stack and which box it showed.
    struct Outcome {
        enum Kind { Nothing, Pushed, Undone, Redone } kind = Nothing;
        QString text;   // the undo text of a push
        QString title;  // the title of the refusal's message box
    };

    // Everything the stack restores: the cam definition data, the scaling,
    // and the sampled points.
    struct State {
        QJsonObject data;
        int masterAxisScaling = 0;
        double cycleTime = 0.0;
        int velocityScaling = 0;
        QPolygonF positions;
        bool operator==(const State &other) const;
        QString describe() const;
    };
    State state() const;

private:
    // The actions; each returns false where it does not apply now.
    bool addPoint();
    bool removePoint();
    bool editCell();
    bool editPointFields();
    bool dragPoint();
    bool insertOnCurve();
    bool switchLaw();
    bool toggleCyclic();
    bool editCircularLength();
    bool switchStepMode();
    bool editResolution();
    bool editStepSize();
    bool chooseScaling();
    bool editCycleTime();
    bool undoOrRedo();
    bool writeToDrive();
    bool importCurveFile();
    bool closeAndReopen();
    // English and back to German, as the host's language menu does it.
    bool changeLanguage();

    void open();
    void activate();
    void bringToFront(int dock);
    // A master or slave text to type: a valid new value, or a refusal.
    QString positionInput(bool master, int row, double *value, QString *title);
    // Whether a master lies at or beyond the end of a cyclic cam.
    bool beyondCycle(double master) const;
    void editPoint(int row, int field, QComboBox *box, QLineEdit *edit, const QString &where);
    QString editText(const QPointF &from, int fromType, double master, double slave, int type) const;
    void expectEdit(const MotionPoint *point, double master, double slave, int type);
    QString masterText(double value) const;
    QString slaveText(double value) const;
    // The action must push one command with this undo text.
    void expectPush(const QString &text);
    QString panelProblem() const;
    QString storedProblem() const;

    const CamEditorModel *model() const { return m_editor.implementation()->editorModel(); }
    const ParameterModelImplementation *parameters() const { return m_editor.implementation()->parameterModel(); }
    int pick(int count);
    bool chance(double probability);
    double value(double low, double high, int decimals);

    EditorFixture m_editor;
    std::unique_ptr<QWidget> m_button;
    MessageCapture m_messages;
    std::mt19937 m_random;
    QStringList m_log;
    int m_windows = 0;

    CamDesignerViewImplementation *m_window = nullptr;
    MotionPlanTreeEditor *m_tree = nullptr;
    ScalingView *m_scaling = nullptr;
    ComparisonView *m_comparison = nullptr;
    CalculatedTableView *m_calculated = nullptr;
    GridPointParameterView *m_gridPoints = nullptr;
    CurvePlotStack *m_plots = nullptr;
    Controller *m_stack = nullptr;

    // The stack as it must be: a state per index, a text per command.
    std::vector<State> m_states;
    QStringList m_texts;
    int m_index = 0;
    Outcome m_outcome;
    int m_messageCount = 0;
    int m_counts[Outcome::Redone + 2] = {};
    // The table the drive must hold after a write or an import.
    QPolygonF m_expectedStored;
    bool m_storedSlavesKnown = false;
    bool m_justWritten = false;
    // A fault an action saw on its way (a point not caught, data lost).
    QString m_actionProblem;
};
