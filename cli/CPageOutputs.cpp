#include "CPageOutputs.h"

#include "CExportOptions.h"
#include "CFileWriter.h"
#include "CMessages.h"
#include "CProjectExporter.h"
#include "CProjectModel.h"
#include "CScreenshotWriter.h"
#include "FileNames.h"
#include "StopSignals.h"
#include "StreamFile.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

CPageOutputs::CPageOutputs(const CExportOptions &options, CMessages &messages,
                           const CProjectModel &project, const QStringList &names, int threads)
    : m_options(options),
      m_messages(messages),
      m_projectFile(options.project),
      m_pictures(threads),
      m_memories(1)
{
    if (!options.pngFolder.isEmpty() && makeFolder(options.pngFolder, options.pngFolder))
        m_pictureNames = FileNames::unusedForAll(names, QStringLiteral(".png"));
    if (!options.ramGFolder.isEmpty() && makeFolder(options.ramGFolder, options.ramGFolder))
        m_memoryNames = FileNames::unusedForAll(names, QStringLiteral(".ramg"));
    if (!options.packageFolder.isEmpty())
        m_package.emplace(packageSource(project));
}

void CPageOutputs::add(SScreenExport &&screen, int index)
{
    ++m_count;
    if (!m_options.dlFile.isEmpty())
        m_text += CProjectExporter::textForm(screen.name, screen.text);
    if (!m_options.binFile.isEmpty())
        m_bytes += screen.bytes;
    if (!m_pictureNames.isEmpty())
        addPicture(screen, index);
    if (!m_memoryNames.isEmpty())
        m_memories.add(QDir(m_options.ramGFolder).filePath(m_memoryNames[index]),
                       QStringLiteral("RAM_G"), [bytes = screen.memory.bytes] { return bytes; });
    if (m_package)
        m_package->add(screen);
}

void CPageOutputs::addPicture(SScreenExport &screen, int index)
{
    QImage frame = std::exchange(screen.frame, {}); // whoever holds it alone needs no copy
    const QString size = QStringLiteral("%1 x %2 pixels").arg(frame.width()).arg(frame.height());
    if (frame.isNull())
        m_messages.fail(QStringLiteral("%1: screen \"%2\": A screen without width or height has "
                                       "no picture.")
                            .arg(m_projectFile, screen.name));
    else
        m_pictures.add(QDir(m_options.pngFolder).filePath(m_pictureNames[index]), size,
                       [frame = std::move(frame)]() mutable {
                           return CScreenshotWriter::toPng(std::move(frame));
                       });
}

void CPageOutputs::finish(bool isComplete)
{
    const QString screens =
        m_count == 1 ? QStringLiteral("1 screen") : QStringLiteral("%1 screens").arg(m_count);
    if (!m_options.dlFile.isEmpty())
        writeFile(m_options.dlFile, m_text, screens);
    if (!m_options.binFile.isEmpty())
        writeFile(m_options.binFile, m_bytes, screens);
    for (const CFileQueue::SFile &file : m_pictures.finish())
        tell(file);
    if (m_package)
        writePackage(isComplete);
    for (const CFileQueue::SFile &file : m_memories.finish())
        tell(file);
}

void CPageOutputs::writePackage(bool isComplete)
{
    const QString &folder = m_options.packageFolder;
    if (!isComplete) {
        m_messages.warn(QStringLiteral("%1: The package is not written.").arg(folder));
        return; // why was told with the screen
    }
    if (!m_package->finish()) {
        for (const QString &problem : m_package->problems())
            m_messages.fail(QStringLiteral("%1: %2").arg(m_projectFile, problem));
        return;
    }
    if (StopSignals::exitCode() != 0)
        return;
    const QString problem = writePackageFiles(folder, m_package->package());
    if (!problem.isEmpty())
        m_messages.fail(problem);
    else
        m_messages.tell(QStringLiteral("%1: package, %2 screens, %3 assets, %4 bytes")
                            .arg(folder)
                            .arg(m_package->content().screens.size())
                            .arg(m_package->content().assets.size())
                            .arg(m_package->package().bin.size()));
}

void CPageOutputs::stop()
{
    constexpr std::chrono::milliseconds Longest{StopSignals::LongestEnd / 2};
    m_pictures.stop(Longest);
    m_memories.stop(Longest);
}

void CPageOutputs::writeFile(const QString &path, const QByteArray &bytes, const QString &kind)
{
    if (StopSignals::exitCode() != 0)
        return;
    if (StreamFile::isOne(path))
        tell({path, kind, StreamFile::write(path, bytes), bytes.size()});
    else if (makeFolder(QFileInfo(path).path(), path))
        tell({path, kind, CFileWriter::write(path, bytes), bytes.size()});
}

void CPageOutputs::tell(const CFileQueue::SFile &file)
{
    if (!file.problem.isEmpty())
        m_messages.fail(file.problem);
    else
        m_messages.tell(
            QStringLiteral("%1: %2, %3 bytes").arg(file.path, file.kind).arg(file.bytes));
}

bool CPageOutputs::makeFolder(const QString &folder, const QString &output)
{
    if (QDir().mkpath(folder))
        return true;
    m_messages.fail(QStringLiteral("%1: The folder could not be made.").arg(output));
    return false;
}
