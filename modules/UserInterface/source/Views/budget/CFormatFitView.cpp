#include "CFormatFitView.h"

#include "CBudgetResults.h"
#include "CBudgetTable.h"
#include "CFormatAdoption.h"
#include "CFormatSearch.h"
#include "CItemModel.h"
#include "CMemoryBar.h"
#include "ErrorCells.h"
#include "ShownText.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>

#include <algorithm>

namespace {

constexpr int Margin = 6; // pixels
constexpr int IconSide = 24;
enum EColumn { Picture, FormatNow, FormatThen, BytesNow };

/// That the screen needs, of what there is.
double shareOf(const FormatProposal::SSum &sum)
{
    return CMemoryBar::shareOf({sum.bytes, sum.screen->ramG.budget});
}

FormatProposal::SSum fullest(const QVector<FormatProposal::SSum> &sums)
{
    return *std::max_element(sums.begin(), sums.end(),
                             [](const auto &a, const auto &b) { return shareOf(a) < shareOf(b); });
}

const SFormatTrial &proposed(const SImageTrials &image)
{
    return image.trials[image.proposed];
}

bool isChange(const SImageTrials &image)
{
    return image.proposed >= 0 && proposed(image).format != image.format;
}

QString keyOf(const SImageTrials &image)
{
    return proposed(image).format + QLatin1Char('/') + CBudgetResults::keyOf(image.asset);
}

} // namespace

CFormatFitView::CFormatFitView(QWidget *parent)
    : QWidget(parent),
      m_search(new CFormatSearch(this)),
      m_rows(new CBudgetTable(this)),
      m_state(new QLabel),
      m_progress(new QProgressBar),
      m_find(new QPushButton),
      m_cancel(new QPushButton),
      m_table(new QTreeView),
      m_sum(new QLabel),
      m_use(new QPushButton)
{
    m_table->setObjectName(QStringLiteral("fitFormats"));
    m_table->setModel(m_rows);
    m_table->setRootIsDecorated(false);
    m_table->setUniformRowHeights(true);
    m_table->setAllColumnsShowFocus(true);
    m_table->setIconSize(QSize(IconSide, IconSide));
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(BytesNow, Qt::DescendingOrder);
    m_find->setObjectName(QStringLiteral("findFormats"));
    m_cancel->setObjectName(QStringLiteral("cancelFormats"));
    m_use->setObjectName(QStringLiteral("useFormats"));
    m_sum->setObjectName(QStringLiteral("formatsSum"));
    for (QLabel *label : {m_state, m_sum}) {
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
    }
    auto *above = new QHBoxLayout;
    above->addWidget(m_state, 1);
    above->addWidget(m_progress);
    above->addWidget(m_cancel);
    above->addWidget(m_find);
    auto *below = new QHBoxLayout;
    below->addWidget(m_sum, 1);
    below->addWidget(m_use);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, Margin, Margin, Margin);
    layout->addLayout(above);
    layout->addWidget(m_table, 1);
    layout->addLayout(below);

    connect(m_find, &QPushButton::clicked, this, [this] {
        m_ticks.clear();
        m_search->start();
    });
    connect(m_cancel, &QPushButton::clicked, m_search, &CFormatSearch::cancel);
    connect(m_use, &QPushButton::clicked, this, &CFormatFitView::adopt);
    connect(m_search, &CFormatSearch::changed, this, &CFormatFitView::fill);
    connect(m_search, &CFormatSearch::progressed, this,
            [this] { m_progress->setValue(m_search->done()); });
    connect(m_rows, &CBudgetTable::ticked, this, [this](const QString &key, bool isOn) {
        m_ticks.insert(key, isOn);
        showSum();
    });
    // The space bar ticks the chosen row, wherever it was clicked at.
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &current) {
                if (current.column() > 0)
                    m_table->setCurrentIndex(current.siblingAtColumn(0));
            });
    connect(m_table, &QTreeView::activated, this, [this](const QModelIndex &index) {
        QList<CItemModel *> items;
        for (const CItemModel *item : m_rows->row(index.row()).items)
            if (m_results->isThere(item)) // const in the figures only
                items.append(const_cast<CItemModel *>(item));
        if (!items.isEmpty())
            Q_EMIT itemsWanted(items);
    });
}

void CFormatFitView::setResults(CBudgetResults *results)
{
    m_results = results;
    m_search->setResults(results);
    m_adoption = new CFormatAdoption(results, this);
    connect(m_adoption, &CFormatAdoption::message, this, &CFormatFitView::message);
    retranslate();
}

bool CFormatFitView::isTicked(const SImageTrials &image) const
{
    const bool isLacking =
        std::none_of(image.trials.begin(), image.trials.end(),
                     [&image](const SFormatTrial &each) { return each.format == image.format; });
    // What was small on purpose does not grow by itself, but what the chip cannot draw has to
    // change.
    return m_ticks.value(keyOf(image),
                         isLacking || size_t(proposed(image).bytes) <= image.asset.bytes);
}

QVector<SImageTrials> CFormatFitView::ticked() const
{
    QVector<SImageTrials> images = m_search->images();
    for (SImageTrials &image : images)
        if (!isChange(image) || !isTicked(image))
            image.proposed = -1;
    return images;
}

QString CFormatFitView::stateText() const
{
    if (m_search->isRunning())
        return tr("Trying all pictures in all formats of the chip...");
    if (!m_search->hasProposal() || m_search->budget().screens.isEmpty())
        return tr("Tries all pictures of the project in every format of the chip and proposes "
                  "those in which every page fits with the least visible loss.");
    const QVector<SImageTrials> &images = m_search->images();
    const bool fitsNow = shareOf(fullest(FormatProposal::sumsOf({}, m_search->budget()))) <= 1;
    QString text;
    const bool isEmpty = std::none_of(images.begin(), images.end(), isChange);
    if (m_search->fits() && fitsNow && isEmpty)
        text = tr("Every page fits as it is, and no other formats are better.");
    else if (m_search->fits() && fitsNow)
        text = tr("Every page fits as it is. What is listed is as good or better and fits too; "
                  "what would grow is not ticked.");
    else if (m_search->fits())
        text = tr("With all of these formats every page fits, with the least visible loss.");
    else
        text = tr("No formats make every page fit. What is listed comes closest.");
    if (!m_search->failure().isEmpty())
        text += QLatin1Char(' ') + tr("Could not be tried: %1.").arg(m_search->failure());
    if (!m_search->leftOut().isEmpty())
        text += QLatin1Char(' ') + tr("Locked or without the file it was made of: %1.")
                                       .arg(m_search->leftOut().join(QStringLiteral(", ")));
    return text;
}

void CFormatFitView::fill()
{
    const bool isRunning = m_search->isRunning();
    m_state->setText(ShownText::message(stateText()));
    m_progress->setVisible(isRunning);
    m_progress->setRange(0, std::max(1, m_search->total()));
    m_progress->setValue(m_search->done());
    const bool hadFocus = m_find->hasFocus() || m_cancel->hasFocus();
    m_cancel->setVisible(isRunning);
    m_find->setVisible(!isRunning);
    if (hadFocus)
        (isRunning ? m_cancel : m_find)->setFocus();
    fillRows();
}

void CFormatFitView::fillRows()
{
    const QModelIndex current = m_table->currentIndex();
    const QString key = current.isValid() ? m_rows->row(current.row()).key : QString();
    QVector<CBudgetTable::SRow> rows;
    for (const SImageTrials &image : m_search->images()) {
        if (!m_search->hasProposal() || !isChange(image))
            continue;
        const SFormatTrial &trial = proposed(image);
        CBudgetTable::SRow row;
        row.key = keyOf(image);
        row.tick = isTicked(image);
        row.items = image.asset.items;
        row.toolTip = image.source + QLatin1Char('\n') + ErrorCells::toolTip();
        row.icon = CBudgetTable::iconOf(m_results->pictureOf(image.asset));
        row.cells = {QFileInfo(image.source).fileName(),
                     image.format,
                     trial.format,
                     qlonglong(image.asset.bytes),
                     trial.bytes,
                     QVariant::fromValue(ErrorCells::psnr(trial.error)),
                     QVariant::fromValue(ErrorCells::ssim(trial.error))};
        rows.append(row);
    }
    m_rows->setRows(rows);
    if (const int row = m_rows->rowOf(key); row >= 0)
        m_table->setCurrentIndex(m_rows->index(row, 0));
    else if (!rows.isEmpty())
        m_table->setCurrentIndex(m_rows->index(0, 0));
    showSum();
}

void CFormatFitView::showSum()
{
    const bool isKnown = m_search->hasProposal() && !m_search->budget().screens.isEmpty();
    const QVector<SImageTrials> images = ticked();
    m_use->setEnabled(isKnown && std::any_of(images.begin(), images.end(), isChange));
    m_sum->clear();
    if (!isKnown)
        return;
    const FormatProposal::SSum sum = fullest(FormatProposal::sumsOf(images, m_search->budget()));
    const CItemModel *page = sum.screen->screen;
    if (!m_results->isThere(page))
        return;
    const size_t budget = sum.screen->ramG.budget;
    const QLocale locale;
    const QString figures = CMemoryBar::textOf({sum.bytes, budget});
    const QString text =
        sum.bytes <= budget
            ? tr("With what is ticked the fullest page is %1: %2.").arg(page->name(), figures)
            : tr("With what is ticked the fullest page is %1: %2, %3 bytes too many.")
                  .arg(page->name(), figures, locale.toString(qulonglong(sum.bytes - budget)));
    m_sum->setText(ShownText::message(text));
}

void CFormatFitView::adopt()
{
    CFormatAdoption::Formats formats;
    for (const SImageTrials &image : ticked())
        if (isChange(image))
            formats.append({image.asset, proposed(image).format});
    m_table->setFocus();      // a button that is disabled would pass it on to anything
    m_use->setEnabled(false); // the conversion runs the event loop
    if (m_adoption->adopt(formats))
        m_search->waitForResults();
    fill();
}

void CFormatFitView::retranslate()
{
    m_rows->setHeaders({tr("Picture"), tr("Format"), tr("Proposed"), tr("Bytes"), tr("Then"),
                        ErrorCells::psnrTitle(), tr("SSIM")});
    m_table->header()->setStretchLastSection(false);
    m_table->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    m_table->header()->setSectionResizeMode(Picture, QHeaderView::Stretch);
    m_find->setText(tr("Find F&ormats"));
    m_cancel->setText(tr("Cancel"));
    m_use->setText(tr("&Use Ticked Formats"));
    fill();
}
