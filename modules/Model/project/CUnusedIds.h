#pragma once

#include "CScreenNames.h"

#include <QSet>

class CItemModel;

/// Gives out the numbers from 1 that no item of a project has as its id, in ascending order and
/// each once. The project's items are looked at when it is made.
class CUnusedIds
{
public:
    explicit CUnusedIds(const CProjectModel &project);

    quint32 take();
    /// For the item and all below it that have an id.
    void giveTo(CItemModel &item);

private:
    QSet<quint32> m_taken;
    quint32 m_next = 1;
};

/// What several screens take that come into a project one after the other, while nothing else
/// changes it: the project is looked through once, not for each.
struct SUnused
{
    explicit SUnused(const CProjectModel &project) : ids(project), names(project) {}

    CUnusedIds ids;
    CScreenNames names;
};
