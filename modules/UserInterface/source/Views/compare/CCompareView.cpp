#include "CCompareView.h"

#include "CChangesModel.h"
#include "CComparedPictures.h"
#include "CComparison.h"
#include "CItemModel.h"
#include "ShownText.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QSet>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTreeView>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int Margin = 6;       // pixels
constexpr int FewRows = 60;     ///< of which the values are seen at once
constexpr int MaxOpened = 1000; ///< rows that are opened without being asked for

QModelIndex topOf(QModelIndex index)
{
    while (index.parent().isValid())
        index = index.parent();
    return index;
}

/// Top rows and what is below those that are open.
template<typename Visit>
void forEachOpen(const QTreeView &tree, const QModelIndex &parent, Visit visit)
{
    for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
        const QModelIndex index = tree.model()->index(row, 0, parent);
        visit(index);
        if (tree.isExpanded(index))
            forEachOpen(tree, index, visit);
    }
}

} // namespace

CCompareView::CCompareView(CComparison *comparison, QWidget *parent)
    : QWidget(parent),
      m_comparison(comparison),
      m_head(new QLabel),
      m_model(new CChangesModel(comparison, this)),
      m_tree(new QTreeView),
      m_pictures(new CComparedPictures)
{
    m_head->setTextFormat(Qt::PlainText);
    m_head->setWordWrap(true);
    m_tree->setObjectName(QStringLiteral("compareList"));
    m_tree->setUniformRowHeights(true);
    m_tree->setAllColumnsShowFocus(true);
    m_tree->setModel(m_model);
    m_tree->installEventFilter(this);
    m_tree->header()->setSectionResizeMode(QHeaderView::Interactive);
    m_tree->header()->resizeSection(0, 260);
    m_tree->header()->resizeSection(1, 150);
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
    top->addWidget(m_pictures->controls());
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(top);
    layout->addWidget(splitter, 1);
    const CPicturePairs *pictures = comparison->pictures();
    connect(comparison, &CComparison::changed, this, &CCompareView::fill);
    connect(comparison, &CComparison::failed, this, [this](const QString &reason) {
        m_failure = reason;
        showHead();
    });
    connect(pictures, &CPicturePairs::taken, this, &CCompareView::fetchPictures);
    connect(pictures, &CPicturePairs::fetched, m_pictures, &CComparedPictures::setPictures);
    connect(pictures, &CPicturePairs::compared, this, [this] {
        if (!m_model->updatePictures())
            fillAnew();
        showHead();
    });
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &CCompareView::showCurrent);
    connect(m_tree, &QTreeView::clicked, this, &CCompareView::showPlace);
    retranslate();
}

void CCompareView::fill()
{
    if (m_comparison->isReading() || !m_comparison->project())
        m_failure.clear();
    if (std::exchange(m_shown, m_comparison->result().get()) != m_comparison->result().get())
        fillAnew();
    showHead();
    showCurrent();
}

/// What was chosen and open stays so.
void CCompareView::fillAnew()
{
    const QString current = m_model->keyOf(m_tree->currentIndex());
    QSet<QString> open;
    QSet<QString> closed;
    forEachOpen(*m_tree, {}, [&](const QModelIndex &each) {
        (m_tree->isExpanded(each) ? open : closed).insert(m_model->keyOf(each));
    });
    const QSignalBlocker quiet(m_tree->selectionModel());
    m_tree->setUpdatesEnabled(false);
    m_model->update();
    expandFew();
    QModelIndex chosen = m_model->index(0, 0);
    for (const bool isOpening : {true, false}) // then close, so that rows below are met
        forEachOpen(*m_tree, {}, [&](const QModelIndex &each) {
            const QString key = m_model->keyOf(each);
            if (isOpening && open.contains(key))
                m_tree->expand(each);
            else if (!isOpening && closed.contains(key) && m_tree->isExpanded(each))
                m_tree->collapse(each);
            if (key == current)
                chosen = each;
        });
    m_tree->setCurrentIndex(chosen);
    m_tree->setUpdatesEnabled(true);
}

void CCompareView::expandFew()
{
    int rows = m_model->rowCount();
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const QModelIndex top = m_model->index(row, 0);
        rows += m_model->rowCount(top);
        if (rows <= MaxOpened)
            m_tree->expand(top);
    }
    if (rows <= FewRows)
        m_tree->expandAll();
}

/// A failure stands above what was compared before it.
void CCompareView::showHead()
{
    const QString title = ShownText::name(m_comparison->title());
    QStringList lines;
    if (!m_failure.isEmpty())
        lines.append(tr("Not compared: %1").arg(ShownText::message(m_failure)));
    if (m_comparison->isWorking())
        lines.append(tr("Comparing..."));
    else if (m_comparison->earlier())
        lines.append((m_model->rowCount() == 0 ? tr("Nothing has changed since: %1")
                                               : tr("Changed since: %1"))
                         .arg(title));
    else if (m_failure.isEmpty())
        lines.append(tr("Choose File > Compare With... to see what has changed."));
    m_head->setText(lines.join(QLatin1Char('\n')));
}

void CCompareView::fetchPictures()
{
    const QModelIndex page = topOf(m_tree->currentIndex());
    const SItemState *before = m_model->before(page);
    const SItemState *now = m_model->now(page);
    QString note = m_comparison->whyNoPictures();
    if (note.isEmpty() && (before || now))
        note = tr("There is no picture here yet, or none on this side.");
    m_pictures->setNote(note);
    m_comparison->pictures()->fetch(before ? before->item : nullptr, now ? now->item : nullptr);
}

/// With the frame of an item; a page is the picture itself.
void CCompareView::showCurrent()
{
    const QModelIndex current = m_tree->currentIndex();
    const SItemState *before = m_model->before(current);
    const SItemState *now = m_model->now(current);
    m_pictures->setMarks(before && before->parent ? before->box : QRect(),
                         now && now->parent ? now->box : QRect());
    fetchPictures();
}

/// What was removed is looked for on its page, and shown in the picture of that time.
void CCompareView::showPlace(const QModelIndex &index)
{
    const SItemState *now = m_model->now(index);
    if (!now && m_model->before(index) && m_pictures->mode() == CComparedPictures::Now)
        m_pictures->setMode(CComparedPictures::Before);
    if (!now)
        now = m_model->now(topOf(index));
    if (CItemModel *place = m_comparison->itemOf(now))
        Q_EMIT placeWanted(place);
}

bool CCompareView::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            showPlace(m_tree->currentIndex());
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
    fillAnew(); // the headings too are new then
    showHead();
    showCurrent();
}
