#pragma once

#include "TestFiles.h"

#include <QDir>
#include <QTemporaryDir>

/// A program folder of its own with shell scripts in place of the image tools, and a folder for the
/// project. While it lives it is the current directory.
class CToolStubs
{
public:
    CToolStubs() : m_before(QDir::currentPath())
    {
        QDir::setCurrent(m_folder.path());
        QDir().mkpath(projectFolder());
    }
    ~CToolStubs() { QDir::setCurrent(m_before); }

    QString path(const QString &name) const { return m_folder.filePath(name); }
    QString projectFolder() const { return path(QStringLiteral("project")); }

    /// `tool` such as "bmpconv/bmpconv.exe"; the commands run in the folder that the converter
    /// sets.
    void addTool(const QString &tool, const QByteArray &commands) const
    {
        const QString file = toolPath(tool);
        QDir().mkpath(QFileInfo(file).path());
        TestFiles::write(file, "#!/bin/sh\n" + commands);
        QFile::setPermissions(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QString toolPath(const QString &tool) const
    {
        return path(QStringLiteral("Image conversion tool for KIV/") + tool);
    }

private:
    QString m_before;
    QTemporaryDir m_folder;
};
