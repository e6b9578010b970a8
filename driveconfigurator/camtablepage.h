#pragma once

#include <QVector>
#include <QWidget>

class CamDescription;
class CamTableCell;
class DriveProject;

// The page of the configurator that lists the drive's 16 cam tables, four by
// four, each with the button of its designer.
class CamTablePage : public QWidget
{
    Q_OBJECT
public:
    static constexpr int Columns = 4;

    explicit CamTablePage(DriveProject *project, QWidget *parent = nullptr);
    ~CamTablePage() override;

    CamTableCell *cell(int table) const { return m_cells.value(table); }
    // Every editor window gets its title again (the project's name changed).
    void updateTexts();

signals:
    void importDescriptionRequested(int table, QWidget *parent, CamDescription *description);

private:
    QVector<CamTableCell *> m_cells;
};
