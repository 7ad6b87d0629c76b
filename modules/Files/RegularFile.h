#pragma once

#include <QFile>
#include <QString>

/// Opens a regular file for reading, whatever links lead to it. Anything else is refused without
/// waiting for it: a pipe may never begin, a device never end.
/// `reason`: why it is not open; without the path.
bool openRegularFile(QFile &file, const QString &path, QString *reason = nullptr);

/// The regular file to which a link leads, over however many links; anything else as an absolute
/// path, also a link that leads nowhere.
QString linkedFile(const QString &path);
