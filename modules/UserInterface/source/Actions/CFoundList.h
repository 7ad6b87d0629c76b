#pragma once

#include <QAbstractListModel>
#include <QAction>
#include <QPointer>
#include <QStringList>
#include <QVector>

class CItemModel;

/// What a search of the editor offers: actions, and screens and items of the project, those that
/// answer best what is typed first. Before anything is typed: the actions that were used last, then
/// all actions, then the screens.
class CFoundList final : public QAbstractListModel
{
    Q_OBJECT

public:
    struct SEntry
    {
        QString name;
        QString place;            ///< the menus that lead to it, or what it is and lies on
        QPointer<QAction> action; ///< not owned; null: it is an item
        CItemModel *item = nullptr;
    };
    enum ERole {
        PlaceRole = Qt::UserRole,
        KeysRole,
        LackRole, ///< why it cannot be chosen; empty when it can
        MarkRole  ///< whether it is an action that is switched on
    };

    static constexpr int MaxRows = 200; ///< the best ones

    using QAbstractListModel::QAbstractListModel;

    /// `lastUsed`: ids of actions, the last one first.
    void setEntries(const QVector<SEntry> &entries, const QStringList &lastUsed);
    void setTyped(const QString &typed);
    const SEntry &entry(int row) const { return m_entries[m_rows[row]]; }
    bool canChoose(int row) const { return lackOf(entry(row)).isEmpty(); }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

    /// The rule itself: indices of those that match, in their order.
    static QVector<int> ranked(const QVector<SEntry> &entries, const QString &typed,
                               const QStringList &lastUsed);

private:
    static QString lackOf(const SEntry &entry);

    QVector<SEntry> m_entries;
    QStringList m_lastUsed;
    QVector<int> m_rows;
};
