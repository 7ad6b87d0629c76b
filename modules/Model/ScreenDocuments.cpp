#include "ScreenDocuments.h"

#include "CScreenModel.h"
#include "CXmlGuard.h"
#include "CXmlWriter.h"
#include "ItemXml.h"

#include <QCoreApplication>
#include <QDataStream>

namespace {
const QString CopiedScreensTag = QStringLiteral("CopyScreenXML");
const QString PageFileTag = QStringLiteral("ScreenSave");
const QString CopiedItemsTag = QStringLiteral("CopyXML");
const QString ScreenTag = QStringLiteral("Screen"); ///< of a screen outside a project

void setError(QString *error, const QString &text)
{
    if (error)
        *error = text;
}

QByteArray checked(const CXmlWriter &writer, QString *error)
{
    const QString refusal = CXmlGuard::check(writer.bytes());
    setError(error, refusal);
    return refusal.isEmpty() ? writer.bytes() : QByteArray();
}

QByteArray screensDocument(const QString &rootTag, const QVector<const CScreenModel *> &screens,
                           QString *error)
{
    CXmlWriter writer;
    writer.startElement(rootTag);
    for (const CScreenModel *each : screens)
        ItemXml::write(*each, ScreenTag, FolderForm::Absolute, writer);
    writer.endElement();
    return checked(writer, error);
}

QDomElement rootOf(const QByteArray &xml, const QString &tag, QString *error)
{
    const auto document = CXmlGuard::parse(xml, error);
    if (!document)
        return {};
    const QDomElement root = document->firstChildElement(tag);
    if (root.isNull())
        setError(error,
                 QCoreApplication::translate("ScreenDocuments", "The document has no element %1.")
                     .arg(tag));
    return root;
}
} // namespace

const QString ScreenDocuments::CopiedScreensMime = QStringLiteral("screen-copy");
const QString ScreenDocuments::CopiedItemsMime = QStringLiteral("widget-copy");

QByteArray ScreenDocuments::ofCopiedScreens(const QVector<const CScreenModel *> &screens,
                                            QString *error)
{
    return screensDocument(CopiedScreensTag, screens, error);
}

QByteArray ScreenDocuments::ofPageFile(const QVector<const CScreenModel *> &screens, QString *error)
{
    return screensDocument(PageFileTag, screens, error);
}

QByteArray ScreenDocuments::ofCopiedItems(const QVector<const CItemModel *> &items, QString *error)
{
    CXmlWriter writer;
    writer.startElement(CopiedItemsTag);
    for (const CItemModel *each : items)
        ItemXml::write(*each, each->itemTypeName(), FolderForm::Absolute, writer);
    writer.endElement();
    return checked(writer, error);
}

QDomElement ScreenDocuments::copiedScreens(const QByteArray &xml, QString *error)
{
    return rootOf(xml, CopiedScreensTag, error);
}

QDomElement ScreenDocuments::pageFile(const QByteArray &xml, QString *error)
{
    return rootOf(xml, PageFileTag, error);
}

QDomElement ScreenDocuments::copiedItems(const QByteArray &xml, QString *error)
{
    return rootOf(xml, CopiedItemsTag, error);
}

QByteArray ScreenDocuments::toClipboard(const QByteArray &xml)
{
    QByteArray data;
    QDataStream stream(&data, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << QString::fromUtf8(xml);
    return data;
}

QByteArray ScreenDocuments::fromClipboard(const QByteArray &data)
{
    QDataStream stream(data);
    stream.setVersion(QDataStream::Qt_5_15);
    QString text;
    stream >> text;
    return stream.status() == QDataStream::Ok ? text.toUtf8() : QByteArray();
}
