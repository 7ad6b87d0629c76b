#include "ProgramInfo.h"

#include <QCoreApplication>
#include <QDate>
#include <QLocale>

QString ProgramInfo::about(const QString &language)
{
    const auto tr = [](const char *text, const char *comment = nullptr) {
        return QCoreApplication::translate("CMainWindow", text, comment);
    };
    // "Nov  5 2024", the form that compilers give.
    const QDate built = QLocale::c().toDate(QString::fromLatin1(__DATE__).simplified(),
                                            QStringLiteral("MMM d yyyy"));
    return QStringLiteral("<h3>%1</h3><p>%2</p><p>%3</p><p>%4</p>")
        .arg(Name,
             tr("Built at: ") +
                 QLocale(language).toString(built, tr("dd MMMM yyyy", "form of a date")),
             tr("Version %1").arg(Version),
             tr("Lays out the screens of embedded user interfaces for KIV graphics controllers."));
}
