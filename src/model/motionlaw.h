#pragma once

#include <QObject>

class QJsonValue;

// The plan-wide choice of how the curve between the motion points is
// calculated: 0 fifth-degree polynomial sections (VDI), 1 cubic spline.
class MotionLaw : public QObject
{
    Q_OBJECT
public:
    enum Law { Vdi = 0, Spline = 1 };

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
