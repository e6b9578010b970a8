#include "curvereportview.h"

#include "curves/curvereport.h"
#include "curves/motionplan.h"
#include "curves/samplinglimit.h"
#include "model/cameditormodel.h"
#include "model/decimaltext.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/scaling.h"

#include <QColor>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QSplitter>
#include <QStandardItemModel>
#include <QTableView>
#include <QVBoxLayout>

#include <cmath>

namespace {

// Significant digits of derivatives, coefficients and errors: enough to
// compare sections, not so many that the columns grow wide.
constexpr int SignificantDigits = 5;
// Times as the cycle time itself shows them.
constexpr int TimeDecimals = 4;
constexpr int CoefficientDecimals = 4;
// Milliseconds of quiet after an edit before the sampling limit is searched.

// The verdict and the figures first: the dock is narrow, the segment types
// (the widest texts) can stand at the end. The coefficients are narrow and
// read first: they stand before the extremes.
enum SectionColumn {
    FromColumn, ToColumn, StrokeColumn, CvColumn, CaColumn, CjColumn, VelocityColumn, AccelerationColumn,
    JerkColumn, ErrorColumn, LawColumn, SectionLawColumn, SectionColumnCount
};
enum JointColumn { JointMasterColumn, VerdictColumn, PositionJumpColumn, VelocityJumpColumn,
                   AccelerationJumpColumn, JerkJumpColumn, JointColumnCount };

const char *const Verdicts[] = {
    QT_TRANSLATE_NOOP("CurveReportView", "unstetig"),
    QT_TRANSLATE_NOOP("CurveReportView", "Position"),
    QT_TRANSLATE_NOOP("CurveReportView", "Geschwindigkeit"),
    QT_TRANSLATE_NOOP("CurveReportView", "Beschleunigung"),
    QT_TRANSLATE_NOOP("CurveReportView", "Ruck"),
};

QStandardItem *cell(const QString &text)
{
    auto *item = new QStandardItem(text);
    item->setEditable(false);
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return item;
}

QTableView *tableOf(QStandardItemModel *model, const QString &objectName)
{
    auto *table = new QTableView;
    table->setObjectName(objectName);
    table->setModel(model);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setAlternatingRowColors(true);
    // Values and units on lines of their own keep the columns narrow.
    table->verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    return table;
}

QWidget *titled(QLabel *label, QWidget *content)
{
    auto *box = new QWidget;
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    label->setTextFormat(Qt::RichText);
    layout->addWidget(label);
    layout->addWidget(content, 1);
    return box;
}

} // namespace

CurveReportView::CurveReportView(CamEditorModel *editorModel, QWidget *parent)
    : QWidget(parent)
    , m_editorModel(editorModel)
    , m_sections(new QStandardItemModel(0, SectionColumnCount, this))
    , m_joints(new QStandardItemModel(0, JointColumnCount, this))
{
    m_sampling = new QLabel;
    m_sampling->setObjectName(QStringLiteral("samplingLabel"));
    m_sampling->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_sampling->setWordWrap(true);
    m_sectionTable = tableOf(m_sections, QStringLiteral("sectionTable"));
    m_jointTable = tableOf(m_joints, QStringLiteral("jointTable"));

    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->setChildrenCollapsible(false);
    for (QLabel *&title : m_titles)
        title = new QLabel;
    splitter->addWidget(titled(m_titles[SectionsTitle], m_sectionTable));
    splitter->addWidget(titled(m_titles[JointsTitle], m_jointTable));
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(titled(m_titles[SamplingTitle], m_sampling));
    retranslateTitles();
    layout->addWidget(splitter, 1);

    if (m_editorModel) {
        // A drag rebuilds the plan without changed(); its coarse grid is
        // cheap to report, so the figures follow the drag as well.
        connect(m_editorModel, &CamEditorModel::changed, this, &CurveReportView::scheduleRefresh);
        connect(m_editorModel, &CamEditorModel::motionPlanRebuilt, this, &CurveReportView::scheduleRefresh);
        if (Scaling *scaling = m_editorModel->scaling()) {
            for (auto signal : { &Scaling::changed, &Scaling::masterAxisScalingChanged, &Scaling::cycleTimeChanged,
                                 &Scaling::velocityScalingChanged })
                connect(scaling, signal, this, &CurveReportView::scheduleRefresh);
        }
    }
    // Computed when first shown: a dock behind another tab costs nothing.
    m_refreshPending = true;
}

CurveReportView::~CurveReportView() = default;

void CurveReportView::retranslateTitles()
{
    const QString titles[TitleCount] = { tr("Abtastung"), tr("Abschnitte"), tr("Übergänge") };
    for (int i = 0; i < TitleCount; ++i)
        m_titles[i]->setText(QStringLiteral("<b>%1</b>").arg(titles[i].toHtmlEscaped()));
}

void CurveReportView::changeEvent(QEvent *event)
{
    // The tables and the sampling lines are written anew in the new language.
    if (event->type() == QEvent::LanguageChange) {
        retranslateTitles();
        m_refreshPending = false;
        scheduleRefresh();
    }
    QWidget::changeEvent(event);
}

void CurveReportView::scheduleRefresh()
{
    // Several signals follow one edit; the figures are computed once, and not
    // at all while the dock is hidden (showEvent catches up).
    if (m_refreshPending)
        return;
    m_refreshPending = true;
    if (isVisible())
        QMetaObject::invokeMethod(this, &CurveReportView::refreshIfPending, Qt::QueuedConnection);
}

void CurveReportView::refreshIfPending()
{
    if (m_refreshPending)
        refresh();
}

void CurveReportView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    refreshIfPending();
    scheduleLimitSearch();
}

void CurveReportView::scheduleLimitSearch()
{
    // The editor runs without timers: the search waits for the events already
    // queued (the rest of a burst of edits), which coalesce into one search.
    if (m_limitPending && isVisible())
        QMetaObject::invokeMethod(this, &CurveReportView::findSamplingLimitIfPending, Qt::QueuedConnection);
}

void CurveReportView::findSamplingLimitIfPending()
{
    if (m_limitPending)
        findSamplingLimit();
}

void CurveReportView::refresh()
{
    m_refreshPending = false;
    m_limitPending = false;
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    if (!plan || plan->motionPoints().size() < 2) {
        m_sections->setRowCount(0);
        m_joints->setRowCount(0);
        m_errorLine.clear();
        m_sampling->setText(tr("Für Kennwerte werden mindestens zwei Bewegungspunkte gebraucht."));
        return;
    }
    const CurveReport report(*plan);
    fillSections(report);
    fillJoints(report);
    fillSampling(report);
    // The search samples the curve over and over: not while a point is
    // dragged (the coarse grid says nothing about the real one), and only
    // once a burst of edits has settled.
    if (m_editorModel->isCoarseSteps()) {
        m_sampling->setText(m_errorLine + QLatin1Char('\n') + tr("Gröbste ausreichende Abtastung: wird nach dem Ziehen berechnet."));
    } else {
        m_sampling->setText(m_errorLine + QLatin1Char('\n') + tr("Gröbste ausreichende Abtastung: wird berechnet …"));
        m_limitPending = true;
        scheduleLimitSearch();
    }
}

void CurveReportView::refreshNow()
{
    refresh();
    findSamplingLimitIfPending();
}

void CurveReportView::findSamplingLimit()
{
    m_limitPending = false;
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    if (!plan || plan->motionPoints().size() < 2)
        return;
    const SamplingLimit limit = SamplingLimit::find(*plan);
    const QString resolution = withUnit(DecimalText::toString(limit.resolution, 'g', SignificantDigits), slaveUnit());
    QStringList lines { m_errorLine };
    lines << (limit.staticReachable
                  ? tr("Größte statische Schrittweite unter der Auflösung %1: %2")
                        .arg(resolution, withUnit(master(limit.staticStepSize), masterUnit()))
                  : tr("Keine statische Schrittweite hält die Auflösung %1 mit höchstens %2 Stützstellen ein.")
                        .arg(resolution)
                        .arg(MotionPlan::MaximumGridPoints));
    lines << (limit.dynamicReachable ? tr("Kleinste dynamische Auflösung unter der Auflösung %1: %2 Stützstellen")
                                           .arg(resolution)
                                           .arg(limit.dynamicResolution)
                                     : tr("Auch %1 Stützstellen halten die Auflösung %2 nicht ein.")
                                           .arg(MotionPlan::MaximumGridPoints)
                                           .arg(resolution));
    m_sampling->setText(lines.join(QLatin1Char('\n')));
}

QString CurveReportView::master(double value) const
{
    const Scaling *scaling = m_editorModel ? m_editorModel->scaling() : nullptr;
    const QString text = scaling ? scaling->masterPositionToText(value) : DecimalText::toString(value);
    // With a cycle time the plots read in seconds: the time beside the
    // position, which still names the motion point.
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    const double secondsPerMaster = scaling && plan ? scaling->secondsPerMaster(plan->masterRange()) : 0.0;
    if (secondsPerMaster == 0.0)
        return text;
    return QStringLiteral("%1 (%2 %3)")
        .arg(text, DecimalText::toString(value * secondsPerMaster, 'f', TimeDecimals),
             Scaling::timeUnitName(Scaling::Seconds));
}

QString CurveReportView::slave(double value) const
{
    const Scaling *scaling = m_editorModel ? m_editorModel->scaling() : nullptr;
    return scaling ? scaling->slavePositionToText(value) : DecimalText::toString(value);
}

QString CurveReportView::derivative(int order, double value) const
{
    const Scaling *scaling = m_editorModel ? m_editorModel->scaling() : nullptr;
    const MotionPlan *plan = m_editorModel ? m_editorModel->motionPlan() : nullptr;
    const double factor = scaling && plan ? scaling->derivativeFactor(order, plan->masterRange()) : 1.0;
    if (std::isnan(factor))
        return QStringLiteral("–");
    return DecimalText::toString(value * factor, 'g', SignificantDigits);
}

QString CurveReportView::masterUnit() const
{
    const Scaling *scaling = m_editorModel ? m_editorModel->scaling() : nullptr;
    return scaling ? scaling->masterUnit() : QString();
}

QString CurveReportView::slaveUnit() const
{
    const Scaling *scaling = m_editorModel ? m_editorModel->scaling() : nullptr;
    return scaling ? scaling->slaveUnit() : QString();
}

QString CurveReportView::withUnit(const QString &number, const QString &unit)
{
    return unit.isEmpty() ? number : QStringLiteral("%1 %2").arg(number, unit);
}

QString CurveReportView::unit(int order) const
{
    const Scaling *scaling = m_editorModel ? m_editorModel->scaling() : nullptr;
    const QString text = scaling ? (order == 0 ? scaling->slaveUnit() : scaling->derivativeUnit(order)) : QString();
    return text.isEmpty() ? QString() : QStringLiteral("\n[%1]").arg(text);
}

void CurveReportView::fillSections(const CurveReport &report)
{
    const Scaling *scaling = m_editorModel ? m_editorModel->scaling() : nullptr;
    const QString masterUnit = scaling ? scaling->masterUnit() : QString();
    const QString masterSuffix = masterUnit.isEmpty() ? QString() : QStringLiteral("\n[%1]").arg(masterUnit);
    m_sections->setHorizontalHeaderLabels({
        tr("von", "column of the sections table: master position where the section starts") + masterSuffix,
        tr("bis", "column of the sections table: master position where the section ends") + masterSuffix,
        tr("Hub") + unit(0), tr("Cv"), tr("Ca"), tr("Cj"),
        tr("v max") + unit(1), tr("a max") + unit(2), tr("j max") + unit(3), tr("Abtastfehler") + unit(0),
        tr("Segmenttypen"), tr("Abschnittsgesetz") });
    const auto coefficient = [](double value) {
        return std::isnan(value) ? QStringLiteral("–") : DecimalText::toString(value, 'f', CoefficientDecimals);
    };
    const auto extreme = [this](int order, const CurveExtreme &e) {
        const QString value = order == 0 ? DecimalText::toString(std::abs(e.value), 'g', SignificantDigits)
                                         : derivative(order, e.value);
        return tr("%1\nbei %2").arg(value, master(e.master));
    };
    const QString spline = MotionLaw::displayName(report.motionLaw());
    m_sections->setRowCount(0);
    for (const CurveSectionReport &s : report.sections()) {
        const QString law = s.startType == CurveReport::NoSegmentType
            ? spline
            : tr("%1 –\n%2").arg(MotionPoint::typeDisplayName(s.startType), MotionPoint::typeDisplayName(s.endType));
        QList<QStandardItem *> row {
            cell(master(s.start)), cell(master(s.end)), cell(slave(s.stroke)), cell(coefficient(s.cv)),
            cell(coefficient(s.ca)), cell(coefficient(s.cj)), cell(extreme(1, s.velocity)),
            cell(extreme(2, s.acceleration)), cell(extreme(3, s.jerk)), cell(extreme(0, s.samplingError)), cell(law),
        };
        // The law asked for and, where it cannot join its neighbours, the one applied.
        const bool fallback = s.law != s.lawApplied;
        const QString asked = s.law == CurveReport::NoSegmentType ? spline : MotionPoint::sectionLawDisplayName(s.law);
        row.append(cell(fallback ? tr("%1 → %2 (nicht anwendbar)")
                                       .arg(asked, MotionPoint::sectionLawDisplayName(s.lawApplied))
                                 : asked));
        if (fallback)
            row[SectionLawColumn]->setForeground(QColor(0xb0, 0x00, 0x00));
        row[LawColumn]->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        row[SectionLawColumn]->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        m_sections->appendRow(row);
    }
}

void CurveReportView::fillJoints(const CurveReport &report)
{
    m_joints->setHorizontalHeaderLabels({ tr("Master"), tr("stetig bis"), tr("Sprung Position") + unit(0),
                                          tr("Sprung v") + unit(1), tr("Sprung a") + unit(2),
                                          tr("Sprung j") + unit(3) });
    m_joints->setRowCount(0);
    for (const CurveJointReport &joint : report.joints()) {
        auto *verdict = cell(tr(Verdicts[joint.continuity + 1]));
        verdict->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        // Below acceleration the drive feels the joint.
        if (joint.continuity < 2)
            verdict->setForeground(QColor(Qt::darkRed));
        QList<QStandardItem *> row { cell(joint.seam ? tr("%1 (Nahtstelle)").arg(master(joint.master))
                                                     : master(joint.master)),
                                     verdict };
        for (int k = 0; k < CurveReport::DerivativeCount; ++k) {
            const double jump = joint.jumps[std::size_t(k)];
            // Within the tolerance a jump is rounding and shown as none.
            const bool none = std::abs(jump) <= report.tolerance(k);
            row.append(cell(none ? QStringLiteral("0")
                                 : k == 0 ? DecimalText::toString(jump, 'g', SignificantDigits) : derivative(k, jump)));
        }
        m_joints->appendRow(row);
    }
}

void CurveReportView::fillSampling(const CurveReport &report)
{
    const CurveExtreme error = report.samplingError();
    m_errorLine = tr("Größter Abtastfehler: %1 bei %2 (%3 Stützstellen)")
                      .arg(withUnit(DecimalText::toString(std::abs(error.value), 'g', SignificantDigits), slaveUnit()),
                           withUnit(master(error.master), masterUnit()))
                      .arg(report.gridPointCount());
}
