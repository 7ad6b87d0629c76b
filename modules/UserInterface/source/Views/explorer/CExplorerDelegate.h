#pragma once

#include <QHash>
#include <QIcon>
#include <QStyledItemDelegate>

class CItemModel;

/// Draws a row of the explorer: the icon of the item's kind, its name, and a lock behind the name
/// of a locked item. An edited name becomes one undo step.
class CExplorerDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CExplorerDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    QIcon iconOf(const CItemModel &item) const;
    QIcon kindIcon(const QString &type) const;

    const QIcon m_screenIcon;
    const QIcon m_groupIcon;
    const QIcon m_widgetIcon; ///< of kinds that are not in the palette
    mutable QHash<QString, QIcon> m_kindIcons;
    const QIcon m_lockIcon;
};
