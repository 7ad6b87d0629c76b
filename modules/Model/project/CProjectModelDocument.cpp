// The document of a project: reading and writing of CProjectModel.
#include "CFileWriter.h"
#include "CGuardedReader.h"
#include "CProjectModel.h"
#include "CSavedSize.h"
#include "CScreenModel.h"
#include "CScreenNames.h"
#include "CXmlGuard.h"
#include "CXmlWriter.h"
#include "ItemXml.h"
#include "PropertyKey.h"
#include "XmlText.h"

#include <QDir>
#include <QDomDocument>
#include <QFileInfo>

#include <algorithm>

namespace {
const QStringList &propertyOrder()
{
    static const QStringList order = {PropertyKey::Name,     PropertyKey::ProjectName,
                                      PropertyKey::Platform, PropertyKey::Width,
                                      PropertyKey::Height,   PropertyKey::WorkingDirectory};
    return order;
}

void setError(QString *error, const QString &text)
{
    if (error)
        *error = text;
}

QString folderOf(const QString &filePath)
{
    return QFileInfo(filePath).absolutePath();
}

void readFonts(CGuardedReader &reader, QVector<ItemAttributes> &fonts)
{
    while (reader.readNextStartElement()) {
        if (reader.tag() == ProjectFonts::FontTag && fonts.size() < SProjectFont::HandleCount)
            fonts.append(ItemXml::attributesOf(reader));
        reader.skipCurrentElement();
    }
}
} // namespace

/// The usual ones first, then the others by name, so that equal projects give equal bytes.
QVector<const CWidgetProperty *> CProjectModel::savedProperties() const
{
    const auto rankOf = [](const CWidgetProperty *property) {
        const int index = propertyOrder().indexOf(property->key());
        return index < 0 ? propertyOrder().size() : index;
    };
    QVector<const CWidgetProperty *> saved;
    for (const CWidgetProperty &each : m_properties) {
        if (XmlText::isAttributeName(each.keyUtf8()))
            saved.append(&each);
    }
    std::sort(saved.begin(), saved.end(), [&](const CWidgetProperty *a, const CWidgetProperty *b) {
        const int rankA = rankOf(a);
        const int rankB = rankOf(b);
        return rankA != rankB ? rankA < rankB : a->key() < b->key();
    });
    return saved;
}

QString CProjectModel::savedText(const CWidgetProperty &property, const QString &filePath) const
{
    const bool isOwnFolder = !filePath.isEmpty() &&
                             property.key() == PropertyKey::WorkingDirectory &&
                             QDir::cleanPath(property.text()) == folderOf(filePath);
    return isOwnFolder ? QStringLiteral(".") : property.text();
}

void CProjectModel::save(QDomDocument &document) const
{
    QDomElement project = document.createElement(TypeName::Project);
    saveFonts(document, project);
    for (int row = 0; row < rowCount(); ++row) {
        const CScreenModel *each = screen(row);
        if (!each)
            continue;
        QDomElement element = document.createElement(TypeName::Screen);
        project.appendChild(element);
        each->saveToElement(element);
    }
    document.appendChild(project);
    const auto properties = savedProperties();
    for (const CWidgetProperty *each : properties)
        project.setAttribute(each->key(), each->text());
}

void CProjectModel::saveFonts(QDomDocument &document, QDomElement &project) const
{
    if (m_fonts.isEmpty())
        return;
    QDomElement list = document.createElement(ProjectFonts::ListTag);
    project.appendChild(list);
    const QVector<ItemAttributes> fonts = ProjectFonts::attributes(m_fonts);
    for (const ItemAttributes &font : fonts) {
        QDomElement element = document.createElement(ProjectFonts::FontTag);
        list.appendChild(element);
        for (const ItemAttribute &each : font)
            element.setAttribute(each.name, each.text);
    }
}

QByteArray CProjectModel::saveToBytes(QString *error, const QString &filePath) const
{
    CXmlWriter writer;
    writer.startElement(TypeName::Project);
    const auto properties = savedProperties();
    for (const CWidgetProperty *each : properties)
        writer.attribute(each->keyUtf8(), savedText(*each, filePath).toUtf8());
    ProjectFonts::write(m_fonts, writer);
    for (int row = 0; row < rowCount(); ++row) {
        if (const CScreenModel *each = screen(row))
            ItemXml::write(*each, TypeName::Screen, FolderForm::Relative, writer);
    }
    writer.endElement();

    // Better no file than one that nobody could open again.
    const QString refusal = CXmlGuard::check(writer.bytes());
    setError(error, refusal);
    return refusal.isEmpty() ? writer.bytes() : QByteArray();
}

CScreenModel *CProjectModel::makeScreen(const CWidgetLibraryModel *library) const
{
    auto *self = const_cast<CProjectModel *>(this); // the screen tells its changes to the project
    return new CScreenModel(QString(), library, self);
}

/// Screens that their elements gave no name get one here.
void CProjectModel::appendLoadedScreens(const QVector<CScreenModel *> &screens)
{
    for (CScreenModel *each : screens)
        appendRow(each);
    CScreenNames names(*this);
    for (CScreenModel *each : screens) {
        if (each->name().isEmpty())
            each->setProperty(PropertyKey::Name, names.take(), CItemModel::Notify::No);
    }
}

bool CProjectModel::load(const QDomDocument &document)
{
    reset();
    const QDomElement project = document.firstChildElement(TypeName::Project);
    const QDomNamedNodeMap attributes = project.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QDomAttr attribute = attributes.item(i).toAttr();
        setProjectProperty(attribute.name(), attribute.value());
    }
    QVector<ItemAttributes> fonts;
    QDomElement font =
        project.firstChildElement(ProjectFonts::ListTag).firstChildElement(ProjectFonts::FontTag);
    for (; !font.isNull(); font = font.nextSiblingElement(ProjectFonts::FontTag))
        fonts.append(ItemXml::attributesOf(font));
    setFonts(ProjectFonts::fromAttributes(fonts));
    QVector<CScreenModel *> screens;
    QDomElement element = project.firstChildElement(TypeName::Screen);
    for (; !element.isNull(); element = element.nextSiblingElement(TypeName::Screen)) {
        screens.append(makeScreen(m_library));
        screens.last()->loadFromElement(element);
    }
    appendLoadedScreens(screens);
    return !project.isNull();
}

/// What a document holds, before it is a project's.
struct CProjectModel::SContent
{
    ItemAttributes properties;
    QVector<ItemAttributes> fonts;
    std::vector<std::unique_ptr<CScreenModel>> screens;
};

bool CProjectModel::isProjectDocument(const QByteArray &xml, QString *error)
{
    return CProjectModel().loadFromBytes(xml, error);
}

bool CProjectModel::loadFromBytes(const QByteArray &xml, QString *error)
{
    SContent content;
    QString refusal = read(xml, content);
    if (refusal.isEmpty())
        refusal = savingRefusal(content);
    setError(error, refusal);
    if (!refusal.isEmpty())
        return false;

    reset();
    for (const ItemAttribute &each : qAsConst(content.properties))
        setProjectProperty(each.name, each.text);
    setFonts(ProjectFonts::fromAttributes(content.fonts));
    QVector<CScreenModel *> screens;
    for (std::unique_ptr<CScreenModel> &each : content.screens)
        screens.append(each.release());
    appendLoadedScreens(screens);
    return true;
}

/// The reason why the document is no project's, or nothing. The project stays as it is.
QString CProjectModel::read(const QByteArray &xml, SContent &content) const
{
    CGuardedReader reader(xml);
    reader.readNextStartElement();
    const QString root = reader.tag().toString();
    const bool isProject = root == TypeName::Project;
    if (isProject) {
        const QXmlStreamAttributes attributes = reader.attributes();
        QString platform;
        for (const QXmlStreamAttribute &each : attributes) {
            content.properties.append({each.qualifiedName().toString(), each.value().toString()});
            if (each.qualifiedName() == PropertyKey::Platform)
                platform = each.value().toString();
        }
        const CWidgetLibraryModel *library = libraryOf(platform);
        while (reader.readNextStartElement()) {
            if (reader.tag() == ProjectFonts::ListTag) {
                readFonts(reader, content.fonts);
                continue;
            }
            if (reader.tag() != TypeName::Screen) {
                reader.skipCurrentElement();
                continue;
            }
            content.screens.emplace_back(makeScreen(library));
            ItemXml::read(*content.screens.back(), reader);
        }
    }
    reader.skipRest();
    if (!reader.refusal().isEmpty() || isProject)
        return reader.refusal();
    return tr("The root element is %1 instead of %2.").arg(root, TypeName::Project);
}

/// Items gain what their kind has and the document leaves out, so a document that may be read can
/// become one that may not be written. A user must not learn that after hours of work.
QString CProjectModel::savingRefusal(const SContent &content) const
{
    CSavedSize size;
    size.add(content.properties);
    for (const ItemAttributes &each : content.fonts)
        size.add(each);
    for (const std::unique_ptr<CScreenModel> &each : content.screens)
        size.add(*each);
    if (size.isWithinLimits())
        return {};
    CXmlWriter writer; // what it comes to exactly
    writer.startElement(TypeName::Project);
    for (const ItemAttribute &each : content.properties)
        writer.attribute(each.name, each.text);
    ProjectFonts::write(ProjectFonts::fromAttributes(content.fonts), writer);
    for (const std::unique_ptr<CScreenModel> &each : content.screens)
        ItemXml::write(*each, TypeName::Screen, FolderForm::Relative, writer);
    writer.endElement();
    return CXmlGuard::check(writer.bytes());
}

bool CProjectModel::saveToFile(const QString &filePath, QString *error) const
{
    QString reason;
    const QByteArray xml = saveToBytes(&reason, filePath);
    if (reason.isEmpty())
        reason = CFileWriter::write(filePath, xml);
    setError(error, reason);
    return reason.isEmpty();
}

bool CProjectModel::loadFromFile(const QString &filePath, QString *error)
{
    const auto xml = CXmlGuard::readFile(filePath, error);
    if (!xml)
        return false;
    QString reason;
    if (!loadFromBytes(*xml, &reason)) {
        setError(error, tr("%1: %2").arg(filePath, reason));
        return false;
    }
    setWorkingDirectory(folderOf(filePath));
    return true;
}
