#include "ScreenDocuments.h"

#include "CGuardedReader.h"
#include "CScreenModel.h"
#include "CXmlGuard.h"
#include "CXmlWriter.h"
#include "ItemXml.h"

#include <QCoreApplication>
#include <QDataStream>

#include <algorithm>

namespace {
const QString CopiedScreensTag = QStringLiteral("CopyScreenXML");
const QString PageFileTag = QStringLiteral("ScreenSave");
const QString CopiedItemsTag = QStringLiteral("CopyXML");
constexpr int MostOwnAttributes = 200;              ///< of an item's kind; none has as many
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

struct SExtent
{
    int depth;      ///< elements below each other, the item's own among them
    int attributes; ///< of the element that has most
};

/// What an item takes at most in a document.
SExtent extentOf(const CItemModel &item)
{
    SExtent extent{0, int(item.properties().size()) + 1}; // of a screen, its guides
    for (int row = 0; row < item.rowCount(); ++row) {
        if (!item.childItem(row))
            continue;
        const SExtent child = extentOf(*item.childItem(row));
        extent.depth = std::max(extent.depth, child.depth);
        extent.attributes = std::max(extent.attributes, child.attributes);
    }
    ++extent.depth;
    return extent;
}

int mostAttributes(const SItemElement &element)
{
    int most = element.attributes.size();
    for (const SItemElement &child : element.children)
        most = std::max(most, mostAttributes(child));
    return most;
}

std::optional<SItemElement> rootOf(const QByteArray &xml, const QString &tag, QString *error)
{
    if (xml.isEmpty()) { // as what was cut off on its way is, too
        setError(error, QCoreApplication::translate("ScreenDocuments", "There is nothing in it."));
        return {};
    }
    CGuardedReader reader(xml);
    reader.readNextStartElement();
    std::optional<SItemElement> root;
    if (reader.tag() == tag)
        root = ItemXml::elementOf(reader);
    reader.skipRest();
    QString refusal = reader.refusal();
    if (refusal.isEmpty() && !root)
        refusal = QCoreApplication::translate("ScreenDocuments", "The document has no element %1.")
                      .arg(tag);
    setError(error, refusal);
    return refusal.isEmpty() ? std::move(root) : std::nullopt;
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

std::optional<SItemElement> ScreenDocuments::copiedScreens(const QByteArray &xml, QString *error)
{
    return rootOf(xml, CopiedScreensTag, error);
}

std::optional<SItemElement> ScreenDocuments::pageFile(const QByteArray &xml, QString *error)
{
    return rootOf(xml, PageFileTag, error);
}

std::optional<SItemElement> ScreenDocuments::copiedItems(const QByteArray &xml, QString *error)
{
    return rootOf(xml, CopiedItemsTag, error);
}

QString ScreenDocuments::savingRefusal(const SItemElement &screens, CProjectModel *project)
{
    QString reason;
    for (const SItemElement &each : screens.children) {
        if (!reason.isEmpty() ||
            mostAttributes(each) + MostOwnAttributes <= CXmlGuard::MaxAttributesOfElement)
            continue;
        CScreenModel trial(project);
        ItemXml::read(trial, each);
        reason = savingRefusal(trial);
    }
    return reason;
}

QString ScreenDocuments::savingRefusal(const CScreenModel &screen)
{
    QString reason;
    const SExtent extent = extentOf(screen);
    if (extent.depth + 1 > CXmlGuard::MaxDepth ||
        extent.attributes > CXmlGuard::MaxAttributesOfElement)
        ofPageFile({&screen}, &reason); // as deep as in a project
    return reason;
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
