#pragma once

#include "SProjectChanges.h"

#include <QPersistentModelIndex>
#include <QWidget>

class CComparedPictures;
class CComparison;
class CItemModel;
class QLabel;
class QTreeWidget;
class QTreeWidgetItem;

/// The list of what changed, and the chosen page before and now. A click goes to the item.
class CCompareView final : public QWidget
{
    Q_OBJECT

public:
    static constexpr int MaxRows = 5000;

    /// The comparison must live longer.
    explicit CCompareView(CComparison *comparison, QWidget *parent = nullptr);

    CComparedPictures *pictures() const { return m_pictures; }

Q_SIGNALS:
    /// To be shown and selected: an item or a page of the open project.
    void placeWanted(CItemModel *place);

protected:
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void fill();
    void showHead(bool isEqual);
    QTreeWidgetItem *addRow(QTreeWidgetItem *parent, const QString &text);
    void addValues(QTreeWidgetItem *parent, const QVector<SValueChange> &values);
    void addScreen(const SScreenChange &change);
    void addPictureChanges();
    void addItem(QTreeWidgetItem *screen, const SItemChange &change);
    void setPlaces(QTreeWidgetItem *row, const CItemModel *before, const CItemModel *after);
    void showPictures();
    void showPlace(const QTreeWidgetItem *row);
    void retranslate();

    CComparison *const m_comparison;
    QLabel *const m_head;
    QTreeWidget *const m_tree;
    CComparedPictures *const m_pictures;
    int m_rows = 0;
};
