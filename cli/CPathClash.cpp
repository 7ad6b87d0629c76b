#include "CPathClash.h"

#include <QDir>
#include <QFileInfo>

void CPathClash::add(const QString &path, const QString &user)
{
    if (path.isEmpty() || path == QLatin1String("-"))
        return;
    const QFileInfo info(path);
    const QString canonical = info.canonicalFilePath(); // empty for a file not yet there
    QString &known =
        m_users[canonical.isEmpty() ? QDir::cleanPath(info.absoluteFilePath()) : canonical];
    if (!known.isEmpty() && canonical != QLatin1String("/dev/null") && m_text.isEmpty())
        m_text = QStringLiteral("\"%1\" is given as %2 and as %3.").arg(path, known, user);
    known = user;
}
