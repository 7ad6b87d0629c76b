#include "CExplorerDelegate.h"

#include "CCommandChangeItemProperty.h"
#include "CItemModel.h"
#include "CPlatformTable.h"
#include "CProjectModel.h"
#include "CThemeIcons.h"
#include "CToolboxModel.h"
#include "CWidgetLibraryManager.h"
#include "ExplorerMarks.h"
#include "ItemNames.h"
#include "PropertyKey.h"
#include "ShownText.h"

#include <QLineEdit>
#include <QPainter>
#include <QUndoStack>

namespace {

constexpr QSize IconSize(16, 16);
constexpr int TextMargins = 12; ///< beside the icon and the text, pixels

const CItemModel *itemOf(const QModelIndex &index)
{
    const auto *model = qobject_cast<const QStandardItemModel *>(index.model());
    return model ? CItemModel::fromItem(model->itemFromIndex(index)) : nullptr;
}

} // namespace

CExplorerDelegate::CExplorerDelegate(QObject *parent)
    : QStyledItemDelegate(parent),
      m_screenIcon(CThemeIcons::icon(QStringLiteral(":/images/screen.png"))),
      m_groupIcon(CThemeIcons::icon(QStringLiteral(":/images/group.png"))),
      m_widgetIcon(CThemeIcons::icon(QStringLiteral(":/images/widget.png"))),
      m_lockIcon(CThemeIcons::icon(QStringLiteral(":/images/locked.png"))),
      m_unlockedIcon(CThemeIcons::icon(QStringLiteral(":/images/unlocked.png"))),
      m_hiddenIcon(CThemeIcons::icon(QStringLiteral(":/images/eyeOff.png"))),
      m_seenIcon(CThemeIcons::icon(QStringLiteral(":/images/eye.png")))
{
}

QIcon CExplorerDelegate::iconOf(const CItemModel &item) const
{
    switch (item.kind()) {
    case CItemModel::Kind::Screen:
        return m_screenIcon;
    case CItemModel::Kind::Group:
        return m_groupIcon;
    default:
        return kindIcon(item.itemTypeName());
    }
}

/// The picture that the palette has for a kind, small.
QIcon CExplorerDelegate::kindIcon(const QString &type) const
{
    const auto known = m_kindIcons.constFind(type);
    if (known != m_kindIcons.constEnd())
        return *known;
    const CWidgetLibraryManager &manager = CWidgetLibraryManager::instance();
    const CToolboxModel *palette = manager.toolboxModel(CPlatformTable::chipCode(QString()));
    QIcon icon = m_widgetIcon;
    for (int row = 0; palette && row < palette->rowCount(); ++row) {
        const QModelIndexList found =
            palette->match(palette->index(0, 0, palette->index(row, 0)), CToolboxModel::TypeRole,
                           type, 1, Qt::MatchExactly);
        if (!found.isEmpty())
            icon = CThemeIcons::untinted(
                found.first().data(Qt::DecorationRole).value<QIcon>().pixmap(IconSize));
    }
    if (palette)
        m_kindIcons.insert(type, icon);
    return icon;
}

void CExplorerDelegate::initStyleOption(QStyleOptionViewItem *option,
                                        const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = ShownText::name(option->text);
    if (const CItemModel *item = itemOf(index)) {
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->icon = iconOf(*item);
        // One green cannot be read on both themes' grounds; names have the colour of all text, and
        // those that cannot be selected by themselves that of hints.
        const QPalette &palette = option->widget ? option->widget->palette() : option->palette;
        option->palette.setBrush(
            QPalette::Text,
            palette.brush(item->isGrouped() ? QPalette::PlaceholderText : QPalette::Text));
        if (item->isUnderHidden())
            option->palette.setBrush(QPalette::Text, palette.brush(QPalette::PlaceholderText));
        if (item == m_shownScreen)
            option->font.setWeight(QFont::DemiBold);
        const int room = option->rect.width() - option->decorationSize.width() -
                         ExplorerMarks::Width - TextMargins;
        if (item->parentItem() && room > 0) // no name runs under the marks
            option->text = option->fontMetrics.elidedText(option->text, Qt::ElideRight, room);
        if (item->isGrouped()) // it is selected through its group, but is not disabled
            option->state |= QStyle::State_Enabled;
    }
}

void CExplorerDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    QStyledItemDelegate::paint(painter, option, index);
    const CItemModel *item = itemOf(index);
    if (item && item->parentItem())
        paintMarks(painter, option, *item);
}

/// Faint for what only its group locks or hides, and for what a click would do.
void CExplorerDelegate::paintMarks(QPainter *painter, const QStyleOptionViewItem &option,
                                   const CItemModel &item) const
{
    const bool isPointedAt = option.state.testFlag(QStyle::State_MouseOver);
    const auto paintMark = [&](ExplorerMarks::EMark mark, const QIcon &on, const QIcon &off,
                               bool isOwn, bool isInherited) {
        if (!isOwn && !isInherited && !isPointedAt)
            return;
        painter->setOpacity(isOwn ? 1.0 : 0.45);
        (isOwn || isInherited ? on : off).paint(painter, ExplorerMarks::place(mark, option.rect));
    };
    paintMark(ExplorerMarks::Eye, m_hiddenIcon, m_seenIcon, item.isHidden(), item.isUnderHidden());
    paintMark(ExplorerMarks::Lock, m_lockIcon, m_unlockedIcon, item.isLocked(), item.isUnderLock());
    painter->setOpacity(1.0);
}

void CExplorerDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                     const QModelIndex &index) const
{
    const auto *line = qobject_cast<QLineEdit *>(editor);
    auto *item = const_cast<CItemModel *>(itemOf(index));
    CProjectModel *project = qobject_cast<CProjectModel *>(model);
    if (!line || !item || !project)
        return;
    const QString typed = line->text().trimmed();
    const QString name = ItemNames::wanted(*item, typed);
    if (typed.isEmpty() || name == item->name())
        return;
    project->undoStack()->push(
        new CCommandChangeItemProperty(item, PropertyKey::Name, name, item->name()));
}
