#include "CProjectExplorerView.h"

#include "CExplorerDelegate.h"
#include "CExplorerFilter.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ExplorerMarks.h"
#include "ItemOperations.h"
#include "ItemTree.h"
#include "ShownText.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace {
bool isAncestor(const QModelIndex &above, QModelIndex index)
{
    while (index.isValid() && index != above)
        index = index.parent();
    return index.isValid();
}
} // namespace

CProjectExplorerView::CProjectExplorerView(QWidget *parent)
    : QTreeView(parent),
      m_delegate(new CExplorerDelegate(this)),
      m_filter(new CExplorerFilter(this)),
      m_indicator(new QWidget(viewport()))
{
    setSelectionMode(ExtendedSelection);
    setSelectionBehavior(SelectItems);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDragDropMode(InternalMove);
    setDropIndicatorShown(false); // it has its own

    setHeaderHidden(true);
    setUniformRowHeights(true); // thousands of rows are laid out without measuring each
    setIconSize(QSize(16, 16));
    setEditTriggers(EditKeyPressed);
    setItemDelegate(m_delegate);
    setExpandsOnDoubleClick(false);         // which zooms
    viewport()->setAttribute(Qt::WA_Hover); // the marks of the row under the pointer

    m_indicator->setObjectName(QStringLiteral("dropIndicator"));
    m_indicator->setAutoFillBackground(true);
    QPalette ground;
    ground.setBrush(QPalette::Window, QColor(128, 128, 128, 180));
    m_indicator->setPalette(ground);
    // The theme's style sheet gives every widget a ground of its own and would hide the bar.
    m_indicator->setStyleSheet(QStringLiteral("background-color: rgba(128, 128, 128, 180);"));
    parkIndicator();

    connect(this, &QTreeView::clicked, this, &CProjectExplorerView::processDoubleClickedItem);
    connect(this, &QTreeView::activated, this, &CProjectExplorerView::processDoubleClickedItem);
    connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex &index) {
        CItemModel *item = itemAt(index);
        if (item && item->parentItem())
            Q_EMIT zoomWanted(item);
    });
    connect(this, &QWidget::customContextMenuRequested, this,
            &CProjectExplorerView::showContextMenu);
}

CProjectExplorerView::~CProjectExplorerView()
{
    putScreenBack();
}

void CProjectExplorerView::setProject(CProjectModel *project)
{
    putScreenBack();
    m_dragged = nullptr;
    if (project && project == m_project)
        return;
    setShownScreen(nullptr);
    m_itemDrag.begin({});
    m_openWhenGone.clear();
    if (m_project)
        m_project->disconnect(this);
    m_reportedSelected.clear();
    m_reportedDeselected.clear();
    m_project = project;
    watchRemovals(); // ahead of the selection model, which comes with the model
    const QItemSelectionModel *old = selectionModel();
    setModel(project);
    delete old; // the view leaves it to the caller
    // The header has made one as well and has then been given the view's.
    const auto ofHeader = header()->findChildren<QItemSelectionModel *>();
    for (const QItemSelectionModel *each : ofHeader) {
        if (each != header()->selectionModel())
            delete each;
    }
    m_filter->setProject(project);
    expandAll();
    if (!project)
        return;
    connect(project, &CProjectModel::propertyChanged, viewport(),
            QOverload<>::of(&QWidget::update)); // the marks
    // After the tree's own answer to it, which came with the model.
    connect(project, &QAbstractItemModel::rowsInserted, this, &CProjectExplorerView::expandAgain);
}

/// Who has opened it by one of its rows goes on seeing that row where it was.
void CProjectExplorerView::setShownScreen(CScreenModel *screen)
{
    m_shownScreen = screen;
    m_delegate->setShownScreen(screen);
    viewport()->update();
    if (!screen || !m_project || screen->model() != m_project || m_taken)
        return;
    const QModelIndex page = screen->index();
    const int top = visualRect(page).top();
    if (top > viewport()->height() || bottomOf(page) < 0)
        scrollTo(page);
}

/// What moves or comes back is open as it was.
void CProjectExplorerView::keepExpanded(const QModelIndex &parent, int first, int last)
{
    for (int row = first; row <= last; ++row) {
        CItemModel *item = itemAt(m_project->index(row, 0, parent));
        if (!item)
            continue;
        forEachItem(*item, [this](CItemModel &each) {
            if (each.rowCount() > 0 && isExpanded(each.index()))
                m_openWhenGone.insert(&each);
        });
    }
}

void CProjectExplorerView::expandAgain(const QModelIndex &parent, int first, int last)
{
    for (int row = first; row <= last; ++row) {
        CItemModel *item = itemAt(m_project->index(row, 0, parent));
        if (!item)
            continue;
        forEachItem(*item, [this](CItemModel &each) {
            if (m_openWhenGone.remove(&each))
                expand(each.index());
        });
    }
}

void CProjectExplorerView::watchRemovals()
{
    m_rowsLeaving = false;
    disconnect(m_removalBegins);
    disconnect(m_removalEnds);
    if (!m_project)
        return;
    const auto setLeaving = [this](bool areLeaving) {
        m_rowsLeaving = areLeaving;
        setAutoScroll(!areLeaving); // to the row that becomes the current one, for want of a better
    };
    m_removalBegins = connect(m_project, &QAbstractItemModel::rowsAboutToBeRemoved, this,
                              [this, setLeaving](const QModelIndex &parent, int first, int last) {
                                  setLeaving(true);
                                  keepExpanded(parent, first, last);
                                  m_itemDrag.begin({}); // some of them may be what goes
                                  // What is still selected after the step is selected again then;
                                  // to follow many rows through it would take long.
                                  selectionModel()->clearSelection();
                              });
    m_removalEnds = connect(m_project, &QAbstractItemModel::rowsRemoved, this,
                            [setLeaving] { setLeaving(false); });
}

CItemModel *CProjectExplorerView::itemAt(const QModelIndex &index) const
{
    return m_project ? CItemModel::fromItem(m_project->itemFromIndex(index)) : nullptr;
}

void CProjectExplorerView::processDoubleClickedItem(const QModelIndex index)
{
    CItemModel *item = itemAt(index);
    if (item && item->kind() == CItemModel::Kind::Screen)
        Q_EMIT screenActivated(static_cast<CScreenModel *>(item));
}

void CProjectExplorerView::selectionChanged(const QItemSelection &selected,
                                            const QItemSelection &deselected)
{
    QTreeView::selectionChanged(selected, deselected);
    if (m_syncing || m_rowsLeaving)
        return;
    if (selected != m_reportedSelected || deselected != m_reportedDeselected) {
        m_reportedSelected = selected;
        m_reportedDeselected = deselected;
        Q_EMIT onSelectionChanged(selectedIndexes());
    }
    viewport()->update();
}

void CProjectExplorerView::selectItems(const QList<CItemModel *> &items)
{
    if (!m_project)
        return;
    QModelIndexList indexes;
    indexes.reserve(items.size());
    for (const CItemModel *item : items) {
        if (item && item->model() == m_project)
            indexes.append(item->index());
    }
    std::sort(indexes.begin(), indexes.end());

    // Neighbours as one range: the selection model compares every range with every other.
    QItemSelection selection;
    for (int first = 0; first < indexes.size();) {
        int last = first;
        while (last + 1 < indexes.size() &&
               indexes.at(last + 1) == indexes.at(last).sibling(indexes.at(last).row() + 1, 0))
            ++last;
        selection.append(QItemSelectionRange(indexes.at(first), indexes.at(last)));
        first = last + 1;
    }

    m_syncing = true;
    selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    const CItemModel *current = itemAt(currentIndex());
    const bool isAtMember = current && current->isGrouped(); // from where the keys go on
    if (indexes.size() == 1 && !(isAtMember && isAncestor(indexes.first(), currentIndex()))) {
        selectionModel()->setCurrentIndex(indexes.first(), QItemSelectionModel::NoUpdate);
        scrollTo(indexes.first());
    }
    m_reportedSelected = selectionModel()->selection();
    m_reportedDeselected.clear();
    m_syncing = false;
    viewport()->update();
}

void CProjectExplorerView::keyPressEvent(QKeyEvent *event)
{
    const QModelIndex before = currentIndex();
    QTreeView::keyPressEvent(event);
    CItemModel *current = itemAt(currentIndex());
    if (current && current->isGrouped() && currentIndex() != before)
        Q_EMIT memberReached(current);
}

/// What a click on a mark of a row is for: all that is selected, when the row is.
QVector<CItemModel *> CProjectExplorerView::markedBy(CItemModel &item) const
{
    QVector<CItemModel *> items;
    for (const QModelIndex &index : selectedIndexes()) {
        CItemModel *each = itemAt(index);
        if (each && each->parentItem())
            items.append(each);
    }
    return items.contains(&item) ? items : QVector<CItemModel *>{&item};
}

void CProjectExplorerView::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    CItemModel *item = itemAt(index);
    const ExplorerMarks::EMark mark = item && item->parentItem()
                                          ? ExplorerMarks::at(event->pos(), visualRect(index))
                                          : ExplorerMarks::None;
    m_isMarkPressed = mark != ExplorerMarks::None && event->button() == Qt::LeftButton;
    const bool isMember = item && item->isGrouped() && !m_isMarkPressed;
    m_pressedMember = isMember ? index : QModelIndex();
    m_pressPos = event->pos();
    if (!m_isMarkPressed)
        QTreeView::mousePressEvent(event);
    else if (mark == ExplorerMarks::Lock)
        ItemOperations::toggleLock(markedBy(*item));
    else
        ItemOperations::toggleHidden(markedBy(*item));
}

void CProjectExplorerView::mouseMoveEvent(QMouseEvent *event)
{
    if (m_isMarkPressed)
        return;
    if (!m_pressedMember.isValid() || !event->buttons().testFlag(Qt::LeftButton)) {
        QTreeView::mouseMoveEvent(event);
        return;
    }
    // The tree begins no drag on a row that cannot be selected.
    if ((event->pos() - m_pressPos).manhattanLength() < QApplication::startDragDistance())
        return;
    selectionModel()->setCurrentIndex(std::exchange(m_pressedMember, {}),
                                      QItemSelectionModel::NoUpdate);
    startDrag(Qt::MoveAction);
    setState(NoState);
}

void CProjectExplorerView::mouseReleaseEvent(QMouseEvent *event)
{
    if (!std::exchange(m_isMarkPressed, false))
        QTreeView::mouseReleaseEvent(event);
}

void CProjectExplorerView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QRect row = visualRect(indexAt(event->pos()));
    if (ExplorerMarks::at(event->pos(), row) != ExplorerMarks::None)
        mousePressEvent(event); // two quick clicks on a mark are two clicks
    else
        QTreeView::mouseDoubleClickEvent(event);
}

bool CProjectExplorerView::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QTreeView::viewportEvent(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const QModelIndex index = indexAt(help->pos());
    const CItemModel *item = itemAt(index);
    const ExplorerMarks::EMark mark = item && item->parentItem()
                                          ? ExplorerMarks::at(help->pos(), visualRect(index))
                                          : ExplorerMarks::None;
    QString tip = item ? ShownText::name(item->name()) : QString();
    if (mark == ExplorerMarks::Eye)
        tip = item->isHidden() ? tr("Show on the canvas") : tr("Hide on the canvas");
    else if (mark == ExplorerMarks::Lock)
        tip = item->isLocked() ? tr("Unlock") : tr("Lock");
    QToolTip::showText(help->globalPos(), tip, viewport(), visualRect(index));
    return true;
}

QVector<CScreenModel *> CProjectExplorerView::selectedScreens() const
{
    QVector<CScreenModel *> screens;
    const QModelIndexList indexes = selectedIndexes();
    for (const QModelIndex &index : indexes) {
        CItemModel *item = itemAt(index);
        if (item && item->kind() == CItemModel::Kind::Screen)
            screens.append(static_cast<CScreenModel *>(item));
    }
    return screens;
}

void CProjectExplorerView::paintEvent(QPaintEvent *event)
{
    QTreeView::paintEvent(event);
    QPainter painter(viewport());
    m_itemDrag.paint(&painter);
    if (m_project && m_project->rowCount() > 0 && !m_filter->isNothingFound())
        return;
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     !m_project                   ? tr("No project")
                     : m_project->rowCount() == 0 ? tr("No screen")
                                                  : tr("Nothing found"));
}
