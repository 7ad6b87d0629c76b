#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QStringList>

class CItemModel;
class CProjectModel;
class QModelIndex;
class QTimer;
class QTreeView;

/// Shows only the rows of the explorer that have all words of a text in their name or kind, with
/// what they are in and what is in them. Follows the project while it filters; what was collapsed
/// before is so again afterwards.
class CExplorerFilter final : public QObject
{
    Q_OBJECT

public:
    explicit CExplorerFilter(QTreeView *tree);

    void setProject(CProjectModel *project);
    void setText(const QString &text);
    bool isActive() const { return !m_words.isEmpty(); }
    bool isNothingFound() const { return isActive() && m_found == 0; }
    /// The uppermost row that fits by itself; invalid for none.
    QModelIndex firstFound() const;

private:
    void apply();
    void applySoon();
    bool fits(const CItemModel &item) const;
    bool show(CItemModel &item, bool isInFound);

    QTreeView *const m_tree;
    QTimer *const m_timer;
    QPointer<CProjectModel> m_project;
    QStringList m_words;
    QSet<const CItemModel *> m_collapsed; ///< before; only compared
    int m_found = 0;
};
