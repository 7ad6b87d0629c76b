#pragma once

#include "SFinding.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

/// The forms in which findings are told outside the editor.
namespace FindingsReport {

struct SCounts
{
    int errors = 0;
    int warnings = 0;
    int notes = 0;
    int ignored = 0; ///< in none of the others
};
SCounts count(const Findings &findings);

/// "screen "Home": Kiv_Text_T 12 "Title": warning: sentence [rule]"; those that are ignored only
/// when they are asked for, with "(ignored: reason)" behind them.
QStringList toLines(const Findings &findings, bool withIgnored);

/// {"errors", "warnings", "notes", "ignored", "findings": [{"rule", "severity", "message",
/// "screen", "type", "id", "name", "property", "file", "subject", "ignored_because"}]}; what does
/// not apply is left out. Files are named from `folder` where they lie below it.
QJsonObject toJson(const Findings &findings, const QString &folder);

/// SARIF 2.1.0 (OASIS standard). `file`: the project as reports shall call it; `document`: its
/// bytes, in which the lines of items are looked up. Ignored findings are suppressed results.
QByteArray toSarif(const Findings &findings, const QString &file, const QByteArray &document,
                   const QString &version);

} // namespace FindingsReport
