#pragma once

#include "CFindSession.h"

#include <QAbstractListModel>
#include <QPair>
#include <QSet>

/// The results of a search as rows of a list, with what is ticked of them. What it shows it has as
/// texts, so that a row can be painted also when its item has just left the project.
class CFindResults final : public QAbstractListModel
{
    Q_OBJECT

public:
    enum ERole {
        NameRole = Qt::UserRole,
        PageRole,
        KindRole,
        KeyRole,     ///< of the property; empty for the kind
        CaptionRole, ///< the same for users
        TextRole,    ///< of what was found
        StartRole,   ///< of what was found in it; none when negative
        LengthRole,
        AfterRole,   ///< what it will be; null when nothing is to be replaced
        RefusalRole, ///< why it will not be
        ItemRole     ///< CItemModel *; null when it has gone
    };

    explicit CFindResults(CFindSession *session, QObject *parent = nullptr);

    /// Shows what the session has found. Ticks that were taken off stay off.
    void refresh(bool isReplacing);
    bool isReplacing() const { return m_isReplacing; }

    CItemModel *itemAt(int row) const; ///< null when it has gone
    /// Where an item stands; -1 when it does not.
    int rowOf(const CItemModel *item, const QString &key) const;
    QVector<SReplacement> tickedReplacements() const;
    int tickedCount() const;
    int tickableCount() const;
    void tickAll(bool isTicked);

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    void ticksChanged();

private:
    struct SRow
    {
        CFindSession::SFound found;
        QString name;
        QString page;
        QString kind;
    };
    using Place = QPair<const CItemModel *, QString>;
    static Place placeOf(const SRow &row) { return {row.found.hit.item, row.found.hit.facet.key}; }
    static QString pageOf(const CItemModel &item);
    QString toolTip(const SRow &row) const;
    bool isTickable(const SRow &row) const;
    bool isTicked(const SRow &row) const;

    CFindSession *const m_session;
    QVector<SRow> m_rows;
    QSet<Place> m_unticked; ///< only compared
    bool m_isReplacing = false;
};
