#pragma once

#include <QObject>
#include <QString>

#include <cmath>

class ParameterModel;

// The editor's view of the drive's position scaling and of how the curve is
// shown over time. The curve calculation reads only the decimal places of
// positions and the resolution derived from them; the drive parameter
// binding supplies the implementation (createScaling), tools and tests a
// FixedScaling.
class Scaling : public QObject
{
    Q_OBJECT
public:
    // Selector values as stored; the display texts come from the functions below.
    enum MasterAxisScaling { MasterUnit = 0, CycleTime = 1 };
    enum VelocityScaling { MasterSlave = 0, RpmOutput = 1, RpmMotor = 2 };
    enum TimeUnit { Minutes = 0, Seconds = 1, Milliseconds = 2 };

    static constexpr double DefaultCycleTime = 1.0;

    using QObject::QObject;
    ~Scaling() override = default;

    // A scaling that takes decimal places and position texts from the drive.
    static Scaling *createScaling(ParameterModel *parameterModel, QObject *parent);

    // Decimal places of positions as the drive stores them.
    virtual int decimalPlaces() const = 0;

    // The smallest position step the drive can store: 10 to the power of
    // minus the decimal places.
    double positionResolution() const { return std::pow(10.0, -decimalPlaces()); }

    virtual QString masterPositionToText(double position) const = 0;
    virtual QString slavePositionToText(double position) const = 0;
    virtual double masterTextToPosition(const QString &text) const = 0;
    virtual double slaveTextToPosition(const QString &text) const = 0;

    // Unit texts of the positions; empty where no drive names them.
    virtual QString masterUnit() const { return QString(); }
    virtual QString slaveUnit() const { return QString(); }
    // Slave units that one revolution of the output travels, and motor
    // revolutions per output revolution. Not a number where the drive holds
    // no usable value; without a drive one unit is one revolution, 1:1.
    virtual double slaveUnitsPerRevolution() const { return 1.0; }
    virtual double gearRatio() const { return 1.0; }

    // The one conversion of curve derivatives into the units the selectors
    // ask for. A derivative of the given order (1 velocity, 2 acceleration,
    // 3 jerk; 0 the position itself) in slave units per master unit to that
    // power is multiplied by derivativeFactor() and then reads in
    // derivativeUnit(). masterRange is the master distance the curve runs
    // through once per cycle time. An order outside 0..3 gives NaN and an
    // empty unit.
    double derivativeFactor(int order, double masterRange) const;
    QString derivativeUnit(int order) const;
    // With "Zykluszeit" the master range is run through once per cycle time:
    // the seconds one master unit stands for (cycle time / master range);
    // 0 under the other master axis scaling or for an empty range.
    double secondsPerMaster(double masterRange) const;
    // Whether derivatives are taken over time (a cycle time or revolutions
    // per minute are selected) rather than over the master position.
    bool isTimeBased() const;

    int masterAxisScaling() const { return m_masterAxisScaling; }
    void setMasterAxisScaling(int scaling);
    double cycleTime() const { return m_cycleTime; }
    void setCycleTime(double seconds);
    int velocityScaling() const { return m_velocityScaling; }
    void setVelocityScaling(int scaling);

    // Translated names of the selector values; empty for an unknown value.
    static QString masterAxisScalingText(int scaling);
    static QString velocityScalingText(int scaling);
    static QString timeUnitName(int unit);
    QString masterAxisScalingText() const { return masterAxisScalingText(m_masterAxisScaling); }
    QString velocityScalingText() const { return velocityScalingText(m_velocityScaling); }
    // Four decimals, the system locale's decimal point, then " s".
    QString cycleTimeText() const;

signals:
    void masterAxisScalingChanged();
    void cycleTimeChanged();
    void velocityScalingChanged();
    // Decimal places, units or limits of the drive changed.
    void changed();

private:
    int m_masterAxisScaling = MasterUnit;
    double m_cycleTime = DefaultCycleTime;
    int m_velocityScaling = MasterSlave;
};
