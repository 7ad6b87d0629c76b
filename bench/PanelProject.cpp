#include "PanelProject.h"

#include <QByteArray>
#include <QDir>
#include <QFile>

namespace bench {

namespace {

constexpr int Screens = 100;
constexpr int Rows = 9;
constexpr int RowHeight = 53; // pixels
constexpr int Backgrounds = 4;
constexpr int Icons = 8;
const char *const imageFolder = "panel_ConvertedImages";

bool write(const QString &file, const QByteArray &bytes)
{
    QFile out(file);
    return out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size();
}

/// Dark shades, other ones for each number, so that light texts are read on them.
QByteArray dxt1(int width, int height, int number)
{
    QByteArray bytes;
    for (int y = 0; y < height; y += 4)
        for (int x = 0; x < width; x += 4) {
            const auto blue = static_cast<char>(4 + (x / 80 + y / 60 + number) % 8);
            bytes += blue;
            bytes += QByteArray(3, '\0') + QByteArray(4, static_cast<char>(x * 7 + y * 13));
        }
    return bytes;
}

QByteArray argb4(int width, int height, int number)
{
    QByteArray bytes;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            bytes += static_cast<char>((x * number + y) % 256);
            bytes += static_cast<char>((x - width / 2) * (y - height / 2) > 0 ? 0xfa : 0x85);
        }
    return bytes;
}

bool writeImages(const QDir &folder)
{
    bool isWritten = folder.mkpath(QString::fromLatin1(imageFolder));
    const QString path = folder.filePath(QString::fromLatin1(imageFolder)) + QLatin1Char('/');
    for (int i = 0; i < Backgrounds; ++i)
        isWritten &= write(path + QStringLiteral("back%1_DXT1.raw").arg(i), dxt1(800, 480, i));
    for (int i = 0; i < Icons; ++i)
        isWritten &= write(path + QStringLiteral("icon%1_ARGB4.raw").arg(i), argb4(40, 40, i + 3));
    return isWritten;
}

/// Writes the items of one screen after the other, front-most first.
class CPanelText
{
public:
    explicit CPanelText(bool isChanged) : m_isChanged(isChanged) {}

    QByteArray project()
    {
        m_xml = "<Kiv_Project_T name=\"Panel\" project_name=\"panel\" platform=\"QX112\" "
                "width=\"800\" height=\"480\">\n";
        for (m_screen = 0; m_screen < Screens; ++m_screen) {
            m_xml += QStringLiteral("<Kiv_Screen_T name=\"Page %1\" color=\"#101418\">\n")
                         .arg(m_screen + 1);
            for (int row = 0; row < Rows; ++row)
                addRow(row, 2 + row * RowHeight);
            add("Bitmap", 0, 0,
                image("back%1", "DXT1", m_screen % Backgrounds, 800, 480) +
                    QStringLiteral(" width=\"800\" height=\"480\""));
            m_xml += QStringLiteral("</Kiv_Screen_T>\n");
        }
        return (m_xml + QStringLiteral("</Kiv_Project_T>\n")).toUtf8();
    }

private:
    void add(const char *kind, int x, int y, const QString &attributes)
    {
        ++m_number;
        m_xml += QStringLiteral(" <Kiv_%1_T name=\"%1 %2\" id=\"%2\" x_coordinate=\"%3\" "
                                "y_coordinate=\"%4\" %5/>\n")
                     .arg(QLatin1String(kind))
                     .arg(m_number)
                     .arg(x)
                     .arg(y)
                     .arg(attributes);
    }

    static QString box(int width, int height)
    {
        return QStringLiteral("width=\"%1\" height=\"%2\"").arg(width).arg(height);
    }

    static QString image(const char *name, const char *format, int number, int width, int height)
    {
        return QStringLiteral("basename=\"%1\" suffix=\"png\" bfolder=\"%2\" format=\"%3\" "
                              "bwidth=\"%4\" bheight=\"%5\"")
            .arg(QString::fromLatin1(name).arg(number), QLatin1String(imageFolder),
                 QLatin1String(format))
            .arg(width)
            .arg(height);
    }

    static QString text(const QString &words, int width)
    {
        return box(width, 22) + QStringLiteral(" text=\"%1\" font=\"26\"").arg(words);
    }

    /// Eleven widgets.
    void addRow(int row, int y)
    {
        const bool isEdited = m_isChanged && m_screen % 10 == 0 && row == 4;
        const QString number = QString::number(row * 17 + m_screen);
        add("Text", 52, y + 2, text(QStringLiteral("Motor ") + number, 170));
        add("Text", 52, y + 24,
            text(isEdited ? QStringLiteral("stopped") : number + QStringLiteral(" rpm"), 170));
        add("Bitmap", 6, y + 4,
            image("icon%1", "ARGB4", (row + m_screen) % Icons, 40, 40) + QLatin1Char(' ') +
                box(40, 40));
        add("Rectangle", 4, y, box(230, 48));
        add("Button", isEdited ? 246 : 240, y + 1,
            box(90, 46) + QStringLiteral(" text=\"Start\" font=\"26\""));
        add("Slider", 340, y + 1, box(108, 46) + QStringLiteral(" value=\"%1\"").arg(row * 10));
        add("Progress", 456, y + 20, box(90, 8));
        add("Led", 570, y + 24, QStringLiteral("point_size=\"224\""));
        add("Text", 590, y + 12, text(QStringLiteral("Bay ") + number, 96));
        if (isEdited)
            ++m_number; // the ids of the others stay
        else
            add("Text", 694, y + 12, text(QStringLiteral("12.5 bar"), 96));
        add("Line", 590, y + 44,
            QStringLiteral("x2_coordinate=\"790\" y2_coordinate=\"%1\"").arg(y + 44));
    }

    const bool m_isChanged;
    QString m_xml;
    int m_screen = 0;
    int m_number = 0;
};

} // namespace

bool writePanelProject(const QString &folder)
{
    return writeImages(QDir(folder)) && write(QDir(folder).filePath(QString::fromLatin1(PanelFile)),
                                              CPanelText(false).project());
}

bool writeChangedPanelProject(const QString &folder)
{
    return write(QDir(folder).filePath(QString::fromLatin1(ChangedPanelFile)),
                 CPanelText(true).project());
}

} // namespace bench
