#include "motionlaw.h"

#include <QCoreApplication>
#include <QJsonValue>

namespace {

// "Vdi2142" is what stored cam definition data contain; it must stay as it is.
const char *const DataNames[] = { "Vdi2142", "Spline", "SplinePeriodic" };
const char *const DisplayNames[] = {
    QT_TRANSLATE_NOOP("MotionLaw", "Polynom fünften Grades"),
    QT_TRANSLATE_NOOP("MotionLaw", "Kubischer Spline"),
    QT_TRANSLATE_NOOP("MotionLaw", "Kubischer Spline (periodisch)"),
};

bool isKnownLaw(int law)
{
    return law >= 0 && law < MotionLaw::LawCount;
}

} // namespace

MotionLaw::MotionLaw(QObject *parent)
    : QObject(parent)
{
}

void MotionLaw::setLaw(int law)
{
    if (law == m_law)
        return;
    m_law = law;
    emit motionLawChanged();
}

QString MotionLaw::displayName(int law)
{
    return isKnownLaw(law) ? QCoreApplication::translate("MotionLaw", DisplayNames[law]) : QString();
}

QString MotionLaw::dataName(int law)
{
    return isKnownLaw(law) ? QString::fromLatin1(DataNames[law]) : QString();
}

QString MotionLaw::dataName() const
{
    return dataName(m_law);
}

void MotionLaw::setFromData(const QJsonValue &value)
{
    const QString name = value.toString();
    int found = Vdi;
    for (int law = 0; law < LawCount; ++law) {
        if (name == QLatin1String(DataNames[law])) {
            found = law;
            break;
        }
    }
    setLaw(found);
}

// The combo box lists the laws in their own order, so index and law coincide.
int MotionLaw::lawForIndex(int index)
{
    return isKnownLaw(index) ? index : Vdi;
}

int MotionLaw::indexForLaw(int law)
{
    return isKnownLaw(law) ? law : -1;
}
