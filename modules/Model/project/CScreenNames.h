#pragma once

#include <QSet>
#include <QString>

class CProjectModel;

/// Gives out the names "Page 1", "Page 2", ... that no screen of a project has, in ascending order
/// and each once. The project's screens are looked at when it is made.
class CScreenNames
{
public:
    explicit CScreenNames(const CProjectModel &project);

    QString take();
    void exclude(const QString &name) { m_taken.insert(name); }

private:
    QSet<QString> m_taken;
    int m_next = 1;
};
