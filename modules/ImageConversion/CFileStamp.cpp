#include "CFileStamp.h"

#include <QFile>
#include <sys/stat.h>
#include <tuple>

static qint64 nanoseconds(const timespec &time)
{
    return static_cast<qint64>(time.tv_sec) * 1000000000 + time.tv_nsec;
}

bool CFileStamp::SState::operator==(const SState &other) const
{
    return std::tie(isFile, device, inode, size, modified, changed) ==
           std::tie(other.isFile, other.device, other.inode, other.size, other.modified,
                    other.changed);
}

CFileStamp::CFileStamp(const QString &path) : m_path(path), m_state(current())
{
}

bool CFileStamp::isRewritten() const
{
    const SState now = current();
    return now.isFile && now.size > 0 && !(now == m_state);
}

CFileStamp::SState CFileStamp::current() const
{
    struct stat facts = {};
    if (::lstat(QFile::encodeName(m_path).constData(), &facts) != 0 || !S_ISREG(facts.st_mode))
        return {};
    return {true,
            facts.st_dev,
            facts.st_ino,
            facts.st_size,
            nanoseconds(facts.st_mtim),
            nanoseconds(facts.st_ctim)};
}
