#pragma once

#include <QFrame>

class CamDescription;
class CamDesigner;
class DriveProject;
class QAbstractButton;
class QLabel;
class QTimer;

// One cam table on the configurator's page: the designer of the table with
// its button (live preview), the number of grid points stored in the drive
// and whether the stored table carries the editor's CRC stamp.
class CamTableCell : public QFrame
{
    Q_OBJECT
public:
    enum class Stamp { None, Editor, Foreign };

    // Creates the description from the project's bytes and the designer, in
    // the order the library asks of its host.
    CamTableCell(DriveProject *project, int table, QWidget *parent = nullptr);
    ~CamTableCell() override;

    int table() const { return m_table; }
    CamDesigner *designer() const { return m_designer; }
    CamDescription *description() const { return m_description; }
    QAbstractButton *button() const { return m_button; }

    int storedCount() const { return m_storedCount; }
    Stamp stamp() const { return m_stamp; }
    // The CRC as the editor computes it over the stored table.
    quint32 computedCrc() const;
    quint32 storedCrc() const;

    // Window title of the editor: table and project.
    QString editorTitle() const;
    // Labels and the editor's title again (language or project name changed).
    void updateTexts();

signals:
    void importDescriptionRequested(QWidget *parent, CamDescription *description);

protected:
    void changeEvent(QEvent *event) override;

private:
    void readDrive();
    QString readNative(const QString &coordinate, int element) const;

    DriveProject *m_project;
    int m_table;
    CamDescription *m_description = nullptr;
    CamDesigner *m_designer = nullptr;
    QAbstractButton *m_button = nullptr;
    QLabel *m_titleLabel = nullptr;
    QLabel *m_countLabel = nullptr;
    QLabel *m_stampLabel = nullptr;
    QTimer *m_readTimer = nullptr;
    QString m_masterArray;
    QString m_slaveArray;
    int m_storedCount = 0;
    Stamp m_stamp = Stamp::None;
};
