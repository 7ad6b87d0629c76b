#include "ImageNames.h"

#include "CBitmapFormatTable.h"
#include "CConversionPaths.h"
#include "CFileCopies.h"
#include "PictureFile.h"

#include <QDir>
#include <QFileInfo>

namespace {
const QStringList &outputSuffixes()
{
    static const QStringList suffixes = {QStringLiteral("raw"), QStringLiteral("json"),
                                         QStringLiteral("lut")};
    return suffixes;
}

bool isImage(const QString &fileName)
{
    return !PictureFile::formatOf(fileName).isEmpty();
}
} // namespace

QString ImageNames::numbered(const QString &name, int number)
{
    if (number < 2)
        return name;
    const int dot = name.indexOf(QLatin1Char('.'));
    const int end = dot < 0 ? name.size() : dot;
    return name.left(end) + QLatin1Char('_') + QString::number(number) + name.mid(end);
}

bool ImageNames::isOutput(const QString &fileName, const QString &base)
{
    const QFileInfo info(fileName);
    const QString name = info.completeBaseName();
    return name.startsWith(base + QLatin1Char('_')) && outputSuffixes().contains(info.suffix()) &&
           CBitmapFormatTable::code(name.mid(base.size() + 1)) != CBitmapFormatTable::UnknownCode;
}

QStringList ImageNames::filesOf(const QString &folder, const QString &base)
{
    // The palette tools keep only what stands before the first dot of the source's name.
    const bool isPalette = folder.endsWith(QLatin1String("_PALETTED"));
    QStringList files;
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System;
    for (const QString &each : QDir(folder).entryList(all | QDir::NoDotAndDotDot, QDir::Name)) {
        const QFileInfo info(each);
        if (info.completeBaseName() == base || (isPalette && info.baseName() == base) ||
            isOutput(each, base))
            files.append(each);
    }
    return files;
}

QString ImageNames::sourceIn(const QString &folder, const QString &base)
{
    if (base.isEmpty())
        return {};
    for (const char *suffix : {".bmp", ".jpeg", ".jpg", ".png"}) { // a folder may hold thousands
        const QString path = folder + QLatin1Char('/') + base + QLatin1String(suffix);
        if (QFileInfo(path).isFile())
            return path;
    }
    for (const QString &each : filesOf(folder, base)) {
        const QString path = folder + QLatin1Char('/') + each;
        if (isImage(each) && QFileInfo(path).isFile())
            return path;
    }
    return {};
}

QStringList ImageNames::outputs(const CConversionPaths &paths, int formatCode)
{
    const QString raw = paths.output(formatCode);
    QStringList files;
    for (const QString &suffix : outputSuffixes())
        files.append(raw.chopped(3) + suffix);
    return files;
}

bool ImageNames::areOutputsEqual(const CConversionPaths &one, const CConversionPaths &other,
                                 int formatCode)
{
    const QStringList first = outputs(one, formatCode);
    const QStringList second = outputs(other, formatCode);
    for (int i = 0; i < first.size(); ++i) {
        const bool isThere = QFileInfo::exists(first.at(i)) || QFileInfo::exists(second.at(i));
        if (isThere && !CFileCopies::areEqual(first.at(i), second.at(i)))
            return false;
    }
    return true;
}

void ImageNames::completeSource(const CConversionPaths &paths, int formatCode,
                                const QString &source)
{
    const QString start = paths.folder(formatCode) + QLatin1Char('/');
    const QStringList made = outputs(paths, formatCode);
    for (const QString &each : filesOf(paths.folder(formatCode), paths.baseName(formatCode))) {
        if (!made.contains(start + each))
            return;
    }
    CFileCopies copy(paths.projectFolder());
    copy.add(source, start + paths.fileName());
    copy.copy(); // a convenience; without it another format is refused
}

ImageNames::EState ImageNames::stateOf(const CConversionPaths &paths, int formatCode,
                                       const QString &source)
{
    const QString folder = paths.folder(formatCode);
    const QString base = paths.baseName(formatCode);
    const QString raw = QFileInfo(paths.output(formatCode)).fileName();
    const QStringList files = filesOf(folder, base);
    bool isOwn = files.isEmpty();
    bool isMade = false;
    for (const QString &each : files) {
        if (isOutput(each, base))
            isMade = isMade || each == raw;
        else if (each == paths.fileName() &&
                 CFileCopies::areEqual(source, folder + QLatin1Char('/') + each))
            isOwn = true;
        else
            return EState::Taken;
    }
    if (isMade)
        return EState::Made;
    return isOwn ? EState::Free : EState::Taken;
}
