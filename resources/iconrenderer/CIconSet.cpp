#include "CIconSet.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QXmlStreamWriter>

namespace {

/// What the placeholder colours of the drawings become. Every ink has a contrast of at least 3 : 1
/// on the theme's window colour; the accent is the highlight colour of the palette, brought to that
/// contrast.
struct Inks
{
    const char *theme;
    const char *stroke;
    const char *accent;
    const char *warning;
    const char *error;
    const char *disabled;
};

constexpr Inks themes[] = {
    {"dark", "#e8e8e8", "#8cbef0", "#f2b33d", "#ff7b70", "#989898"},
    {"light", "#202020", "#184880", "#6a4300", "#a01010", "#5a5a5a"},
    {"bright", "#2b333b", "#1f6fb2", "#8a4b00", "#b3261e", "#7d8792"},
};

/// Device pixels at which the editor shows icons: 16, 20 and 24 units at 100 %, 125 %, 150 %, 200
/// %.
constexpr int iconPixels[] = {16, 20, 24, 30, 32, 36, 40, 48};
constexpr int smallIconPixels = 16;
constexpr int plainPixels = 24; ///< also the side of the drawings' grid
constexpr int controlPixels = 16;
constexpr int markPixels[] = {16, 24, 32, 48, 64, 128, 256};

QByteArray inked(QByteArray svg, const Inks &inks)
{
    return svg.replace("currentColor", inks.stroke)
        .replace("#3388cc", inks.accent)
        .replace("#cc8800", inks.warning)
        .replace("#cc3333", inks.error);
}

QByteArray inkedDisabled(QByteArray svg, const Inks &inks)
{
    return svg.replace("currentColor", inks.disabled).replace("#3388cc", inks.disabled);
}

QString readDrawing(const QString &fileName, QByteArray &svg)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return fileName + QStringLiteral(": ") + file.errorString();
    svg = file.readAll();
    return {};
}

} // namespace

CIconSet::CIconSet(const QString &outputFolder) : m_outputFolder(outputFolder)
{
}

QString CIconSet::addIcon(const QString &svgFile)
{
    QByteArray svg;
    QString error = readDrawing(svgFile, svg);
    const QString name = QFileInfo(svgFile).completeBaseName();
    for (const Inks &inks : themes) {
        const bool isDefault = &inks == &themes[0];
        for (const int pixels : iconPixels) {
            QStringList resources(QStringLiteral("icons/%1/%2/%3.png")
                                      .arg(QLatin1String(inks.theme))
                                      .arg(pixels)
                                      .arg(name));
            if (isDefault && pixels == plainPixels)
                resources << QStringLiteral("images/%1.png").arg(name);
            if (isDefault && pixels == 2 * plainPixels)
                resources << QStringLiteral("images/%1@2x.png").arg(name);
            if (error.isEmpty())
                error = render(inked(svg, inks), pixels, resources);
        }
    }
    return error.isEmpty() ? error : svgFile + QStringLiteral(": ") + error;
}

QString CIconSet::addControl(const QString &svgFile)
{
    QByteArray svg;
    QString error = readDrawing(svgFile, svg);
    const QString name = QFileInfo(svgFile).completeBaseName();
    for (const Inks &inks : themes) {
        const QString path = QStringLiteral("controls/%1/%2").arg(QLatin1String(inks.theme), name);
        for (const int scale : {1, 2}) {
            const QString suffix = scale == 1 ? QStringLiteral(".png") : QStringLiteral("@2x.png");
            if (error.isEmpty())
                error = render(inked(svg, inks), scale * controlPixels, {path + suffix});
            if (error.isEmpty())
                error = render(inkedDisabled(svg, inks), scale * controlPixels,
                               {path + QStringLiteral("-disabled") + suffix});
        }
    }
    return error.isEmpty() ? error : svgFile + QStringLiteral(": ") + error;
}

QString CIconSet::addApplicationMark(const QString &svgFile)
{
    QByteArray svg;
    QString error = readDrawing(svgFile, svg);
    const QString name = QFileInfo(svgFile).completeBaseName();
    for (const int pixels : markPixels) {
        QStringList resources(QStringLiteral("icons/app/%1.png").arg(pixels));
        if (pixels == 128)
            resources << QStringLiteral("images/%1.png").arg(name);
        if (pixels == 256)
            resources << QStringLiteral("images/%1@2x.png").arg(name);
        if (error.isEmpty())
            error = render(svg, pixels, resources);
    }
    return error.isEmpty() ? error : svgFile + QStringLiteral(": ") + error;
}

QString CIconSet::render(const QByteArray &svg, int pixels, const QStringList &resourceNames)
{
    QSvgRenderer renderer(svg);
    if (!renderer.isValid())
        return QStringLiteral("not a drawing that can be rendered");
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        // At two thirds of the grid, strokes are a pixel wide and every third line of the grid
        // falls between two pixels; half a pixel on, it fills one.
        if (pixels == smallIconPixels && renderer.defaultSize().width() == plainPixels)
            painter.translate(0.5, 0.5);
        renderer.render(&painter, QRectF(0, 0, pixels, pixels));
    }
    const QString file = m_outputFolder + QLatin1Char('/') + resourceNames.first();
    if (!QDir().mkpath(QFileInfo(file).path()) || !image.save(file, "PNG"))
        return file + QStringLiteral(" could not be written");
    for (const QString &name : resourceNames)
        m_resources.append({name, file});
    return {};
}

QString CIconSet::writeResourceList(const QString &fileName) const
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return fileName + QStringLiteral(": ") + file.errorString();
    const QDir folder = QFileInfo(fileName).dir();
    QXmlStreamWriter xml(&file);
    xml.setAutoFormatting(true);
    xml.writeStartElement(QStringLiteral("RCC"));
    xml.writeStartElement(QStringLiteral("qresource"));
    for (const auto &resource : m_resources) {
        xml.writeStartElement(QStringLiteral("file"));
        xml.writeAttribute(QStringLiteral("alias"), resource.first);
        xml.writeCharacters(folder.relativeFilePath(resource.second));
        xml.writeEndElement();
    }
    xml.writeEndDocument();
    if (xml.hasError() || !file.flush())
        return fileName + QStringLiteral(" could not be written");
    return {};
}
