#pragma once

#include <QObject>

class QJsonValue;

// The plan-wide choice of how the curve between the motion points is
// calculated: 0 sections by the points' segment types and section laws
// (VDI), 1 natural cubic spline, 2 cubic spline with periodic end conditions
// (for a cyclic cam; a non-cyclic cam gets the natural spline).
class MotionLaw : public QObject
{
    Q_OBJECT
public:
    enum Law { Vdi = 0, Spline = 1, SplinePeriodic = 2 };
    static constexpr int LawCount = 3;

    explicit MotionLaw(QObject *parent = nullptr);

    int law() const { return m_law; }
    void setLaw(int law);

    static QString displayName(int law);
    static QString dataName(int law);
    QString dataName() const;
    void setFromData(const QJsonValue &value);

    static int lawForIndex(int index);
    static int indexForLaw(int law);

signals:
    void motionLawChanged();

private:
    int m_law = Vdi;
};
