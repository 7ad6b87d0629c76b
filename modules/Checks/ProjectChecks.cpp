#include "ProjectChecks.h"

#include "CContentSum.h"
#include "CPlatformTable.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "Identifiers.h"
#include "ItemTree.h"
#include "PropertyKey.h"
#include "QxKivEmuLib.h"
#include "RuleSupport.h"

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QMap>
#include <QSet>

namespace {

void checkPlatform(CRuleContext &context)
{
    const QString platform = context.project.platform();
    const CPlatformTable platforms;
    if (!platforms.isKnown(platform))
        context
            .add(ERule::ChipValue, ESeverity::Error, nullptr,
                 CRuleContext::tr("The platform \"%1\" is not known; known are %2.")
                     .arg(platform, platforms.platforms().join(QStringLiteral(", "))))
            .property = PropertyKey::Platform;
}

const CItemModel *screenOf(const CItemModel &item)
{
    const CItemModel *screen = &item;
    while (screen->parentItem())
        screen = screen->parentItem();
    return screen;
}

void checkIds(CRuleContext &context)
{
    QHash<quint32, const CItemModel *> first;
    forEachItem(context.project, [&](const CItemModel &item) {
        if (item.kind() != CItemModel::Kind::Widget || item.id() == 0)
            return;
        const CItemModel *&known = first[item.id()];
        if (!known) {
            known = &item;
            return;
        }
        context.on(screenOf(item))
            .add(ERule::DuplicateId, ESeverity::Warning, &item,
                 CRuleContext::tr("%1 has the id %2 as %3 has.")
                     .arg(context.called(item))
                     .arg(item.id())
                     .arg(context.called(*known)))
            .property = PropertyKey::Id;
    });
}

void checkScreenNames(CRuleContext &context)
{
    QHash<QString, const CItemModel *> first;
    for (int row = 0; row < context.project.screenCount(); ++row) {
        const CItemModel *screen = context.project.screen(row);
        const QString inC =
            Identifiers::unique(QString(), {screen->name()}, QStringLiteral("UNNAMED")).first();
        const CItemModel *&known = first[inC];
        if (!known) {
            known = screen;
            continue;
        }
        const bool isSame = known->name() == screen->name();
        context.on(screen)
            .add(isSame ? ERule::DuplicateName : ERule::Identifier, ESeverity::Warning, nullptr,
                 isSame
                     ? CRuleContext::tr("Two screens are called %1.").arg(context.called(*screen))
                     : CRuleContext::tr("The screens %1 and %2 are the same name in C; one gets a "
                                        "number.")
                           .arg(context.called(*known), context.called(*screen)))
            .property = PropertyKey::Name;
    }
}

void checkSameImages(CRuleContext &context, const ProjectChecks::ImageContents &images)
{
    QHash<QByteArray, QMap<QString, int>> files; // by content
    for (const auto &[content, file] : images)
        ++files[content][file];
    QStringList told;
    const QDir folder(context.project.workingDirectory());
    for (const QMap<QString, int> &names : qAsConst(files)) {
        if (names.size() < 2)
            continue;
        QStringList texts;
        for (auto it = names.begin(); it != names.end(); ++it)
            texts.append(folder.relativeFilePath(it.key()));
        told.append(texts.join(QStringLiteral(", ")));
    }
    told.sort(); // hashes have no order
    for (const QString &texts : qAsConst(told))
        context.addAbout(
            texts, ERule::SameImage, ESeverity::Note,
            CRuleContext::tr("The same image lies under several names: %1").arg(texts));
}

void addUnused(CRuleContext &context, const QString &file)
{
    const QString name = QDir(context.project.workingDirectory()).relativeFilePath(file);
    context
        .addAbout(name, ERule::UnusedImage, ESeverity::Note,
                  CRuleContext::tr("No item shows %1.").arg(name))
        .file = file;
}

void addChanged(CRuleContext &context, const SImageFiles::SImage &image)
{
    SFinding &finding =
        context.on(screenOf(*image.item))
            .add(ERule::ChangedImage, ESeverity::Warning, image.item,
                 CRuleContext::tr("The image of %1 was made of %2, which has changed since.")
                     .arg(context.called(*image.item),
                          QDir(context.project.workingDirectory()).relativeFilePath(image.source)));
    finding.property = PropertyKey::FileName;
    finding.file = image.source;
}

} // namespace

namespace ProjectChecks {

const QString DotsPerInch = QStringLiteral("dots_per_inch");
const QString MemoryShare = QStringLiteral("memory_share");

Findings ofScreen(const CItemModel &screen, const SScreenExport &render,
                  const SPictureState &picture)
{
    Findings findings;
    const CProjectModel *project = screen.project();
    if (!project)
        return findings;
    CRuleContext context(*project, &screen, findings);
    checkChip(context, render);
    checkImages(context);
    checkPlaces(context, picture);
    checkPictures(context, picture);
    checkNames(context);
    return findings;
}

ImageContents imagesOf(const SScreenExport &render)
{
    ImageContents images;
    const QByteArray &memory = render.memory.bytes;
    for (const SGraphicsMemory::SAsset &asset : render.memory.assets) {
        if (asset.format == EMU_ASSET_FONT)
            continue;
        CContentSum content;
        for (const uint32_t number : {asset.format, asset.width, asset.height})
            content.add(number);
        const auto add = [&](uint32_t address, uint32_t bytes) {
            if (qint64{address} + bytes <= memory.size())
                content.add(memory.constData() + address, bytes);
        };
        add(asset.address, asset.bytes);
        add(asset.paletteAddress, asset.paletteBytes);
        images.append({content.result(), asset.file});
    }
    return images;
}

Findings ofProject(const CProjectModel &project, const ImageContents &images)
{
    Findings findings;
    CRuleContext context(project, nullptr, findings);
    checkPlatform(context);
    checkScreenNames(context);
    checkIds(context);
    checkSameImages(context, images);
    return findings;
}

Findings ofFiles(const CProjectModel &project, const SImageFiles::SState &state)
{
    Findings findings;
    CRuleContext context(project, nullptr, findings);
    const SImageFiles files = SImageFiles::of(project);
    for (const SImageFiles::SImage &image : files.images)
        if (state.changed.contains(image.key()))
            addChanged(context, image);
    for (const QString &file : state.unused)
        if (!files.used.contains(file)) // as it was then
            addUnused(context, file);
    return findings;
}

} // namespace ProjectChecks
