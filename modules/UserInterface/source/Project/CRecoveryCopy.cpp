#include "CRecoveryCopy.h"

#include "CFileWriter.h"
#include "CFolderGuard.h"
#include "CProjectLock.h"
#include "RegularFile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>
#include <QXmlStreamReader>

#include <algorithm>

namespace {
const QString FileName = QStringLiteral("project.nyx");

QString nameOfProject(const QString &path)
{
    QFile file(path);
    if (!openRegularFile(file, path))
        return {};
    QXmlStreamReader xml(&file);
    xml.readNextStartElement();
    return xml.attributes().value(QLatin1String("project_name")).toString();
}

std::unique_ptr<CProjectLock> lockOf(const QString &file)
{
    auto lock = std::make_unique<CProjectLock>(file);
    return lock->tryLock() == CProjectLock::EResult::Taken ? std::move(lock) : nullptr;
}
} // namespace

CRecoveryCopy::CRecoveryCopy(const QString &folder, std::unique_ptr<CProjectLock> lock)
    : m_folder(folder), m_lock(std::move(lock))
{
}

/// A folder that holds images only is of no use to anybody.
CRecoveryCopy::~CRecoveryCopy()
{
    if (m_lock && !isWritten())
        remove();
}

QVector<CRecoveryCopy::SLeft> CRecoveryCopy::left(const QString &root)
{
    QVector<SLeft> found;
    if (root.isEmpty() || !QFileInfo(root).isDir())
        return found;
    const CFolderGuard guard(root); // a folder that is just being made has no lock yet
    const auto folders =
        QDir(root).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QFileInfo &each : folders) {
        if (QUuid(each.fileName()).isNull())
            continue; // not made by this class
        auto copy = adopt(each.absoluteFilePath() + QLatin1Char('/') + FileName);
        if (copy && copy->isWritten())
            found.append({copy->file(), nameOfProject(copy->file()),
                          QFileInfo(copy->file()).lastModified()});
    }
    std::sort(found.begin(), found.end(),
              [](const SLeft &a, const SLeft &b) { return a.written > b.written; });
    return found;
}

std::unique_ptr<CRecoveryCopy> CRecoveryCopy::make(const QString &root, QString *error)
{
    const QString folder =
        root + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (!root.isEmpty() && QDir().mkpath(root)) {
        const CFolderGuard guard(root);
        auto lock = QDir().mkpath(folder) ? lockOf(folder + QLatin1Char('/') + FileName) : nullptr;
        if (lock)
            return std::unique_ptr<CRecoveryCopy>(new CRecoveryCopy(folder, std::move(lock)));
    }
    if (error)
        *error = QCoreApplication::translate("CRecoveryCopy", "The folder %1 could not be made")
                     .arg(QDir::toNativeSeparators(folder));
    return nullptr;
}

std::unique_ptr<CRecoveryCopy> CRecoveryCopy::adopt(const QString &file)
{
    const QFileInfo info(file);
    auto lock = info.absoluteDir().exists() ? lockOf(info.absoluteFilePath()) : nullptr;
    if (!lock)
        return nullptr;
    return std::unique_ptr<CRecoveryCopy>(new CRecoveryCopy(info.absolutePath(), std::move(lock)));
}

QString CRecoveryCopy::file() const
{
    return m_folder + QLatin1Char('/') + FileName;
}

bool CRecoveryCopy::isWritten() const
{
    return QFileInfo(file()).isFile();
}

QString CRecoveryCopy::write(const QByteArray &project)
{
    return CFileWriter::write(file(), project);
}

/// The project first: what a crash in between leaves is no work that could be offered.
void CRecoveryCopy::remove()
{
    if (!m_lock)
        return;
    QFile::remove(file());
    m_lock.reset();
    QDir(m_folder).removeRecursively();
}

bool CRecoveryCopy::keepImagesOnly()
{
    QFile::remove(file());
    return !QDir(m_folder).isEmpty(QDir::Dirs | QDir::NoDotAndDotDot);
}
