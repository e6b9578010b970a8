#pragma once

#include <QObject>
#include <QPointF>
#include <QPolygonF>
#include <QString>
#include <QVector>

// The one object through which the editor reads, checks, formats and writes
// the drive parameters of its cam table.
class ParameterModel : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~ParameterModel() override = default;

    virtual unsigned short camTable() const = 0;
    // Coordinate texts of the table's arrays ("G283", "G284" for table 0).
    virtual QString masterCoordinateText() const = 0;
    virtual QString slaveCoordinateText() const = 0;

    // Positions with the drive's decimal places and the system locale's
    // decimal point; texts may carry the unit of their axis.
    virtual QString masterValueToText(double value) const = 0;
    virtual QString slaveValueToText(double value) const = 0;
    virtual double masterTextToValue(const QString &text) const = 0;
    virtual double slaveTextToValue(const QString &text) const = 0;

    // Empty when the value lies within the limits (inclusive), otherwise the
    // user message. The overloads with a minimum replace the drive's one.
    virtual QString checkMasterValue(double value) const = 0;
    virtual QString checkMasterValue(double value, double minimum) const = 0;
    virtual QString checkSlaveValue(double value) const = 0;
    virtual QString checkSlaveValue(double value, double minimum) const = 0;

    // Rounded to the decimal places of the axis, half away from zero, as
    // the write rounds.
    virtual double roundMaster(double value) const = 0;
    virtual double roundSlave(double value) const = 0;

    virtual int masterDecimalPlaces() const = 0;
    virtual int slaveDecimalPlaces() const = 0;
    virtual QString masterUnit() const = 0;
    virtual QString slaveUnit() const = 0;

    // The table as the drive holds it, read back after every change.
    virtual int storedGridPointCount() const = 0;
    virtual QPolygonF storedGridPoints() const = 0;
    virtual QPolygonF storedVelocities() const = 0;
    virtual QPolygonF storedAccelerations() const = 0;
    virtual QPolygonF storedJerks() const = 0;
    virtual QString storedTableSummary() const = 0;
    // Empty while the count fits the arrays; otherwise why the stored table
    // is damaged (a German text for the user).
    virtual QString storedTableDamage() const = 0;

    virtual bool isOnline() const = 0;
    virtual bool isReadOnly() const = 0;

    // Why the drive cannot take these points as its table at all (empty,
    // not finite, more than it can count or hold), or empty when it can. The
    // window names it on its disabled write controls.
    virtual QString tableRefusal(const QVector<QPointF> &points) const = 0;
    // Writes the points (x master, y slave) as the table; every refusal is
    // reported by a message box and leaves the arrays untouched. A drive that
    // fails in the middle is reported by the element that failed. The stamp
    // is written only when the drive reads back exactly what was written.
    // The write processes events while it runs; a call made meanwhile does
    // nothing. writeProcessStarted and writeProcessFinished enclose every
    // write.
    virtual void writeGridPoints(const QVector<QPointF> &points) = 0;
    // True from writeProcessStarted to writeProcessFinished; the window keeps
    // its writing controls and its closing disabled meanwhile.
    virtual bool isWriting() const = 0;
    // Only offline and not while writing; otherwise nothing happens.
    virtual void deleteGridPoints() = 0;

    // The editor window opens and closes: outside changes of the table are
    // followed only while it is open. A close during a write takes effect
    // when the write ends.
    virtual void editorOpened() = 0;
    virtual void editorClosed() = 0;

signals:
    void readOnlyChanged();
    void readOnlySetToChange();
    void sizeChanged();
    void valueChanged();
    void decimalPlacesChanged();
    void writeProcessStarted();
    void writeProcessFinished();

public slots:
    virtual void setConnections() = 0;
};
