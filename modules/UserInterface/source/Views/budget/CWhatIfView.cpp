#include "CWhatIfView.h"

#include "CFormatAdoption.h"
#include "CFormatTrials.h"
#include "CPicturePair.h"
#include "ErrorCells.h"
#include "ShownText.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeView>

namespace {

constexpr int Margin = 6; // pixels
constexpr int BytesColumn = 1;
constexpr int TableChars = 44; // of which the longest name is seen whole

QStringList formatsOf(const SImageTrials &image)
{
    QStringList formats;
    for (const SFormatTrial &trial : image.trials)
        formats.append(trial.format);
    return formats;
}

} // namespace

CWhatIfView::CWhatIfView(QWidget *parent)
    : QWidget(parent),
      m_trials(new CFormatTrials(this)),
      m_formats(new CBudgetTable(this)),
      m_table(new QTreeView),
      m_hint(new QLabel),
      m_name(new QLabel),
      m_pictures(new CPicturePair),
      m_use(new QPushButton)
{
    m_table->setObjectName(QStringLiteral("whatIfFormats"));
    m_table->setModel(m_formats);
    m_table->setRootIsDecorated(false);
    m_table->setUniformRowHeights(true);
    m_table->setAllColumnsShowFocus(true);
    m_table->setSortingEnabled(true);
    m_table->sortByColumn(BytesColumn, Qt::DescendingOrder);
    m_use->setObjectName(QStringLiteral("useFormat"));
    m_hint->setWordWrap(true);
    m_name->setWordWrap(true); // rather than narrow the button
    auto *right = new QVBoxLayout;
    right->addWidget(m_hint);
    right->addWidget(m_pictures, 1);
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // the button is seen whole
    auto *below = new QHBoxLayout;
    below->addWidget(m_name, 1);
    below->addWidget(m_use);
    right->addLayout(below);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, Margin, Margin);
    m_table->setMinimumWidth(TableChars * fontMetrics().averageCharWidth());
    layout->addWidget(m_table, 1);
    layout->addLayout(right, 1);
    connect(m_trials, &CFormatTrials::originalRead, m_pictures, &CPicturePair::setOriginal);
    connect(m_trials, &CFormatTrials::tried, this, &CWhatIfView::take);
    connect(m_table->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &CWhatIfView::showChosen);
    connect(m_use, &QPushButton::clicked, this, &CWhatIfView::adopt);
    retranslate();
    m_table->header()->setStretchLastSection(false);
    m_table->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

void CWhatIfView::setResults(CBudgetResults *results)
{
    m_adoption = new CFormatAdoption(results, this);
    connect(m_adoption, &CFormatAdoption::message, this, &CWhatIfView::message);
}

void CWhatIfView::setAsset(const SAssetUse &asset)
{
    const SImageTrials image = FormatProposal::trialsOf(asset);
    const QDateTime changedAt = QFileInfo(image.source).lastModified();
    const bool isSame = m_image.source == image.source && m_changedAt == changedAt &&
                        formatsOf(m_image) == formatsOf(image);
    m_image = image;
    m_changedAt = changedAt;
    if (!isSame) {
        m_trials->cancel();
        m_tried.clear();
        m_pictures->setOriginal({});
        start();
    }
    fill();
}

void CWhatIfView::start()
{
    if (!isVisible() || m_image.trials.isEmpty() || m_trials->isRunning() ||
        m_tried.size() == m_image.trials.size())
        return;
    m_tried.clear();
    m_trials->start(m_image.source, formatsOf(m_image));
}

void CWhatIfView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    start();
}

void CWhatIfView::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_trials->cancel();
}

void CWhatIfView::take(const QString &, const SFormatTrial &trial)
{
    m_tried.insert(trial.format, trial);
    fill();
}

void CWhatIfView::fill()
{
    const QString kept = chosen();
    QVector<CBudgetTable::SRow> rows;
    for (const QString &format : formatsOf(m_image)) {
        const auto trial = m_tried.constFind(format);
        CBudgetTable::SRow row;
        row.key = format;
        row.cells = {format};
        row.isStrong = format == m_image.format;
        if (trial == m_tried.constEnd()) {
            row.cells.append(QStringLiteral("..."));
        } else if (!trial->problem.isEmpty()) {
            row.cells.append(tr("not possible"));
            row.toolTip = trial->problem;
        } else {
            row.cells +=
                {qlonglong(trial->bytes), QVariant::fromValue(ErrorCells::psnr(trial->error)),
                 QVariant::fromValue(ErrorCells::ssim(trial->error))};
            row.toolTip = ErrorCells::toolTip();
        }
        rows.append(row);
    }
    m_formats->setRows(rows);
    const int row = m_formats->rowOf(kept.isEmpty() ? m_image.format : kept);
    if (row >= 0)
        m_table->setCurrentIndex(m_formats->index(row, 0));
    showChosen();
}

QString CWhatIfView::chosen() const
{
    const QModelIndex current = m_table->currentIndex();
    return current.isValid() ? m_formats->row(current.row()).key : QString();
}

void CWhatIfView::showChosen()
{
    const SFormatTrial trial = m_tried.value(chosen());
    m_pictures->setMade(trial.picture);
    m_use->setEnabled(!trial.picture.isNull() && trial.format != m_image.format &&
                      !m_image.isLocked);
    m_use->setToolTip(m_image.isLocked ? tr("An item that shows the image is locked.") : QString());
    const QString name = QFileInfo(m_image.source).fileName();
    m_name->setText(ShownText::name(name));
    m_name->setToolTip(ShownText::toolTip(tr("%1, now %2").arg(m_image.source, m_image.format)));
    m_hint->setVisible(m_image.source.isEmpty());
    m_hint->setText(m_image.asset.file.isEmpty()
                        ? tr("Choose a picture in the first table.")
                        : tr("This one cannot be made in another format: it is no image of an "
                             "item, or the file that it was made of is gone."));
}

void CWhatIfView::adopt()
{
    const QString format = chosen();
    if (m_image.source.isEmpty() || format.isEmpty())
        return;
    m_table->setFocus();      // a button that is disabled would pass it on to anything
    m_use->setEnabled(false); // the conversion runs the event loop
    if (m_adoption->adopt({{m_image.asset, format}}))
        m_image.format = format;
    fill();
}

void CWhatIfView::retranslate()
{
    m_formats->setHeaders({tr("Format"), tr("Bytes"), ErrorCells::psnrTitle(), tr("SSIM")});
    m_use->setText(tr("&Use This Format"));
    m_pictures->setToolTip(tr("Left the original, right the picture as the chip shows it. Wheel, + "
                              "and - zoom both, a drag and the arrow keys move them."));
    fill();
}
