#pragma once

#include "mxcamdesigner_export.h"

#include <QByteArray>
#include <QJsonObject>
#include <QObject>
#include <QString>

// The cam definition data of one cam table: motion law, motion points, cyclic
// flag, circular length and step settings. The host creates it from the bytes
// it keeps in its project and persists toJson() whenever changed() is emitted.
class MXCAMDESIGNER_EXPORT CamDescription : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~CamDescription() override = default;

    // A new cam description filled from Qt 5 binary JSON bytes. Never fails:
    // empty or invalid bytes give the defaults.
    static CamDescription *createCamDescription(QObject *parent, const QByteArray &data);
    // The name the editor shows for a motion law's data name ("Vdi2142",
    // "Spline"), in the installed language; an unknown name is read as the
    // editor reads it on loading.
    static QString motionLawDisplayName(const QString &dataName);

    virtual bool differs(const CamDescription *other) const = 0;
    virtual void loadWithUndo(const QJsonObject &data, QString name) = 0;
    virtual void fromJson(const QJsonObject &data) = 0;
    virtual bool isModified() const = 0;
    virtual bool isEmpty() const = 0;
    virtual QJsonObject toJson() const = 0;

signals:
    void changed();
};
