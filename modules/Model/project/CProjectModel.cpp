#include "CProjectModel.h"

#include "CScreenModel.h"
#include "CUnusedIds.h"
#include "CWidgetLibraryManager.h"
#include "ItemXml.h"
#include "PlatformFilter.h"
#include "PropertyKey.h"

#include <QDir>
#include <QSignalBlocker>
#include <QUndoStack>

#include <atomic>

namespace {
constexpr QSize DefaultResolution(480, 320);

std::atomic<CProjectModel *> &currentProject()
{
    static std::atomic<CProjectModel *> project = nullptr;
    return project;
}

/// Of rows that came in together only they themselves have been told which model they are in.
void adoptChildren(QStandardItem &item)
{
    for (int row = 0; row < item.rowCount(); ++row) {
        if (item.child(row) && item.child(row)->model() != item.model())
            item.setChild(row, item.takeChild(row)); // tells all below it
    }
}
} // namespace

CProjectModel::CProjectModel(QObject *parent)
    : QStandardItemModel(parent), m_undoStack(std::make_unique<QUndoStack>())
{
    qRegisterMetaType<CItemModel *>(); // for signals that are queued or spied upon
    reset();
    // Before any view is connected: they must see an item as it is now.
    connect(this, &QAbstractItemModel::rowsInserted, this, &CProjectModel::takeIn);
}

CProjectModel::~CProjectModel()
{
    m_undoStack.reset(); // its commands hold items of this project
    if (current() == this)
        setCurrent(nullptr);
}

void CProjectModel::handOverTo(QThread *thread)
{
    moveToThread(thread);
    m_undoStack->moveToThread(thread);
}

CProjectModel *CProjectModel::current()
{
    return currentProject();
}

void CProjectModel::setCurrent(CProjectModel *project)
{
    currentProject() = project;
}

void CProjectModel::reset()
{
    m_undoStack->clear();
    clear();
    invisibleRootItem()->setText(TypeName::Project);
    m_properties.clear();
    m_fonts.clear();
    m_imagePlaces = {};
    m_resolution = DefaultResolution;
    m_library = libraryOf(QString());
}

const CWidgetLibraryModel *CProjectModel::libraryOf(const QString &platform)
{
    return CWidgetLibraryManager::instance().libraryModel(chipCodeOfPlatform(platform));
}

QString CProjectModel::propertyText(const QString &name) const
{
    const auto it = m_properties.constFind(name);
    return it == m_properties.constEnd() ? QString() : it->text();
}

void CProjectModel::setProjectProperty(const QString &name, const QString &text)
{
    auto it = m_properties.find(name);
    if (it == m_properties.end())
        it = m_properties.insert(name, CWidgetProperty(name, PropertyType::String));
    it->setValueFromText(text);
    applyProjectProperty(name, text);
}

void CProjectModel::removeProjectProperty(const QString &name)
{
    m_properties.remove(name);
    if (name == PropertyKey::Width)
        m_resolution.setWidth(DefaultResolution.width());
    else if (name == PropertyKey::Height)
        m_resolution.setHeight(DefaultResolution.height());
    else
        applyProjectProperty(name, QString());
}

void CProjectModel::applyProjectProperty(const QString &name, const QString &text)
{
    if (name == PropertyKey::Width) {
        m_resolution.setWidth(std::max(0, text.toInt()));
    } else if (name == PropertyKey::Height) {
        m_resolution.setHeight(std::max(0, text.toInt()));
    } else if (name == PropertyKey::Platform) {
        m_library = libraryOf(text);
        for (int row = 0; row < rowCount(); ++row) {
            if (CScreenModel *each = screen(row))
                each->setLibrary(m_library);
        }
    }
}

void CProjectModel::setProjectProperties(const QHash<QString, QString> &texts)
{
    for (auto it = texts.begin(); it != texts.end(); ++it)
        setProjectProperty(it.key(), it.value());
}

void CProjectModel::setFonts(const ProjectFontList &fonts)
{
    m_fonts = fonts;
    for (SProjectFont &each : m_fonts) {
        each.file = m_imagePlaces.today(each.file);
        m_imagePlaces.note(PropertyKey::FileName, each.file);
    }
    Q_EMIT fontsChanged();
}

QString CProjectModel::platform() const
{
    return propertyText(PropertyKey::Platform);
}

QString CProjectModel::workingDirectory() const
{
    return propertyText(PropertyKey::WorkingDirectory);
}

void CProjectModel::setWorkingDirectory(const QString &folder)
{
    setProjectProperty(PropertyKey::WorkingDirectory, folder);
}

void CProjectModel::setNyxVersion(const QString &version)
{
    setProjectProperty(PropertyKey::NyxVersion, version);
}

quint32 CProjectModel::graphicsMemoryOf(const QString &platform)
{
    return platform.contains(QLatin1String("QX11")) ? LargeGraphicsMemory : SmallGraphicsMemory;
}

QString CProjectModel::storedFolder(const QString &folder) const
{
    const QString base = QDir::cleanPath(workingDirectory());
    const QString clean = QDir::cleanPath(folder);
    if (workingDirectory().isEmpty() || QDir::isRelativePath(clean))
        return folder;
    const QString prefix = base.endsWith(QLatin1Char('/')) ? base : base + QLatin1Char('/');
    if (clean == base)
        return QStringLiteral(".");
    return clean.startsWith(prefix) ? clean.mid(prefix.size()) : folder;
}

QString CProjectModel::absoluteFolder(const QString &stored) const
{
    if (stored.isEmpty() || workingDirectory().isEmpty() || QDir::isAbsolutePath(stored))
        return stored;
    return QDir::cleanPath(QDir(workingDirectory()).filePath(stored));
}

QString CProjectModel::placeText(const QString &place) const
{
    const QString text = storedFolder(absoluteFolder(place));
    return m_imagePlaces.today(text) == text ? text : absoluteFolder(place);
}

QVariant CProjectModel::today(const QVariant &place) const
{
    const QString text = place.toString();
    const QString now = m_imagePlaces.today(text);
    return now == text ? place : QVariant(now);
}

CScreenModel *CProjectModel::screen(int row) const
{
    CItemModel *found = CItemModel::fromItem(item(row));
    return found && found->kind() == CItemModel::Kind::Screen ? static_cast<CScreenModel *>(found)
                                                              : nullptr;
}

QString CProjectModel::unusedScreenName() const
{
    return CScreenNames(*this).take();
}

quint32 CProjectModel::unusedId() const
{
    return CUnusedIds(*this).take();
}

void CProjectModel::assignFreshIds(CItemModel *copy) const
{
    CUnusedIds(*this).giveTo(*copy);
}

CScreenModel *CProjectModel::buildScreen(const SItemElement &element, int row, SUnused *unused)
{
    if (!unused) {
        SUnused own(*this);
        return buildScreen(element, row, &own);
    }
    CScreenModel *built = makeScreen(m_library);
    ItemXml::read(*built, element);
    if (built->name().isEmpty()) // as when a project is loaded
        built->setProperty(PropertyKey::Name, unused->names.take(), CItemModel::Notify::No);
    unused->ids.giveTo(*built);
    if (row < 0 || row > rowCount())
        row = rowCount();
    insertRow(row, built);
    return built;
}

void CProjectModel::newProject(const QHash<QString, QString> &texts)
{
    reset();
    setProjectProperties(texts);
    appendRow(new CScreenModel(this));
}

/// What comes in may have been away while the project went to another folder.
void CProjectModel::takeIn(const QModelIndex &parent, int first, int last)
{
    const QStandardItem *holder = parent.isValid() ? itemFromIndex(parent) : invisibleRootItem();
    const QSignalBlocker quiet(this); // the rows are new to all others
    for (int row = first; row <= last; ++row) {
        CItemModel *item = CItemModel::fromItem(holder->child(row));
        if (!item)
            continue;
        adoptChildren(*item);
        if (m_imagePlaces.hasMoved())
            m_imagePlaces.update(*item);
        m_imagePlaces.noteAll(*item);
    }
}

void CProjectModel::onPropertyChanged(CItemModel *item, const QString &key, const QVariant &value)
{
    if (key == PropertyKey::BaseName || CImagePlaces::isPlace(key))
        m_imagePlaces.note(key, item->propertyText(key));
    Q_EMIT propertyChanged(item, key, value);
}

void CProjectModel::onGeometryChanged(CItemModel *item)
{
    Q_EMIT geometryChanged(item);
}

void CProjectModel::onGuidesChanged(CScreenModel *screen)
{
    Q_EMIT guidesChanged(screen);
}
