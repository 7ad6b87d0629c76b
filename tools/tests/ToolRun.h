#pragma once

#include "TestFiles.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>

/// Runs the real tools in a folder of their own.
class CToolFolder
{
public:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QProcess::ExitStatus run(const QString &tool, const QStringList &arguments)
    {
        QProcess process;
        process.setWorkingDirectory(m_folder.path());
        process.start(qEnvironmentVariable("KIV_BIN_DIR") +
                          QStringLiteral("/Image conversion tool for KIV/") + tool,
                      arguments);
        process.waitForFinished(60000);
        exitCode = process.exitCode();
        output = QString::fromUtf8(process.readAllStandardOutput());
        error = QString::fromUtf8(process.readAllStandardError());
        return process.exitStatus();
    }
    bool succeeds(const QString &tool, const QStringList &arguments)
    {
        return run(tool, arguments) == QProcess::NormalExit && exitCode == 0 && error.isEmpty();
    }
    QByteArray read(const QString &name) const { return TestFiles::read(path(name)); }
    void write(const QString &name, const QByteArray &bytes) const
    {
        TestFiles::write(path(name), bytes);
    }
    QStringList files() const
    {
        return QDir(m_folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    int exitCode = -1;
    QString output;
    QString error;

private:
    QTemporaryDir m_folder;
};
