#include "CItemImages.h"

#include "CBitmapFormatTable.h"
#include "CImageFileConverter.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "CWidgetLibraryModel.h"
#include "ImageNames.h"
#include "PropertyKey.h"

#include <QFileDialog>

CItemImages::CItemImages(QWidget *window, QObject *parent)
    : QObject(parent), m_window(window), m_converter(new CImageFileConverter(this))
{
    connect(m_converter, &CImageFileConverter::failed, this, &CItemImages::message);
    connect(m_converter, &CImageFileConverter::warned, this, &CItemImages::message);
}

QString CItemImages::kindFor(const QString &file)
{
    static const QHash<QString, QString> kinds = {{QStringLiteral("avi"), TypeName::Media},
                                                  {QStringLiteral("png"), TypeName::Bitmap},
                                                  {QStringLiteral("jpg"), TypeName::Bitmap},
                                                  {QStringLiteral("bmp"), TypeName::Bitmap},
                                                  {QStringLiteral("raw"), TypeName::Bitmap}};
    return kinds.value(QFileInfo(file).suffix().toLower());
}

bool CItemImages::isKind(const QString &type)
{
    return type == TypeName::Bitmap || type == TypeName::Media;
}

bool CItemImages::isMedia(const CItemModel &item)
{
    return item.itemTypeName() == TypeName::Media;
}

QString CItemImages::folderOf(const CItemModel &item)
{
    const QString folder = item.propertyText(PropertyKey::BitmapFolder);
    return item.project() ? item.project()->absoluteFolder(folder) : folder;
}

QString CItemImages::sourceOf(const CItemModel &item)
{
    const QString stored = item.propertyText(PropertyKey::FileName);
    // Never looked up from the current folder, which is the program's.
    const QString file = item.project() ? item.project()->absoluteFolder(stored) : stored;
    if (QDir::isAbsolutePath(file) && QFileInfo(file).isFile())
        return file;
    return ImageNames::sourceIn(folderOf(item), item.propertyText(PropertyKey::BaseName));
}

QString CItemImages::formatFor(const CItemModel &item, const QString &file)
{
    const QString format = item.propertyText(PropertyKey::Format);
    const CWidgetLibraryModel *library = item.library();
    if (!library)
        return format;
    const QString usual =
        library->propertySet(item.itemTypeName()).value(PropertyKey::Format).text();
    const bool isChosen = CBitmapFormatTable::code(format) != CBitmapFormatTable::UnknownCode &&
                          (format != usual || !item.propertyText(PropertyKey::BaseName).isEmpty());
    return isChosen ? format : CImageFileConverter::usualFormat(file, usual);
}

void CItemImages::setBox(QProgressDialog *box)
{
    m_converter->setBox(box);
}

QString CItemImages::ask(const CItemModel &item)
{
    const bool media = isMedia(item);
    QFileDialog dialog(m_window,
                       media ? tr("Select media file to use") : tr("Select image file to use"));
    dialog.setNameFilter(media ? tr("Media Files (*.jpg *.png *.avi)")
                               : tr("Image Files (*.png *.jpg *.bmp *.raw)"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    const QString before = sourceOf(item);
    dialog.setDirectory(before.isEmpty() && item.project() ? item.project()->workingDirectory()
                                                           : QFileInfo(before).path());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

std::optional<CItemImages::SImage> CItemImages::take(const CItemModel &item, const QString &file,
                                                     const QString &format)
{
    const std::optional<SConvertedImage> made =
        isMedia(item) ? m_converter->mediaImage(file) : m_converter->convertedImage(file, format);
    if (!made)
        return std::nullopt;
    return SImage{{{PropertyKey::FileName, file},
                   {PropertyKey::BaseName, made->basename},
                   {PropertyKey::Suffix, made->suffix},
                   {PropertyKey::BitmapFolder, made->bfolder},
                   {PropertyKey::Format, made->format},
                   {PropertyKey::BitmapWidth, made->bwidth},
                   {PropertyKey::BitmapHeight, made->bheight},
                   {PropertyKey::Video, made->video}},
                  {made->bwidth, made->bheight},
                  QFileInfo(made->path).size()};
}

bool CItemImages::fits(const SImage &image, const CProjectModel &project, size_t used)
{
    return static_cast<size_t>(image.bytes) + used < project.graphicsMemorySize();
}
