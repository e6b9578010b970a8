#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QString>

class CamDescriptionImplementation;

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

private:
    bool m_typeApplies = true;
    double m_master = 0.0;
    double m_slave = 0.0;
    int m_type = rest;
    QPointer<CamDescriptionImplementation> m_camDescription;
};
