#pragma once

#include "SFinding.h"

namespace Rules {

/// As it is called in project files and reports: "outside-screen".
QString id(ERule rule);
/// What the rule is about, a few words in the user's language.
QString title(ERule rule);
/// What can be done about it, a sentence or two in the user's language.
QString advice(ERule rule);
/// As reports call it: "error", "warning", "note".
QString id(ESeverity severity);
const QVector<ERule> &all();

// Who has looked at a finding may ignore its rule for an item, with a reason: lines "id: reason" in
// a property that an item, a screen or a project has for this alone. What of the project a finding
// is about stands in it too: "unused-image [images/old.raw]: reason"; without that the rule is
// ignored for the whole project.

extern const QString IgnoredKey; ///< "ignored_checks"
/// The reason; null when the rule is not ignored in such a text.
QString ignoredBecause(const QString &text, ERule rule, const QString &subject);
/// The text with the rule ignored for that reason, or no more ignored when the reason is null.
QString withIgnored(const QString &text, ERule rule, const QString &subject, const QString &reason);

} // namespace Rules
