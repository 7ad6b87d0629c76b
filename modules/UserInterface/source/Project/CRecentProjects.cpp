#include "CRecentProjects.h"

#include "BackgroundWork.h"

#include <QFile>

#include <algorithm>
#include <utility>

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
        if (!path.isEmpty())
            m_entries.append(QFileInfo(path));
    }
    m_added.clear();
    m_isChecking = true;
    const int check = ++m_checks;
    BackgroundWork::run(
        this,
        [entries = this->paths()] {
            QStringList existing;
            std::copy_if(entries.begin(), entries.end(), std::back_inserter(existing),
                         [](const QString &each) { return QFile::exists(each); });
            return existing;
        },
        [this, check](const QStringList &existing) {
            if (check == m_checks)
                keep(existing);
        });
    Q_EMIT changed();
}

void CRecentProjects::keep(const QStringList &existing)
{
    m_isChecking = false;
    m_entries.clear();
    for (const QString &path : existing)
        m_entries.append(QFileInfo(path));
    for (const QFileInfo &each : std::exchange(m_added, {}))
        insert(each);
    Q_EMIT changed();
}

void CRecentProjects::add(const QFileInfo &file)
{
    if (m_isChecking)
        m_added.append(file);
    insert(file);
    Q_EMIT changed();
}

void CRecentProjects::insert(const QFileInfo &file)
{
    const int index = m_entries.indexOf(file);
    if (index >= 0)
        m_entries.move(index, 0);
    else
        m_entries.append(file);
    while (m_entries.size() > MaxEntries)
        m_entries.removeFirst();
}
