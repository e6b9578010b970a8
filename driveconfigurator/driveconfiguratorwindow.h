#pragma once

#include <QMainWindow>
#include <QTranslator>

#include <memory>

class CamDescription;
class CamTablePage;
class DriveProject;
class QAction;
class QActionGroup;
class QLabel;
class QMenu;
class QScrollArea;
class QToolBar;

// A small drive configuration tool: one simulated drive with its 16 cam
// tables, each edited by the cam editor library, kept in a drive project file.
class DriveConfiguratorWindow : public QMainWindow
{
    Q_OBJECT
public:
    enum class Language { German, English };

    explicit DriveConfiguratorWindow(QWidget *parent = nullptr);
    ~DriveConfiguratorWindow() override;

    DriveProject *project() const { return m_project.get(); }
    CamTablePage *page() const { return m_page; }

    // Opens a project file in place of the open one; a file that cannot be
    // read is refused with a message and changes nothing.
    bool openProject(const QString &path);
    // Asks what to do with unsaved changes; false when the user cancels.
    bool maybeSave();

    Language language() const { return m_language; }
    // Installs the editor's and the host's translations and keeps the choice.
    void setLanguage(Language language);
    // The language kept in the settings (German when none is kept).
    static Language storedLanguage();

public slots:
    void newProject();
    void openFile();
    bool save();
    bool saveAs();

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void createActions();
    void retranslate();
    void setProject(std::unique_ptr<DriveProject> project);
    void closeEditors();
    void updateTitle();
    void updateDriveState();
    void showImportDialog(int table, QWidget *parent, CamDescription *description);

    std::unique_ptr<DriveProject> m_project;
    CamTablePage *m_page = nullptr;
    QScrollArea *m_scrollArea;
    QLabel *m_stateLabel;
    QMenu *m_fileMenu = nullptr;
    QMenu *m_driveMenu = nullptr;
    QMenu *m_languageMenu = nullptr;
    QToolBar *m_driveToolBar = nullptr;
    QAction *m_newAction = nullptr;
    QAction *m_openAction = nullptr;
    QAction *m_saveAction = nullptr;
    QAction *m_saveAsAction = nullptr;
    QAction *m_quitAction = nullptr;
    QAction *m_onlineAction = nullptr;
    QAction *m_readOnlyAction = nullptr;
    QAction *m_germanAction = nullptr;
    QAction *m_englishAction = nullptr;
    QActionGroup *m_languageGroup = nullptr;
    QTranslator m_translator;
    QTranslator m_qtTranslator;
    Language m_language = Language::German;
};
