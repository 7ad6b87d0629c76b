#pragma once

#include <QString>

/// What a file was at one moment, to tell later whether it has been written since. Does not compare
/// its time with a clock: clocks of file servers differ, and file times are coarse.
class CFileStamp
{
public:
    explicit CFileStamp(const QString &path);

    const QString &path() const { return m_path; }
    /// There is a regular file with something in it now, and it is not the one of that moment.
    bool isRewritten() const;

private:
    struct SState
    {
        bool isFile = false;
        quint64 device = 0;
        quint64 inode = 0;
        qint64 size = 0;
        qint64 modified = 0; ///< nanoseconds
        qint64 changed = 0;  ///< nanoseconds; also moves when a tool sets the time of its output

        bool operator==(const SState &other) const;
    };
    SState current() const;

    QString m_path;
    SState m_state;
};
