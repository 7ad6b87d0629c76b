#include "CRecentProjects.h"

#include <QFile>

CRecentProjects::CRecentProjects(QObject *parent) : QObject(parent)
{
}

QStringList CRecentProjects::paths() const
{
    QStringList paths;
    for (const QFileInfo &each : m_entries)
        paths.append(each.absoluteFilePath());
    return paths;
}

void CRecentProjects::setPaths(const QStringList &paths)
{
    m_entries.clear();
    for (const QString &path : paths) {
        if (!path.isEmpty() && QFile::exists(path))
            m_entries.append(QFileInfo(path));
    }
    Q_EMIT changed();
}

void CRecentProjects::add(const QFileInfo &file)
{
    const int index = m_entries.indexOf(file);
    if (index >= 0)
        m_entries.move(index, 0);
    else
        m_entries.append(file);
    while (m_entries.size() > MaxEntries)
        m_entries.removeFirst();
    Q_EMIT changed();
}
