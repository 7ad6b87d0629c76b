#include "CPrintScreenDialog.h"

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
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const QSize IconSize(256, 224);

/// The picture as it fits; a frame for a screen that has none yet.
QIcon iconOf(const QPixmap &picture, double ratio)
{
    if (!picture.isNull()) {
        QPixmap fitting =
            picture.scaled(IconSize * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        fitting.setDevicePixelRatio(ratio);
        return CThemeIcons::untinted(fitting);
    }
    QPixmap frame(IconSize.width(), IconSize.width() * 9 / 16);
    frame.fill(Qt::transparent);
    QPainter painter(&frame);
    painter.setPen(QPen(QApplication::palette().color(QPalette::PlaceholderText), 1, Qt::DashLine));
    painter.drawRect(frame.rect().adjusted(0, 0, -1, -1));
    return QIcon(frame);
}

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
      m_screens(new QListWidget(this))
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
    m_screens->setSelectionMode(QAbstractItemView::MultiSelection);
    fill();
    layOut();
    showFolder();
}

void CPrintScreenDialog::layOut()
{
    auto *choose = new QToolButton(this);
    choose->setObjectName(QStringLiteral("chooseFolder"));
    choose->setIcon(CThemeIcons::icon(QStringLiteral(":/images/openProject.png")));
    choose->setToolTip(tr("Select directory to save screens to"));
    connect(choose, &QToolButton::clicked, this, &CPrintScreenDialog::selectFolder);
    auto *save = new QPushButton(tr("Save Selection"), this);
    save->setObjectName(QStringLiteral("save"));
    save->setToolTip(tr("Save selected screens and return to editor"));
    save->setDefault(true);
    connect(save, &QPushButton::clicked, this, &CPrintScreenDialog::saveImages);
    auto *cancel = new QPushButton(tr("Cancel"), this);
    cancel->setToolTip(tr("Cancel and return to editor"));
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, this, &CPrintScreenDialog::close);

    auto *bottom = new QHBoxLayout;
    bottom->setSpacing(8);
    bottom->addWidget(choose);
    bottom->addWidget(m_location, 1);
    bottom->addWidget(save);
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
    for (const auto &[name, picture] : pictures) {
        auto *item = new QListWidgetItem(iconOf(picture, devicePixelRatioF()),
                                         ShownText::name(name), m_screens);
        item->setTextAlignment(Qt::AlignHCenter);
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled);
        m_shown.append(picture.cacheKey());
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
        m_screens->item(row)->setIcon(iconOf(picture, devicePixelRatioF()));
    }
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
    CScreenshotWriter writer(m_folder);
    for (int row = 0; row < qMin(pictures.size(), m_screens->count()); ++row) {
        if (m_screens->item(row)->isSelected())
            writer.write(pictures.at(row).first, pictures.at(row).second.toImage());
    }
    const QStringList skipped = writer.skipped();
    for (const QString &each : skipped)
        Q_EMIT message(each);
    if (m_screens->selectedItems().isEmpty()) // the dialog closes as after a success
        Q_EMIT message(tr("No page was picked, so no picture was saved."));
    accept();
}
