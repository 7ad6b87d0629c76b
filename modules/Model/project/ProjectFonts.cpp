#include "ProjectFonts.h"

#include "CXmlWriter.h"

#include <algorithm>
#include <tuple>

namespace {
const QString HandleKey = QStringLiteral("handle");
const QString NameKey = QStringLiteral("name");
const QString FileKey = QStringLiteral("file");
const QString SizeKey = QStringLiteral("size");
const QString BitsKey = QStringLiteral("bits");
const QString AxesKey = QStringLiteral("axes");
const QString FallbackKey = QStringLiteral("fallback");
const QString ExtraKey = QStringLiteral("extra");

constexpr int LongestText = 4096; // characters of a field; more is no font's

QString handlesText(const QVector<int> &handles)
{
    QStringList texts;
    for (const int handle : handles)
        texts.append(QString::number(handle));
    return texts.join(QLatin1Char(','));
}

bool isHandle(int handle)
{
    return handle >= 0 && handle < SProjectFont::HandleCount;
}

QVector<int> handlesFrom(const QString &text)
{
    QVector<int> handles;
    const QStringList parts = text.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &each : parts) {
        bool isNumber = false;
        const int handle = each.trimmed().toInt(&isNumber);
        if (isNumber && isHandle(handle) && !handles.contains(handle))
            handles.append(handle);
    }
    return handles;
}

double sizeFrom(const QString &text)
{
    bool isNumber = false;
    const double size = text.toDouble(&isNumber);
    if (!isNumber || size != size) // a NaN is in no range
        return SProjectFont().size;
    return qBound(SProjectFont::SmallestSize, size, SProjectFont::LargestSize);
}

int bitsFrom(const QString &text)
{
    const int bits = text.toInt();
    return bits == 1 || bits == 2 || bits == 4 ? bits : 8;
}

ItemAttributes attributesOf(const SProjectFont &font)
{
    return {{HandleKey, QString::number(font.handle)},
            {NameKey, font.name},
            {FileKey, font.file},
            {SizeKey, QString::number(font.size)},
            {BitsKey, QString::number(font.bits)},
            {AxesKey, font.axes},
            {FallbackKey, handlesText(font.fallback)},
            {ExtraKey, font.extra}};
}

SProjectFont fontFrom(const ItemAttributes &attributes)
{
    const auto value = [&](const QString &key) {
        for (const ItemAttribute &each : attributes) {
            if (each.name == key)
                return each.text.left(LongestText);
        }
        return QString();
    };
    SProjectFont font;
    bool isNumber = false;
    font.handle = value(HandleKey).toInt(&isNumber);
    if (!isNumber || !isHandle(font.handle))
        font.handle = -1;
    font.name = value(NameKey);
    font.file = value(FileKey);
    font.size = sizeFrom(value(SizeKey));
    font.bits = bitsFrom(value(BitsKey));
    font.axes = value(AxesKey);
    font.fallback = handlesFrom(value(FallbackKey));
    font.extra = value(ExtraKey);
    return font;
}

bool hasHandle(const ProjectFontList &fonts, int handle)
{
    return std::any_of(fonts.begin(), fonts.end(),
                       [handle](const SProjectFont &each) { return each.handle == handle; });
}

/// A field must not look like several.
QString field(QString text)
{
    for (QChar &c : text) {
        if (c.unicode() < 0x20 || c.unicode() == 0x7F)
            c = QLatin1Char(' ');
    }
    return text;
}
} // namespace

const QString ProjectFonts::ListTag = QStringLiteral("fonts");
const QString ProjectFonts::FontTag = QStringLiteral("font");

bool SProjectFont::operator==(const SProjectFont &other) const
{
    const auto fields = [](const SProjectFont &font) {
        return std::tie(font.handle, font.name, font.file, font.size, font.bits, font.axes,
                        font.fallback, font.extra);
    };
    return fields(*this) == fields(other);
}

QVector<ItemAttributes> ProjectFonts::attributes(const ProjectFontList &fonts)
{
    QVector<ItemAttributes> elements;
    for (const SProjectFont &each : fonts)
        elements.append(attributesOf(each));
    return elements;
}

void ProjectFonts::write(const ProjectFontList &fonts, CXmlWriter &writer)
{
    if (fonts.isEmpty())
        return;
    writer.startElement(ListTag);
    const QVector<ItemAttributes> elements = attributes(fonts);
    for (const ItemAttributes &element : elements) {
        writer.startElement(FontTag);
        for (const ItemAttribute &each : element)
            writer.attribute(each.name, each.text);
        writer.endElement();
    }
    writer.endElement();
}

ProjectFontList ProjectFonts::fromAttributes(const QVector<ItemAttributes> &elements)
{
    ProjectFontList fonts;
    ProjectFontList homeless;
    for (const ItemAttributes &each : elements) {
        const SProjectFont font = fontFrom(each);
        ProjectFontList &list =
            isHandle(font.handle) && !hasHandle(fonts, font.handle) ? fonts : homeless;
        if (fonts.size() + homeless.size() < SProjectFont::HandleCount)
            list.append(font);
    }
    for (SProjectFont &each : homeless) {
        each.handle = freeHandle(fonts);
        fonts.append(each);
    }
    std::sort(fonts.begin(), fonts.end(), [](const SProjectFont &one, const SProjectFont &other) {
        return one.handle < other.handle;
    });
    return fonts;
}

QString ProjectFonts::rendererText(const ProjectFontList &fonts)
{
    QStringList lines;
    const QVector<ItemAttributes> elements = attributes(fonts);
    for (const ItemAttributes &element : elements) {
        QStringList fields;
        for (const ItemAttribute &each : element)
            fields.append(field(each.text));
        lines.append(fields.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

int ProjectFonts::freeHandle(const ProjectFontList &fonts)
{
    for (int handle = 0; handle < SProjectFont::HandleCount; ++handle) {
        if (!hasHandle(fonts, handle))
            return handle;
    }
    return -1;
}
