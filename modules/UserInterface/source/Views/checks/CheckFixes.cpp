#include "CheckFixes.h"

#include "CCommandChangeItemProperty.h"
#include "CCommandChangeProjectProperty.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemTree.h"
#include "PropertyKey.h"
#include "Rules.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSet>
#include <QUndoStack>

namespace {

struct SText
{
    Q_DECLARE_TR_FUNCTIONS(CheckFixes)
};

CItemModel *itemAt(CProjectModel &project, const QPersistentModelIndex &index)
{
    return CItemModel::fromItem(project.itemFromIndex(index));
}

/// The item, or else the screen, that the finding is about.
CItemModel *placeOf(CProjectModel &project, const CCheckResults::SEntry &entry)
{
    return itemAt(project, entry.item.isValid() ? entry.item : entry.screen);
}

void change(CProjectModel &project, CItemModel &item, const QString &key, const QVariant &value,
            const QString &step)
{
    auto *command = new CCommandChangeItemProperty(&item, key, value, item.propertyValue(key));
    command->setText(step);
    project.undoStack()->push(command);
}

/// "Text 2", "Text 3", ...: the first that nothing beside the item is called.
QString unusedName(const CProjectModel &project, const CItemModel &item)
{
    QSet<QString> names;
    const auto take = [&names](const CItemModel &each) { names.insert(each.name()); };
    if (item.kind() == CItemModel::Kind::Screen) {
        for (int row = 0; row < project.screenCount(); ++row)
            take(*project.screen(row));
    } else {
        const CItemModel *screen = &item;
        while (screen->parentItem())
            screen = screen->parentItem();
        forEachItem(*screen, take);
    }
    for (int number = 2;; ++number) {
        const QString name = item.name() + QLatin1Char(' ') + QString::number(number);
        if (!names.contains(name))
            return name;
    }
}

} // namespace

namespace CheckFixes {

bool removesFile(const CCheckResults::SEntry &entry)
{
    return entry.finding.rule == ERule::UnusedImage;
}

QString mend(const CCheckResults::SEntry &entry)
{
    switch (entry.finding.rule) {
    case ERule::DuplicateName:
    case ERule::Identifier:
        return SText::tr("&Rename");
    case ERule::DuplicateId:
        return SText::tr("Give It a &New Id");
    case ERule::UnusedImage:
        return SText::tr("&Delete the File...");
    default:
        return sourceToConvert(entry).isEmpty() ? QString() : SText::tr("&Convert Again");
    }
}

QString sourceToConvert(const CCheckResults::SEntry &entry)
{
    if (entry.finding.rule == ERule::ChangedImage)
        return entry.finding.file;
    const auto *project = qobject_cast<const CProjectModel *>(entry.item.model());
    if (entry.finding.rule != ERule::MissingImage || !project)
        return {};
    const QString source =
        SImageFiles::sourceOf(*CItemModel::fromItem(project->itemFromIndex(entry.item)));
    return QFileInfo(source).isFile() ? source : QString();
}

void removeFile(CProjectModel &project, const CCheckResults::SEntry &entry,
                const CCommandDeleteImage::SCalls &calls)
{
    auto *command = new CCommandDeleteImage(&project, entry.finding.file, calls);
    command->setText(SText::tr("Delete an image file"));
    project.undoStack()->push(command);
}

void apply(CProjectModel &project, const CCheckResults::SEntry &entry)
{
    CItemModel *item = placeOf(project, entry);
    if (!item)
        return;
    if (entry.finding.rule == ERule::DuplicateId)
        change(project, *item, PropertyKey::Id, project.unusedId(), SText::tr("New id"));
    else if (!mend(entry).isEmpty())
        change(project, *item, PropertyKey::Name, unusedName(project, *item), SText::tr("Rename"));
}

QVector<SMeasure> measures()
{
    return {{ProjectChecks::DotsPerInch, SText::tr("&Dots per Inch of the Display..."),
             SText::tr("Dots per inch of the display:"), 150, 1000},
            {ProjectChecks::MemoryShare, SText::tr("Tell of &Memory From..."),
             SText::tr("Percent of a memory:"), 80, 100}};
}

SMeasure measure(const CCheckResults::SEntry &entry)
{
    if (entry.finding.rule == ERule::TouchSize)
        return measures().at(0);
    if (entry.finding.rule == ERule::Memory && entry.finding.severity == ESeverity::Warning)
        return measures().at(1);
    return {};
}

void setMeasure(CProjectModel &project, const QString &key, double value)
{
    auto *command = new CCommandChangeProjectProperty(&project, key, QString::number(value));
    command->setText(SText::tr("Change what the checks measure by"));
    project.undoStack()->push(command);
}

void ignore(CProjectModel &project, const CCheckResults::SEntry &entry, const QString &reason)
{
    CItemModel *item = placeOf(project, entry);
    const QString before =
        item ? item->propertyText(Rules::IgnoredKey) : project.propertyText(Rules::IgnoredKey);
    const QString text =
        Rules::withIgnored(before, entry.finding.rule, entry.finding.subject, reason);
    const QString step =
        reason.isNull() ? SText::tr("Ask about it again") : SText::tr("Ignore a finding");
    if (item) {
        change(project, *item, Rules::IgnoredKey, text.isEmpty() ? QVariant() : QVariant(text),
               step);
        return;
    }
    auto *command = new CCommandChangeProjectProperty(&project, Rules::IgnoredKey,
                                                      text.isEmpty() ? QString() : text);
    command->setText(step);
    project.undoStack()->push(command);
}

} // namespace CheckFixes
