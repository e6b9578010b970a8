#pragma once

#include "parameterdefinition.h"
#include "parametertext.h"

#include <QObject>
#include <QString>

namespace MxParameterInstance {

using MxParameterDefinition::eLivingSpace;
using MxParameterDefinition::ParameterAddress;
using MxParameterDefinition::ParameterCoordinate;

// Announces the connection states of a drive: first the pending change
// (...SetToChange), then the completed one (...Changed).
class ParameterProvider : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

signals:
    void onlineSetToChange();
    void onlineChanged();
    void readOnlySetToChange();
    void readOnlyChanged();
};

// The definition of one parameter (all its elements, every living space) and
// the signals by which it reports changes.
class ParameterInformation : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;

    virtual ParameterAddress address() const = 0;
    virtual int elementCount() const = 0;
    // Resizing is refused while the drive is online; false then.
    virtual bool setElementCount(int count) = 0;
    // Limits as value texts ("." as decimal point, no unit).
    virtual QString lowerLimit(eLivingSpace livingSpace) const = 0;
    virtual QString upperLimit(eLivingSpace livingSpace) const = 0;
    virtual MxMultilingual::ParameterText text(int element) const = 0;
    // The native form of a value text ("." as decimal point, exponent allowed);
    // empty when the text is no value of this parameter.
    virtual QString toNative(const QString &valueText) const = 0;

signals:
    // An element changed; the address carries the axis of the living space
    // written (living space minus 1).
    void valueChanged(const MxParameterDefinition::ParameterAddress &address);
    // Element count or limits changed.
    void definitionChanged();
};

// The values of one drive controller.
class ParameterContainer : public ParameterProvider
{
    Q_OBJECT
public:
    using ParameterProvider::ParameterProvider;

    // displayText: true gives the text the user sees (names of enumerated
    // values, numbers followed by their unit); false the bare value text.
    // Numbers are written with the system locale's decimal point, without
    // group separators. Unknown parameters and elements read as empty.
    virtual QString readValue(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                              bool displayText = false) const = 0;
    // The value as the drive stores it (numbers as whole numbers in units of
    // their last decimal place).
    virtual QString readValueNative(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                                    bool displayText = false) const = 0;
    // Accepts "." or the system locale's decimal point; false when refused.
    virtual bool writeValue(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                            const QString &text) = 0;
    virtual bool writeValueNative(eLivingSpace livingSpace, const ParameterCoordinate &coordinate, int element,
                                  const QString &text) = 0;
    virtual bool isOnline() const = 0;
    virtual bool isReadOnly() const = 0;
    // Null for a parameter the drive does not have.
    virtual ParameterInformation *definition(const ParameterCoordinate &coordinate) const = 0;
};

} // namespace MxParameterInstance
