#pragma once

#include <QObject>

// One piece of a cam curve over a closed interval of master positions.
class CamSection : public QObject
{
    Q_OBJECT
public:
    explicit CamSection(QObject *parent = nullptr);
    ~CamSection() override;

    virtual bool contains(double master) const = 0;
    virtual double position(double master) const = 0;
    virtual double velocity(double master) const = 0;
    virtual double acceleration(double master) const = 0;
    virtual double jerk(double master) const = 0;
};
