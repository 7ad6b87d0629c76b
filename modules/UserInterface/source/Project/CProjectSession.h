#pragma once

#include "CProjectFile.h"

#include <QObject>
#include <QString>

#include <memory>

class CProjectLock;
class CProjectModel;
class CRecentProjects;
class IUserQuestions;
class QFile;

/// The one open project and its way from new or open to closed: questions, lock, saving.
/// Errors:  are shown through IUserQuestions; a false result then says that nothing was done.
/// Owns:    the project model. Who shows it listens to the signals and lets go of it at
///          projectAboutToClose().
/// Threads: the GUI thread only.
class CProjectSession : public QObject
{
    Q_OBJECT

public:
    enum class EAutosave {
        NoProject,
        Unchanged,
        Saved,
        Failed, ///< or refused; told once until it works again
    };

    CProjectSession(IUserQuestions *user, CRecentProjects *recent, QObject *parent = nullptr);
    ~CProjectSession() override;

    CProjectModel *project() const { return m_project.get(); } ///< null when none is open
    bool isDirty() const;
    /// Of the open project; empty when it was never saved.
    QString path() const;
    /// What a window shows as its title: "name for platform", or nothing.
    QString title() const;
    /// The folder that file dialogs offer.
    const QString &workingDirectory() const { return m_workingDirectory; }
    void setWorkingDirectory(const QString &folder);
    /// Kept as "NYXVersion" in new projects.
    void setProgramVersion(const QString &version) { m_programVersion = version; }

    /// Whether the file is a project document; shows an error otherwise.
    bool validate(const QFile &file) const;
    /// Opens a validated file. What is still open is closed without a question.
    bool openFile(const QString &path);
    void open();
    /// Validates, asks about the open project, opens.
    void open(const QString &path);
    void newProject();
    bool save();
    bool saveAs();
    /// False when the user has cancelled, or saving has failed.
    bool close();
    /// For the end of the program from outside: asks nothing.
    void closeWithoutQuestions();
    /// Writes the project's file without asking anything.
    EAutosave autosave();

Q_SIGNALS:
    /// A project is there; show it, start the emulator for it.
    void projectOpened(CProjectModel *project);
    /// The project, which has its path and title now, is ready for work.
    void projectLoaded();
    /// Still there, for the last time.
    void projectAboutToClose(CProjectModel *project);
    void projectClosed();
    void titleChanged(const QString &title);

private:
    std::unique_ptr<CProjectLock> lockFor(const QString &path, bool *given);
    bool load(CProjectModel *project, CProjectFile *file, const CProjectLock &lock,
              bool *isRecovered);
    void activate(std::unique_ptr<CProjectModel> project);
    void discard();
    bool moveTo(const QString &path);
    bool isOusted() const;
    QString write(CProjectFile *file, CProjectFile::EWrite kind);
    void fail(const QString &reason) const;

    IUserQuestions *const m_user;
    CRecentProjects *const m_recent;
    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<CProjectFile> m_file; ///< null when the project was never saved
    std::unique_ptr<CProjectLock> m_lock;
    QString m_workingDirectory;
    QString m_programVersion;
    QString m_autosaveComplaint; ///< told already
};
