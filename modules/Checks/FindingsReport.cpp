#include "FindingsReport.h"

#include "CItemLines.h"
#include "CItemModel.h"
#include "Rules.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUrl>

namespace {

QString label(const CItemModel &item)
{
    QString text = item.itemTypeName();
    if (!item.idString().isEmpty())
        text += QLatin1Char(' ') + item.idString();
    return text + QStringLiteral(" \"%1\"").arg(item.name());
}

QString relative(const QString &file, const QString &folder)
{
    const QString text = QDir(folder).relativeFilePath(file);
    return text.startsWith(QLatin1String("..")) ? file : text;
}

QJsonObject toJson(const SFinding &finding, const QString &folder)
{
    QJsonObject object{{QStringLiteral("rule"), Rules::id(finding.rule)},
                       {QStringLiteral("severity"), Rules::id(finding.severity)},
                       {QStringLiteral("message"), finding.text}};
    if (finding.screen)
        object.insert(QStringLiteral("screen"), finding.screen->name());
    if (finding.item) {
        object.insert(QStringLiteral("type"), finding.item->itemTypeName());
        object.insert(QStringLiteral("id"), finding.item->idString());
        object.insert(QStringLiteral("name"), finding.item->name());
    }
    if (!finding.property.isEmpty())
        object.insert(QStringLiteral("property"), finding.property);
    if (!finding.file.isEmpty())
        object.insert(QStringLiteral("file"), relative(finding.file, folder));
    if (!finding.subject.isEmpty())
        object.insert(QStringLiteral("subject"), finding.subject);
    if (!finding.ignoredBecause.isNull())
        object.insert(QStringLiteral("ignored_because"), finding.ignoredBecause);
    return object;
}

/// From the current folder where it lies below it, which is where code hosts look for it.
QString uriOf(const QString &file)
{
    const QString path = QDir::current().relativeFilePath(QFileInfo(file).absoluteFilePath());
    if (path.startsWith(QLatin1String("../")) || QDir::isAbsolutePath(path))
        return QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath()).toString(QUrl::FullyEncoded);
    return QString::fromLatin1(QUrl::toPercentEncoding(path, "/"));
}

QJsonObject message(const QString &text)
{
    return {{QStringLiteral("text"), text}};
}

QJsonObject toSarif(const SFinding &finding, const QString &uri, const CItemLines &lines)
{
    const CItemModel *place = finding.item ? finding.item : finding.screen;
    QJsonObject location{
        {QStringLiteral("physicalLocation"),
         QJsonObject{
             {QStringLiteral("artifactLocation"), QJsonObject{{QStringLiteral("uri"), uri}}},
             {QStringLiteral("region"), QJsonObject{{QStringLiteral("startLine"),
                                                     lines.of(finding.screen, finding.item)}}}}}};
    if (place) {
        QString name = finding.screen ? finding.screen->name() : QString();
        if (finding.item)
            name += QLatin1Char('/') + label(*finding.item);
        location.insert(QStringLiteral("logicalLocations"),
                        QJsonArray{QJsonObject{{QStringLiteral("fullyQualifiedName"), name}}});
    }
    QJsonObject result{{QStringLiteral("ruleId"), Rules::id(finding.rule)},
                       {QStringLiteral("ruleIndex"), Rules::all().indexOf(finding.rule)},
                       {QStringLiteral("level"), Rules::id(finding.severity)},
                       {QStringLiteral("message"), message(finding.text)},
                       {QStringLiteral("locations"), QJsonArray{location}}};
    if (!finding.ignoredBecause.isNull())
        result.insert(
            QStringLiteral("suppressions"),
            QJsonArray{QJsonObject{{QStringLiteral("kind"), QStringLiteral("inSource")},
                                   {QStringLiteral("justification"), finding.ignoredBecause}}});
    return result;
}

} // namespace

namespace FindingsReport {

SCounts count(const Findings &findings)
{
    SCounts counts;
    for (const SFinding &finding : findings)
        ++(!finding.ignoredBecause.isNull()         ? counts.ignored
           : finding.severity == ESeverity::Error   ? counts.errors
           : finding.severity == ESeverity::Warning ? counts.warnings
                                                    : counts.notes);
    return counts;
}

QStringList toLines(const Findings &findings, bool withIgnored)
{
    QStringList lines;
    for (const SFinding &finding : findings) {
        const bool isIgnored = !finding.ignoredBecause.isNull();
        if (isIgnored && !withIgnored)
            continue;
        QString line;
        if (finding.screen)
            line += QStringLiteral("screen \"%1\": ").arg(finding.screen->name());
        if (finding.item)
            line += label(*finding.item) + QStringLiteral(": ");
        line += QStringLiteral("%1: %2 [%3]")
                    .arg(Rules::id(finding.severity), finding.text, Rules::id(finding.rule));
        if (isIgnored)
            line += QStringLiteral(" (ignored: %1)").arg(finding.ignoredBecause);
        lines.append(line);
    }
    return lines;
}

QJsonObject toJson(const Findings &findings, const QString &folder)
{
    const SCounts counts = count(findings);
    QJsonArray array;
    for (const SFinding &finding : findings)
        array.append(::toJson(finding, folder));
    return {{QStringLiteral("errors"), counts.errors},
            {QStringLiteral("warnings"), counts.warnings},
            {QStringLiteral("notes"), counts.notes},
            {QStringLiteral("ignored"), counts.ignored},
            {QStringLiteral("findings"), array}};
}

QByteArray toSarif(const Findings &findings, const QString &file, const QByteArray &document,
                   const QString &version)
{
    QJsonArray rules;
    for (const ERule rule : Rules::all())
        rules.append(QJsonObject{{QStringLiteral("id"), Rules::id(rule)},
                                 {QStringLiteral("shortDescription"), message(Rules::title(rule))},
                                 {QStringLiteral("help"), message(Rules::advice(rule))}});
    const CItemLines lines(document);
    const QString uri = uriOf(file);
    QJsonArray results;
    for (const SFinding &finding : findings)
        results.append(::toSarif(finding, uri, lines));
    const QJsonObject driver{{QStringLiteral("name"), QStringLiteral("panel-export")},
                             {QStringLiteral("version"), version},
                             {QStringLiteral("rules"), rules}};
    const QJsonObject run{{QStringLiteral("tool"), QJsonObject{{QStringLiteral("driver"), driver}}},
                          {QStringLiteral("columnKind"), QStringLiteral("utf16CodeUnits")},
                          {QStringLiteral("results"), results}};
    return QJsonDocument(
               QJsonObject{{QStringLiteral("$schema"),
                            QStringLiteral("https://json.schemastore.org/sarif-2.1.0.json")},
                           {QStringLiteral("version"), QStringLiteral("2.1.0")},
                           {QStringLiteral("runs"), QJsonArray{run}}})
        .toJson();
}

} // namespace FindingsReport
