#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

#include <memory>

class CProjectLock;

/// Work that lies in no project file yet, in a folder of its own below one for the whole program.
/// Owner:  one process at a time, by the lock beside the copy.
/// Life:   goes with remove(), when the work is saved or given up. However else the process ends,
///         the copy stays and is found by left().
class CRecoveryCopy
{
public:
    /// What a process that has ended has left.
    struct SLeft
    {
        QString file;
        QString projectName;
        QDateTime written;
    };
    /// Newest first. Nothing that a running copy of the program has open.
    static QVector<SLeft> left(const QString &root);

    /// Null, and the reason, when no folder can be made there.
    static std::unique_ptr<CRecoveryCopy> make(const QString &root, QString *error);
    /// Goes on with what was left; null when it is gone, or another process has it.
    static std::unique_ptr<CRecoveryCopy> adopt(const QString &file);
    ~CRecoveryCopy();
    CRecoveryCopy(const CRecoveryCopy &) = delete;
    CRecoveryCopy &operator=(const CRecoveryCopy &) = delete;

    /// May hold images of the project too.
    const QString &folder() const { return m_folder; }
    QString file() const;
    bool isWritten() const;
    /// Empty, or why the copy is still the one of before.
    QString write(const QByteArray &project);
    void remove();
    /// Leaves the images, for as long as this object lives. False when there are none.
    bool keepImagesOnly();

private:
    CRecoveryCopy(const QString &folder, std::unique_ptr<CProjectLock> lock);

    QString m_folder;
    std::unique_ptr<CProjectLock> m_lock;
};
