#include "CWidgetSelectionView.h"

#include "CEditorState.h"
#include "CToolboxModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetLibraryModel.h"
#include "PaletteEntry.h"
#include "ShownText.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDataStream>
#include <QDrag>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

using namespace PaletteEntry;

namespace {

constexpr int HeaderHeight = 20;
constexpr int HeaderMargin = 30; ///< left free beside a header, so that it never wraps the view
constexpr quint32 FirstChipCode = 0x100;
const QSize EntryIconSize(64, 64);

/// A translation may say where a word can be broken.
QString shownName(const QVariant &name)
{
    const QString own = translated(name);
    return own == name.toString() ? ShownText::name(own) : own;
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
