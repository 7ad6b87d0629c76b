#pragma once

#include <QObject>
#include <QSet>

class CItemModel;
class QStandardItemModel;

/// Keeps the items that delete commands took out of a project, until the project is closed.
/// A deleted item must outlive its command, because commands on the redo side of a discarded one
/// and views in the middle of an event may still point to it; so the project, not the command, is
/// its last owner.
/// Lives as a child of the project's model.
class CRemovedItems final : public QObject
{
    Q_OBJECT

public:
    ~CRemovedItems() override;

    /// The keeper of a project, made at the first call.
    static CRemovedItems &of(QStandardItemModel *project);

    void keep(CItemModel *item);    ///< takes ownership
    void release(CItemModel *item); ///< gives it back to the caller

private:
    explicit CRemovedItems(QObject *project);

    QSet<CItemModel *> m_items;
};
