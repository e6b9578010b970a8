#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QString>

class CamDescriptionImplementation;
class QJsonObject;
class QJsonValue;

// One user-defined support point of the cam: master position, slave position
// and the segment type that the VDI law uses from this point on.
class MotionPoint : public QObject
{
    Q_OBJECT
public:
    // The segment types. The stored values (used by the data and the curve
    // calculation) differ from the combo-box order on purpose: turning point
    // is 2 and acceleration 3, while the combo box lists acceleration before
    // turning point. Qualified by the class, so that names like "rest" and
    // "acceleration" stay free elsewhere.
    enum movementRules : int {
        rest = 0,
        speed = 1,
        turningPoint = 2,
        acceleration = 3
    };

    // A position in the segment type combo box. A type of its own, so that
    // passing type() can never select a type by its combo-box index.
    struct ComboBoxIndex {
        explicit constexpr ComboBoxIndex(int index) : value(index) {}
        int value;
    };

    // The law of the section that starts at this point, used by the VDI law.
    // Poly5 is the design's quintic section and the default; the four
    // normalised rest-in-rest laws take an inflection point.
    enum SectionLaw : int {
        Poly5 = 0,
        Poly7 = 1,
        Cycloid = 2,
        ModifiedSine = 3,
        ModifiedTrapezoid = 4,
        Harmonic = 5,
        Line = 6
    };
    static constexpr int SectionLawCount = 7;
    static constexpr double DefaultInflection = 0.5;

    MotionPoint(const MotionPoint &other);
    MotionPoint(double master, double slave, const QString &typeDataName);
    MotionPoint(double master, double slave, ComboBoxIndex index);
    MotionPoint(double master, double slave, movementRules type);
    ~MotionPoint() override;

    MotionPoint &operator=(const MotionPoint &other);

    double master() const { return m_master; }
    double slave() const { return m_slave; }
    QPointF position() const { return QPointF(m_master, m_slave); }
    int type() const { return m_type; }

    QString typeDataName() const;
    QString typeDisplayName() const;
    static QString typeDataName(int type);
    static QString typeDisplayName(int type);
    static int typeForDataName(const QString &dataName);
    static int indexForType(int type);
    static int typeForIndex(int index);

    int sectionLaw() const { return m_sectionLaw; }
    double inflection() const { return m_inflection; }
    // The set velocity of a "speed" point; without one the segment rules
    // choose the point's boundary velocity.
    bool hasVelocity() const { return m_hasVelocity; }
    double velocity() const { return m_velocity; }
    void setSectionLaw(int law);
    void setInflection(double inflection);
    void setVelocity(double velocity);
    void clearVelocity();
    // Law, inflection and set velocity of the other point, as its own.
    void setSectionFrom(const MotionPoint &other);

    static QString sectionLawDataName(int law);
    static QString sectionLawDisplayName(int law);
    static int sectionLawForDataName(const QString &dataName);
    static bool takesInflection(int law);
    // An inflection outside (0, 1), NaN included, reads as the default.
    static double validInflection(double inflection);

    // The optional fourth element of the point in the data: an object with
    // only the keys that differ from the defaults, empty when none does.
    QJsonObject sectionData() const;
    void setSectionFromData(const QJsonValue &value);

    bool typeApplies() const { return m_typeApplies; }
    void setTypeApplies(bool applies);

    void setFrom(const MotionPoint &other);
    void setPosition(const QPointF &position);
    void setTypeByIndex(int index);

    bool differs(const MotionPoint *other) const;
    bool isEqual(const MotionPoint &other) const;

    // The description that holds the point, null while it holds none. Kept by
    // the description itself as the point enters and leaves it: points
    // created by a load have no Qt parent, so the parent cannot tell.
    CamDescriptionImplementation *camDescription() const;
    void setCamDescription(CamDescriptionImplementation *description);

signals:
    void edited();
    void movementRuleChanged();
    void moved();
    // Declared for listeners; no operation of the point emits these two.
    void masterPositionChanged();
    void slavePositionChanged();
    // Section law, inflection or set velocity changed.
    void sectionChanged();

private:
    bool m_typeApplies = true;
    double m_master = 0.0;
    double m_slave = 0.0;
    int m_type = rest;
    int m_sectionLaw = Poly5;
    double m_inflection = DefaultInflection;
    bool m_hasVelocity = false;
    double m_velocity = 0.0;
    QPointer<CamDescriptionImplementation> m_camDescription;
};
