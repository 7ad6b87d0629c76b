#pragma once

#include "CProjectFile.h"
#include "CProjectLock.h"
#include "CRecoveryCopy.h"
#include "IUserQuestions.h"

#include <QObject>
#include <QScopedValueRollback>
#include <QString>

#include <memory>
#include <vector>

class CProjectModel;
class CRecentProjects;
class QFile;
struct SProjectRead;

/// The one open project and its way from new or open to closed: questions, lock, saving.
/// Recovery: however the process ends, what the last autosave() has met is there again: in the
///          project's file, with the version of the user beside it (CProjectFile), or, as long as
///          there is no file or it cannot be written, in a recovery copy (CRecoveryCopy). Both go
///          when the project is saved or closed.
/// Errors:  are shown through IUserQuestions; a false result then says that nothing was done.
/// Owns:    the project model. Who shows it listens to the signals and lets go of it at
///          projectAboutToClose().
/// Questions: while one stands, the window may still be told to do something, by a menu that the
///          desktop shows, say. What would take away or replace the project then gives false.
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
    /// Where recovery copies lie; empty: there are none.
    void setRecoveryRoot(const QString &folder) { m_recoveryRoot = folder; }

    /// Whether the file is a project document; shows an error otherwise.
    bool validate(const QFile &file) const;
    /// Opens a validated file. What is still open is closed without a question.
    bool openFile(const QString &path);
    /// Validates, asks about the open project, opens.
    void open(const QString &path);
    /// The same with what was read of the file before.
    void open(const QString &path, SProjectRead read);
    void newProject();
    /// Asks about the open project and opens a copy of the file, with the images that lie beside
    /// it, as a project that was never saved. Nothing is written where the file lies.
    void openCopy(const QString &path);
    /// What an ended process has left in recovery copies, newest first.
    const QString &recoveryRoot() const { return m_recoveryRoot; }
    /// The copy of the open project; empty while there is none.
    QString recoveryFile() const
    {
        return m_copy && m_copy->isWritten() ? m_copy->file() : QString();
    }
    QVector<CRecoveryCopy::SLeft> leftWork() const { return CRecoveryCopy::left(m_recoveryRoot); }
    /// Asks about the open project and goes on with left work, which stays unsaved.
    void recover(const CRecoveryCopy::SLeft &left);
    /// Asks, and removes it.
    void forget(const CRecoveryCopy::SLeft &left);

    /// Whether what a later start would open shows the image file, absolute: the project's file,
    /// the version that the user saved last, the recovery copy. Also when one of them cannot be
    /// read.
    bool isOnDiskWith(const QString &image) const;

    bool save();
    bool saveAs();
    /// Whether the file's user has changed it since the last save of his own.
    bool canRevert() const;
    /// Asks, and goes back to what the user saved last. Cannot be undone: the undo history begins
    /// anew.
    bool revert();
    /// False when the user has cancelled, or saving has failed.
    bool close();
    /// For the end of the program from outside: asks nothing.
    void closeWithoutQuestions();
    /// Writes the project's file, or else the recovery copy, without asking anything.
    EAutosave autosave();
    /// Keeps unsaved changes in the recovery copy alone, which the next start offers, for an end
    /// from outside when nothing is saved automatically.
    void keepUnsaved();

Q_SIGNALS:
    /// A project is there; show it, start the emulator for it.
    void projectOpened(CProjectModel *project);
    /// The project, which has its path and title now, is ready for work.
    void projectLoaded();
    /// Still there, for the last time.
    void projectAboutToClose(CProjectModel *project);
    void projectClosed();
    void titleChanged(const QString &title);
    void saved(const QString &path, CProjectFile::EWrite kind);

private:
    enum class EEnd {
        Closed,
        BrokenOff, ///< nobody was asked: what is not saved must be offered again
    };

    template<typename Question, typename... Values>
    auto ask(Question question, const Values &...values)
    {
        const QScopedValueRollback<bool> asking(m_isAsking, true);
        return (m_user->*question)(values...);
    }
    void tellIfUnprotected(CProjectLock::EResult result, const QString &path) const;
    std::unique_ptr<CProjectLock> lockFor(const QString &path, bool *given);
    bool isProject(const SProjectRead &read) const;
    bool openFile(const QString &path, SProjectRead checked);
    std::unique_ptr<CProjectModel> load(CProjectFile *file, const CProjectLock &lock,
                                        SProjectRead checked, bool *isRecovered);
    void activate(std::unique_ptr<CProjectModel> project);
    void activateUnsaved(std::unique_ptr<CProjectModel> project,
                         std::unique_ptr<CRecoveryCopy> copy);
    void letGo();
    void discard(EEnd end);
    bool moveTo(const QString &path);
    bool isOusted() const;
    QString write(CProjectFile *file, CProjectFile::EWrite kind);
    void fail(const QString &reason) const;
    bool isChanged() const;
    QString writeAutomatically();
    QString keepCopy();
    void dropCopy();

    IUserQuestions *const m_user;
    CRecentProjects *const m_recent;
    std::unique_ptr<CProjectModel> m_project;
    std::unique_ptr<CProjectFile> m_file; ///< null when the project was never saved
    std::unique_ptr<CProjectLock> m_lock;
    std::unique_ptr<CRecoveryCopy> m_copy; ///< null until there is something to keep in it
    std::vector<std::unique_ptr<CRecoveryCopy>> m_pastCopies; ///< what the clipboard may refer to
    bool m_isAsking = false;
    bool m_isCopyDue = false; ///< the project has changed since it was written
    QString m_recoveryRoot;
    QString m_workingDirectory;
    QString m_programVersion;
    QString m_autosaveComplaint; ///< told already
};
