#pragma once

#include <QDialog>
#include <QJsonObject>
#include <QVector>

class QDialogButtonBox;
class QLabel;
class QListWidget;
class QPushButton;

// Lists the cam definition data of the other tables of a drive project (the
// open one, or another project file the user picks) for loading into the
// table being edited.
class ImportDescriptionDialog : public QDialog
{
    Q_OBJECT
public:
    // descriptions: the 16 tables of the open project; excludedTable: the
    // table asking, left out of its own project's list.
    ImportDescriptionDialog(const QVector<QJsonObject> &descriptions, const QString &projectName,
                            int excludedTable, QWidget *parent = nullptr);

    QJsonObject selectedDescription() const;
    // The name of the load in the undo history.
    QString selectedName() const;

private:
    void showProject(const QVector<QJsonObject> &descriptions, const QString &projectName, int excludedTable);
    void chooseOtherProject();
    void updateButtons();

    QLabel *m_sourceLabel;
    QListWidget *m_list;
    QPushButton *m_otherProjectButton;
    QDialogButtonBox *m_buttons;
    QVector<QJsonObject> m_descriptions;
    QString m_projectName;
};
