#include "CBudgetView.h"

#include "CBudgetResults.h"
#include "CFormatFitView.h"
#include "CItemFacets.h"
#include "CMemoryBar.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWhatIfView.h"
#include "PackagePaths.h"
#include "QxKivEmuLib.h"
#include "ShownText.h"

#include <QEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QSplitter>
#include <QStackedLayout>
#include <QTabWidget>
#include <QTreeView>
#include <QTreeWidget>

namespace {

enum EAssetColumn { AssetFile, AssetFormat, AssetPixels, AssetItems, AssetBytes, AssetShare };
enum EItemColumn { ItemName, ItemKind, ItemPage, ItemBytes, ItemShare };

constexpr int PageRole = Qt::UserRole + 1; ///< index of the screen; none for the whole project
constexpr int IconSide = 32;               // pixels
constexpr int NameWidth = 180;             // of a picture beside its icon
constexpr int PagesWidth = 5;              // to the tables' width
constexpr int TablesWidth = 6;
constexpr int Width = 100; // more than they need at first, to be shared

double shareOf(size_t bytes, size_t budget)
{
    return CMemoryBar::shareOf({bytes, budget});
}

/// The rest of a sum that is nobody's.
CBudgetTable::SRow restRow(const QString &name, size_t bytes, size_t budget, int columns)
{
    CBudgetTable::SRow row;
    row.key = QStringLiteral("rest");
    row.cells.resize(columns);
    row.cells[0] = name;
    row.cells[columns - 2] = qlonglong(bytes);
    row.cells[columns - 1] = shareOf(bytes, budget);
    return row;
}

} // namespace

CBudgetView::CBudgetView(QWidget *parent)
    : QWidget(parent),
      m_pages(new QTreeWidget),
      m_tabs(new QTabWidget),
      m_assets(new CBudgetTable(this)),
      m_items(new CBudgetTable(this)),
      m_whatIf(new CWhatIfView),
      m_fit(new CFormatFitView),
      m_empty(new QLabel),
      m_stack(new QStackedLayout(this))
{
    m_pages->setObjectName(QStringLiteral("budgetPages"));
    m_pages->setColumnCount(3);
    m_pages->setRootIsDecorated(false);
    m_pages->setUniformRowHeights(true);
    m_pages->setAllColumnsShowFocus(true);
    m_pages->setItemDelegateForColumn(1, new CMemoryBar(this));
    m_pages->setItemDelegateForColumn(2, new CMemoryBar(this));
    m_pages->header()->setSectionResizeMode(QHeaderView::Stretch);
    m_tabs->setDocumentMode(true);
    m_assetView = makeTable(m_assets, "budgetAssets", AssetBytes);
    m_assetView->setIconSize(QSize(IconSide, IconSide));
    m_itemView = makeTable(m_items, "budgetItems", ItemBytes);
    m_tabs->addTab(m_whatIf, QString());
    m_tabs->addTab(m_fit, QString());
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);

    auto *sides = new QSplitter;
    sides->addWidget(m_pages);
    sides->addWidget(m_tabs);
    sides->setStretchFactor(0, PagesWidth);
    sides->setStretchFactor(1, TablesWidth);
    sides->setChildrenCollapsible(false);
    sides->setSizes({PagesWidth * Width, TablesWidth * Width});
    m_stack->addWidget(sides);
    m_stack->addWidget(m_empty);

    connect(m_pages, &QTreeWidget::currentItemChanged, this, &CBudgetView::fillTables);
    connect(m_pages, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem *row) {
        const QModelIndex place = row->data(0, PageRole).toPersistentModelIndex();
        if (m_results->project() && place.isValid())
            Q_EMIT itemsWanted({m_results->project()->screen(place.row())});
    });
    connect(m_assetView->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &CBudgetView::showWhatIf);
    connect(m_whatIf, &CWhatIfView::message, this, &CBudgetView::message);
    connect(m_fit, &CFormatFitView::message, this, &CBudgetView::message);
    connect(m_fit, &CFormatFitView::itemsWanted, this, &CBudgetView::itemsWanted);
    retranslate();
    for (const QTreeView *view : {m_assetView, m_itemView}) { // which have their columns now
        view->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        view->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    }
    // Who uses an asset gives way to its name.
    m_assetView->header()->setSectionResizeMode(AssetFile, QHeaderView::Interactive);
    m_assetView->header()->resizeSection(AssetFile, NameWidth);
    m_assetView->header()->setSectionResizeMode(AssetItems, QHeaderView::Stretch);
}

QTreeView *CBudgetView::makeTable(CBudgetTable *table, const char *name, int bytesColumn)
{
    auto *view = new QTreeView;
    view->setObjectName(QLatin1String(name));
    view->setModel(table);
    view->setRootIsDecorated(false);
    view->setUniformRowHeights(true);
    view->setAllColumnsShowFocus(true);
    view->setTextElideMode(Qt::ElideMiddle);
    view->header()->setStretchLastSection(false);
    view->setSortingEnabled(true);
    view->sortByColumn(bytesColumn, Qt::DescendingOrder);
    m_tabs->addTab(view, QString());
    connect(view, &QTreeView::clicked, this,
            [this, table](const QModelIndex &index) { choose(*table, index); });
    connect(view, &QTreeView::activated, this,
            [this, table](const QModelIndex &index) { choose(*table, index); });
    return view;
}

void CBudgetView::setResults(CBudgetResults *results)
{
    m_results = results;
    m_whatIf->setResults(results);
    m_fit->setResults(results);
    connect(results, &CBudgetResults::changed, this, &CBudgetView::fill);
    fill();
}

void CBudgetView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_isStale)
        fill();
}

void CBudgetView::fill()
{
    m_isStale = !isVisible();
    if (m_isStale || !m_results)
        return;
    const bool isEmpty = m_results->budget().screens.isEmpty();
    m_empty->setText(!m_results->project()                      ? tr("No project is open.")
                     : m_results->project()->screenCount() == 0 ? tr("The project has no pages.")
                                                                : tr("Measuring..."));
    fillPages();
    fillTables();
    m_stack->setCurrentIndex(isEmpty ? 1 : 0);
}

void CBudgetView::fillPages()
{
    const QSignalBlocker quiet(m_pages);
    const QTreeWidgetItem *current = m_pages->currentItem();
    const QPersistentModelIndex chosen =
        current ? current->data(0, PageRole).toPersistentModelIndex() : QPersistentModelIndex();
    m_pages->clear();
    const SProjectBudget &budget = m_results->budget();
    SMemoryUse ramG;
    SMemoryUse ramDl;
    size_t assets = 0;
    for (const SScreenBudget &page : budget.screens) {
        ramG = {std::max(ramG.used, page.ramG.used), page.ramG.budget};
        ramDl = {std::max(ramDl.used, page.ramDl.used), page.ramDl.budget};
    }
    for (const SAssetUse &asset : budget.assets)
        assets += asset.bytes;
    QTreeWidgetItem *whole = addPage(
        tr("Project (fullest page)"), ramG, ramDl,
        tr("Each page is loaded by itself, so the fullest one decides. All pictures and fonts of "
           "the project together take %1 bytes.")
            .arg(QLocale().toString(qulonglong(assets))));
    m_pages->setCurrentItem(whole);
    for (int i = 0; i < budget.screens.size(); ++i) {
        const SScreenBudget &page = budget.screens[i];
        if (!m_results->isThere(page.screen))
            continue;
        QTreeWidgetItem *row =
            addPage(page.screen->name(), page.ramG, page.ramDl,
                    page.screen->name() + QLatin1Char('\n') +
                        tr("RAM_G: %1\nRAM_DL: %2")
                            .arg(CMemoryBar::textOf(page.ramG), CMemoryBar::textOf(page.ramDl)));
        const QPersistentModelIndex place = page.screen->index();
        row->setData(0, PageRole, place);
        if (chosen.isValid() && place == chosen)
            m_pages->setCurrentItem(row);
    }
}

QTreeWidgetItem *CBudgetView::addPage(const QString &name, const SMemoryUse &ramG,
                                      const SMemoryUse &ramDl, const QString &toolTip)
{
    auto *row = new QTreeWidgetItem(m_pages);
    row->setText(0, ShownText::name(name));
    int column = 0;
    for (const SMemoryUse &use : {ramG, ramDl}) {
        ++column;
        row->setText(column, CMemoryBar::textOf(use));
        row->setData(column, CMemoryBar::ShareRole, CMemoryBar::shareOf(use));
    }
    for (column = 0; column < m_pages->columnCount(); ++column)
        row->setToolTip(column, ShownText::toolTip(toolTip));
    return row;
}

void CBudgetView::fillTables()
{
    if (!m_results)
        return;
    const QTreeWidgetItem *current = m_pages->currentItem();
    const QModelIndex place =
        current ? current->data(0, PageRole).toPersistentModelIndex() : QPersistentModelIndex();
    QVector<const SScreenBudget *> pages;
    const SScreenBudget *chosen = nullptr;
    for (const SScreenBudget &page : m_results->budget().screens) {
        if (!m_results->isThere(page.screen))
            continue;
        pages.append(&page);
        if (place.isValid() && page.screen->index() == place)
            chosen = &page;
    }
    if (chosen)
        pages = {chosen};
    fillAssets(chosen ? chosen->assets : m_results->budget().assets, chosen);
    fillItems(pages);
}

void CBudgetView::fillAssets(const QVector<SAssetUse> &assets, const SScreenBudget *page)
{
    const auto &screens = m_results->budget().screens;
    const size_t budget = screens.isEmpty() ? 0 : screens.first().ramG.budget;
    QVector<CBudgetTable::SRow> rows;
    for (const SAssetUse &asset : assets) {
        CBudgetTable::SRow row;
        const bool isFont = asset.format == EMU_ASSET_FONT;
        const QString pixels =
            isFont ? tr("%1 glyphs").arg(asset.pixels.width())
                   : QStringLiteral("%1 × %2").arg(asset.pixels.width()).arg(asset.pixels.height());
        QStringList names;
        for (const CItemModel *item : asset.items)
            if (m_results->isThere(item)) {
                row.items.append(item);
                names.append(item->name());
            }
        row.cells = {QFileInfo(asset.file).fileName(),
                     formatInPackage(asset.format),
                     pixels,
                     names.join(QStringLiteral(", ")),
                     qlonglong(asset.bytes),
                     shareOf(asset.bytes, budget)};
        row.key = CBudgetResults::keyOf(asset);
        row.toolTip = asset.file + QLatin1Char('\n') + tr("Used by: %1").arg(names.join(", "));
        row.icon = CBudgetTable::iconOf(m_results->pictureOf(asset));
        rows.append(row);
    }
    if (page && page->ramGRest > 0)
        rows.append(restRow(tr("(gaps between them)"), page->ramGRest, budget, AssetShare + 1));
    showRows(m_assetView, m_assets, rows);
    showWhatIf();
}

void CBudgetView::fillItems(const QVector<const SScreenBudget *> &pages)
{
    QVector<CBudgetTable::SRow> rows;
    size_t rest = 0;
    size_t budget = 0;
    for (const SScreenBudget *page : pages) {
        rest += page->ramDlRest;
        budget = page->ramDl.budget;
        for (const SItemUse &use : page->items) {
            if (!m_results->isThere(use.item))
                continue;
            CBudgetTable::SRow row;
            row.cells = {use.item->name(), CItemFacets::kindName(*use.item), page->screen->name(),
                         qlonglong(use.displayListBytes), shareOf(use.displayListBytes, budget)};
            row.key = QString::number(quintptr(use.item), 16);
            row.items = {use.item};
            rows.append(row);
        }
    }
    if (rest > 0)
        rows.append(restRow(tr("(the page itself)"), rest, budget, ItemShare + 1));
    showRows(m_itemView, m_items, rows);
}

/// The chosen row stays chosen, and in its place.
void CBudgetView::showRows(QTreeView *view, CBudgetTable *table,
                           const QVector<CBudgetTable::SRow> &rows)
{
    const QModelIndex current = view->currentIndex();
    const QString key = current.isValid() ? table->row(current.row()).key : QString();
    const CItemModel *user = current.isValid() ? table->row(current.row()).items.value(0) : nullptr;
    table->setRows(rows);
    int row = key.isEmpty() ? -1 : table->rowOf(key);
    for (int i = 0; row < 0 && user && i < table->rowCount(); ++i)
        if (table->row(i).items.contains(user)) // its image has another format now
            row = i;
    if (row >= 0)
        view->setCurrentIndex(table->index(row, 0));
}

void CBudgetView::choose(const CBudgetTable &table, const QModelIndex &index)
{
    QList<CItemModel *> items;
    for (const CItemModel *item : table.row(index.row()).items)
        if (m_results->isThere(item)) // const in the figures only
            items.append(const_cast<CItemModel *>(item));
    if (!items.isEmpty())
        Q_EMIT itemsWanted(items);
}

/// Only with items that are there.
void CBudgetView::showWhatIf()
{
    const QModelIndex current = m_assetView->currentIndex();
    const QString key = current.isValid() ? m_assets->row(current.row()).key : QString();
    SAssetUse chosen;
    for (const SAssetUse &asset : m_results->budget().assets)
        if (CBudgetResults::keyOf(asset) == key)
            chosen = asset;
    QVector<const CItemModel *> items;
    for (const CItemModel *item : qAsConst(chosen.items))
        if (m_results->isThere(item))
            items.append(item);
    chosen.items = items;
    m_whatIf->setAsset(chosen);
}

void CBudgetView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CBudgetView::retranslate()
{
    m_pages->setHeaderLabels({tr("Page"), tr("RAM_G, bytes"), tr("RAM_DL, bytes")});
    m_assets->setHeaders({tr("Picture or font"), tr("Format"), tr("Pixels"), tr("Used by"),
                          tr("Bytes"), tr("Share")});
    m_items->setHeaders({tr("Item"), tr("Kind"), tr("Page"), tr("Bytes"), tr("Share")});
    m_tabs->setTabText(m_tabs->indexOf(m_assetView), tr("Pictures and Fonts"));
    m_tabs->setTabText(m_tabs->indexOf(m_itemView), tr("Items"));
    m_tabs->setTabText(m_tabs->indexOf(m_whatIf), tr("What If"));
    m_tabs->setTabText(m_tabs->indexOf(m_fit), tr("Fit into Budget"));
    m_whatIf->retranslate();
    if (m_results)
        m_fit->retranslate();
    m_tabs->setTabToolTip(m_tabs->indexOf(m_itemView),
                          tr("What each item adds to the display list of its page"));
    fill();
}
