#include "BenchProjects.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace bench {

namespace {

/// Writes the items of a screen, front one last.
class CItems
{
public:
    using Attributes = QVector<QPair<QString, QString>>;

    void add(const QString &type, double x, double y, const Attributes &attributes)
    {
        m_xml += QStringLiteral("<%1 name=\"%2\" id=\"%3\" x_coordinate=\"%4\" y_coordinate=\"%5\"")
                     .arg(type, type.mid(4))
                     .arg(++m_count)
                     .arg(std::lround(x))
                     .arg(std::lround(y));
        for (const auto &[name, value] : attributes)
            m_xml += QStringLiteral(" %1=\"%2\"").arg(name, value.toHtmlEscaped());
        m_xml += QStringLiteral("/>\n");
    }

    QByteArray project(int width, int height) const
    {
        QString xml =
            QStringLiteral("<Kiv_Project_T platform=\"QX110\" width=\"%1\" height=\"%2\">\n")
                .arg(width)
                .arg(height);
        for (const char *colour : {"#101418", "#181410"})
            xml += QStringLiteral("<Kiv_Screen_T name=\"Page %1\" color=\"%1\">\n").arg(colour) +
                   m_xml + QStringLiteral("</Kiv_Screen_T>\n");
        return (xml + QStringLiteral("</Kiv_Project_T>\n")).toUtf8();
    }

private:
    QString m_xml;
    int m_count = 0;
};

QString number(double value)
{
    return QString::number(std::lround(value));
}

QString rgb(uint32_t colour)
{
    return QStringLiteral("#%1").arg(colour & 0xFFFFFF, 6, 16, QLatin1Char('0'));
}

QString argb(uint32_t colour)
{
    return QStringLiteral("#%1").arg(colour, 8, 16, QLatin1Char('0'));
}

QString pointList(const std::vector<SPointF> &points)
{
    QStringList list;
    for (const SPointF &point : points)
        list += number(point.x) + QLatin1Char(',') + number(point.y);
    return list.join(QLatin1Char(';'));
}

CItems::Attributes box(double width, double height)
{
    return {{"width", number(width)}, {"height", number(height)}};
}

void addShapes(CItems &items, const SStandardScreen &screen)
{
    for (const auto &one : screen.gradients)
        items.add("Kiv_Gradient_T", one.x, one.y,
                  box(one.width, one.height) + CItems::Attributes{{"first_color", rgb(one.top)},
                                                                  {"last_color", rgb(one.bottom)}});
    for (const auto &one : screen.polygons)
        items.add("Kiv_Polygon_T", 0, 0,
                  {{"pointlist", pointList(one.points)}, {"fill_color", argb(one.colour)}});
    items.add("Kiv_Polyline_T", 0, 0,
              {{"pointlist", pointList(screen.plot)},
               {"thickness", number(screen.plotWidth)},
               {"line_color", rgb(screen.plotColour)}});
    for (const auto &one : screen.overlays)
        items.add("Kiv_Rectangle_T", one.x, one.y,
                  box(one.width, one.height) +
                      CItems::Attributes{{"corner", "0"}, {"fill_color", argb(one.colour)}});
}

void addControls(CItems &items, const SStandardScreen &screen)
{
    // Every other bar box is the filled part of the one before.
    for (const auto &one : screen.bars)
        items.add("Kiv_Progress_T", one.x, one.y, box(one.width, one.height));
    for (const auto &one : screen.buttons)
        items.add("Kiv_Button_T", one.x, one.y,
                  box(one.width, one.height) + CItems::Attributes{{"fill_color", rgb(one.fill)}});
    for (int i = 0; i < 4; ++i)
        items.add("Kiv_Gauge_T", 60 + 120 * i, screen.height * 0.7,
                  {{"radius", "46"}, {"value", number(20 + 20 * i)}});
    for (const auto &one : screen.labels)
        items.add("Kiv_Text_T", one.x, one.baseline - one.emSize,
                  box(140, one.emSize + 8) +
                      CItems::Attributes{{"text", QString::fromStdString(one.text)},
                                         {"text_color", rgb(one.colour)}});
}

} // namespace

QByteArray smallWidgets(int count)
{
    CItems items;
    for (int i = 0; i < count; ++i) {
        const double x = 4 + i % 20 * 39;
        const double y = 4 + i / 20 % 20 * 23;
        if (i % 3 == 0)
            items.add("Kiv_Rectangle_T", x, y, box(30, 16));
        else if (i % 3 == 1)
            items.add("Kiv_Circle_T", x + 8, y + 8, {{"point_size", "128"}});
        else
            items.add("Kiv_Text_T", x, y,
                      box(36, 20) + CItems::Attributes{{"text", QString::number(i % 100)}});
    }
    return items.project(800, 480);
}

QByteArray standardWidgets(const SStandardScreen &screen)
{
    CItems items;
    addShapes(items, screen);
    addControls(items, screen);
    return items.project(screen.width, screen.height);
}

int screensFor(int widgets)
{
    return std::max(1, widgets <= 1000 ? 1 : widgets / 100);
}

QByteArray manyScreens(int widgets, int screens)
{
    static const char *const kinds[] = {"Kiv_Button_T", "Kiv_Text_T", "Kiv_Rectangle_T",
                                        "Kiv_Circle_T", "Kiv_Progress_T"};
    const int onFirst = screens == 1 ? widgets : std::min(MostOnFirst, widgets / 2);
    QByteArray xml = "<Kiv_Project_T project_name=\"many\" platform=\"QX110\" width=\"1024\" "
                     "height=\"768\">\n";
    int number = 0;
    for (int screen = 0; screen < screens; ++screen) {
        const int share = screen == 0 ? onFirst : (widgets - number) / (screens - screen);
        xml += QStringLiteral(" <Kiv_Screen_T name=\"Page %1\" color=\"#%2\">\n")
                   .arg(screen + 1)
                   .arg(0x101418 + screen, 6, 16, QLatin1Char('0'))
                   .toUtf8();
        for (int i = 0; i < share; ++i) {
            ++number;
            xml += QStringLiteral("  <%1 name=\"%2 %3\" id=\"%3\" x_coordinate=\"%4\" "
                                  "y_coordinate=\"%5\"")
                       .arg(QLatin1String(kinds[i % 5]), QLatin1String(kinds[i % 5] + 4))
                       .arg(number)
                       .arg(10 + i % 25 * 39)
                       .arg(10 + i / 25 % 20 * 36)
                       .toUtf8();
            if (i % 5 < 2)
                xml += " text=\"Value " + QByteArray::number(number % 1000) + "\"";
            xml += "/>\n";
        }
        xml += " </Kiv_Screen_T>\n";
    }
    return xml + "</Kiv_Project_T>\n";
}

} // namespace bench
