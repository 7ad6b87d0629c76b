#include "CProjectModel.h"
#include "ConvertedImages.h"
#include "ItemTree.h"
#include "PropertyKey.h"
#include "RuleSupport.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>

// The images of a screen's items.

namespace {

constexpr double MostScale = 2;

double numberOf(const CItemModel &item, const QString &key)
{
    return item.propertyValue(key).toDouble();
}

void checkScale(CRuleContext &context, const CItemModel &item)
{
    const double width = numberOf(item, PropertyKey::BitmapWidth);
    const double height = numberOf(item, PropertyKey::BitmapHeight);
    if (item.kind() != CItemModel::Kind::Widget || width <= 0 || height <= 0 ||
        item.itemTypeName() != TypeName::Bitmap || item.width() <= 0 || item.height() <= 0)
        return;
    const double across = item.width() / width;
    const double down = item.height() / height;
    const double larger = std::max(across, down);
    const double smaller = std::min(across, down);
    if (larger > MostScale)
        context.add(ERule::ScaledImage, ESeverity::Warning, &item,
                    CRuleContext::tr("%1 shows its image %2 times as large as it is.")
                        .arg(context.called(item))
                        .arg(QLocale().toString(larger, 'f', 1)));
    else if (smaller < 1 / MostScale)
        context.add(ERule::ScaledImage, ESeverity::Note, &item,
                    CRuleContext::tr("%1 shows its image at %2 % of its size; a smaller image "
                                     "would look as good.")
                        .arg(context.called(item))
                        .arg(QLocale().toString(smaller * 100, 'f', 0)));
}

} // namespace

void checkImages(CRuleContext &context)
{
    forEachItem(*context.screen, [&context](const CItemModel &item) {
        const QString file = ConvertedImages::fileOf(item);
        if (file.isEmpty())
            return;
        if (!QFileInfo(file).isFile()) {
            SFinding &finding = context.add(
                ERule::MissingImage, ESeverity::Error, &item,
                CRuleContext::tr("The image of %1 is missing: %2")
                    .arg(context.called(item),
                         QDir(context.project.workingDirectory()).relativeFilePath(file)));
            finding.property = PropertyKey::BaseName;
            finding.file = file;
            return;
        }
        checkScale(context, item);
    });
}
