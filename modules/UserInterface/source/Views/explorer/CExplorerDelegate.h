#pragma once

#include <QHash>
#include <QIcon>
#include <QStyledItemDelegate>

class CItemModel;

/// Draws a row of the explorer: the icon of the item's kind, its name, and at its end the marks of
/// what is hidden or locked (see ExplorerMarks), of other items only under the pointer. An edited
/// name becomes one undo step.
class CExplorerDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CExplorerDelegate(QObject *parent = nullptr);

    /// Its name stands out. Only compared; null for none.
    void setShownScreen(const CItemModel *screen) { m_shownScreen = screen; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    QIcon iconOf(const CItemModel &item) const;
    QIcon kindIcon(const QString &type) const;
    void paintMarks(QPainter *painter, const QStyleOptionViewItem &option,
                    const CItemModel &item) const;

    const QIcon m_screenIcon;
    const QIcon m_groupIcon;
    const QIcon m_widgetIcon; ///< of kinds that are not in the palette
    mutable QHash<QString, QIcon> m_kindIcons;
    const QIcon m_lockIcon;
    const QIcon m_unlockedIcon;
    const QIcon m_hiddenIcon;
    const QIcon m_seenIcon;
    const CItemModel *m_shownScreen = nullptr;
};
