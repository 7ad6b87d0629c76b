#pragma once

#include <QStyledItemDelegate>

class CFindPictures;

/// Paints a result: a picture of the item, its name and page, and below what was found of it or,
/// when it is to be replaced, what it is and what it will be.
class CFindDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    CFindDelegate(CFindPictures *pictures, QObject *parent);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

    /// Whether the last press of a button was on a tick, and so for nothing else of its row.
    bool wasOnTick() const { return m_wasOnTick; }

protected:
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;

private:
    static QRect tickRect(const QStyleOptionViewItem &option);
    void paintTick(QPainter *painter, const QStyleOptionViewItem &option,
                   const QModelIndex &index) const;
    void paintPicture(QPainter *painter, const QRect &place, const QStyleOptionViewItem &option,
                      const QModelIndex &index) const;

    CFindPictures *const m_pictures; ///< not owned
    bool m_wasOnTick = false;
};
