#pragma once

#include "parameters/parametermodelimplementation.h"

#include "simulateddrive.h"

#include <QPointF>
#include <QStringList>
#include <QVector>

#include <cmath>
#include <memory>
#include <utility>

// A simulated drive with a parameter model bound to one of its tables, in
// the living space of the first axis.
struct BoundTable {
    static constexpr int LivingSpace = 1;

    explicit BoundTable(int table = 0, int axisCount = 2)
        : drive(axisCount)
        , table(table)
    {
    }

    ParameterModelImplementation &model()
    {
        if (!m_model)
            m_model = std::make_unique<ParameterModelImplementation>(nullptr, &drive, table, LivingSpace);
        return *m_model;
    }
    void rebind() { m_model.reset(); }

    MxParameterDefinition::ParameterCoordinate master() const
    {
        return MxParameterDefinition::ParameterCoordinate(MxSimulation::masterArrayCoordinate(table));
    }
    MxParameterDefinition::ParameterCoordinate slave() const
    {
        return MxParameterDefinition::ParameterCoordinate(MxSimulation::slaveArrayCoordinate(table));
    }
    MxParameterInstance::ParameterInformation *definition(const MxParameterDefinition::ParameterCoordinate &c)
    {
        return drive.definition(c);
    }
    // Every element of a parameter in its native form.
    QStringList natives(const MxParameterDefinition::ParameterCoordinate &coordinate)
    {
        QStringList values;
        const int count = drive.definition(coordinate)->elementCount();
        for (int i = 0; i < count; ++i)
            values.append(drive.readValueNative(LivingSpace, coordinate, i));
        return values;
    }
    QString tableValue(const char *coordinate)
    {
        return drive.readValue(LivingSpace, MxParameterDefinition::ParameterCoordinate(QString::fromLatin1(coordinate)),
                               table);
    }
    bool resize(int masterCount, int slaveCount)
    {
        return definition(master())->setElementCount(masterCount) && definition(slave())->setElementCount(slaveCount);
    }

    MxSimulation::SimulatedDrive drive;
    int table;

private:
    std::unique_ptr<ParameterModelImplementation> m_model;
};

// The model's signals by name ("started", "size", "value", "finished") in
// the order they come.
class SignalLog : public QStringList
{
public:
    explicit SignalLog(ParameterModel *model)
    {
        const std::pair<void (ParameterModel::*)(), const char *> named[] = {
            { &ParameterModel::writeProcessStarted, "started" },
            { &ParameterModel::sizeChanged, "size" },
            { &ParameterModel::valueChanged, "value" },
            { &ParameterModel::writeProcessFinished, "finished" },
        };
        for (const auto &signal : named)
            QObject::connect(model, signal.first, &m_context,
                             [this, name = signal.second] { append(QString::fromLatin1(name)); });
    }

private:
    QObject m_context;
};

// A parameter coordinate from its text, e.g. "G283".
inline MxParameterDefinition::ParameterCoordinate coordinate(const char *text)
{
    return MxParameterDefinition::ParameterCoordinate(QString::fromLatin1(text));
}

// Points on a smooth curve, master ascending with the given step; positions
// carry more digits than the drive keeps so that rounding takes part.
inline QVector<QPointF> curvePoints(int count, double step = 0.5)
{
    QVector<QPointF> points;
    points.reserve(count);
    for (int i = 0; i < count; ++i) {
        const double master = i * step + 0.00012;
        points.append(QPointF(master, 50.0 * std::sin(master / 30.0) + 0.00049));
    }
    return points;
}
