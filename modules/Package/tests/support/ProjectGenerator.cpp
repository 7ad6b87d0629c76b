#include "ProjectGenerator.h"

#include "executor/BitmapFormats.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QList>
#include <QStringList>

#include <random>

namespace {

struct SAsset
{
    QString base;
    QString format; ///< empty: a file that the chip decodes
    QString suffix;
    int width;
    int height;
    bool isMono;
    uint32_t bytes; ///< in RAM_G
};

class CGenerator
{
public:
    CGenerator(uint32_t seed, const QString &folder)
        : m_random(seed * 2654435761U + 17),
          m_seed(seed),
          m_folder(folder),
          m_isLarge(seed % 2 == 0),
          m_memory(m_isLarge ? 1024 * 1024 : 256 * 1024)
    {
    }

    QString write();

private:
    enum class EFill { AllFits, TooMuch, ToTheBrim };

    uint32_t next() { return static_cast<uint32_t>(m_random()); }
    uint32_t below(uint32_t limit) { return next() % limit; }
    int between(int least, int most)
    {
        return least + static_cast<int>(below(static_cast<uint32_t>(most - least + 1)));
    }
    QByteArray noise(int size);
    QImage picture(int width, int height);
    bool writeFile(const QString &name, const QByteArray &bytes);
    void addBitmap(uint32_t largest);
    void addFile(uint32_t largest);
    QByteArray film(const QByteArray &jpeg) const;
    QString screen(int index);
    QString assetItem(const SAsset &asset);
    QString plainItem();
    QString place(int width, int height);

    std::mt19937 m_random;
    const uint32_t m_seed;
    const QDir m_folder;
    const bool m_isLarge;
    const uint32_t m_memory;
    QList<SAsset> m_assets;
    int m_nextId = 1;
    bool m_isWritten = true;
};

uint32_t aligned(uint64_t bytes)
{
    return static_cast<uint32_t>((bytes + 3) / 4 * 4);
}

QByteArray CGenerator::noise(int size)
{
    QByteArray bytes(size, '\0');
    for (char &byte : bytes)
        byte = static_cast<char>(next());
    return bytes;
}

QImage CGenerator::picture(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    const uint32_t first = next();
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, first + static_cast<uint32_t>(x * 0x010305 + y * 0x050200));
    return image;
}

bool CGenerator::writeFile(const QString &name, const QByteArray &bytes)
{
    QFile file(m_folder.filePath(name));
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    m_isWritten = m_isWritten && isWritten;
    return isWritten;
}

void CGenerator::addBitmap(uint32_t largest)
{
    QStringList formats{"ARGB1555", "L1", "L4", "L8", "RGB332", "ARGB2", "ARGB4", "RGB565", "DXT1"};
    formats += m_isLarge ? QStringList{"L2", "PALETTED8", "PALETTED565", "PALETTED4444"}
                         : QStringList{"PALETTED"};
    SAsset asset{QStringLiteral("bitmap%1").arg(m_assets.size()), {}, "raw", 0, 0, false, 0};
    asset.format = formats[between(0, formats.size() - 1)];
    const auto code = static_cast<uint32_t>(kivemu::bitmapFormatCode(asset.format.toStdString()));
    const uint32_t palette = kivemu::paletteSize(code);
    uint64_t texels = 0;
    do {
        asset.width = between(1, m_isLarge ? 800 : 400);
        asset.height = between(1, m_isLarge ? 500 : 300);
        texels = kivemu::bitmapSize(code, asset.width, asset.height);
    } while (aligned(texels) + palette > std::max(largest, palette + 64));
    asset.bytes = aligned(texels) + palette;
    asset.suffix = QStringLiteral("png");
    const QByteArray bytes = noise(static_cast<int>(texels));
    const QByteArray lut = noise(static_cast<int>(palette));
    const int copies = below(4) == 0 ? 2 : 1; // the same content under two names
    for (int copy = 0; copy < copies; ++copy) {
        const QString name = asset.base + QLatin1Char('_') + asset.format;
        writeFile(name + ".raw", bytes);
        if (palette > 0)
            writeFile(name + ".lut", lut);
        m_assets.append(asset);
        asset.base += QStringLiteral(" copy");
    }
}

QByteArray CGenerator::film(const QByteArray &jpeg) const
{
    const auto chunk = [](const QByteArray &id, const QByteArray &content) {
        QByteArray size(4, '\0');
        for (int i = 0; i < 4; ++i)
            size[i] = static_cast<char>(content.size() >> (8 * i));
        return id + size + content + (content.size() % 2 != 0 ? QByteArray(1, '\0') : QByteArray());
    };
    return chunk("RIFF", "AVI " + chunk("LIST", "movi" + chunk("00dc", jpeg)));
}

void CGenerator::addFile(uint32_t largest)
{
    const QString suffix = QStringList{"png", "jpg", "avi"}[between(0, m_isLarge ? 2 : 1)];
    SAsset asset{QStringLiteral("media%1").arg(m_assets.size()), {}, suffix, 0, 0, false, 0};
    asset.isMono = below(3) == 0;
    do {
        asset.width = between(1, m_isLarge ? 500 : 300);
        asset.height = between(1, m_isLarge ? 400 : 200);
        asset.bytes = aligned(static_cast<uint64_t>(asset.width) *
                              static_cast<uint64_t>(asset.height) * (asset.isMono ? 1 : 2));
    } while (asset.bytes > largest);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    const bool isPng = suffix == QLatin1String("png");
    m_isWritten =
        m_isWritten && picture(asset.width, asset.height).save(&buffer, isPng ? "PNG" : "JPG", 90);
    writeFile(asset.base + '.' + suffix, suffix == QLatin1String("avi") ? film(bytes) : bytes);
    m_assets.append(asset);
}

QString CGenerator::place(int width, int height)
{
    const int x = between(-40, 300);
    const int y = between(-40, 200);
    return QStringLiteral(" name=\"Item %1\" id=\"%2\" x_coordinate=\"%3\" y_coordinate=\"%4\" "
                          "width=\"%5\" height=\"%6\" ")
        .arg(between(1, 9))
        .arg(m_nextId++)
        .arg(x)
        .arg(y)
        .arg(width)
        .arg(height);
}

QString CGenerator::assetItem(const SAsset &asset)
{
    const QString tag = asset.format.isEmpty() ? "Kiv_Media_T" : "Kiv_Bitmap_T";
    const QString size =
        QStringLiteral("bwidth=\"%1\" bheight=\"%2\" ").arg(asset.width).arg(asset.height);
    const QString angle =
        below(3) == 0 ? QStringLiteral("angle=\"%1\" ").arg(between(1, 359)) : QString();
    const QString format = asset.format.isEmpty() ? (asset.isMono ? "mono=\"1\"" : "mono=\"0\"")
                                                  : "format=\"" + asset.format + '"';
    const QString filter = below(2) == 0 || asset.format.isEmpty() ? "" : " filter=\"nearest\"";
    return '<' + tag + place(between(1, 200), between(1, 150)) + "filename=\"" + asset.base +
           ".png\" basename=\"" + asset.base + "\" suffix=\"" + asset.suffix +
           "\" bfolder=\"\" image_tint=\"#" + QStringList{"ffffff", "80ff20"}[between(0, 1)] +
           "\" " + size + angle + format + filter + "/>\n";
}

QString CGenerator::plainItem()
{
    const QString tag = QStringList{"Kiv_Rectangle_T", "Kiv_Text_T", "Kiv_Button_T",
                                    "Kiv_Gradient_T", "Kiv_Gauge_T"}[between(0, 4)];
    return '<' + tag + place(between(4, 120), between(4, 60)) + "/>\n";
}

/// Screens take assets as long as they fit, each some that many take and some of its own.
QString CGenerator::screen(int index)
{
    const QStringList names{"Main menu", "main_menu",        "Start", QString::fromUtf8("Größe"),
                            "",          "Screen &lt;5&gt;", "Start", "Settings"};
    QStringList items;
    uint32_t used = 0;
    for (int i = 0; i < m_assets.size(); ++i) {
        const bool isShared = i % 3 == 0;
        const bool isWanted = isShared ? below(4) > 0 : below(3) == 0;
        if (!isWanted || used + m_assets[i].bytes > m_memory)
            continue;
        used += m_assets[i].bytes;
        items.append(assetItem(m_assets[i]));
        if (below(4) == 0)
            items.append(assetItem(m_assets[i])); // shown twice
    }
    for (int i = between(0, 4); i > 0; --i)
        items.insert(between(0, items.size()), plainItem());
    if (items.size() > 3 && below(2) == 0) {
        items[0].prepend("<Widget_Group_T name=\"Group\">");
        items[2].append("</Widget_Group_T>");
    }
    return QStringLiteral("<Kiv_Screen_T name=\"%1\" color=\"#%2\">\n%3</Kiv_Screen_T>\n")
        .arg(names[index % names.size()])
        .arg(below(0x1000000), 6, 16, QLatin1Char('0'))
        .arg(items.join(QString()));
}

QString CGenerator::write()
{
    const auto fill = static_cast<EFill>(m_seed % 3);
    const int screens = between(1, 8) + (fill == EFill::AllFits ? 0 : 1);
    const uint32_t all = fill == EFill::AllFits ? m_memory : m_memory * 5 / 2;
    const uint32_t largest =
        fill == EFill::ToTheBrim ? m_memory / 9 : std::min(m_memory / 2, all / 4);
    uint32_t used = 0;
    while (used < all - all / 8 && m_assets.size() < 40) {
        const int before = m_assets.size();
        const uint32_t room = std::min(largest, (all - used) / 2 - 1);
        if (room < 4096)
            break;
        below(4) == 0 ? addFile(room) : addBitmap(room);
        for (int i = before; i < m_assets.size(); ++i)
            used += m_assets[i].bytes;
    }
    QString text =
        QStringLiteral("<Kiv_Project_T name=\"Generated %1\" platform=\"%2\" width=\"%3\" "
                       "height=\"%4\" working_directory=\".\" NYXVersion=\"1.0\">\n")
            .arg(m_seed)
            .arg(m_isLarge ? "QX112" : "QX100")
            .arg(m_isLarge ? 480 : 320)
            .arg(m_isLarge ? 272 : 240);
    for (int i = 0; i < screens; ++i)
        text += screen(i);
    const QString name = QStringLiteral("generated.nyx");
    writeFile(name, (text + "</Kiv_Project_T>\n").toUtf8());
    return m_isWritten ? m_folder.filePath(name) : QString();
}

} // namespace

QString generateProject(uint32_t seed, const QString &folder)
{
    return CGenerator(seed, folder).write();
}
