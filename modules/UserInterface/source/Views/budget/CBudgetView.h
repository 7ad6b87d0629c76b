#pragma once

#include "CBudgetTable.h"
#include "SBudget.h"

#include <QWidget>

class CBudgetResults;
class CFormatFitView;
class CWhatIfView;
class QLabel;
class QStackedLayout;
class QTabWidget;
class QTreeView;
class QTreeWidget;
class QTreeWidgetItem;

/// The pages with what they take of the chip's memories, and what takes it on the chosen one: a
/// table of pictures and fonts, and one of items.
class CBudgetView final : public QWidget
{
    Q_OBJECT

public:
    explicit CBudgetView(QWidget *parent = nullptr);

    /// Must live longer.
    void setResults(CBudgetResults *results);

Q_SIGNALS:
    /// To be shown and selected: items, or one page. Never none.
    void itemsWanted(const QList<CItemModel *> &items);
    void message(const QString &text); ///< why something was not done

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QTreeView *makeTable(CBudgetTable *table, const char *name, int bytesColumn);
    void fill();
    void fillPages();
    QTreeWidgetItem *addPage(const QString &name, const SMemoryUse &ramG, const SMemoryUse &ramDl,
                             const QString &toolTip);
    void fillTables();
    void fillAssets(const QVector<SAssetUse> &assets, const SScreenBudget *page);
    void fillItems(const QVector<const SScreenBudget *> &pages);
    void showRows(QTreeView *view, CBudgetTable *table, const QVector<CBudgetTable::SRow> &rows);
    void choose(const CBudgetTable &table, const QModelIndex &index);
    void showWhatIf();
    void retranslate();

    CBudgetResults *m_results = nullptr;
    QTreeWidget *m_pages;
    QTabWidget *m_tabs;
    CBudgetTable *m_assets;
    CBudgetTable *m_items;
    QTreeView *m_assetView = nullptr;
    QTreeView *m_itemView = nullptr;
    CWhatIfView *m_whatIf;
    CFormatFitView *m_fit;
    QLabel *m_empty;
    QStackedLayout *m_stack; ///< the figures, or what says that there are none
    bool m_isStale = true;   ///< to be filled when it is seen
};
