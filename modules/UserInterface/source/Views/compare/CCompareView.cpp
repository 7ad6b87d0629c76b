#include "CCompareView.h"

#include "CComparedPictures.h"
#include "CComparison.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ShownText.h"

#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

constexpr int BeforeRole = Qt::UserRole + 1; ///< index in the earlier project
constexpr int AfterRole = Qt::UserRole + 2;  ///< index in the open one
constexpr int Margin = 6;                    // pixels
constexpr int FewRows = 60;                  ///< of which the values are seen at once

QPersistentModelIndex placeOf(const QTreeWidgetItem *row, int role)
{
    return row ? row->data(0, role).toPersistentModelIndex() : QPersistentModelIndex();
}

QTreeWidgetItem *topOf(QTreeWidgetItem *row)
{
    while (row && row->parent())
        row = row->parent();
    return row;
}

} // namespace

CCompareView::CCompareView(CComparison *comparison, QWidget *parent)
    : QWidget(parent),
      m_comparison(comparison),
      m_head(new QLabel),
      m_tree(new QTreeWidget),
      m_pictures(new CComparedPictures)
{
    m_head->setTextFormat(Qt::PlainText);
    m_head->setWordWrap(true);
    m_tree->setObjectName(QStringLiteral("compareList"));
    m_tree->setColumnCount(3);
    m_tree->setUniformRowHeights(true);
    m_tree->installEventFilter(this);
    m_tree->header()->setSectionResizeMode(QHeaderView::Interactive);
    m_tree->header()->resizeSection(0, 260);
    auto *splitter = new QSplitter;
    splitter->addWidget(m_tree);
    splitter->addWidget(m_pictures);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setChildrenCollapsible(false);
    splitter->setSizes({600, 400}); // 3 : 2
    auto *top = new QHBoxLayout;
    top->setContentsMargins(Margin, Margin, Margin, 0);
    top->addWidget(m_head, 1);
    top->addWidget(m_pictures->modes());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addWidget(splitter, 1);
    connect(comparison, &CComparison::changed, this, &CCompareView::fill);
    connect(comparison, &CComparison::pictureTaken, this, &CCompareView::showPictures);
    connect(m_tree, &QTreeWidget::currentItemChanged, this, &CCompareView::showPictures);
    connect(m_tree, &QTreeWidget::itemClicked, this, &CCompareView::showPlace);
    retranslate();
}

void CCompareView::fill()
{
    const QTreeWidgetItem *current = m_tree->currentItem();
    const QPersistentModelIndex before = placeOf(current, BeforeRole);
    const QPersistentModelIndex after = placeOf(current, AfterRole);
    const QString text = current ? current->text(0) : QString();
    const SProjectChanges changes = m_comparison->changes();
    {
        const QSignalBlocker quiet(m_tree);
        m_tree->setUpdatesEnabled(false);
        m_tree->clear();
        m_rows = 0;
        if (!changes.values.isEmpty())
            addValues(addRow(nullptr, tr("Project")), changes.values);
        for (const SScreenChange &each : changes.screens)
            addScreen(each);
        addPictureChanges();
        if (m_rows >= MaxRows)
            new QTreeWidgetItem(m_tree, {tr("There are more changes than are listed here.")});
        QTreeWidgetItem *kept = m_tree->topLevelItem(0);
        for (QTreeWidgetItemIterator it(m_tree); *it; ++it)
            if ((*it)->text(0) == text && placeOf(*it, BeforeRole) == before &&
                placeOf(*it, AfterRole) == after) {
                kept = *it;
                break;
            }
        if (m_rows <= FewRows)
            m_tree->expandAll();
        else
            m_tree->expandToDepth(0);
        m_tree->setCurrentItem(kept);
        m_tree->setUpdatesEnabled(true);
    }
    showHead(m_tree->topLevelItemCount() == 0);
    showPictures();
}

void CCompareView::showHead(bool isEqual)
{
    if (!m_comparison->earlier())
        m_head->setText(tr("Choose File > Compare With... to see what has changed."));
    else if (isEqual)
        m_head->setText(
            tr("Nothing has changed since: %1").arg(ShownText::name(m_comparison->title())));
    else
        m_head->setText(tr("Changed since: %1").arg(ShownText::name(m_comparison->title())));
}

QTreeWidgetItem *CCompareView::addRow(QTreeWidgetItem *parent, const QString &text)
{
    ++m_rows;
    auto *row = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(m_tree);
    row->setText(0, ShownText::name(text));
    return row;
}

void CCompareView::setPlaces(QTreeWidgetItem *row, const CItemModel *before,
                             const CItemModel *after)
{
    if (before)
        row->setData(0, BeforeRole,
                     QPersistentModelIndex(m_comparison->earlier()->indexFromItem(before)));
    if (after)
        row->setData(0, AfterRole,
                     QPersistentModelIndex(m_comparison->project()->indexFromItem(after)));
}

void CCompareView::addValues(QTreeWidgetItem *parent, const QVector<SValueChange> &values)
{
    for (const SValueChange &each : values) {
        if (m_rows >= MaxRows)
            return;
        QTreeWidgetItem *row = addRow(parent, each.key);
        for (int role : {BeforeRole, AfterRole})
            row->setData(0, role, parent->data(0, role));
        row->setText(1, ShownText::name(each.before));
        row->setText(2, ShownText::name(each.after));
        row->setToolTip(1, ShownText::toolTip(each.before));
        row->setToolTip(2, ShownText::toolTip(each.after));
    }
}

void CCompareView::addScreen(const SScreenChange &change)
{
    if (m_rows >= MaxRows)
        return;
    const QString name = (change.after ? change.after : change.before)->name();
    QTreeWidgetItem *row =
        addRow(nullptr, (change.kind == SScreenChange::EKind::Added     ? tr("Page added: %1")
                         : change.kind == SScreenChange::EKind::Removed ? tr("Page removed: %1")
                                                                        : tr("Page changed: %1"))
                            .arg(name));
    setPlaces(row, change.before, change.after);
    addValues(row, change.values);
    if (change.isReordered)
        addRow(row, tr("In another order"));
    for (const SItemChange &each : change.items)
        addItem(row, each);
}

/// Of pages with the same values: an image's file is another one, say.
void CCompareView::addPictureChanges()
{
    const auto differences = m_comparison->differences();
    const CProjectModel *project = m_comparison->project();
    for (int row = 0; project && row < project->screenCount() && m_rows < MaxRows; ++row) {
        const QPersistentModelIndex page = project->index(row, 0);
        if (!differences.contains(page))
            continue;
        QTreeWidgetItem *found = nullptr;
        for (int each = 0; each < m_tree->topLevelItemCount() && !found; ++each)
            if (placeOf(m_tree->topLevelItem(each), AfterRole) == page)
                found = m_tree->topLevelItem(each);
        if (!found) {
            found = addRow(nullptr, tr("Picture changed: %1").arg(project->screen(row)->name()));
            found->setData(0, AfterRole, page);
            found->setData(0, BeforeRole, QPersistentModelIndex(m_comparison->earlierOf(page)));
        }
        found->setText(2, tr("Pixels: %1").arg(differences.value(page).pixels));
    }
}

void CCompareView::addItem(QTreeWidgetItem *screen, const SItemChange &change)
{
    if (m_rows >= MaxRows)
        return;
    QString text;
    switch (change.kind) {
    case SItemChange::EKind::Added:
        text = tr("Added: %1");
        break;
    case SItemChange::EKind::Removed:
        text = tr("Removed: %1");
        break;
    case SItemChange::EKind::Moved:
        text = tr("Moved: %1");
        break;
    case SItemChange::EKind::Changed:
        text = tr("Changed: %1");
        break;
    }
    QTreeWidgetItem *row =
        addRow(screen, text.arg((change.after ? change.after : change.before)->name()));
    setPlaces(row, change.before, change.after);
    addValues(row, change.values);
    if (!change.screenBefore.isEmpty())
        addRow(row, tr("From another page: %1").arg(change.screenBefore));
    if (change.isRegrouped)
        addRow(row, tr("In another group"));
    if (change.isReordered)
        addRow(row, tr("In another order"));
}

void CCompareView::showPictures()
{
    const QTreeWidgetItem *page = topOf(m_tree->currentItem());
    const QPersistentModelIndex before = placeOf(page, BeforeRole);
    const QPersistentModelIndex after = placeOf(page, AfterRole);
    QString note = m_comparison->whyNoPictures();
    const bool isPage = before.isValid() || after.isValid();
    if (note.isEmpty() && isPage)
        note = tr("There is no picture here yet, or none on this side.");
    const QImage now = m_comparison->picture(after);
    m_pictures->setPictures(m_comparison->picture(before), now, note);
}

/// What was removed is looked for on its page.
void CCompareView::showPlace(const QTreeWidgetItem *row)
{
    for (; row && m_comparison->project(); row = row->parent()) {
        const QPersistentModelIndex index = placeOf(row, AfterRole);
        if (!index.isValid() || index.model() != m_comparison->project())
            continue;
        if (auto *place = CItemModel::fromItem(m_comparison->project()->itemFromIndex(index)))
            Q_EMIT placeWanted(place);
        return;
    }
}

bool CCompareView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            showPlace(m_tree->currentItem());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void CCompareView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CCompareView::retranslate()
{
    m_tree->setHeaderLabels({tr("Change"), tr("Before"), tr("Now")});
    fill();
}
