#pragma once

class QString;

/// Holds a folder for a moment against other copies of the program, so that what is looked at and
/// then changed there is one step. The system's own lock on the folder: it leaves no file behind
/// and ends with the process, however that ends.
/// Waits at most MaxWait for another copy. Where a file system has no such locks, nothing is held
/// and work goes on.
class CFolderGuard
{
public:
    static constexpr int MaxWait = 2000; ///< ms

    explicit CFolderGuard(const QString &folder);
    ~CFolderGuard();
    CFolderGuard(const CFolderGuard &) = delete;
    CFolderGuard &operator=(const CFolderGuard &) = delete;

private:
    int m_folder = -1; ///< descriptor of the open folder
};
