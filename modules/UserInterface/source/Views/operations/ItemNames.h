#pragma once

#include <QHash>
#include <QPair>
#include <QSet>
#include <QString>

class CItemModel;
class CProjectModel;

/// Names count up where they would stand twice: "Button", "Button 2", "Button 3", … Those of a
/// screen's items are told apart on that screen, those of screens in the project, whose exports
/// know them by nothing else.
namespace ItemNames {
/// Names that are taken.
class Names
{
public:
    bool contains(const QString &name) const { return m_names.contains(name); }
    void insert(const QString &name) { m_names.insert(name); }
    /// The first of "stem number", "stem number+1", … that is free. Asked again and again, it does
    /// not count again from the beginning.
    QString firstFree(const QString &stem, int number) const;

private:
    QSet<QString> m_names;
    mutable QHash<QString, QPair<int, int>> m_runs; ///< of a stem: numbers known to be taken, end
};

Names below(const CItemModel &parent); ///< of all items below, members of groups too
Names ofScreens(const CProjectModel &project, const CItemModel *except = nullptr);
/// The name, or the next number of it that is not taken. What has no name gets none.
QString unused(const QString &name, const Names &taken);
/// What an item is called when a user renames it so: of a screen, a name that no other one has.
QString wanted(const CItemModel &item, const QString &name);
/// Gives an item that is in no project yet and its members names that are not taken, and adds these
/// to the taken ones.
void makeUnique(CItemModel &item, Names &taken);
} // namespace ItemNames
