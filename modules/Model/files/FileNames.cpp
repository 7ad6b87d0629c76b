#include "FileNames.h"

#include <QSet>

namespace {
constexpr int MaxBytes = 255;

bool isAllowed(QChar c)
{
    if (c.unicode() < 0x20 || c.unicode() == 0x7f)
        return false;
    return !QStringLiteral("/\\:*?\"<>|").contains(c);
}

/// Separators and reserved characters become "_"; half surrogate pairs, which no file system
/// takes, as well.
QString replaceForbidden(const QString &name)
{
    QString cleaned;
    for (int i = 0; i < name.size(); ++i) {
        const QChar c = name.at(i);
        if (c.isHighSurrogate() && i + 1 < name.size() && name.at(i + 1).isLowSurrogate()) {
            cleaned += c;
            cleaned += name.at(++i);
        } else {
            cleaned += isAllowed(c) && !c.isSurrogate() ? c : QLatin1Char('_');
        }
    }
    return cleaned;
}

/// Some systems drop dots and spaces at the end silently, and ".." leaves the folder.
QString trimEnds(QString name)
{
    name = name.trimmed();
    while (name.endsWith(QLatin1Char('.')) || (!name.isEmpty() && name.back().isSpace()))
        name.chop(1);
    return name;
}

/// Names of devices on some systems, whatever follows their first dot.
bool isDeviceName(const QString &name)
{
    static const QSet<QString> devices = [] {
        QSet<QString> names = {QStringLiteral("con"),    QStringLiteral("prn"),
                               QStringLiteral("aux"),    QStringLiteral("nul"),
                               QStringLiteral("conin$"), QStringLiteral("conout$")};
        for (const QChar digit : QStringLiteral("0123456789\u00b9\u00b2\u00b3")) {
            names.insert(QStringLiteral("com") + digit);
            names.insert(QStringLiteral("lpt") + digit);
        }
        return names;
    }();
    return devices.contains(name.section(QLatin1Char('.'), 0, 0).trimmed().toLower());
}

/// Cuts whole characters off the end until the UTF-8 form fits.
QString fitInto(QString name, int bytes)
{
    int size = name.toUtf8().size();
    while (size > bytes && !name.isEmpty()) {
        const int length = name.at(name.size() - 1).isLowSurrogate() ? 2 : 1;
        size -= name.right(length).toUtf8().size();
        name.chop(length);
    }
    return name;
}

QString safeWithTail(const QString &name, const QString &tail)
{
    QString base = trimEnds(replaceForbidden(name));
    if (isDeviceName(base))
        base.prepend(QLatin1Char('_'));
    base = trimEnds(fitInto(base, MaxBytes - tail.toUtf8().size()));
    if (base.isEmpty())
        base = QStringLiteral("_");
    return base + tail;
}
} // namespace

QString FileNames::safe(const QString &name, const QString &suffix)
{
    return safeWithTail(name, suffix);
}

QString FileNames::convertedImages(const QString &projectName)
{
    const QString ending = QStringLiteral("_ConvertedImages");
    return projectName.isEmpty() ? ending : safe(projectName, ending);
}

QString FileNames::fonts(const QString &projectName)
{
    const QString ending = QStringLiteral("_Fonts");
    return projectName.isEmpty() ? ending : safe(projectName, ending);
}

bool FileNames::isFont(const QString &fileName)
{
    static const QStringList suffixes = {QStringLiteral("ttf"), QStringLiteral("otf"),
                                         QStringLiteral("woff2"), QStringLiteral("ttc")};
    return suffixes.contains(fileName.section(QLatin1Char('.'), -1).toLower());
}

bool FileNames::isImage(const QString &fileName)
{
    static const QStringList suffixes = {QStringLiteral("raw"), QStringLiteral("json"),
                                         QStringLiteral("lut"), QStringLiteral("png"),
                                         QStringLiteral("jpg"), QStringLiteral("jpeg"),
                                         QStringLiteral("bmp"), QStringLiteral("avi")};
    return suffixes.contains(fileName.section(QLatin1Char('.'), -1).toLower());
}

QString FileNames::unused(const QString &name, const QString &suffix,
                          const std::function<bool(const QString &)> &isTaken)
{
    QString candidate = safeWithTail(name, suffix);
    for (int n = 1; isTaken(candidate); ++n)
        candidate = safeWithTail(name, QStringLiteral(" (%1)").arg(n) + suffix);
    return candidate;
}

QStringList FileNames::unusedForAll(const QStringList &names, const QString &suffix)
{
    QSet<QString> taken;
    QStringList result;
    for (const QString &name : names) {
        const QString fileName = unused(
            name, suffix, [&](const QString &each) { return taken.contains(each.toCaseFolded()); });
        taken.insert(fileName.toCaseFolded());
        result.append(fileName);
    }
    return result;
}
