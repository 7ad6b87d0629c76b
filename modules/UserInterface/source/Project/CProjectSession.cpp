#include "CProjectSession.h"

#include "CImageMove.h"
#include "CProjectFile.h"
#include "CProjectModel.h"
#include "CRecentProjects.h"
#include "PropertyKey.h"
#include "RegularFile.h"
#include "SProjectRead.h"
#include "ShownText.h"

#include <QDir>
#include <QFileInfo>
#include <QUndoStack>

namespace {
bool isSameFile(const QString &a, const QString &b)
{
    const QFileInfo first(a);
    const QFileInfo second(b);
    if (a.isEmpty() || b.isEmpty())
        return false;
    return first.absoluteFilePath() == second.absoluteFilePath() ||
           (first.exists() && second.exists() && first == second);
}
} // namespace

CProjectSession::CProjectSession(IUserQuestions *user, CRecentProjects *recent, QObject *parent)
    : QObject(parent), m_user(user), m_recent(recent), m_workingDirectory(QDir::currentPath())
{
}

CProjectSession::~CProjectSession()
{
    m_project.reset(); // before the lock goes
}

bool CProjectSession::isDirty() const
{
    return m_project && !m_project->undoStack()->isClean();
}

QString CProjectSession::path() const
{
    return m_file ? m_file->path() : QString();
}

QString CProjectSession::title() const
{
    if (!m_project)
        return {};
    return tr("%1 for %2")
        .arg(ShownText::name(m_project->propertyText(PropertyKey::ProjectName)),
             ShownText::name(m_project->platform()));
}

void CProjectSession::setWorkingDirectory(const QString &folder)
{
    m_workingDirectory = folder;
}

bool CProjectSession::validate(const QFile &file) const
{
    return isProject(SProjectRead::of(file.fileName()));
}

/// False, and an error has been shown, when the file holds none.
bool CProjectSession::isProject(const SProjectRead &read) const
{
    if (!read.project)
        m_user->showError(read.bytes ? tr("The specified file is not a valid project file.")
                                     : tr("Could not open specified project file."),
                          read.reason);
    return read.project != nullptr;
}

bool CProjectSession::openFile(const QString &path)
{
    return !m_isAsking && openFile(path, {});
}

/// A project that is reached through a link is the file where it lies: its images stand beside it,
/// and what may take its place later is no way out of its folder.
bool CProjectSession::openFile(const QString &path, SProjectRead checked)
{
    auto file = std::make_unique<CProjectFile>(linkedFile(path));
    if (isSameFile(file->path(), this->path()))
        discard(EEnd::BrokenOff); // its lock would be in its own way
    bool given = false;
    auto lock = lockFor(file->path(), &given);
    if (!given)
        return false;
    bool isRecovered = false;
    auto project = load(file.get(), *lock, std::move(checked), &isRecovered);
    if (!project)
        return false;

    discard(EEnd::BrokenOff);
    m_lock = std::move(lock);
    m_file = std::move(file);
    activate(std::move(project));
    if (isRecovered)
        m_project->undoStack()->resetClean();
    m_workingDirectory = QFileInfo(m_file->path()).absolutePath();
    Q_EMIT titleChanged(title());
    m_recent->add(QFileInfo(m_file->path()));
    Q_EMIT projectLoaded();
    return true;
}

/// The lock as far as it can be had. `given` is false when the user does not want to go on.
std::unique_ptr<CProjectLock> CProjectSession::lockFor(const QString &path, bool *given)
{
    auto lock = std::make_unique<CProjectLock>(path);
    auto result = lock->tryLock();
    if (result == CProjectLock::EResult::HeldElsewhere) {
        *given = ask(&IUserQuestions::takeOverLock, path);
        if (!*given)
            return lock;
        result = lock->takeOver();
        if (result == CProjectLock::EResult::HeldElsewhere) {
            *given = false;
            m_user->showNotice(tr("Another copy of the program has taken %1 over in the meantime.")
                                   .arg(QDir::toNativeSeparators(path)));
            return lock;
        }
    }
    *given = true;
    tellIfUnprotected(result, path);
    return lock;
}

void CProjectSession::tellIfUnprotected(CProjectLock::EResult result, const QString &path) const
{
    if (result == CProjectLock::EResult::Unavailable)
        m_user->showNotice(tr("The folder of %1 cannot hold a lock file, so the project is not "
                              "protected against being opened twice.")
                               .arg(QDir::toNativeSeparators(path)));
    if (result == CProjectLock::EResult::NotAFile)
        m_user->showNotice(tr("%1 is not a lock file, so the project is not protected against "
                              "being opened twice.")
                               .arg(QDir::toNativeSeparators(CProjectLock::lockPath(path))));
}

/// What was read for the check is taken unless another process has written since then: only now
/// the file is locked. Null, and an error has been shown, when it cannot be opened.
std::unique_ptr<CProjectModel> CProjectSession::load(CProjectFile *file, const CProjectLock &lock,
                                                     SProjectRead checked, bool *isRecovered)
{
    if (lock.deadSession())
        file->removeOrphans(*lock.deadSession());

    QString reason;
    auto bytes = file->read(&reason);
    const auto saved = lock.isTaken() && !lock.isTakenOver() ? file->savedVersion() : std::nullopt;
    *isRecovered = bytes && saved && ask(&IUserQuestions::openSavedVersion, file->path());
    if (*isRecovered)
        bytes = saved;
    std::unique_ptr<CProjectModel> project = std::move(checked.project);
    if (!project || bytes != checked.bytes) {
        project = bytes ? SProjectRead::projectIn(*bytes, file->path(), &reason) : nullptr;
        if (!project) {
            m_user->showError(tr("Could not open specified project file."), reason);
            return nullptr;
        }
    }
    project->setWorkingDirectory(QFileInfo(file->path()).absolutePath());
    return project;
}

void CProjectSession::activate(std::unique_ptr<CProjectModel> project)
{
    m_project = std::move(project);
    m_isCopyDue = false;
    connect(m_project->undoStack(), &QUndoStack::indexChanged, this,
            [this] { m_isCopyDue = true; });
    CProjectModel::setCurrent(m_project.get());
    Q_EMIT projectOpened(m_project.get());
}

void CProjectSession::open(const QString &path)
{
    open(path, SProjectRead::of(path));
}

void CProjectSession::open(const QString &path, SProjectRead read)
{
    if (isProject(read) && close())
        openFile(path, std::move(read));
}

void CProjectSession::newProject()
{
    if (m_isAsking)
        return;
    const auto options = ask(&IUserQuestions::newProject);
    if (!options || !close())
        return;
    auto project = std::make_unique<CProjectModel>();
    project->newProject(*options);
    project->setNyxVersion(m_programVersion);
    m_workingDirectory = project->workingDirectory();
    activate(std::move(project));
    Q_EMIT titleChanged(title());
    Q_EMIT projectLoaded();
}

bool CProjectSession::isOusted() const
{
    return m_lock && m_lock->isOusted();
}

bool CProjectSession::save()
{
    if (!m_project || m_isAsking)
        return false;
    if (!m_file)
        return saveAs();
    if (isOusted())
        return ask(&IUserQuestions::saveElsewhere, m_file->path()) && saveAs();
    if (m_file->isChangedByOthers()) {
        switch (ask(&IUserQuestions::overwriteChanged, m_file->path())) {
        case IUserQuestions::EOverwrite::Overwrite:
            break;
        case IUserQuestions::EOverwrite::SaveAs:
            return saveAs();
        case IUserQuestions::EOverwrite::Cancel:
            return false;
        }
    }
    const QString reason = write(m_file.get(), CProjectFile::EWrite::ByUser);
    if (!reason.isEmpty()) {
        m_project->undoStack()->resetClean(); // whatever it was, the file is not known to hold it
        fail(reason);
        return false;
    }
    m_recent->add(QFileInfo(m_file->path()));
    return true;
}

/// Empty, and the project is clean, when the file holds it.
QString CProjectSession::write(CProjectFile *file, CProjectFile::EWrite kind)
{
    QString reason;
    const QByteArray bytes = m_project->saveToBytes(&reason, file->path());
    if (reason.isEmpty())
        reason = file->write(bytes, kind);
    if (reason.isEmpty()) {
        m_project->undoStack()->setClean();
        m_autosaveComplaint.clear();
        dropCopy();
        Q_EMIT saved(file->path(), kind);
    }
    return reason;
}

void CProjectSession::fail(const QString &reason) const
{
    m_user->showError(tr("An error occurred during saving the project"), reason);
}

bool CProjectSession::saveAs()
{
    if (!m_project || m_isAsking)
        return false;
    const QString path =
        CProjectFile::withSuffix(ask(&IUserQuestions::projectToSave, m_workingDirectory,
                                     m_project->propertyText(PropertyKey::ProjectName)));
    if (path.isEmpty())
        return false;
    if (CProjectFile::projectName(path).isEmpty()) {
        fail(tr("%1 has no name in front of its suffix.").arg(QDir::toNativeSeparators(path)));
        return false;
    }
    if (isSameFile(path, this->path()) && !isOusted())
        return moveTo(this->path());

    auto lock = std::make_unique<CProjectLock>(path);
    const CProjectLock::EResult result = lock->tryLock();
    if (result == CProjectLock::EResult::HeldElsewhere) {
        fail(tr("%1 is open in another copy of the program.").arg(QDir::toNativeSeparators(path)));
        return false;
    }
    if (!moveTo(path))
        return false;
    tellIfUnprotected(result, path);
    m_lock = std::move(lock);
    return true;
}

/// Writes the project under its new name first: only then is the old file let go.
bool CProjectSession::moveTo(const QString &path)
{
    const QFileInfo target(path);
    const QString folder = target.absolutePath();
    CImageMove images(m_project.get(), folder, CProjectFile::projectName(path));
    QString reason = images.copy();
    if (!reason.isEmpty()) {
        fail(reason);
        return false;
    }
    images.apply();
    auto file = std::make_unique<CProjectFile>(path);
    reason = write(file.get(), CProjectFile::EWrite::ByUser);
    if (!reason.isEmpty()) {
        images.takeBack();
        fail(reason);
        return false;
    }
    if (m_file && !isSameFile(m_file->path(), path) && !isOusted())
        m_file->putBackSaved();
    m_file = std::move(file);
    m_workingDirectory = folder;
    Q_EMIT titleChanged(title());
    m_recent->add(target);
    return true;
}

bool CProjectSession::close()
{
    if (m_isAsking)
        return false;
    if (!m_project)
        return true;
    if (isDirty()) {
        switch (ask(&IUserQuestions::saveBeforeClosing)) {
        case IUserQuestions::EClose::Cancel:
            return false;
        case IUserQuestions::EClose::Save:
            if (!save())
                return false;
            break;
        case IUserQuestions::EClose::Discard:
            break;
        }
    }
    discard(EEnd::Closed);
    return true;
}

void CProjectSession::closeWithoutQuestions()
{
    discard(EEnd::BrokenOff);
}

void CProjectSession::discard(EEnd end)
{
    if (!m_project)
        return;
    if (end == EEnd::Closed && m_file && !isOusted())
        m_file->dropBackup();
    if (end == EEnd::Closed || !isDirty())
        dropCopy();
    letGo();
    m_file.reset();
    m_lock.reset();
    m_copy.reset();
    Q_EMIT titleChanged(QString());
    Q_EMIT projectClosed();
}

void CProjectSession::letGo()
{
    Q_EMIT projectAboutToClose(m_project.get());
    m_project.reset();
    m_autosaveComplaint.clear();
}
