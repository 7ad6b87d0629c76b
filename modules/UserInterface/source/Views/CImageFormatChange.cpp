#include "CImageFormatChange.h"

#include "CCommandChangeItemProperty.h"
#include "CImageFileConverter.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "PropertyKey.h"

#include <QFileInfo>
#include <QUndoStack>

namespace {

QHash<QString, QVariant> valuesOf(const SConvertedImage &image)
{
    return {{PropertyKey::BitmapFolder, image.bfolder},
            {PropertyKey::Format, image.format},
            {PropertyKey::BitmapWidth, image.bwidth},
            {PropertyKey::BitmapHeight, image.bheight}};
}

} // namespace

CImageFormatChange::CImageFormatChange(QObject *parent)
    : QObject(parent), m_converter(new CImageFileConverter(this))
{
    connect(m_converter, &CImageFileConverter::failed, this, &CImageFormatChange::message);
}

bool CImageFormatChange::showsImage(const CItemModel &item)
{
    return item.hasProperty(PropertyKey::BitmapFolder) && item.hasProperty(PropertyKey::BaseName);
}

QString CImageFormatChange::sourceOf(const CItemModel &item)
{
    const QString file = item.propertyText(PropertyKey::FileName);
    return QFileInfo(file).isFile() ? file : QString();
}

bool CImageFormatChange::change(CItemModel *item, const QString &format)
{
    const QString file = sourceOf(*item);
    const auto image = m_converter->convert(file, format)
                           ? CImageFileConverter::convertedImage(file, format)
                           : std::nullopt;
    if (!image) {
        Q_EMIT message(tr("%1 was not converted; the format stays.").arg(file));
        return false;
    }
    QUndoStack *stack = item->project()->undoStack();
    stack->beginMacro(tr("Change Format"));
    const QHash<QString, QVariant> values = valuesOf(*image);
    for (auto value = values.begin(); value != values.end(); ++value) {
        const QVariant before = item->propertyValue(value.key());
        if (before.isValid() && before != value.value())
            stack->push(new CCommandChangeItemProperty(item, value.key(), value.value(), before));
    }
    stack->endMacro();
    return true;
}
