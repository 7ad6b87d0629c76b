#include "CXmlGuard.h"

#include "CGuardedReader.h"
#include "RegularFile.h"

#include <QFile>
#include <QXmlStreamReader>

namespace {
void setError(QString *error, const QString &text)
{
    if (error)
        *error = text;
}
} // namespace

QString CXmlGuard::check(const QByteArray &xml)
{
    CGuardedReader reader(xml);
    reader.skipRest();
    return reader.refusal();
}

std::optional<QDomDocument> CXmlGuard::parse(const QByteArray &xml, QString *error)
{
    const QString refusal = check(xml);
    setError(error, refusal);
    if (!refusal.isEmpty())
        return {};

    // The same parser as in the check, so that both agree on every document.
    QXmlStreamReader reader(xml);
    reader.setNamespaceProcessing(false);
    QDomDocument document;
    QString reason;
    if (!document.setContent(&reader, false, &reason)) {
        setError(error, reason);
        return {};
    }
    return document;
}

std::optional<QByteArray> CXmlGuard::readFile(const QString &path, QString *error)
{
    QFile file(path);
    QString reason;
    if (!openRegularFile(file, path, &reason)) {
        setError(error, tr("%1: %2").arg(path, reason));
        return {};
    }
    const QByteArray bytes = file.read(MaxBytes + 1); // the size may change while it is read
    if (bytes.size() > MaxBytes) {
        setError(error, tr("%1 is larger than %2 MiB.").arg(path).arg(MaxBytes >> 20));
        return {};
    }
    if (file.error() != QFileDevice::NoError) {
        setError(error, tr("%1: %2").arg(path, file.errorString()));
        return {};
    }
    return bytes;
}
