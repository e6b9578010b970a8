#pragma once

#include "camdescription.h"
#include "model/motionlaw.h"
#include "model/motionpoint.h"
#include "model/steps.h"

#include <QList>
#include <QMap>
#include <QPointer>
#include <QVector>

class QUndoStack;

class CamDescriptionImplementation : public CamDescription
{
    Q_OBJECT
public:
    static constexpr double DefaultCircularLength = 1.0;

    CamDescriptionImplementation(QObject *parent, const QByteArray &data);
    ~CamDescriptionImplementation() override;

    bool differs(const CamDescription *other) const override;
    void loadWithUndo(const QJsonObject &data, QString name) override;
    void fromJson(const QJsonObject &data) override;
    bool isModified() const override { return m_modified; }
    bool isEmpty() const override { return m_motionPoints.isEmpty(); }
    QJsonObject toJson() const override;

    QString summaryHtml() const;

    MotionLaw *motionLaw() { return &m_motionLaw; }
    const MotionLaw *motionLaw() const { return &m_motionLaw; }
    Steps *steps() { return &m_steps; }
    const Steps *steps() const { return &m_steps; }
    bool isCyclic() const { return m_cyclic; }
    void setCyclic(bool cyclic);
    double circularLength() const { return m_circularLength; }
    void setCircularLength(double circularLength);
    QUndoStack *undoStack() const;
    void setUndoStack(QUndoStack *undoStack);
    QList<MotionPoint *> motionPoints() const { return m_motionPoints.values(); }
    MotionPoint *pointAt(double master) const { return m_motionPoints.value(master, nullptr); }

    // The points by row, ascending master, for item models: the row of a
    // point is its place in that order, -1 for a point not held here.
    int pointCount() const { return m_motionPoints.size(); }
    MotionPoint *pointAtRow(int row) const;
    int rowOf(const MotionPoint *point) const;

    // A bulk change (a load) lets followers such as the editor model wait for
    // its end instead of rebuilding on every signal it emits; the signals
    // themselves are emitted as always. Nests.
    void beginBulkChange();
    void endBulkChange();
    bool isInBulkChange() const { return m_bulkChangeDepth > 0; }

    // Removes the point at the given point's master position and hands it to
    // the caller, who then owns it. Null when nothing was there.
    MotionPoint *takePoint(MotionPoint *point);

    // Saves the data as indented text JSON, whatever the suffix. The file is
    // replaced atomically: a failed save leaves the old file as it was.
    bool saveToFile(const QString &path, QString *errorString) const;
    // Loads a file through the undo stack, named after the file. A file that
    // holds no cam definition data of the expected form changes nothing and
    // gives false with the message to show; a file that cannot be opened
    // gives false with no message (it is only logged).
    bool loadFromFile(const QString &path, QString *message = nullptr);

    // The first member of an object that fromJson would read as its default
    // although it is there, because it has another type, as a path such as
    // "MotionPoints[2][0]" or "Steps.dynamicSteps"; empty when there is none.
    static QString wrongMember(const QJsonObject &data, QJsonValue::Type *expected);

public slots:
    void attachNewPoint(int x, int y, MotionPoint::movementRules rule);
    void appendPoint(MotionPoint *point);
    void onMotionPointChanged();
    void onMotionLawChanged();

signals:
    void circularLengthChanged();
    void motionPointChanged();
    void motionLawChanged();

    void bulkChangeStarted();
    void bulkChangeFinished();

    // Row notifications for item models, beside the signals above: each
    // "about to" signal comes before the rows change, its partner after, so
    // that a model can keep selections and editors across changes. A point
    // whose master passes a neighbour moves; a load, or a move that pushes
    // another point out, resets.
    void pointsAboutToBeInserted(int first, int last);
    void pointsInserted(int first, int last);
    void pointsAboutToBeRemoved(int first, int last);
    void pointsRemoved(int first, int last);
    void pointAboutToBeMoved(int from, int to);
    void pointMoved(int from, int to);
    void pointsChanged(int first, int last);
    void pointsAboutToBeReset();
    void pointsReset();

private:
    void connectPoint(MotionPoint *point);
    void releaseDroppedPoint(MotionPoint *point);
    const QVector<MotionPoint *> &rows() const;
    void rebuildMap(MotionPoint *changedPoint);
    void announceRows(const QVector<MotionPoint *> &before, const QVector<MotionPoint *> &after,
                      const MotionPoint *changedPoint, bool done);

    QPointer<QUndoStack> m_undoStack;
    MotionLaw m_motionLaw;
    bool m_cyclic = false;
    Steps m_steps;
    double m_circularLength = 0.0;
    QMap<double, MotionPoint *> m_motionPoints;
    bool m_modified = false;
    int m_bulkChangeDepth = 0;
    // Row signals are held back while a load replaces every point.
    bool m_resetting = false;
    // The map's values in order, made when first asked for after a change.
    mutable QVector<MotionPoint *> m_rows;
    mutable bool m_rowsValid = false;
};
