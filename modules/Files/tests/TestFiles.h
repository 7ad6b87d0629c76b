#pragma once

#include <QDirIterator>
#include <QFile>
#include <QMap>

/// Files as tests need them: written or the test ends, read or empty.
namespace TestFiles {

inline QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
}

/// The content of each file below a folder, hidden ones too, by the path from there.
inline QMap<QString, QByteArray> below(const QString &folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator each(folder, QDir::Files | QDir::Hidden | QDir::System,
                      QDirIterator::Subdirectories);
    while (each.hasNext()) {
        const QString path = each.next();
        files.insert(path.mid(folder.size() + 1), read(path));
    }
    return files;
}

} // namespace TestFiles
