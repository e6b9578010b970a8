#pragma once

#include "sectionwarnings.h"

#include <QList>
#include <QVector>

class QwtPlot;
class QwtPlotItem;

// The warnings drawn on the plots: a red band behind a section that has one,
// a red line at a joint that jumps, in every plot at once.
class WarningBands
{
public:
    explicit WarningBands(const QList<QwtPlot *> &plots);
    ~WarningBands();
    WarningBands(const WarningBands &) = delete;
    WarningBands &operator=(const WarningBands &) = delete;

    void show(const QVector<SectionWarnings::Warning> &warnings);
    int itemCount() const { return m_items.size(); }

private:
    QList<QwtPlot *> m_plots;
    QList<QwtPlotItem *> m_items;
};
