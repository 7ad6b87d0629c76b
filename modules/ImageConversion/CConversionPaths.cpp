#include "CConversionPaths.h"

#include "CBitmapFormatTable.h"

#include <QFileInfo>

CConversionPaths::CConversionPaths(const QString &convertedImages, const QString &source)
    : m_root(convertedImages)
{
    const QFileInfo info(source);
    m_fileName = info.fileName();
    m_baseName = info.baseName();
    m_completeBaseName = info.completeBaseName();
    m_suffix = info.suffix();
}

QString CConversionPaths::projectFolder() const
{
    return QFileInfo(m_root).path();
}

QString CConversionPaths::folder(int formatCode) const
{
    using EPath = CBitmapFormatTable::EPath;
    const QString own = m_root + QLatin1Char('/') + m_baseName;
    if (isRaw())
        return own + QStringLiteral("_RAW");
    switch (CBitmapFormatTable::path(formatCode)) {
    case EPath::Palette:
        return own + QStringLiteral("_PALETTED");
    case EPath::Dxt1:
        return own + QStringLiteral("_DXT1");
    case EPath::General:
    case EPath::None:
        break;
    }
    return m_root;
}

QString CConversionPaths::baseName(int formatCode) const
{
    const auto path = CBitmapFormatTable::path(formatCode);
    return path == CBitmapFormatTable::EPath::Palette && !isRaw() ? m_baseName : m_completeBaseName;
}

QString CConversionPaths::output(int formatCode) const
{
    const QString start = folder(formatCode) + QLatin1Char('/');
    if (isRaw())
        return start + m_fileName;
    return start + baseName(formatCode) + QLatin1Char('_') + CBitmapFormatTable::name(formatCode) +
           QStringLiteral(".raw");
}

QString CConversionPaths::quantised() const
{
    return folder(CBitmapFormatTable::code(QStringLiteral("PALETTED"))) + QLatin1Char('/') +
           m_baseName + QStringLiteral("-fs8.") + m_suffix;
}
