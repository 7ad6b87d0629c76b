#pragma once

#include <QByteArray>
#include <QList>
#include <QSemaphore>
#include <QString>
#include <QThreadPool>

#include <chrono>
#include <functional>
#include <memory>

/// Makes and writes files on threads of its own, beside whatever its owner does, and keeps few of
/// them in memory: who adds one waits while as many are under way as may be.
class CFileQueue
{
public:
    using Content = std::function<QByteArray()>;
    struct SFile
    {
        QString path;
        QString kind;    ///< for the line that tells of it
        QString problem; ///< why it could not be written; empty when it was
        qint64 bytes = 0;
    };

    explicit CFileQueue(int threads);
    ~CFileQueue(); ///< waits for all that were begun

    /// `content` is called on another thread.
    void add(const QString &path, const QString &kind, Content content);
    /// Waits for all, and tells what became of them, in the order in which they were added.
    QList<SFile> finish();
    /// Drops those that were not begun and waits for the others. False when they are not done then.
    bool stop(std::chrono::milliseconds longest);

private:
    QThreadPool m_threads;
    QSemaphore m_room;
    QList<std::shared_ptr<SFile>> m_files;
};
