#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

class CItemModel;

/// The lines of a project document at which the elements of its items begin.
class CItemLines
{
public:
    explicit CItemLines(const QByteArray &document);

    /// From 1 on; 1 too for null, which stands for the project, and for what is not there.
    int of(const CItemModel *screen, const CItemModel *item) const;

private:
    /// By the row of the page, kind and id or name.
    QHash<QString, int> m_lines;
};
