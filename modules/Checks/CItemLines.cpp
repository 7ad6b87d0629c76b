#include "CItemLines.h"

#include "CItemModel.h"

#include <QXmlStreamReader>

namespace {

/// The name counts where there is no id, which is 0 then.
QString keyOf(int page, const QString &kind, const QString &id, const QString &name)
{
    const bool hasId = !id.isEmpty() && id != QLatin1String("0");
    return QStringLiteral("%1 %2 %3").arg(page).arg(kind, hasId ? id : QLatin1Char('"') + name);
}

} // namespace

CItemLines::CItemLines(const QByteArray &document)
{
    QXmlStreamReader reader(document);
    int page = -1;
    while (!reader.atEnd()) {
        const auto line = static_cast<int>(reader.lineNumber()); // where the token before has ended
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString kind = reader.name().toString();
        page += kind == QLatin1String("Kiv_Screen_T");
        const QXmlStreamAttributes values = reader.attributes();
        int &known = m_lines[keyOf(page, kind, values.value(QLatin1String("id")).toString(),
                                   values.value(QLatin1String("name")).toString())];
        if (known == 0)
            known = line;
    }
}

int CItemLines::of(const CItemModel *screen, const CItemModel *item) const
{
    const CItemModel *place = item ? item : screen;
    if (!place)
        return 1;
    const int page = screen ? screen->row() : -1;
    return m_lines.value(keyOf(page, place->itemTypeName(), place->idString(), place->name()), 1);
}
