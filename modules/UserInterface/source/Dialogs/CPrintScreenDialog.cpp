#include "CPrintScreenDialog.h"

#include "BackgroundWork.h"
#include "CScreenshotWriter.h"
#include "CThemeIcons.h"
#include "ShownText.h"

#include <QApplication>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QStandardPaths>
#include <QStyledItemDelegate>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

const QSize IconSize(256, 224);

/// A frame, for a screen that has no picture yet.
QIcon emptyIcon(const QSize &size)
{
    QPixmap frame(size);
    frame.fill(Qt::transparent);
    QPainter painter(&frame);
    painter.setPen(QPen(QApplication::palette().color(QPalette::PlaceholderText), 1, Qt::DashLine));
    painter.drawRect(frame.rect().adjusted(0, 0, -1, -1));
    return QIcon(frame);
}

/// Entries as wide as their pictures, whatever their names.
class CPictureDelegate final : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        constexpr int Margin = 8;
        return QStyledItemDelegate::sizeHint(option, index)
            .boundedTo({IconSize.width() + 2 * Margin, QWIDGETSIZE_MAX});
    }
};

QString existingFolder(const QString &folder)
{
    if (!folder.isEmpty() && QFileInfo(folder).isDir())
        return folder;
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    return QFileInfo(pictures).isDir() ? pictures : QDir::homePath();
}

} // namespace

CPrintScreenDialog::CPrintScreenDialog(const Source &pictures, const QString &folder,
                                       QWidget *parent)
    : QDialog(parent),
      m_pictures(pictures),
      m_folder(existingFolder(folder)),
      m_location(new QLabel(this)),
      m_screens(new QListWidget(this)),
      m_choose(new QToolButton(this)),
      m_save(new QPushButton(tr("Save Selection"), this)),
      m_isStopped(std::make_shared<std::atomic<bool>>(false))
{
    setWindowTitle(tr("Save Screenshots"));
    resize(830, 600);
    m_location->setObjectName(QStringLiteral("saveLocation"));
    m_location->setTextFormat(Qt::PlainText);
    m_location->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_screens->setObjectName(QStringLiteral("screens"));
    m_screens->setViewMode(QListView::IconMode);
    m_screens->setIconSize(IconSize);
    m_screens->setMovement(QListView::Static);
    m_screens->setResizeMode(QListView::Adjust);
    m_screens->setSpacing(8);
    m_screens->setItemDelegate(new CPictureDelegate(m_screens));
    m_screens->setSelectionMode(QAbstractItemView::MultiSelection);
    fill();
    layOut();
    showFolder();
}

CPrintScreenDialog::~CPrintScreenDialog()
{
    *m_isStopped = true;
}

void CPrintScreenDialog::layOut()
{
    m_choose->setObjectName(QStringLiteral("chooseFolder"));
    m_choose->setIcon(CThemeIcons::icon(QStringLiteral(":/images/openProject.png")));
    m_choose->setToolTip(tr("Select directory to save screens to"));
    connect(m_choose, &QToolButton::clicked, this, &CPrintScreenDialog::selectFolder);
    m_save->setObjectName(QStringLiteral("save"));
    m_save->setToolTip(tr("Save selected screens and return to editor"));
    m_save->setDefault(true);
    connect(m_save, &QPushButton::clicked, this, &CPrintScreenDialog::saveImages);
    auto *cancel = new QPushButton(tr("Cancel"), this);
    cancel->setToolTip(tr("Cancel and return to editor"));
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, this, &CPrintScreenDialog::close);

    auto *bottom = new QHBoxLayout;
    bottom->setSpacing(8);
    bottom->addWidget(m_choose);
    bottom->addWidget(m_location, 1);
    bottom->addWidget(m_save);
    bottom->addWidget(cancel);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(8);
    layout->addWidget(m_screens);
    layout->addLayout(bottom);
}

void CPrintScreenDialog::fill()
{
    const Pictures pictures = m_pictures();
    // All are as large as the first that is there; one that is larger than the frame in its place
    // would come over the row below.
    QSize frame(IconSize.width(), IconSize.width() * 9 / 16);
    const auto known = std::find_if(pictures.begin(), pictures.end(),
                                    [](const auto &each) { return !each.second.isNull(); });
    if (known != pictures.end())
        frame = known->second.size().scaled(IconSize, Qt::KeepAspectRatio);
    const QIcon empty = emptyIcon(frame.expandedTo({1, 1}));
    for (const auto &[name, picture] : pictures) {
        auto *item = new QListWidgetItem(empty, ShownText::name(name), m_screens);
        item->setTextAlignment(Qt::AlignHCenter);
        item->setToolTip(item->text());
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        m_shown.append(picture.cacheKey());
        showScaled(m_screens->count() - 1, picture);
    }
    m_screens->setCurrentRow(0, QItemSelectionModel::NoUpdate); // current, not picked
}

void CPrintScreenDialog::refresh()
{
    const Pictures pictures = m_pictures();
    for (int row = 0; row < qMin(pictures.size(), m_screens->count()); ++row) {
        const QPixmap &picture = pictures.at(row).second;
        if (m_shown.at(row) == picture.cacheKey())
            continue;
        m_shown[row] = picture.cacheKey();
        showScaled(row, picture);
    }
}

/// As it fits, unless a newer one comes meanwhile.
void CPrintScreenDialog::showScaled(int row, const QPixmap &picture)
{
    if (picture.isNull())
        return;
    const double ratio = devicePixelRatioF();
    BackgroundWork::run(
        this,
        [image = picture.toImage(), size = IconSize * ratio] {
            return image.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        },
        [this, row, ratio, key = picture.cacheKey()](const QImage &scaled) {
            if (m_shown.at(row) != key)
                return;
            QPixmap fitting = QPixmap::fromImage(scaled);
            fitting.setDevicePixelRatio(ratio);
            QListWidgetItem *item = m_screens->item(row);
            const QSize before = item->icon().actualSize(IconSize);
            item->setIcon(CThemeIcons::untinted(fitting));
            if (item->icon().actualSize(IconSize) != before) // the list would leave the rows alone
                m_screens->doItemsLayout();
        });
}

void CPrintScreenDialog::showFolder()
{
    m_location->setText(tr("Save Location: ") + ShownText::message(m_folder));
    m_location->setToolTip(m_folder);
}

void CPrintScreenDialog::selectFolder()
{
    QFileDialog dialog(this, tr("Select directory to save screens to"), m_folder);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    dialog.setViewMode(QFileDialog::Detail);
    if (dialog.exec() != Accepted || dialog.selectedFiles().isEmpty())
        return;
    m_folder = dialog.selectedFiles().first();
    showFolder();
    Q_EMIT saveFolderChanged(m_folder);
}

void CPrintScreenDialog::saveImages()
{
    const Pictures pictures = m_pictures();
    QList<QPair<QString, QImage>> picked;
    for (int row = 0; row < qMin(pictures.size(), m_screens->count()); ++row) {
        if (m_screens->item(row)->isSelected())
            picked.append({pictures.at(row).first, pictures.at(row).second.toImage()});
    }
    if (picked.isEmpty()) { // the dialog closes as after a success
        Q_EMIT message(tr("No page was picked, so no picture was saved."));
        accept();
        return;
    }
    for (QWidget *each : QList<QWidget *>{m_screens, m_choose, m_save})
        each->setEnabled(false);
    BackgroundWork::run(
        this,
        [picked, folder = m_folder, isStopped = m_isStopped] {
            CScreenshotWriter writer(folder);
            for (const auto &[name, picture] : picked) {
                if (*isStopped)
                    break;
                writer.write(name, picture);
            }
            return writer.skipped();
        },
        [this](const QStringList &skipped) {
            for (const QString &each : skipped)
                Q_EMIT message(each);
            accept();
        });
}
