#include "seamquestion.h"

#include "camdesigner/camdescriptionimplementation.h"
#include <messagebox.h>
#include "curves/curvereport.h"
#include "curves/motionplan.h"
#include "model/cameditormodel.h"
#include "model/decimaltext.h"
#include "model/scaling.h"

#include <QStringList>

#include <cmath>

namespace {
// The drive follows position, velocity and acceleration; a jump in the jerk
// alone is no reason to ask.
constexpr int AskedDerivatives = 3;
constexpr int SignificantDigits = 4;
const char *const Quantities[AskedDerivatives] = {
    QT_TRANSLATE_NOOP("SeamQuestion", "Position"),
    QT_TRANSLATE_NOOP("SeamQuestion", "Geschwindigkeit"),
    QT_TRANSLATE_NOOP("SeamQuestion", "Beschleunigung"),
};
} // namespace

bool SeamQuestion::confirmWrite(QWidget *parent, const CamEditorModel *model)
{
    const MotionPlan *plan = model ? model->motionPlan() : nullptr;
    if (!plan || !model->camDescription()->isCyclic())
        return true;
    // The continuity at the seam as the report computes (and shows) it.
    const CurveReport report(*plan);
    const Scaling *scaling = model->scaling();
    for (const CurveJointReport &joint : report.joints()) {
        if (!joint.seam || joint.continuity >= AskedDerivatives - 1)
            continue;
        QStringList jumps;
        for (int k = 0; k < AskedDerivatives; ++k) {
            const double jump = joint.jumps[std::size_t(k)];
            if (std::abs(jump) <= report.tolerance(k))
                continue;
            // In the units the report shows.
            const double factor = k == 0 ? 1.0 : scaling->derivativeFactor(k, plan->masterRange());
            const QString unit = k == 0 ? scaling->slaveUnit() : scaling->derivativeUnit(k);
            QString value = DecimalText::toString(std::isnan(factor) ? jump : jump * factor, 'g', SignificantDigits);
            if (!unit.isEmpty() && !std::isnan(factor))
                value += QLatin1Char(' ') + unit;
            jumps << tr("%1 springt um %2").arg(tr(Quantities[k]), value);
        }
        const QString text = tr("Die zyklische Kurvenscheibe ist an der Nahtstelle bei der Master-Position %1 nicht "
                                "stetig: %2. Der Antrieb durchfährt diesen Sprung in jedem Zyklus. Trotzdem in die "
                                "Parameter schreiben?")
                                 .arg(scaling->masterPositionToText(joint.master), jumps.join(QStringLiteral(", ")));
        return MessageBox::question(parent, tr("Sprung an der Nahtstelle"), text) == QMessageBox::Yes;
    }
    return true;
}
