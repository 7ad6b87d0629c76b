#include "CImageChooser.h"

#include "CBitmapFormatTable.h"
#include "CCommandChangeItemProperty.h"
#include "CItemImages.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "PropertyKey.h"

#include <QDir>
#include <QFileInfo>
#include <QUndoStack>
#include <QWidget>

namespace {

/// The file that the item would show in this format, made already.
bool isMade(const CItemModel &item, const QString &format)
{
    const QString name = item.propertyText(PropertyKey::BaseName) + QLatin1Char('_') + format;
    return QFileInfo(QDir(CItemImages::folderOf(item)).filePath(name + QStringLiteral(".raw")))
        .isFile();
}

} // namespace

CImageChooser::CImageChooser(QWidget *window)
    : QObject(window), m_images(new CItemImages(window, this))
{
    connect(m_images, &CItemImages::message, this, &CImageChooser::message);
}

CImageChooser::EFormat CImageChooser::changeOf(const CItemModel &item, const QString &format)
{
    const QString source = CItemImages::sourceOf(item);
    const bool showsNone = item.propertyText(PropertyKey::BaseName).isEmpty() && source.isEmpty();
    const bool isRaw = item.propertyText(PropertyKey::Suffix) == QLatin1String("raw") ||
                       QFileInfo(source).suffix() == QLatin1String("raw");
    if (showsNone || isRaw || CItemImages::isMedia(item) ||
        CBitmapFormatTable::code(format) == CBitmapFormatTable::UnknownCode)
        return EFormat::Value;
    if (source.isEmpty())
        return isMade(item, format) ? EFormat::Value : EFormat::Lost;
    return EFormat::Conversion;
}

bool CImageChooser::changeFormat(CItemModel *item, const QString &format)
{
    if (changeOf(*item, format) == EFormat::Conversion)
        return change(item, CItemImages::sourceOf(*item), format);
    Q_EMIT message(tr("%1 stays as it is: the image file that it was made of is gone, so it cannot "
                      "be converted into another format. Choose the file anew.")
                       .arg(item->name()));
    return false;
}

void CImageChooser::choose(CItemModel *item)
{
    const QString file = m_images->ask(*item);
    if (!file.isEmpty())
        change(item, file, CItemImages::formatFor(*item, file));
}

bool CImageChooser::change(CItemModel *item, const QString &file, const QString &format)
{
    std::optional<CItemImages::SImage> image = m_images->take(*item, file, format);
    if (!image) {
        Q_EMIT message(tr("The image %1 was not taken.").arg(QDir::toNativeSeparators(file)));
        return false;
    }
    // Beside what else the screen shows it may still be too large; the renderer tells that.
    if (!CItemImages::fits(*image, *item->project(), 0)) {
        Q_EMIT message(tr("The image %1 is larger than the chip's graphics memory.")
                           .arg(QDir::toNativeSeparators(file)));
        return false;
    }
    QUndoStack *stack = item->project()->undoStack();
    stack->beginMacro(tr("Change Image"));
    QHash<QString, QVariant> &values = image->values;
    if (file == CItemImages::sourceOf(*item)) // another format only; the source is called as before
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
