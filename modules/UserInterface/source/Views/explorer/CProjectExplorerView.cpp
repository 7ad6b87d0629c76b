#include "CProjectExplorerView.h"

#include "CExplorerDelegate.h"
#include "CProjectModel.h"
#include "CScreenModel.h"

#include <QHeaderView>
#include <QPainter>

#include <algorithm>

namespace {
bool isAncestor(const QModelIndex &above, QModelIndex index)
{
    while (index.isValid() && index != above)
        index = index.parent();
    return index.isValid();
}
} // namespace

CProjectExplorerView::CProjectExplorerView(QWidget *parent)
    : QTreeView(parent), m_indicator(new QWidget(viewport()))
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
    setItemDelegate(new CExplorerDelegate(this));

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
    m_shownScreen = nullptr;
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
    expandAll();
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
    m_removalBegins =
        connect(m_project, &QAbstractItemModel::rowsAboutToBeRemoved, this, [this, setLeaving] {
            setLeaving(true);
            // What is still selected after the step is selected again then; to
            // follow many rows through it would take long.
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
    if (m_project && m_project->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(16, 16, -16, -16),
                     Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                     m_project ? tr("No screen") : tr("No project"));
}
