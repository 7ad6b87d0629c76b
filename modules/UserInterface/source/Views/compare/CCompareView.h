#pragma once

#include <QModelIndex>
#include <QWidget>

class CChangesModel;
class CComparedPictures;
class CComparison;
class CItemModel;
class QLabel;
class QTreeView;

/// The list of what changed, and the chosen page before and now. A click goes to the item.
class CCompareView final : public QWidget
{
    Q_OBJECT

public:
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
    void fillAnew();
    void expandFew();
    void showHead();
    void fetchPictures();
    void showCurrent();
    void showPlace(const QModelIndex &index);
    void retranslate();

    CComparison *const m_comparison;
    QLabel *const m_head;
    CChangesModel *const m_model;
    QTreeView *const m_tree;
    CComparedPictures *const m_pictures;
    const void *m_shown = nullptr; ///< the result that is listed
    QString m_failure;             ///< why the last one was not compared; empty when it was
};
