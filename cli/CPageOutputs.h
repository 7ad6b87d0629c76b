#pragma once

#include "CFileQueue.h"
#include "CPackageBuilder.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

class CMessages;
class CProjectModel;
struct CExportOptions;

/// The outputs that are made of screens. These come one by one: of each one only that is kept which
/// a later file needs; its picture is written beside the drawing of the next ones.
class CPageOutputs
{
public:
    /// `names`: of all screens that will come, in their order. Options and messages live longer.
    CPageOutputs(const CExportOptions &options, CMessages &messages, const CProjectModel &project,
                 const QStringList &names, int threads);

    /// `index`: of its name.
    void add(SScreenExport &&screen, int index);
    /// Writes the rest. `isComplete`: no screen was missing.
    void finish(bool isComplete);
    /// Ends at once, as far as that can be.
    void stop();

    /// A file of which nothing else is to be said; also for the caller's own.
    void writeFile(const QString &path, const QByteArray &bytes, const QString &kind);

private:
    void addPicture(SScreenExport &screen, int index);
    void writePackage(bool isComplete);
    void tell(const CFileQueue::SFile &file);
    bool makeFolder(const QString &folder, const QString &output);

    const CExportOptions &m_options;
    CMessages &m_messages;
    const QString m_projectFile;
    QStringList m_pictureNames; ///< empty: none are to be written
    QStringList m_memoryNames;
    std::optional<CPackageBuilder> m_package;
    QByteArray m_text;
    QByteArray m_bytes;
    int m_count = 0;
    CFileQueue m_pictures;
    CFileQueue m_memories;
};
