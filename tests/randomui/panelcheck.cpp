#include "randomuser.h"

#include "userinput.h"
#include "userterms.h"

#include "camdesigner/camdesignerbutton.h"
#include "camdesigner/controller.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/scaling.h"
#include "model/steps.h"
#include "parameters/calculatedtableview.h"
#include "parameters/gridpointparameterview.h"
#include "parameters/parametermodelimplementation.h"
#include "parameterelementlist.h"
#include "plots/curveplotstack.h"
#include "plots/previewview.h"
#include "views/camsettingsview.h"
#include "views/comparisontablemodel.h"
#include "views/comparisonview.h"
#include "views/motionplantreeeditor.h"
#include "views/pointeditview.h"
#include "views/positionlineedit.h"
#include "views/scalingview.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTreeView>

#include <qwt_plot_curve.h>

using namespace UserInput;
using namespace UserTerms;

// Each panel shows what the model holds, in the texts the user reads.
QString RandomUser::panelProblem() const
{
    const CamDescriptionImplementation *description = model()->camDescription();
    QStringList problems;
    const auto expect = [&problems](bool holds, const QString &what) {
        if (!holds)
            problems << what;
    };
    const int count = model()->motionPointCount();
    const QAbstractItemModel *rows = m_tree->pointTree()->model();
    expect(rows->rowCount() == count, QStringLiteral("the list has %1 rows for %2 points").arg(rows->rowCount()).arg(count));
    for (int row = 0; row < qMin(count, rows->rowCount()); ++row) {
        const MotionPoint *point = model()->motionPointAt(row);
        const QStringList shown { rows->index(row, 0).data().toString(), rows->index(row, 1).data().toString(),
                                  rows->index(row, 2).data().toString() };
        const QStringList held { masterText(point->master()), slaveText(point->slave()), typeName(point->type()) };
        expect(shown == held, QStringLiteral("row %1 shows %2 for %3").arg(row).arg(shown.join(' '), held.join(' ')));
    }
    const bool vdi = model()->motionLaw()->law() == MotionLaw::Vdi;
    expect(m_tree->pointTree()->isColumnHidden(2) != vdi, QStringLiteral("the segment type column does not follow the law"));

    const PointEditView *fields = m_tree->pointEditView();
    const int row = m_tree->currentRow();
    if (row >= 0 && row < count) {
        const MotionPoint *point = model()->motionPointAt(row);
        expect(fields->point() == point, QStringLiteral("the point fields show another point than row %1").arg(row));
        // Table and plots show one selection: the row's marker is ringed.
        const QwtPlotCurve *ring = m_plots->highlight(CurvePlot::Position);
        expect(ring->dataSize() == 1 && ring->sample(0) == point->position(),
               QStringLiteral("the plots do not ring the point of row %1").arg(row));
        expect(fields->masterEdit()->text() == masterText(point->master())
                   && fields->slaveEdit()->text() == slaveText(point->slave()),
               QStringLiteral("the point fields show %1 %2 for row %3")
                   .arg(fields->masterEdit()->text(), fields->slaveEdit()->text())
                   .arg(row));
        expect(!vdi || fields->typeBox()->currentText() == typeName(point->type()),
               QStringLiteral("the type box shows %1 for row %2").arg(fields->typeBox()->currentText()).arg(row));
        expect(fields->masterEdit()->isEnabled() && m_tree->removeButton()->isEnabled(),
               QStringLiteral("the selected point's fields are disabled"));
    } else {
        expect(!fields->point() && fields->masterEdit()->text().isEmpty() && !fields->masterEdit()->isEnabled(),
               QStringLiteral("no row selected, but the point fields show %1").arg(fields->masterEdit()->text()));
        expect(!m_tree->removeButton()->isEnabled(), QStringLiteral("no row selected, but removing is enabled"));
    }
    expect(fields->typeBox()->isVisibleTo(fields) == vdi, QStringLiteral("the type box does not follow the law"));

    const CamSettingsView *settings = m_tree->settingsView();
    expect(settings->motionLawBox()->currentText() == QString::fromUtf8(LawNames[vdi ? 0 : 1]),
           QStringLiteral("the law box shows %1").arg(settings->motionLawBox()->currentText()));
    expect(settings->cyclicBox()->isChecked() == description->isCyclic(), QStringLiteral("the cyclic box is wrong"));
    expect(settings->circularLengthEdit()->text() == masterText(description->circularLength())
               && settings->circularLengthEdit()->isEnabled() == description->isCyclic(),
           QStringLiteral("the circular length shows %1 for %2")
               .arg(settings->circularLengthEdit()->text(), masterText(description->circularLength())));
    const Steps *steps = model()->steps();
    expect(settings->dynamicButton()->isChecked() == steps->isDynamicStepSize()
               && settings->staticButton()->isChecked() != steps->isDynamicStepSize(),
           QStringLiteral("the step mode buttons are wrong"));
    expect(settings->resolutionBox()->value() == steps->dynamicStepResolution()
               && settings->resolutionBox()->isEnabled() == steps->isDynamicStepSize(),
           QStringLiteral("the resolution shows %1 for %2").arg(settings->resolutionBox()->value()).arg(steps->dynamicStepResolution()));
    expect(settings->stepSizeEdit()->text() == masterText(steps->staticStepSize())
               && settings->stepSizeEdit()->isEnabled() != steps->isDynamicStepSize(),
           QStringLiteral("the step size shows %1").arg(settings->stepSizeEdit()->text()));

    const Scaling *scaling = model()->scaling();
    expect(m_scaling->masterAxisBox()->currentText() == QString::fromUtf8(MasterAxisNames[scaling->masterAxisScaling()])
               && m_scaling->velocityBox()->currentText() == QString::fromUtf8(VelocityNames[scaling->velocityScaling()]),
           QStringLiteral("the scaling boxes show %1, %2")
               .arg(m_scaling->masterAxisBox()->currentText(), m_scaling->velocityBox()->currentText()));
    const bool timeBased = scaling->masterAxisScaling() != 0 || scaling->velocityScaling() != 0;
    expect(m_scaling->cycleTimeEdit()->text() == fixed(scaling->cycleTime(), 4)
               && m_scaling->cycleTimeEdit()->isEnabled() == timeBased,
           QStringLiteral("the cycle time shows %1 for %2").arg(m_scaling->cycleTimeEdit()->text()).arg(scaling->cycleTime()));

    const int sampled = model()->motionPlan() ? model()->motionPlan()->positions().size() : 0;
    expect(m_calculated->model()->rowCount() == sampled,
           QStringLiteral("the calculated table has %1 rows for %2 points").arg(m_calculated->model()->rowCount()).arg(sampled));
    expect(m_comparison->model()->calculatedCount() == sampled,
           QStringLiteral("the comparison has %1 calculated points for %2").arg(m_comparison->model()->calculatedCount()).arg(sampled));
    // A dynamic resolution not above the points' count samples nothing, and
    // an empty table is never written.
    const bool writable = count > 1 && sampled > 0;
    expect(actionNamed(m_window, QStringLiteral("Schreibt die berechneten Stützstellen in Parameter"))->isEnabled() == writable
               && m_window->writeButton()->isEnabled() == writable,
           QStringLiteral("writing is %1 with %2 points").arg(writable ? "disabled" : "enabled").arg(count));
    expect(actionNamed(m_window, QStringLiteral("&Rückgängig"))->isEnabled() == m_stack->canUndo()
               && actionNamed(m_window, QStringLiteral("Wiederholen"))->isEnabled() == m_stack->canRedo(),
           QStringLiteral("undo or redo enabled wrongly"));
    return problems.join(QLatin1Char('\n'));
}

// The drive holds what was written or imported last; the comparison, the
// parameter list and the button's preview follow it.
QString RandomUser::storedProblem() const
{
    const QPolygonF stored = parameters()->storedGridPoints();
    QStringList problems;
    const auto expect = [&problems](bool holds, const QString &what) {
        if (!holds)
            problems << what;
    };
    bool same = stored.size() == m_expectedStored.size();
    for (int i = 0; same && i < stored.size(); ++i)
        same = stored.at(i).x() == m_expectedStored.at(i).x()
            && (!m_storedSlavesKnown || stored.at(i).y() == m_expectedStored.at(i).y());
    expect(same, QStringLiteral("the drive holds %1 points, expected %2").arg(stored.size()).arg(m_expectedStored.size()));
    const ComparisonTableModel *comparison = m_comparison->model();
    expect(comparison->storedCount() == stored.size(),
           QStringLiteral("the comparison has %1 stored points for %2").arg(comparison->storedCount()).arg(stored.size()));
    expect(!m_justWritten || comparison->firstDifferingRow() == -1,
           QStringLiteral("after the write, row %1 differs").arg(comparison->firstDifferingRow()));
    const int listed = m_gridPoints->elementList()->indexes().size();
    expect(listed == stored.size(), QStringLiteral("the parameter list shows %1 elements for %2").arg(listed).arg(stored.size()));
    const PreviewView *preview = static_cast<CamDesignerButton *>(m_button.get())->preview();
    expect(int(preview->storedCurve()->dataSize()) == stored.size(),
           QStringLiteral("the preview draws %1 stored points for %2").arg(preview->storedCurve()->dataSize()).arg(stored.size()));
    return problems.join(QLatin1Char('\n'));
}
