// What CProjectSession does so that no work is lost: automatic saves, recovery copies, copies of
// projects that stay as they are, and the way back to what was saved last.
#include "CImageMove.h"
#include "CProjectModel.h"
#include "CProjectSession.h"
#include "CRecentProjects.h"
#include "CXmlGuard.h"
#include "ConvertedImages.h"
#include "PropertyKey.h"
#include "SProjectRead.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUndoStack>

namespace {
bool mayShow(const QString &image, const std::optional<QByteArray> &document, const QString &folder)
{
    CProjectModel project;
    if (!document || !project.loadFromBytes(*document, nullptr))
        return true;
    project.setWorkingDirectory(folder);
    return ConvertedImages::isShown(project, image);
}
} // namespace

CProjectSession::EAutosave CProjectSession::autosave()
{
    if (!m_project)
        return EAutosave::NoProject;
    const bool isCopyOutdated = m_copy && m_copy->isWritten() && m_isCopyDue;
    if (!isChanged() && (m_file || !isCopyOutdated))
        return EAutosave::Unchanged;
    const QString reason =
        m_file ? writeAutomatically()
               : tr("The project was never saved, so it has no file that could be saved to "
                    "automatically.");
    if (reason.isEmpty()) {
        m_recent->add(QFileInfo(m_file->path()));
        return EAutosave::Saved;
    }
    const QString noCopy = keepCopy();
    const QString kept = noCopy.isEmpty()
                             ? tr("Until the project is saved, a recovery copy is kept, which is "
                                  "offered at the next start should the program end unexpectedly.")
                             : tr("A recovery copy cannot be kept either: %1").arg(noCopy);
    if (reason != m_autosaveComplaint)
        m_user->showAutosaveError(tr("An error occurred during saving the project"),
                                  reason + QLatin1Char('\n') + kept);
    m_autosaveComplaint = reason;
    return EAutosave::Failed;
}

/// Empty, or the reason.
QString CProjectSession::writeAutomatically()
{
    const QString path = QDir::toNativeSeparators(m_file->path());
    if (isOusted())
        return tr("%1 is not saved automatically: another copy of the program has taken it over. "
                  "Use Save As.")
            .arg(path);
    if (m_file->isChangedByOthers())
        return tr("%1 is not saved automatically: it was changed by another program. Save it to "
                  "decide which version stays.")
            .arg(path);
    return write(m_file.get(), CProjectFile::EWrite::Automatic);
}

/// What was recovered counts as unsaved, but holds no work of this session.
bool CProjectSession::isChanged() const
{
    return isDirty() && m_project->undoStack()->count() > 0;
}

void CProjectSession::keepUnsaved()
{
    const QString reason = isChanged() ? keepCopy() : QString();
    if (!reason.isEmpty())
        qWarning("A recovery copy cannot be kept: %s", qUtf8Printable(reason));
}

/// Empty when the copy holds the project as it is, otherwise the reason.
QString CProjectSession::keepCopy()
{
    QString reason;
    if (!m_copy)
        m_copy = CRecoveryCopy::make(m_recoveryRoot, &reason);
    if (m_copy && (m_isCopyDue || !m_copy->isWritten())) {
        const QByteArray bytes = m_project->saveToBytes(&reason, m_copy->file());
        if (reason.isEmpty())
            reason = m_copy->write(bytes);
        m_isCopyDue = !reason.isEmpty();
    }
    return reason;
}

/// The folder of a project that lies in it goes only when the project has got another one. Its
/// images stay until the program ends: what was copied from it can still be pasted.
void CProjectSession::dropCopy()
{
    if (m_copy && m_copy->keepImagesOnly())
        m_pastCopies.push_back(std::move(m_copy));
    m_copy.reset();
}

/// Shows a project that lies in no file, in the folder that its text names, or in its copy's own.
void CProjectSession::activateUnsaved(std::unique_ptr<CProjectModel> project,
                                      std::unique_ptr<CRecoveryCopy> copy)
{
    project->setWorkingDirectory(
        QDir::cleanPath(QDir(copy->folder()).filePath(project->workingDirectory())));
    // Nobody looks for a file of his own in the copy's folder, or beside an example.
    const bool hasFolder = project->workingDirectory() != copy->folder();
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    m_workingDirectory = hasFolder                      ? project->workingDirectory()
                         : QFileInfo(documents).isDir() ? documents
                                                        : QDir::homePath();
    m_copy = std::move(copy);
    activate(std::move(project));
    if (m_copy->isWritten())
        m_project->undoStack()->resetClean();
    Q_EMIT titleChanged(title());
    Q_EMIT projectLoaded();
}

void CProjectSession::openCopy(const QString &path)
{
    if (!validate(QFile(path)) || !close())
        return;
    QString reason;
    auto copy = CRecoveryCopy::make(m_recoveryRoot, &reason);
    const auto bytes = copy ? CXmlGuard::readFile(path, &reason) : std::nullopt;
    auto project = bytes ? SProjectRead::projectIn(*bytes, path, &reason) : nullptr;
    if (project) {
        project->setWorkingDirectory(QFileInfo(path).absolutePath());
        CImageMove images(project.get(), copy->folder(),
                          project->propertyText(PropertyKey::ProjectName));
        reason = images.copy();
        images.apply();
    }
    if (!reason.isEmpty()) {
        m_user->showError(tr("Could not open specified project file."), reason);
        return;
    }
    activateUnsaved(std::move(project), std::move(copy));
}

void CProjectSession::recover(const CRecoveryCopy::SLeft &left)
{
    if (!close())
        return;
    QString reason = tr("The recovery copy is in use, or no longer there.");
    auto copy = CRecoveryCopy::adopt(left.file);
    const auto bytes = copy ? CXmlGuard::readFile(left.file, &reason) : std::nullopt;
    auto project = bytes ? SProjectRead::projectIn(*bytes, left.file, &reason) : nullptr;
    if (!project) {
        m_user->showError(tr("Could not open specified project file."), reason);
        return;
    }
    activateUnsaved(std::move(project), std::move(copy));
}

void CProjectSession::forget(const CRecoveryCopy::SLeft &left)
{
    if (!ask(&IUserQuestions::forgetLeftWork, left.projectName))
        return;
    if (auto copy = CRecoveryCopy::adopt(left.file))
        copy->remove();
}

bool CProjectSession::isOnDiskWith(const QString &image) const
{
    const bool isSaved = m_file && QFileInfo::exists(m_file->path());
    const QString folder = isSaved ? QFileInfo(m_file->path()).absolutePath() : QString();
    if (isSaved && mayShow(image, CXmlGuard::readFile(m_file->path()), folder))
        return true;
    const auto saved = isSaved ? m_file->savedVersion() : std::nullopt;
    if (saved && mayShow(image, saved, folder))
        return true;
    // It lies elsewhere, but is the same project in the same folder.
    return m_copy && m_copy->isWritten() &&
           mayShow(image, CXmlGuard::readFile(m_copy->file()), m_project->workingDirectory());
}

bool CProjectSession::canRevert() const
{
    return m_file && (isDirty() || m_file->savedVersion());
}

bool CProjectSession::revert()
{
    if (m_isAsking || !canRevert() || !ask(&IUserQuestions::revert, m_file->path()))
        return false;
    QString reason;
    const auto saved = m_file->savedVersion();
    const auto bytes = saved ? saved : CXmlGuard::readFile(m_file->path(), &reason);
    auto project = bytes ? SProjectRead::projectIn(*bytes, m_file->path(), &reason) : nullptr;
    if (!project) {
        m_user->showError(tr("Could not open specified project file."), reason);
        return false;
    }
    if (saved && isOusted())
        return ask(&IUserQuestions::saveElsewhere, m_file->path()) && saveAs();
    if (saved)
        reason = m_file->write(*saved, CProjectFile::EWrite::ByUser);
    else
        m_file->read(&reason);
    if (!reason.isEmpty()) {
        fail(reason);
        return false;
    }
    project->setWorkingDirectory(QFileInfo(m_file->path()).absolutePath());
    dropCopy();
    letGo();
    activate(std::move(project));
    Q_EMIT titleChanged(title());
    Q_EMIT projectLoaded();
    return true;
}
