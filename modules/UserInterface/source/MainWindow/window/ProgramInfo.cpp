#include "ProgramInfo.h"

#include <QCoreApplication>
#include <QDate>
#include <QLocale>

QString ProgramInfo::about(const QString &language)
{
    // "Nov  5 2024", the form that compilers give.
    const QDate built = QLocale::c().toDate(QString::fromLatin1(__DATE__).simplified(),
                                            QStringLiteral("MMM d yyyy"));
    return QStringLiteral("<h3>%1</h3><p>%2</p><p>%3</p><p>%4</p>")
        .arg(Name,
             QCoreApplication::translate("CMainWindow", "Built at: ") +
                 QLocale(language).toString(
                     built,
                     QCoreApplication::translate("CMainWindow", "dd MMMM yyyy", "form of a date")),
             QCoreApplication::translate("CMainWindow", "Version %1").arg(Version),
             QCoreApplication::translate(
                 "CMainWindow",
                 "Lays out the screens of embedded user interfaces for KIV graphics controllers."));
}
