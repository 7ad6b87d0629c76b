#include "CWidgetSelectionView.h"

#include "CEditorState.h"
#include "CToolboxModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetLibraryModel.h"
#include "ShownText.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDrag>
#include <QEvent>
#include <QMimeData>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int HeaderHeight = 20;
constexpr int HeaderMargin = 30; ///< left free beside a header, so that it never wraps the view
// As the library has them, untranslated:
constexpr int NameRole = Qt::UserRole + 1;
constexpr int TipRole = Qt::UserRole + 2;
constexpr int GroupRole = Qt::UserRole + 3;
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
        addHeader(caption);
        for (int row = 0; row < toolbox->rowCount(groupRow); ++row)
            addEntry(toolbox->index(row, 0, groupRow), library, caption);
    }
    retranslate();
}

void CWidgetSelectionView::retranslate()
{
    for (int row = 0; row < count(); ++row) {
        item(row)->setText(shownName(item(row)->data(NameRole)));
        const QVariant tip = item(row)->data(TipRole);
        if (!tip.toString().isEmpty())
            item(row)->setToolTip(translated(tip));
    }
}

void CWidgetSelectionView::changeEvent(QEvent *event)
{
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CWidgetSelectionView::addHeader(const QString &text)
{
    auto *header = new QListWidgetItem(this);
    header->setData(NameRole, text);
    header->setFlags(Qt::NoItemFlags);
    header->setSizeHint(QSize(width() - HeaderMargin, HeaderHeight));
    QFont bold = font();
    bold.setWeight(QFont::DemiBold);
    header->setFont(bold);
    header->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
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

void CWidgetSelectionView::setFilter(const QString &text)
{
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    m_isNothingFound = !words.isEmpty();
    QListWidgetItem *header = nullptr;
    for (int row = 0; row < count(); ++row) {
        QListWidgetItem *each = item(row);
        if (isHeader(each)) {
            header = each;
            header->setHidden(true); // until an entry of its group is shown
            continue;
        }
        QStringList texts = {each->data(TypeRole).toString()};
        for (const int role : {NameRole, GroupRole, TipRole})
            texts << each->data(role).toString() << translated(each->data(role));
        const QString searched = texts.join(QLatin1Char(' ')).remove(QChar(QChar::SoftHyphen));
        const bool isShown =
            std::all_of(words.begin(), words.end(), [&searched](const QString &word) {
                return searched.contains(word, Qt::CaseInsensitive);
            });
        each->setHidden(!isShown);
        if (isShown)
            m_isNothingFound = false;
        if (isShown && header)
            header->setHidden(false);
    }
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

QMimeData *CWidgetSelectionView::dragData() const
{
    const QListWidgetItem *entry = currentItem();
    if (!entry || !(entry->flags() & Qt::ItemIsDragEnabled))
        return nullptr;
    const QVariant type = entry->data(TypeRole);
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
    drag->exec(Qt::CopyAction);
}
