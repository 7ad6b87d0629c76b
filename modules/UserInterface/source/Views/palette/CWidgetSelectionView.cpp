#include "CWidgetSelectionView.h"

#include "CEditorState.h"
#include "CToolboxModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetLibraryModel.h"
#include "PaletteRank.h"
#include "ShownText.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDataStream>
#include <QDrag>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <limits>
#include <tuple>

namespace {

constexpr int HeaderHeight = 20;
constexpr int HeaderMargin = 30; ///< left free beside a header, so that it never wraps the view
// As the library has them, untranslated:
constexpr int NameRole = Qt::UserRole + 1;
constexpr int TipRole = Qt::UserRole + 2;
constexpr int GroupRole = Qt::UserRole + 3;
constexpr int PlaceRole = Qt::UserRole + 4; ///< in the order of the library
constexpr int ShelfRole = Qt::UserRole + 5; ///< of what stands on a shelf: which one
constexpr quint32 FirstChipCode = 0x100;
const QSize EntryIconSize(64, 64);

/// A text of the library, which the user may have extended: one without a translation stays.
QString translated(const QVariant &text)
{
    return QCoreApplication::translate("WidgetLibrary", text.toString().toUtf8().constData());
}

/// A translation may say where a word can be broken.
QString shownName(const QVariant &name)
{
    const QString own = translated(name);
    return own == name.toString() ? ShownText::name(own) : own;
}

bool isHeader(const QListWidgetItem *item)
{
    return item->icon().isNull() && item->data(CWidgetSelectionView::TypeRole).isNull();
}

bool isOnShelf(const QListWidgetItem *item)
{
    return item->data(ShelfRole).isValid();
}

PaletteRank::SEntry searched(const QListWidgetItem &entry)
{
    const auto both = [&entry](int role) {
        return QStringList{entry.data(role).toString(), translated(entry.data(role))};
    };
    return {both(NameRole), entry.data(CWidgetSelectionView::TypeRole).toString(), both(GroupRole),
            both(TipRole)};
}

} // namespace

CWidgetSelectionView::CWidgetSelectionView(QWidget *parent) : QListWidget(parent)
{
    setViewMode(IconMode);
    setFlow(LeftToRight);
    setWrapping(true);
    setIconSize(EntryIconSize);
    setSpacing(8);
    setResizeMode(Adjust);
    setMovement(Static); // entries are not moved about; this also forbids drags, so it comes first
    setDragEnabled(true);
    setAcceptDrops(false);
    setDropIndicatorShown(false);
    setWordWrap(true);
    connect(this, &QListWidget::itemDoubleClicked, this, &CWidgetSelectionView::placeCurrent);
}

void CWidgetSelectionView::setToolbox(const CToolboxModel *toolbox)
{
    setToolbox(toolbox, CWidgetLibraryManager::instance().libraryModel(FirstChipCode));
}

void CWidgetSelectionView::setToolbox(const CToolboxModel *toolbox,
                                      const CWidgetLibraryModel *library)
{
    clear();
    if (!toolbox)
        return;
    for (int group = 0; group < toolbox->rowCount(); ++group) {
        const QModelIndex groupRow = toolbox->index(group, 0);
        const QString caption = groupRow.data().toString();
        QListWidgetItem *header = makeHeader();
        header->setData(NameRole, caption);
        addItem(header);
        for (int row = 0; row < toolbox->rowCount(groupRow); ++row)
            addEntry(toolbox->index(row, 0, groupRow), library, caption);
    }
    for (int row = 0; row < count(); ++row)
        item(row)->setData(PlaceRole, row);
    fillShelves();
}

void CWidgetSelectionView::retranslate()
{
    const std::array<QString, ShelfCount> shelves = {tr("Favourites"), tr("Last used")};
    for (int row = 0; row < count(); ++row) {
        QListWidgetItem *each = item(row);
        each->setText(isHeader(each) && isOnShelf(each)
                          ? shelves.at(size_t(each->data(ShelfRole).toInt()))
                          : shownName(each->data(NameRole)));
        const QVariant tip = each->data(TipRole);
        if (!tip.toString().isEmpty())
            each->setToolTip(translated(tip));
    }
}

void CWidgetSelectionView::changeEvent(QEvent *event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

QListWidgetItem *CWidgetSelectionView::makeHeader() const
{
    auto *header = new QListWidgetItem;
    header->setFlags(Qt::NoItemFlags);
    header->setSizeHint(QSize(width() - HeaderMargin, HeaderHeight));
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    header->setFont(bold);
    header->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return header;
}

void CWidgetSelectionView::addEntry(const QModelIndex &row, const CWidgetLibraryModel *library,
                                    const QString &group)
{
    const QString type = row.data(CToolboxModel::TypeRole).toString();
    auto *entry = new QListWidgetItem(this);
    entry->setIcon(row.data(Qt::DecorationRole).value<QIcon>());
    entry->setData(NameRole, row.data());
    entry->setData(TypeRole, type);
    entry->setData(GroupRole, group);
    entry->setFlags(Qt::ItemIsSelectable | Qt::ItemIsDragEnabled | Qt::ItemIsEnabled);
    if (library)
        entry->setData(TipRole, library->tooltip(type));
}

/// That of the groups.
QListWidgetItem *CWidgetSelectionView::entryOf(const QString &type) const
{
    for (int row = 0; row < count(); ++row) {
        if (!isOnShelf(item(row)) && item(row)->data(TypeRole) == type)
            return item(row);
    }
    return nullptr;
}

void CWidgetSelectionView::setShelf(EShelf which, const QStringList &types)
{
    QStringList &shelf = m_shelves.at(size_t(which));
    if (shelf == types)
        return;
    shelf = types;
    fillShelves();
}

void CWidgetSelectionView::noteUsed(const QString &type)
{
    QStringList used = shelf(LastUsed);
    used.removeAll(type);
    used.prepend(type);
    setShelf(LastUsed, used.mid(0, MostUsed));
}

void CWidgetSelectionView::setFavourite(const QString &type, bool isFavourite)
{
    QStringList favourites = shelf(Favourites);
    favourites.removeAll(type);
    if (isFavourite)
        favourites.append(type);
    setShelf(Favourites, favourites);
}

/// What is seen stays where it is seen: who works his way through the groups is not led away by
/// what he uses.
void CWidgetSelectionView::fillShelves()
{
    const QString type = currentType();
    const bool isShelved = currentItem() && isOnShelf(currentItem());
    const QListWidgetItem *seen = entryOf(type);
    const int before = seen ? visualItemRect(seen).top() : 0;

    for (int row = count() - 1; row >= 0; --row) {
        if (isOnShelf(item(row)))
            delete takeItem(row);
    }
    int row = 0;
    for (int which = 0; which < ShelfCount; ++which) {
        QVector<QListWidgetItem *> entries;
        for (const QString &each : qAsConst(m_shelves.at(size_t(which)))) {
            if (const QListWidgetItem *entry = entryOf(each))
                entries.append(entry->clone());
        }
        if (!entries.isEmpty())
            entries.prepend(makeHeader());
        for (QListWidgetItem *each : qAsConst(entries)) {
            each->setData(ShelfRole, which);
            insertItem(row++, each);
        }
    }
    retranslate();
    arrange(m_filter);
    if (QListWidgetItem *entry = entryOf(type)) {
        setCurrentItem(entry, QItemSelectionModel::ClearAndSelect);
        if (!isShelved && seen == entry) {
            doItemsLayout();
            verticalScrollBar()->setValue(verticalScrollBar()->value() +
                                          visualItemRect(entry).top() - before);
        }
    }
}

void CWidgetSelectionView::setFilter(const QString &text)
{
    m_filter = text;
    arrange(text);
    if (m_filter.simplified().isEmpty())
        return;
    for (int row = 0; row < count(); ++row) {
        if (!item(row)->isHidden() && !isHeader(item(row))) {
            setCurrentRow(row);
            break;
        }
    }
    scrollToTop();
}

/// Headers, each followed by what is below it, in the order of the library.
QVector<QListWidgetItem *> CWidgetSelectionView::sections() const
{
    QVector<QListWidgetItem *> items;
    for (int row = 0; row < count(); ++row) {
        if (!isOnShelf(item(row)))
            items.append(item(row));
    }
    std::sort(items.begin(), items.end(), [](const auto *left, const auto *right) {
        return left->data(PlaceRole).toInt() < right->data(PlaceRole).toInt();
    });
    return items;
}

/// Groups by their best entry, the entries of each by how well they fit.
void CWidgetSelectionView::arrange(const QString &filter)
{
    struct SShown
    {
        int ofGroup;
        int group;
        int rank;
        QListWidgetItem *item;
    };
    constexpr int none = std::numeric_limits<int>::max();
    const bool isFiltered = !filter.simplified().isEmpty();
    QVector<SShown> shown;
    QVector<int> best; // of each group
    for (QListWidgetItem *each : sections()) {
        if (isHeader(each)) {
            best.append(isFiltered ? none : 0);
            shown.append({0, best.size() - 1, -1, each});
            continue;
        }
        const int rank = isFiltered ? PaletteRank::of(filter, searched(*each)).value_or(none) : 0;
        if (!best.isEmpty())
            best.last() = std::min(best.last(), rank);
        shown.append({0, best.size() - 1, rank, each});
    }
    for (SShown &each : shown)
        each.ofGroup = each.group < 0 ? each.rank : best.at(each.group);
    std::stable_sort(shown.begin(), shown.end(), [](const SShown &left, const SShown &right) {
        return std::tie(left.ofGroup, left.group, left.rank) <
               std::tie(right.ofGroup, right.group, right.rank);
    });
    QListWidgetItem *const current = currentItem();
    const int shelved = count() - shown.size();
    for (int row = 0; row < shown.size(); ++row) { // taken out only where it is another one
        QListWidgetItem *each = shown.at(row).item;
        if (item(shelved + row) != each)
            insertItem(shelved + row, takeItem(this->row(each)));
        each->setHidden(shown.at(row).rank == none || shown.at(row).ofGroup == none);
    }
    for (int row = 0; row < shelved; ++row)
        item(row)->setHidden(isFiltered);
    if (currentItem() != current)
        setCurrentItem(current);
    m_isNothingFound =
        isFiltered && std::all_of(best.begin(), best.end(), [](int each) { return each == none; });
    viewport()->update();
}

void CWidgetSelectionView::paintEvent(QPaintEvent *event)
{
    QListWidget::paintEvent(event);
    if (!m_isNothingFound)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap, tr("No widget found"));
}

void CWidgetSelectionView::resizeEvent(QResizeEvent *event)
{
    QListWidget::resizeEvent(event);
    for (int row = 0; row < count(); ++row) {
        if (isHeader(item(row)))
            item(row)->setSizeHint(QSize(width() - HeaderMargin, HeaderHeight));
    }
}

QSize CWidgetSelectionView::viewportSizeHint() const
{
    return {3 * (EntryIconSize.width() + 2 * spacing()), 4 * EntryIconSize.height()};
}

QString CWidgetSelectionView::currentType() const
{
    const QListWidgetItem *entry = currentItem();
    return entry && (entry->flags() & Qt::ItemIsDragEnabled) ? entry->data(TypeRole).toString()
                                                             : QString();
}

void CWidgetSelectionView::placeCurrent()
{
    const QString type = currentType();
    if (!type.isEmpty() && !currentItem()->isHidden())
        Q_EMIT placeWanted(type);
}

void CWidgetSelectionView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        placeCurrent();
    else
        QListWidget::keyPressEvent(event);
}

void CWidgetSelectionView::contextMenuEvent(QContextMenuEvent *event)
{
    const QString type = currentType();
    if (type.isEmpty())
        return;
    QMenu menu(this);
    menu.addAction(tr("Place in the Middle"), this, &CWidgetSelectionView::placeCurrent);
    const bool isFavourite = shelf(Favourites).contains(type);
    menu.addAction(isFavourite ? tr("Remove from Favourites") : tr("Add to Favourites"), this,
                   [this, type, isFavourite] { setFavourite(type, !isFavourite); });
    const bool isKey = event->reason() == QContextMenuEvent::Keyboard;
    menu.exec(isKey ? viewport()->mapToGlobal(visualItemRect(currentItem()).center())
                    : event->globalPos());
}

QMimeData *CWidgetSelectionView::dragData() const
{
    const QVariant type = currentType();
    if (type.toString().isEmpty())
        return nullptr;
    QByteArray payload;
    QDataStream stream(&payload, QIODevice::WriteOnly);
    stream << type;
    auto *mimeData = new QMimeData;
    mimeData->setData(QStringLiteral("widget-create"), payload);
    mimeData->setText(type.toString());
    return mimeData;
}

QPixmap CWidgetSelectionView::dragPixmap() const
{
    const QListWidgetItem *entry = currentItem();
    if (!entry)
        return {};
    QPixmap pixmap = entry->icon().pixmap(EntryIconSize);
    QPainter painter(&pixmap);
    painter.fillRect(QRect(QPoint(), EntryIconSize), QColor(127, 127, 127, 127));
    return pixmap;
}

QPoint CWidgetSelectionView::dragHotSpot() const
{
    const bool snaps = CEditorState::instance()->isSnapToGrid();
    return snaps ? QPoint() : QPoint(EntryIconSize.width() / 2, EntryIconSize.height() / 2);
}

void CWidgetSelectionView::startDrag(Qt::DropActions)
{
    QMimeData *payload = dragData();
    if (!payload)
        return;
    auto *drag = new QDrag(this);
    drag->setMimeData(payload);
    drag->setPixmap(dragPixmap());
    drag->setHotSpot(dragHotSpot());
    const QString type = currentType();
    if (drag->exec(Qt::CopyAction) == Qt::CopyAction)
        noteUsed(type);
}
