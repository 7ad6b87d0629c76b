#include "CPlatformTable.h"

#include "CProjectModel.h"
#include "PlatformFilter.h"

#include <algorithm>

namespace {

const QList<QSize> &firstGenerationSizes()
{
    static const QList<QSize> sizes = {{480, 272}, {320, 240}, {240, 320}, {320, 480}};
    return sizes;
}

QList<QSize> secondGenerationSizes()
{
    return firstGenerationSizes() + QList<QSize>{{800, 480}, {800, 600}, {1024, 768}};
}

} // namespace

CPlatformTable::CPlatformTable()
{
    for (const char *name : {"QX100", "QX101"})
        m_platforms.append({QString::fromLatin1(name), firstGenerationSizes(), QSize(512, 512)});
    for (const char *name : {"QX110", "QX111", "QX112", "QX113"})
        m_platforms.append({QString::fromLatin1(name), secondGenerationSizes(), QSize(2048, 2048)});
}

QStringList CPlatformTable::platforms() const
{
    QStringList names;
    for (const SPlatform &platform : m_platforms)
        names.append(platform.name);
    return names;
}

bool CPlatformTable::isKnown(const QString &platform) const
{
    return find(platform) != nullptr;
}

QList<QSize> CPlatformTable::offeredSizes(const QString &platform) const
{
    const SPlatform *found = find(platform);
    return found ? found->offered : QList<QSize>();
}

QSize CPlatformTable::largestSize(const QString &platform) const
{
    const SPlatform *found = find(platform);
    return found ? found->largest : QSize(0, 0); // QSize() alone would be -1 x -1
}

QVector<uint32_t> CPlatformTable::chipCodes() const
{
    QVector<uint32_t> codes;
    for (const SPlatform &platform : m_platforms)
        codes.append(chipCode(platform.name));
    return codes;
}

uint32_t CPlatformTable::chipCode(const QString &platform)
{
    return chipCodeOfPlatform(platform);
}

uint32_t CPlatformTable::ramGBudget(const QString &platform)
{
    return CProjectModel::graphicsMemoryOf(platform);
}

uint32_t CPlatformTable::ramDlBudget(const QString &platform)
{
    constexpr uint32_t Small = 8 * 1024;
    constexpr uint32_t Large = 32 * 1024;
    return ramGBudget(platform) == CProjectModel::LargeGraphicsMemory ? Large : Small;
}

QString CPlatformTable::sizeText(const QSize &size)
{
    return QStringLiteral("%1 x %2").arg(size.width()).arg(size.height());
}

const CPlatformTable::SPlatform *CPlatformTable::find(const QString &platform) const
{
    const auto found =
        std::find_if(m_platforms.begin(), m_platforms.end(),
                     [&](const SPlatform &candidate) { return candidate.name == platform; });
    return found == m_platforms.end() ? nullptr : &*found;
}
