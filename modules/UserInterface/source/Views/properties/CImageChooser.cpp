#include "CImageChooser.h"

#include "CBitmapFormatTable.h"
#include "CCommandChangeItemProperty.h"
#include "CImageFileConverter.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "CWidgetLibraryModel.h"
#include "ImageNames.h"
#include "PropertyKey.h"

#include <QFileDialog>
#include <QUndoStack>

namespace {

/// Images of media stay as they are; the chip decodes them.
bool isMedia(const CItemModel &item)
{
    return item.itemTypeName() == QStringLiteral("Kiv_Media_T");
}

/// What an image is converted into: the item's format, or the usual one if nobody chose it.
QString formatFor(const CItemModel &item, const QString &file)
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

QString folderOf(const CItemModel &item)
{
    const QString folder = item.propertyText(PropertyKey::BitmapFolder);
    return item.project() ? item.project()->absoluteFolder(folder) : folder;
}

/// The file that the item would show in this format, made already.
bool isMade(const CItemModel &item, const QString &format)
{
    const QString name = item.propertyText(PropertyKey::BaseName) + QLatin1Char('_') + format;
    return QFileInfo(QDir(folderOf(item)).filePath(name + QStringLiteral(".raw"))).isFile();
}

QHash<QString, QVariant> valuesOf(const SConvertedImage &image, const QString &file)
{
    return {{PropertyKey::FileName, file},
            {PropertyKey::BaseName, image.basename},
            {PropertyKey::Suffix, image.suffix},
            {PropertyKey::BitmapFolder, image.bfolder},
            {PropertyKey::Format, image.format},
            {PropertyKey::BitmapWidth, image.bwidth},
            {PropertyKey::BitmapHeight, image.bheight},
            {PropertyKey::Video, image.video}};
}

} // namespace

CImageChooser::CImageChooser(QWidget *window)
    : QObject(window), m_window(window), m_converter(new CImageFileConverter(this))
{
    connect(m_converter, &CImageFileConverter::failed, this, &CImageChooser::message);
    connect(m_converter, &CImageFileConverter::warned, this, &CImageChooser::message);
}

QString CImageChooser::sourceOf(const CItemModel &item)
{
    const QString stored = item.propertyText(PropertyKey::FileName);
    // Never looked up from the current folder, which is the program's.
    const QString file = item.project() ? item.project()->absoluteFolder(stored) : stored;
    if (QDir::isAbsolutePath(file) && QFileInfo(file).isFile())
        return file;
    return ImageNames::sourceIn(folderOf(item), item.propertyText(PropertyKey::BaseName));
}

CImageChooser::EFormat CImageChooser::changeOf(const CItemModel &item, const QString &format)
{
    const QString source = sourceOf(item);
    const bool showsNone = item.propertyText(PropertyKey::BaseName).isEmpty() && source.isEmpty();
    const bool isRaw = item.propertyText(PropertyKey::Suffix) == QLatin1String("raw") ||
                       QFileInfo(source).suffix() == QLatin1String("raw");
    if (showsNone || isRaw || isMedia(item) ||
        CBitmapFormatTable::code(format) == CBitmapFormatTable::UnknownCode)
        return EFormat::Value;
    if (source.isEmpty())
        return isMade(item, format) ? EFormat::Value : EFormat::Lost;
    return EFormat::Conversion;
}

bool CImageChooser::changeFormat(CItemModel *item, const QString &format)
{
    if (changeOf(*item, format) == EFormat::Conversion)
        return change(item, sourceOf(*item), format);
    Q_EMIT message(tr("%1 stays as it is: the image file that it was made of is gone, so it cannot "
                      "be converted into another format. Choose the file anew.")
                       .arg(item->name()));
    return false;
}

void CImageChooser::choose(CItemModel *item)
{
    const bool media = isMedia(*item);
    QFileDialog dialog(m_window,
                       media ? tr("Select media file to use") : tr("Select image file to use"));
    dialog.setNameFilter(media ? tr("Media Files (*.jpg *.png *.avi)")
                               : tr("Image Files (*.png *.jpg *.bmp *.raw)"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    const QString before = sourceOf(*item);
    dialog.setDirectory(before.isEmpty() && item->project() ? item->project()->workingDirectory()
                                                            : QFileInfo(before).path());
    if (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty())
        change(item, dialog.selectedFiles().first(),
               formatFor(*item, dialog.selectedFiles().first()));
}

std::optional<SConvertedImage> CImageChooser::convert(const CItemModel &item, const QString &file,
                                                      const QString &format)
{
    return isMedia(item) ? m_converter->mediaImage(file)
                         : m_converter->convertedImage(file, format);
}

bool CImageChooser::change(CItemModel *item, const QString &file, const QString &format)
{
    const std::optional<SConvertedImage> image = convert(*item, file, format);
    if (!image) {
        Q_EMIT message(tr("The image %1 was not taken.").arg(QDir::toNativeSeparators(file)));
        return false;
    }
    // Beside what else the screen shows it may still be too large; the renderer tells that.
    if (QFileInfo(image->path).size() >= item->project()->graphicsMemorySize()) {
        Q_EMIT message(tr("The image %1 is larger than the chip's graphics memory.")
                           .arg(QDir::toNativeSeparators(file)));
        return false;
    }
    QUndoStack *stack = item->project()->undoStack();
    stack->beginMacro(tr("Change Image"));
    QHash<QString, QVariant> values = valuesOf(*image, file);
    if (file == sourceOf(*item)) // another format only; the source is called as before
        values.remove(PropertyKey::FileName);
    for (auto value = values.begin(); value != values.end(); ++value) {
        const QString &key = value.key();
        if (item->hasProperty(key) && item->propertyValue(key) != value.value())
            stack->push(
                new CCommandChangeItemProperty(item, key, value.value(), item->propertyValue(key)));
    }
    stack->endMacro();
    return true;
}
