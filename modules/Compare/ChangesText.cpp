#include "ChangesText.h"

#include "ProjectChanges.h"

#include <QJsonArray>

namespace {

QString word(SItemChange::EKind kind)
{
    switch (kind) {
    case SItemChange::EKind::Added:
        return QStringLiteral("added");
    case SItemChange::EKind::Removed:
        return QStringLiteral("removed");
    case SItemChange::EKind::Moved:
        return QStringLiteral("moved");
    case SItemChange::EKind::Changed:
        break;
    }
    return QStringLiteral("changed");
}

QString word(SScreenChange::EKind kind)
{
    switch (kind) {
    case SScreenChange::EKind::Added:
        return QStringLiteral("added");
    case SScreenChange::EKind::Removed:
        return QStringLiteral("removed");
    case SScreenChange::EKind::Changed:
        break;
    }
    return QStringLiteral("changed");
}

QJsonArray toJson(const QRect &box)
{
    return {box.x(), box.y(), box.width(), box.height()};
}

QJsonValue toJson(const QString &value)
{
    return value.isNull() ? QJsonValue() : QJsonValue(value);
}

QJsonArray toJson(const QVector<SValueChange> &values)
{
    QJsonArray array;
    for (const SValueChange &value : values)
        array.append(QJsonObject{{QStringLiteral("property"), value.key},
                                 {QStringLiteral("old"), toJson(value.before)},
                                 {QStringLiteral("new"), toJson(value.after)}});
    return array;
}

/// The group that it is a member of; empty when it is none.
QString groupOf(const SItemState &item)
{
    const SItemState *parent = item.parent;
    return parent && parent->kind == CItemModel::Kind::Group ? parent->name : QString();
}

QJsonObject toJson(const SItemChange &change)
{
    const SItemState &item = change.any();
    QJsonObject object{{QStringLiteral("change"), word(change.kind)},
                       {QStringLiteral("type"), item.typeName},
                       {QStringLiteral("id"), item.idString},
                       {QStringLiteral("name"), item.name},
                       {QStringLiteral("box"), toJson(item.box)}};
    if (!groupOf(item).isEmpty())
        object.insert(QStringLiteral("group"), groupOf(item));
    if (!change.screenBefore.isNull())
        object.insert(QStringLiteral("from_screen"), change.screenBefore);
    if (change.isRegrouped)
        object.insert(QStringLiteral("regrouped"), true);
    if (change.isReordered)
        object.insert(QStringLiteral("reordered"), true);
    if (!change.values.isEmpty())
        object.insert(QStringLiteral("properties"), toJson(change.values));
    return object;
}

QJsonObject toJson(const SScreenChange &change)
{
    const SItemState &screen = change.any();
    QJsonObject object{{QStringLiteral("change"), word(change.kind)},
                       {QStringLiteral("name"), screen.name}};
    if (change.before && change.before->name != screen.name)
        object.insert(QStringLiteral("old_name"), change.before->name);
    if (change.isReordered)
        object.insert(QStringLiteral("reordered"), true);
    if (!change.values.isEmpty())
        object.insert(QStringLiteral("properties"), toJson(change.values));
    QJsonArray items;
    for (const SItemChange &item : change.items)
        items.append(toJson(item));
    if (!items.isEmpty())
        object.insert(QStringLiteral("items"), items);
    return object;
}

QJsonObject toJson(const SPictureDifference &picture)
{
    return {{QStringLiteral("count"), picture.pixels},
            {QStringLiteral("box"), toJson(picture.box)}};
}

/// On one line whatever it holds, and whole.
QString quoted(const QString &text)
{
    QString line(QLatin1Char('"'));
    for (const QChar c : text) {
        const bool isUnseen =
            c.category() == QChar::Other_Control || c.category() == QChar::Other_Format ||
            c.category() == QChar::Separator_Line || c.category() == QChar::Separator_Paragraph;
        if (c == QLatin1Char('"') || c == QLatin1Char('\\'))
            line += QLatin1Char('\\');
        if (c == QLatin1Char('\n'))
            line += QLatin1String("\\n");
        else if (isUnseen)
            line += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        else
            line += c;
    }
    return line + QLatin1Char('"');
}

QString valueText(const QString &value)
{
    return value.isNull() ? QStringLiteral("(none)") : quoted(value);
}

void addLines(const QString &place, const QVector<SValueChange> &values, QStringList &lines)
{
    for (const SValueChange &value : values)
        lines.append(place + QStringLiteral("%1: %2 -> %3")
                                 .arg(value.key, valueText(value.before), valueText(value.after)));
}

/// "Kiv_Text_T 12 "Title""
QString label(const SItemState &item)
{
    QString text = item.typeName;
    if (!item.idString.isEmpty())
        text += QLatin1Char(' ') + item.idString;
    return text + QLatin1Char(' ') + quoted(item.name);
}

void addLines(const QString &screen, const SItemChange &change, QStringList &lines)
{
    const SItemState &item = change.any();
    const QString place = screen + label(item) + QStringLiteral(": ");
    if (change.kind == SItemChange::EKind::Added || change.kind == SItemChange::EKind::Removed)
        lines.append(place + word(change.kind));
    if (!change.screenBefore.isNull())
        lines.append(place + QStringLiteral("from screen ") + quoted(change.screenBefore));
    if (change.isRegrouped)
        lines.append(place + (groupOf(item).isEmpty()
                                  ? QStringLiteral("out of its group")
                                  : QStringLiteral("into group ") + quoted(groupOf(item))));
    if (change.isReordered)
        lines.append(place + QStringLiteral("in another order"));
    addLines(place, change.values, lines);
}

void addLine(const QString &screen, const SPictureDifference &picture, QStringList &lines)
{
    if (!picture.isEmpty())
        lines.append(screen + QStringLiteral("%1 pixels differ, in %2,%3 %4x%5")
                                  .arg(picture.pixels)
                                  .arg(picture.box.x())
                                  .arg(picture.box.y())
                                  .arg(picture.box.width())
                                  .arg(picture.box.height()));
}

QString screenLabel(const SItemState &screen)
{
    return QStringLiteral("screen ") + quoted(screen.name) + QStringLiteral(": ");
}

/// The screens of which nothing but the picture differs, in their order.
QVector<const SItemState *> onlyPictures(const SProjectChanges &changes,
                                         PictureDifferences pictures)
{
    for (const SScreenChange &screen : changes.screens)
        pictures.remove(screen.after);
    QVector<const SItemState *> screens;
    for (const SScreenPair &pair : changes.pairs)
        if (!pictures.value(pair.after).isEmpty())
            screens.append(pair.after);
    return screens;
}

void describeItem(const SItemState &item, const QString &indent, QStringList &lines)
{
    lines.append(indent + label(item));
    for (const auto &[key, text] : item.values)
        lines.append(indent +
                     QStringLiteral("  . %1: %2").arg(key, quoted(QString::fromUtf8(text))));
    for (const auto &child : item.children)
        describeItem(*child, indent + QStringLiteral("  "), lines);
}

} // namespace

namespace ChangesText {

QJsonObject toJson(const SProjectChanges &changes, const PictureDifferences &pictures)
{
    QJsonArray screens;
    for (const SScreenChange &change : changes.screens) {
        QJsonObject object = ::toJson(change);
        const SPictureDifference picture = pictures.value(change.after);
        if (!picture.isEmpty())
            object.insert(QStringLiteral("pixels"), ::toJson(picture));
        screens.append(object);
    }
    for (const SItemState *screen : onlyPictures(changes, pictures))
        screens.append(QJsonObject{{QStringLiteral("change"), QStringLiteral("changed")},
                                   {QStringLiteral("name"), screen->name},
                                   {QStringLiteral("pixels"), ::toJson(pictures.value(screen))}});
    return {{QStringLiteral("equal"), changes.values.isEmpty() && screens.isEmpty()},
            {QStringLiteral("project"), ::toJson(changes.values)},
            {QStringLiteral("screens"), screens}};
}

QStringList toLines(const SProjectChanges &changes, const PictureDifferences &pictures)
{
    QStringList lines;
    addLines(QStringLiteral("project: "), changes.values, lines);
    for (const SScreenChange &change : changes.screens) {
        const QString screen = screenLabel(change.any());
        if (change.kind != SScreenChange::EKind::Changed)
            lines.append(screen + word(change.kind));
        if (change.isReordered)
            lines.append(screen + QStringLiteral("in another order"));
        addLines(screen, change.values, lines);
        for (const SItemChange &item : change.items)
            addLines(screen, item, lines);
        addLine(screen, pictures.value(change.after), lines);
    }
    for (const SItemState *screen : onlyPictures(changes, pictures))
        addLine(screenLabel(*screen), pictures.value(screen), lines);
    return lines;
}

QStringList describe(const SProjectState &project)
{
    QStringList lines;
    for (const auto &[key, text] : project.values)
        lines.append(QStringLiteral("%1: %2").arg(key, quoted(QString::fromUtf8(text))));
    for (const auto &screen : project.screens)
        describeItem(*screen, QString(), lines);
    return lines;
}

} // namespace ChangesText
