#include "camtablepage.h"

#include "camtablecell.h"
#include "driveproject.h"

#include <camdesigner/camdescription.h>

#include <QGridLayout>

CamTablePage::CamTablePage(DriveProject *project, QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("camTablePage"));
    auto *layout = new QGridLayout(this);
    layout->setSpacing(8);
    for (int table = 0; table < DriveProject::TableCount; ++table) {
        auto *cell = new CamTableCell(project, table, this);
        layout->addWidget(cell, table / Columns, table % Columns);
        connect(cell, &CamTableCell::importDescriptionRequested, this,
                [this, table](QWidget *parent, CamDescription *description) {
                    emit importDescriptionRequested(table, parent, description);
                });
        m_cells.append(cell);
    }
}

CamTablePage::~CamTablePage() = default;

void CamTablePage::updateTexts()
{
    for (CamTableCell *cell : qAsConst(m_cells))
        cell->updateTexts();
}
