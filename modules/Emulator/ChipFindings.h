#pragma once

#include <QString>
#include <QStringList>

class CItemModel;

/// What of a screen's items the project's chip cannot do, a message each: "<type> <id>: what".
/// Nothing is cut or changed; the emulator draws it all the same.
/// - an entry of an enumeration, a bitmap format for instance, that this chip lacks;
/// - a coordinate or size outside the widget library's limits. Only limits that chips differ in
///   are a chip's; all others are the editor's own;
/// - a property that other chips have, set to something else than its default.
/// Items of kinds that the library lacks have none; the emulator reports them.
QStringList chipFindings(const CItemModel &screen);

/// How messages of the emulator begin that are about an item: its kind, id and name, then ": ".
QString messageLabel(const CItemModel &item);
