#pragma once

#include <QItemDelegate>

#include <functional>

class CPropertyLayout;
class QtProperty;
class QtTreePropertyBrowser;
class QTreeWidget;
class QTreeWidgetItem;

/// Paints the rows of the property panel as its layout has them, and opens their editors: of two
/// values in one row the one that was chosen before.
class CPropertyDelegate : public QItemDelegate
{
    Q_OBJECT

public:
    using MakeEditor = std::function<QWidget *(QtProperty *, QWidget *)>;

    /// Of the browser's tree, in place of the delegate that it has. Neither is owned.
    CPropertyDelegate(QtTreePropertyBrowser *browser, const CPropertyLayout *layout,
                      const MakeEditor &makeEditor);

    /// Which value of a row is edited next: 0, or 1 for the second of a pair.
    void setPart(int part) { m_part = part; }
    int part() const { return m_part; }
    int partAt(const QTreeWidgetItem *item, const QPoint &position) const;
    /// The place of a value in its row, without what stands before it.
    QRect valueRect(const QTreeWidgetItem *item, int part) const;
    /// The part whose letter, before one of two values, is there; -1 elsewhere.
    int letterAt(const QPoint &position) const;
    /// What the part of the current row shows; null when it has no property.
    QtProperty *currentProperty() const;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    // The editors' factory keeps values and editors in step.
    void setEditorData(QWidget *, const QModelIndex &) const override {}
    void setModelData(QWidget *, QAbstractItemModel *, const QModelIndex &) const override {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const QTreeWidgetItem *itemAt(const QModelIndex &index) const;
    QRect partRect(const QTreeWidgetItem *item, const QRect &cell, int part) const;
    void paintHeading(QPainter *painter, const QStyleOptionViewItem &option,
                      const QTreeWidgetItem *item) const;
    void paintPair(QPainter *painter, const QStyleOptionViewItem &option,
                   const QTreeWidgetItem *item, const QModelIndex &index) const;

    QtTreePropertyBrowser *const m_browser;
    QTreeWidget *const m_tree;
    const CPropertyLayout *const m_layout;
    const MakeEditor m_makeEditor;
    int m_part = 0;
};
