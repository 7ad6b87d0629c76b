#include "ProjectGenerator.h"

#include "TestFiles.h"
#include "executor/BitmapFormats.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QStringList>

#include <random>

namespace {

struct SAsset
{
    QString attributes; ///< of an item that shows it, behind its tag
    uint32_t bytes;     ///< in RAM_G
};

class CGenerator
{
public:
    CGenerator(uint32_t seed, const QString &folder)
        : m_random(seed * 2654435761U + 17), m_seed(seed), m_folder(folder)
    {
    }

    QString write();

private:
    int between(int least, int most)
    {
        return least + static_cast<int>(m_random() % static_cast<uint32_t>(most - least + 1));
    }
    bool oneIn(int n) { return between(1, n) == 1; }
    template<class Type>
    Type oneOf(const QList<Type> &list)
    {
        return list[between(0, list.size() - 1)];
    }
    void writeFile(const QString &name, const QByteArray &bytes)
    {
        TestFiles::write(m_folder.filePath(name), bytes);
    }
    void addBitmap(uint32_t largest);
    void addMedia(uint32_t largest);
    QString fonts();
    QString item(const QString &tagAndAttributes);
    QString textInOwnFont();
    QString screen(int index);

    std::mt19937 m_random;
    const uint32_t m_seed;
    const QDir m_folder;
    const bool m_isLarge = m_seed % 2 == 0;
    const bool m_hasFonts = m_seed % 4 == 1 || m_seed % 7 == 0;
    const uint32_t m_memory = (m_isLarge ? 1024 * 1024 : 256 * 1024) - (m_hasFonts ? 64 * 1024 : 0);
    QList<SAsset> m_assets;
    int m_nextId = 1;
};

uint32_t aligned(uint64_t bytes)
{
    return static_cast<uint32_t>((bytes + 3) / 4 * 4);
}

void CGenerator::addBitmap(uint32_t largest)
{
    QStringList formats{"ARGB1555", "L1", "L4", "L8", "RGB332", "ARGB2", "ARGB4", "RGB565", "DXT1"};
    formats += m_isLarge ? QStringList{"L2", "PALETTED8", "PALETTED565", "PALETTED4444"}
                         : QStringList{"PALETTED"};
    const QString format = oneOf<QString>(formats);
    const auto code = static_cast<uint32_t>(kivemu::bitmapFormatCode(format.toStdString()));
    const uint32_t palette = kivemu::paletteSize(code);
    int width = 0, height = 0;
    uint64_t texels = 0;
    do {
        width = between(1, m_isLarge ? 800 : 400);
        height = between(1, m_isLarge ? 500 : 300);
        texels = kivemu::bitmapSize(code, width, height);
    } while (aligned(texels) + palette > std::max(largest, palette + 64));
    QByteArray noise(static_cast<int>(texels + palette), '\0');
    for (char &byte : noise)
        byte = static_cast<char>(m_random());
    QString base = QStringLiteral("bitmap%1").arg(m_assets.size());
    for (int copies = oneIn(4) ? 2 : 1; copies > 0; --copies) { // equal ones under two names
        writeFile(base + '_' + format + ".raw", noise.left(static_cast<int>(texels)));
        if (palette > 0)
            writeFile(base + '_' + format + ".lut", noise.mid(static_cast<int>(texels)));
        m_assets.append({QStringLiteral("Kiv_Bitmap_T filename=\"%1.png\" basename=\"%1\" "
                                        "suffix=\"png\" bwidth=\"%2\" bheight=\"%3\" format=\"%4\"")
                             .arg(base)
                             .arg(width)
                             .arg(height)
                             .arg(format),
                         aligned(texels) + palette});
        base += " copy";
    }
}

void CGenerator::addMedia(uint32_t largest)
{
    const QString suffix = QStringList{"png", "jpg", "avi"}[between(0, m_isLarge ? 2 : 1)];
    const bool isMono = oneIn(3);
    QImage picture;
    uint32_t size = 0;
    do {
        picture = QImage(between(1, m_isLarge ? 500 : 300), between(1, m_isLarge ? 400 : 200),
                         QImage::Format_RGB32);
        size =
            aligned(static_cast<uint64_t>(picture.width() * picture.height()) * (isMono ? 1 : 2));
    } while (size > largest);
    const auto first = static_cast<uint32_t>(m_random());
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, first + static_cast<uint32_t>(x * 0x010305 + y * 0x050200));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, suffix == "png" ? "PNG" : "JPG", 90);
    const auto chunk = [](const QByteArray &id, const QByteArray &content) {
        QByteArray head = id + QByteArray(4, '\0');
        for (int i = 0; i < 4; ++i)
            head[4 + i] = static_cast<char>(content.size() >> (8 * i));
        return head + content + QByteArray(content.size() % 2, '\0');
    };
    if (suffix == "avi")
        bytes = chunk("RIFF", "AVI " + chunk("LIST", "movi" + chunk("00dc", bytes)));
    const QString base = QStringLiteral("media%1").arg(m_assets.size());
    writeFile(base + '.' + suffix, bytes);
    m_assets.append({QStringLiteral("Kiv_Media_T basename=\"%1\" suffix=\"%2\" bwidth=\"%3\" "
                                    "bheight=\"%4\" mono=\"%5\"")
                         .arg(base, suffix)
                         .arg(picture.width())
                         .arg(picture.height())
                         .arg(isMono),
                     size});
}

/// Two fonts of one file.
QString CGenerator::fonts()
{
    QFile::copy(QStringLiteral(KIV_FONT_REGULAR), m_folder.filePath(QStringLiteral("font.ttf")));
    QString fonts;
    for (const int handle : {3, 14})
        fonts += QStringLiteral("<font handle=\"%1\" name=\"Own\" file=\"font.ttf\" size=\"%2\" "
                                "bits=\"%3\" extra=\"%4\"/>")
                     .arg(handle)
                     .arg(between(16, 50) / 2.0)
                     .arg(oneOf<int>({1, 2, 4, 8}))
                     .arg(oneIn(2) ? QStringLiteral("0-9 . -") : QString());
    return QStringLiteral("<fonts>%1</fonts>\n").arg(fonts);
}

QString CGenerator::textInOwnFont()
{
    const QStringList texts{"24.5 bar",    "AVATAR", "Größe", "Ελληνικά",
                            "Привет, мир", "مرحبا",  "שלום"};
    return item(QStringLiteral("Kiv_Text_T text=\"%1\" font=\"%2\"")
                    .arg(oneOf<QString>(texts))
                    .arg(oneIn(2) ? 3 : 14));
}

QString CGenerator::item(const QString &tagAndAttributes)
{
    return QStringLiteral("<%1 name=\"Item %2\" id=\"%3\" x_coordinate=\"%4\" y_coordinate=\"%5\" "
                          "width=\"%6\" height=\"%7\"/>\n")
        .arg(tagAndAttributes)
        .arg(between(1, 9))
        .arg(m_nextId++)
        .arg(between(-40, 300))
        .arg(between(-40, 200))
        .arg(between(4, 200))
        .arg(between(4, 150));
}

/// Screens take assets as long as they fit, each some that many take and some of its own.
QString CGenerator::screen(int index)
{
    const QStringList names{"Main menu", "main_menu",        "Start", QString::fromUtf8("Größe"),
                            "",          "Screen &lt;5&gt;", "Start", "Settings"};
    const QStringList plain{"Kiv_Rectangle_T", "Kiv_Text_T", "Kiv_Button_T", "Kiv_Gradient_T",
                            "Kiv_Gauge_T"};
    QStringList items;
    uint32_t used = 0;
    for (int i = 0; i < m_assets.size(); ++i) {
        const bool isWanted = i % 3 == 0 ? !oneIn(4) : oneIn(3);
        if (!isWanted || used + m_assets[i].bytes > m_memory)
            continue;
        used += m_assets[i].bytes;
        for (int times = oneIn(4) ? 2 : 1; times > 0; --times)
            items += item(m_assets[i].attributes + " bfolder=\"\"" +
                          (oneIn(2) ? " image_tint=\"#80ff20\"" : "") +
                          (oneIn(2) ? " filter=\"nearest\"" : "") +
                          (oneIn(3) ? QStringLiteral(" angle=\"%1\"").arg(between(1, 359)) : ""));
    }
    for (int i = between(0, 4); i > 0; --i)
        items.insert(between(0, items.size()), item(oneOf<QString>(plain)));
    for (int i = m_hasFonts ? between(0, 5) : 0; i > 0; --i)
        items.insert(between(0, items.size()), textInOwnFont());
    if (items.size() > 3 && oneIn(2)) {
        items[0].prepend("<Widget_Group_T name=\"Group\">");
        items[2].append("</Widget_Group_T>");
    }
    return QStringLiteral("<Kiv_Screen_T name=\"%1\" color=\"#%2\">\n%3</Kiv_Screen_T>\n")
        .arg(names[index % names.size()])
        .arg(between(0, 0xFFFFFF), 6, 16, QLatin1Char('0'))
        .arg(items.join(QString()));
}

QString CGenerator::write()
{
    // By turns: all fits, too much, and screens that are full to the brim.
    const bool fits = m_seed % 3 == 0;
    const uint32_t all = fits ? m_memory : m_memory * 5 / 2;
    const uint32_t largest = m_seed % 3 == 2 ? m_memory / 9 : std::min(m_memory / 2, all / 4);
    for (uint32_t used = 0; used < all - all / 8 && m_assets.size() < 40;) {
        const uint32_t room = std::min(largest, (all - used) / 2 - 1);
        if (room < 4096)
            break;
        const int before = m_assets.size();
        oneIn(4) ? addMedia(room) : addBitmap(room);
        for (int i = before; i < m_assets.size(); ++i)
            used += m_assets[i].bytes;
    }
    QString text = QStringLiteral("<Kiv_Project_T name=\"Generated\" working_directory=\".\" %1>\n")
                       .arg(m_isLarge ? "platform=\"QX112\" width=\"480\" height=\"272\""
                                      : "platform=\"QX100\" width=\"320\" height=\"240\"");
    if (m_hasFonts)
        text += fonts();
    for (int i = between(fits ? 1 : 2, 8); i > 0; --i)
        text += screen(i);
    const QString name = QStringLiteral("generated.nyx");
    writeFile(name, (text + "</Kiv_Project_T>\n").toUtf8());
    return m_folder.filePath(name);
}

} // namespace

QString generateProject(uint32_t seed, const QString &folder)
{
    return CGenerator(seed, folder).write();
}
