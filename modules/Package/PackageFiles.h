#pragma once

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>

/// Writes files that belong together into a folder, which is made when it is missing: all of them
/// or none. They are written aside first, and then take the places of the old ones, which are put
/// back when one of them cannot be replaced.
/// Empty when done, otherwise the reason.
QString writeTogether(const QString &folder, const QVector<QPair<QString, QByteArray>> &files);
