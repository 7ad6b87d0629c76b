#include "CExportReport.h"

#include "PackagePaths.h"
#include "QxKivEmuLib.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {

QJsonArray memoryMap(const SScreenReport &screen, const QString &folder)
{
    QJsonArray map;
    for (const SGraphicsMemory::SAsset &asset : screen.assets)
        map.append(QJsonObject{
            {QStringLiteral("file"), fileInPackage(asset.file, folder)},
            {QStringLiteral("format"), formatInPackage(asset.format)},
            {QStringLiteral("width"), static_cast<qint64>(asset.width)},
            {QStringLiteral("height"), static_cast<qint64>(asset.height)},
            {QStringLiteral("stride"), static_cast<qint64>(asset.stride)},
            {QStringLiteral("address"), static_cast<qint64>(asset.address)},
            {QStringLiteral("bytes"), static_cast<qint64>(asset.bytes)},
            {QStringLiteral("palette_address"), static_cast<qint64>(asset.paletteAddress)},
            {QStringLiteral("palette_bytes"), static_cast<qint64>(asset.paletteBytes)}});
    return map;
}

QJsonObject toObject(const SScreenReport &screen, const QString &folder)
{
    return {{QStringLiteral("name"), screen.name},
            {QStringLiteral("widgets"), screen.widgets},
            {QStringLiteral("bitmaps"), screen.bitmaps},
            {QStringLiteral("ram_dl_bytes"), static_cast<qint64>(screen.ramDl)},
            {QStringLiteral("ram_dl_budget"), static_cast<qint64>(screen.ramDlBudget)},
            {QStringLiteral("ram_g_bytes"), static_cast<qint64>(screen.ramG)},
            {QStringLiteral("ram_g_budget"), static_cast<qint64>(screen.ramGBudget)},
            {QStringLiteral("ram_g_map"), memoryMap(screen, folder)},
            {QStringLiteral("errors"), QJsonArray::fromStringList(screen.errors)}};
}

} // namespace

CExportReport::CExportReport(const QString &projectFile, const QString &platform,
                             const QString &folder)
    : m_project(QFileInfo(projectFile).fileName()), m_platform(platform), m_folder(folder)
{
}

void CExportReport::addError(const QString &message)
{
    m_errors.append(message);
}

void CExportReport::add(const SScreenReport &screen)
{
    m_screens.append(screen);
}

bool CExportReport::isClean() const
{
    return m_errors.isEmpty() &&
           std::all_of(m_screens.begin(), m_screens.end(), [](const SScreenReport &screen) {
               return screen.errors.isEmpty() && !screen.exceedsBudget();
           });
}

bool CExportReport::isRepeatable() const
{
    return std::all_of(m_screens.begin(), m_screens.end(), [](const SScreenReport &screen) {
        return screen.errors.filter(QLatin1String(EMU_STOPPED_BY_CLOCK)).isEmpty();
    });
}

QByteArray CExportReport::toJson() const
{
    QJsonArray screens;
    for (const SScreenReport &screen : m_screens)
        screens.append(toObject(screen, m_folder));
    return QJsonDocument(
               QJsonObject{{QStringLiteral("project"), m_project},
                           {QStringLiteral("platform"), m_platform},
                           {QStringLiteral("errors"), QJsonArray::fromStringList(m_errors)},
                           {QStringLiteral("screens"), screens}})
        .toJson();
}
