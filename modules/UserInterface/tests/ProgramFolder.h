#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qUtf8Printable(path));
}

/// A programs' folder of a test's own, with the data files of the build, as the current directory.
class CProgramFolder
{
public:
    CProgramFolder() : m_before(QDir::currentPath())
    {
        const QDir bin(qEnvironmentVariable("KIV_BIN_DIR"));
        for (const char *name : {"widget-library.xml", "kiv_render.lua", "languages", "html"})
            QFile::link(bin.filePath(QLatin1String(name)), path(name));
        QDir::setCurrent(m_folder.path());
        qputenv("XDG_DATA_HOME", path("data").toUtf8());
        qputenv("XDG_CACHE_HOME", path("cache").toUtf8());
    }
    ~CProgramFolder() { QDir::setCurrent(m_before); }

    QString path(const char *name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    QString path() const { return m_folder.path(); }
    /// An empty file of that name.
    QString file(const char *name) const
    {
        QFile made(path(name));
        made.open(QIODevice::WriteOnly);
        return path(name);
    }

private:
    QTemporaryDir m_folder;
    QString m_before;
};
