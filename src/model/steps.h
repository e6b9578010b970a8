#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QObject>

// How finely the curve is sampled into grid points: a number of steps over
// the whole curve (dynamic) or a distance in master units (static). No limits
// are enforced here; the input fields hold the user to sensible values.
class Steps : public QObject
{
    Q_OBJECT
public:
    static constexpr double DefaultStaticStepSize = 1.0;
    static constexpr int DefaultDynamicStepResolution = 500;

    explicit Steps(QObject *parent = nullptr);

    double staticStepSize() const { return m_staticStepSize; }
    void setStaticStepSize(double stepSize);
    int dynamicStepResolution() const { return m_dynamicStepResolution; }
    void setDynamicStepResolution(int resolution);
    bool isDynamicStepSize() const { return m_isDynamicStepSize; }
    void setIsDynamicStepSize(bool dynamic);

    QJsonObject toJson() const;
    void fromJson(const QJsonObject &object);
    // The first member that fromJson would read as its default although it is
    // there, because it has another type; empty when there is none.
    static QString wrongMember(const QJsonObject &object, QJsonValue::Type *expected);

signals:
    void dynamicStepResolutionChanged();
    void isDynamicStepSizeChanged();
    void staticStepSizeChanged();

private:
    double m_staticStepSize = DefaultStaticStepSize;
    int m_dynamicStepResolution = DefaultDynamicStepResolution;
    bool m_isDynamicStepSize = true;
};
