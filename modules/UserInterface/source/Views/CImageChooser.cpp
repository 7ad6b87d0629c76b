#include "CImageChooser.h"

#include "CBitmapFormatTable.h"
#include "CCommandChangeItemProperty.h"
#include "CImageFileConverter.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "CWidgetLibraryModel.h"
#include "PropertyKey.h"

#include <QFileDialog>
#include <QUndoStack>

namespace {

/// Images of media stay as they are; the chip decodes them.
bool isMedia(const CItemModel &item)
{
    return item.itemTypeName() == QStringLiteral("Kiv_Media_T");
}

/// What an image is converted into: the item's format, or the usual one of its kind if it has none.
QString formatFor(const CItemModel &item)
{
    const QString format = item.propertyText(PropertyKey::Format);
    const CWidgetLibraryModel *library = item.library();
    if (!library || CBitmapFormatTable::code(format) != CBitmapFormatTable::UnknownCode)
        return format;
    return library->propertySet(item.itemTypeName()).value(PropertyKey::Format).text();
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

bool CImageChooser::showsImage(const CItemModel &item)
{
    return item.hasProperty(PropertyKey::BitmapFolder) && item.hasProperty(PropertyKey::BaseName);
}

QString CImageChooser::sourceOf(const CItemModel &item)
{
    const QString file = item.propertyText(PropertyKey::FileName);
    if (QFileInfo(file).isFile())
        return file;
    const QString name = item.propertyText(PropertyKey::BaseName);
    if (name.isEmpty() || !item.project())
        return {};
    const QDir folder(item.project()->absoluteFolder(item.propertyText(PropertyKey::BitmapFolder)));
    for (const char *suffix : {".png", ".jpg", ".jpeg", ".bmp"}) {
        if (folder.exists(name + QLatin1String(suffix)))
            return folder.filePath(name + QLatin1String(suffix));
    }
    return {};
}

bool CImageChooser::isConverted(const CItemModel &item, const QString &format)
{
    const QString source = sourceOf(item);
    return !source.isEmpty() && QFileInfo(source).suffix() != QLatin1String("raw") &&
           CBitmapFormatTable::code(format) != CBitmapFormatTable::UnknownCode;
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
        change(item, dialog.selectedFiles().first(), formatFor(*item));
}

std::optional<SConvertedImage> CImageChooser::convert(const CItemModel &item, const QString &file,
                                                      const QString &format)
{
    if (isMedia(item))
        return m_converter->mediaImage(file);
    if (!m_converter->convert(file, format))
        return {};
    return CImageFileConverter::convertedImage(file, format);
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
    const QHash<QString, QVariant> values = valuesOf(*image, file);
    for (auto value = values.begin(); value != values.end(); ++value) {
        const QString &key = value.key();
        if (item->hasProperty(key) && item->propertyValue(key) != value.value())
            stack->push(
                new CCommandChangeItemProperty(item, key, value.value(), item->propertyValue(key)));
    }
    stack->endMacro();
    return true;
}
