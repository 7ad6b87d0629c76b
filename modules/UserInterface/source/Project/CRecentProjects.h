#pragma once

#include <QFileInfo>
#include <QList>
#include <QObject>
#include <QStringList>

/// The project files opened or saved last, as the menu lists them.
class CRecentProjects : public QObject
{
    Q_OBJECT

public:
    static constexpr int MaxEntries = 10;

    explicit CRecentProjects(QObject *parent = nullptr);

    const QList<QFileInfo> &entries() const { return m_entries; }
    QStringList paths() const; ///< absolute

    /// Replaces the list by those of the files that exist. All are listed until they have been
    /// looked for, which is done in the background: a file may lie on a disk that does not answer.
    void setPaths(const QStringList &paths);
    /// A file that is in the list moves to the front, another one is put at the back; of more than
    /// MaxEntries the ones at the front are dropped, even the one that has just come there.
    void add(const QFileInfo &file);

Q_SIGNALS:
    void changed();

private:
    void keep(const QStringList &existing);
    void insert(const QFileInfo &file);

    QList<QFileInfo> m_entries;
    QList<QFileInfo> m_added; ///< while it was not known what exists
    bool m_isChecking = false;
    int m_checks = 0; ///< the last one counts
};
