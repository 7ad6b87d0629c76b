#include "CChecksView.h"

#include "CImageRenewal.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "Rules.h"
#include "ShownText.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPointer>
#include <QStackedLayout>
#include <QStyle>
#include <QToolButton>
#include <QTreeWidget>

#include <algorithm>
#include <utility>

namespace {

constexpr int EntryRole = Qt::UserRole + 1; ///< index of the entry
constexpr int Margin = 6;                   // pixels
constexpr int MeasuredRows = 100;           // for the width of a column
constexpr int Pause = 300;                  // milliseconds, while screens come

bool areSame(const CCheckResults::SEntry &a, const CCheckResults::SEntry &b)
{
    return a.finding.rule == b.finding.rule && a.finding.severity == b.finding.severity &&
           a.screen == b.screen && a.item == b.item && a.finding.text == b.finding.text &&
           a.finding.file == b.finding.file && a.finding.subject == b.finding.subject &&
           a.finding.ignoredBecause == b.finding.ignoredBecause &&
           a.finding.ignoredBecause.isNull() == b.finding.ignoredBecause.isNull();
}

/// Its texts are made when they are asked for, since few of thousands are ever seen.
class CFindingRow final : public QTreeWidgetItem
{
public:
    CFindingRow(const CCheckResults::SEntry &entry, int index) : m_entry(entry), m_index(index) {}

    QVariant data(int column, int role) const override
    {
        if (role == EntryRole)
            return m_index;
        if (role == Qt::DisplayRole && column == 0)
            return ShownText::name(m_entry.finding.ignoredBecause.isEmpty()
                                       ? m_entry.finding.text
                                       : QStringLiteral("%1 (%2)").arg(
                                             m_entry.finding.text, m_entry.finding.ignoredBecause));
        if (role == Qt::DisplayRole)
            return m_entry.screen.isValid() ? ShownText::name(m_entry.screen.data().toString())
                                            : QString();
        return role == Qt::ToolTipRole && column == 0 ? toolTip(m_entry.finding)
                                                      : QTreeWidgetItem::data(column, role);
    }

private:
    static QString toolTip(const SFinding &finding)
    {
        QString text = Rules::title(finding.rule) + QLatin1Char('\n') + finding.text +
                       QLatin1Char('\n') + Rules::advice(finding.rule);
        if (!finding.ignoredBecause.isEmpty())
            text += QLatin1Char('\n') + CChecksView::tr("Ignored: %1").arg(finding.ignoredBecause);
        return ShownText::toolTip(text);
    }

    const CCheckResults::SEntry m_entry;
    const int m_index; ///< of the entry
};

} // namespace

CChecksView::CChecksView(QWidget *parent)
    : QWidget(parent),
      m_screens(new QComboBox),
      m_showIgnored(new QCheckBox),
      m_measures(new QToolButton),
      m_tree(new QTreeWidget),
      m_empty(new QLabel),
      m_stack(new QStackedLayout)
{
    m_tree->setObjectName(QStringLiteral("checksList"));
    m_tree->setColumnCount(2);
    m_tree->setRootIsDecorated(true);
    m_tree->setUniformRowHeights(true);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setResizeContentsPrecision(MeasuredRows);
    m_tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_tree->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_tree->installEventFilter(this);
    m_empty->setAlignment(Qt::AlignCenter);
    m_empty->setWordWrap(true);

    auto *tools = new QHBoxLayout;
    tools->setContentsMargins(Margin, Margin, Margin, 0);
    m_screens->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    tools->addWidget(m_screens);
    tools->addWidget(m_showIgnored);
    tools->addStretch();
    m_measures->setObjectName(QStringLiteral("checkMeasures"));
    m_measures->setPopupMode(QToolButton::InstantPopup);
    m_measures->setFocusPolicy(Qt::TabFocus);
    m_measures->setMenu(new QMenu(m_measures));
    tools->addWidget(m_measures);
    m_stack->addWidget(m_tree);
    m_stack->addWidget(m_empty);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(tools);
    layout->addLayout(m_stack, 1);

    connect(m_screens, QOverload<int>::of(&QComboBox::activated), this, &CChecksView::fill);
    connect(m_showIgnored, &QCheckBox::toggled, this, &CChecksView::fill);
    m_later.setSingleShot(true);
    m_later.setInterval(Pause);
    connect(&m_later, &QTimer::timeout, this, &CChecksView::follow);
    connect(m_tree, &QTreeWidget::itemClicked, this, &CChecksView::showPlace);
    connect(m_tree, &QWidget::customContextMenuRequested, this, &CChecksView::showMenu);
    retranslate();
}

void CChecksView::setResults(CCheckResults *results)
{
    m_results = results;
    connect(results, &CCheckResults::changed, this, &CChecksView::follow);
    connect(results, &CCheckResults::partlyChanged, this, [this] {
        if (!m_later.isActive())
            m_later.start();
    });
    fill();
}

QStringList CChecksView::pageNames() const
{
    QStringList names;
    const CProjectModel *project = m_results ? m_results->project() : nullptr;
    for (int row = 0; project && row < project->screenCount(); ++row)
        names.append(ShownText::name(project->screen(row)->name()));
    return names;
}

void CChecksView::fillScreens()
{
    const QString chosen = m_screens->currentIndex() > 0 ? m_screens->currentText() : QString();
    m_screens->clear();
    m_screens->addItem(tr("All pages"));
    m_pages = pageNames();
    for (int row = 0; row < m_pages.size(); ++row)
        m_screens->addItem(m_pages[row],
                           QPersistentModelIndex(m_results->project()->index(row, 0)));
    m_screens->setCurrentIndex(std::max(0, m_screens->findText(chosen)));
}

bool CChecksView::isShown(const CCheckResults::SEntry &entry) const
{
    const QModelIndex screen = m_screens->currentData().toPersistentModelIndex();
    return m_screens->currentIndex() <= 0 || entry.screen == screen;
}

/// A list of thousands takes a while to fill: only when it is seen, and something else is found.
void CChecksView::follow()
{
    m_later.stop();
    const QVector<CCheckResults::SEntry> entries = m_results->entries();
    const auto counts = [](const CCheckResults::SEntry &entry) {
        return entry.finding.ignoredBecause.isNull();
    };
    const int count = int(std::count_if(entries.begin(), entries.end(), counts));
    if (std::exchange(m_count, count) != count)
        Q_EMIT countChanged(count);
    m_isStale =
        m_isStale || !m_results->project() || m_pages != pageNames() ||
        !std::equal(entries.begin(), entries.end(), m_entries.begin(), m_entries.end(), areSame);
    if (m_isStale && isVisible())
        fill();
}

void CChecksView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_isStale)
        fill();
}

void CChecksView::fill()
{
    m_isStale = false;
    const CCheckResults::SEntry *kept = entryOf(m_tree->currentItem());
    const CCheckResults::SEntry current = kept ? *kept : CCheckResults::SEntry();
    const bool hadCurrent = kept;
    fillScreens();
    m_entries = m_results ? m_results->entries() : QVector<CCheckResults::SEntry>();
    QVector<int> groups[4]; // errors, warnings, notes, ignored
    for (int i = 0; i < m_entries.size(); ++i) {
        const SFinding &finding = m_entries[i].finding;
        const bool isIgnored = !finding.ignoredBecause.isNull();
        if (!isShown(m_entries[i]))
            continue;
        groups[isIgnored                                ? 3
               : finding.severity == ESeverity::Error   ? 0
               : finding.severity == ESeverity::Warning ? 1
                                                        : 2]
            .append(i);
    }
    m_tree->setUpdatesEnabled(false);
    m_tree->clear();
    addGroup(tr("Errors"), "SP_MessageBoxCritical", groups[0]);
    addGroup(tr("Warnings"), "SP_MessageBoxWarning", groups[1]);
    addGroup(tr("Notes"), "SP_MessageBoxInformation", groups[2]);
    if (m_showIgnored->isChecked())
        addGroup(tr("Ignored"), nullptr, groups[3]);
    for (QTreeWidgetItemIterator it(m_tree); hadCurrent && *it; ++it) {
        const CCheckResults::SEntry *entry = entryOf(*it);
        if (entry && entry->finding.rule == current.finding.rule && entry->item == current.item &&
            entry->screen == current.screen && entry->finding.text == current.finding.text) {
            m_tree->setCurrentItem(*it);
            break;
        }
    }
    m_tree->setUpdatesEnabled(true);
    m_measures->setEnabled(m_results && m_results->project());
    const bool isEmpty = m_tree->topLevelItemCount() == 0;
    m_empty->setText(m_results && m_results->project() ? tr("Nothing found.")
                                                       : tr("No project is open."));
    m_stack->setCurrentWidget(isEmpty ? static_cast<QWidget *>(m_empty) : m_tree);
}

void CChecksView::addGroup(const QString &title, const char *icon, const QVector<int> &entries)
{
    if (entries.isEmpty())
        return;
    auto *group = new QTreeWidgetItem; // the tree gets it when it is whole, which is much faster
    group->setText(0, QStringLiteral("%1 (%2)").arg(title).arg(entries.size()));
    group->setFlags(Qt::ItemIsEnabled);
    const auto pixmap = [icon] {
        return icon == QLatin1String("SP_MessageBoxCritical")  ? QStyle::SP_MessageBoxCritical
               : icon == QLatin1String("SP_MessageBoxWarning") ? QStyle::SP_MessageBoxWarning
                                                               : QStyle::SP_MessageBoxInformation;
    };
    if (icon)
        group->setIcon(0, style()->standardIcon(pixmap()));
    QList<QTreeWidgetItem *> rows;
    for (const int i : entries)
        rows.append(new CFindingRow(m_entries[i], i));
    group->addChildren(rows);
    m_tree->addTopLevelItem(group);
    group->setFirstColumnSpanned(true);
    group->setExpanded(true);
}

const CCheckResults::SEntry *CChecksView::entryOf(const QTreeWidgetItem *row) const
{
    const QVariant index = row ? row->data(0, EntryRole) : QVariant();
    return index.isValid() && index.toInt() < m_entries.size() ? &m_entries[index.toInt()]
                                                               : nullptr;
}

void CChecksView::showPlace(const QTreeWidgetItem *row)
{
    const CCheckResults::SEntry *entry = entryOf(row);
    if (!entry || !m_results->project())
        return;
    const QPersistentModelIndex &index = entry->item.isValid() ? entry->item : entry->screen;
    if (CItemModel *place = CItemModel::fromItem(m_results->project()->itemFromIndex(index)))
        Q_EMIT placeWanted(place);
}

void CChecksView::goTo(int step)
{
    if (m_isStale)
        fill();
    QVector<QTreeWidgetItem *> rows;
    int current = -1;
    for (QTreeWidgetItemIterator it(m_tree); *it; ++it) {
        if (!entryOf(*it))
            continue;
        if (*it == m_tree->currentItem())
            current = rows.size();
        rows.append(*it);
    }
    if (rows.isEmpty())
        return;
    const int count = rows.size();
    const int next = current < 0 ? (step > 0 ? 0 : count - 1) : (current + step + count) % count;
    m_tree->setCurrentItem(rows[next]);
    m_tree->scrollToItem(rows[next]);
    showPlace(rows[next]);
}

bool CChecksView::eventFilter(QObject *watched, QEvent *event)
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

void CChecksView::showMenu(const QPoint &place)
{
    QTreeWidgetItem *row = m_tree->itemAt(place);
    const CCheckResults::SEntry *found = entryOf(row);
    if (!found)
        return;
    const CCheckResults::SEntry entry = *found; // the list may be filled anew meanwhile
    QMenu menu(this);
    const bool hasPlace = entry.screen.isValid() || entry.item.isValid();
    if (hasPlace)
        menu.addAction(tr("&Go There"), this, [this, row] { showPlace(row); });
    if (entry.finding.ignoredBecause.isNull())
        menu.addAction(hasPlace ? tr("&Ignore Here...") : tr("&Ignore..."), this,
                       [this, &entry] { ignore(entry); });
    else
        menu.addAction(tr("&Ask About It Again"), this,
                       [this, &entry] { CheckFixes::ignore(*m_results->project(), entry, {}); });
    const QString fix = CheckFixes::mend(entry);
    if (!fix.isEmpty())
        menu.addAction(fix, this, [this, &entry] { mend(entry); });
    const CheckFixes::SMeasure measure = CheckFixes::measure(entry);
    if (!measure.key.isEmpty())
        menu.addAction(measure.title, this, [this, measure] { ask(measure); });
    menu.exec(m_tree->viewport()->mapToGlobal(place));
}

void CChecksView::ignore(const CCheckResults::SEntry &entry)
{
    bool isGiven = false;
    const QString reason =
        QInputDialog::getText(this, tr("Ignore a Finding"), tr("Why is it right as it is?"),
                              QLineEdit::Normal, QString(), &isGiven);
    const bool isThere = !(entry.finding.item && !entry.item.isValid()) &&
                         !(entry.finding.screen && !entry.screen.isValid());
    if (isGiven && isThere && m_results->project() && !reason.trimmed().isEmpty())
        CheckFixes::ignore(*m_results->project(), entry, reason);
}

void CChecksView::ask(const CheckFixes::SMeasure &measure)
{
    bool isGiven = false;
    const double known = m_results->project()->propertyText(measure.key).toDouble();
    const double value = QInputDialog::getDouble(
        this, QString(measure.title).remove(QLatin1Char('&')).remove(QLatin1String("...")),
        measure.question, known > 0 ? known : measure.usual, 1, measure.most, 0, &isGiven);
    if (isGiven && m_results->project() && value != known)
        CheckFixes::setMeasure(*m_results->project(), measure.key, value);
}

void CChecksView::mend(const CCheckResults::SEntry &entry)
{
    if (!m_results->project())
        return;
    if (CheckFixes::removesFile(entry)) {
        removeFile(entry);
        return;
    }
    const QString source = CheckFixes::sourceToConvert(entry);
    if (!source.isEmpty()) {
        CImageRenewal renewal(this);
        connect(&renewal, &CImageRenewal::message, this, &CChecksView::message);
        renewal.run(*m_results->project(), source);
        return;
    }
    CheckFixes::apply(*m_results->project(), entry);
}

void CChecksView::removeFile(const CCheckResults::SEntry &entry)
{
    const QPointer<CProjectModel> project = m_results->project();
    const auto tried = [self = QPointer<CChecksView>(this)](const QString &error) {
        if (self)
            self->tellOfFiles(error);
    };
    const CCommandDeleteImage::SCalls calls{m_isSaved, tried};
    const QString refusal = CCommandDeleteImage::whyNot(*project, entry.finding.file, calls);
    if (!refusal.isEmpty()) {
        QMessageBox::information(this, tr("Delete the File"), ShownText::message(refusal));
        m_results->lookAtFiles(); // it may have been looked at before an item showed it again
        return;
    }
    const QString question = tr("Delete %1?").arg(ShownText::message(entry.finding.file));
    constexpr auto Both = QMessageBox::Yes | QMessageBox::No;
    if (QMessageBox::question(this, tr("Delete the File"), question, Both, QMessageBox::No) ==
            QMessageBox::Yes &&
        project)
        CheckFixes::removeFile(*project, entry, calls);
}

void CChecksView::tellOfFiles(const QString &error)
{
    if (!error.isEmpty())
        Q_EMIT message(ShownText::message(error));
    m_results->lookAtFiles();
}

void CChecksView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    if (m_results)
        m_results->startAnew(); // the sentences are in the language of their time
}

void CChecksView::retranslate()
{
    m_tree->setHeaderLabels({tr("Finding"), tr("Page")});
    m_showIgnored->setText(tr("Show ignored"));
    m_measures->setText(tr("Measure By"));
    m_measures->setToolTip(tr("What the project is measured by"));
    m_measures->menu()->clear();
    const auto measures = CheckFixes::measures();
    for (const CheckFixes::SMeasure &each : measures)
        m_measures->menu()->addAction(each.title, this, [this, each] { ask(each); });
    m_screens->setToolTip(tr("The page whose findings are shown"));
    fill();
}
