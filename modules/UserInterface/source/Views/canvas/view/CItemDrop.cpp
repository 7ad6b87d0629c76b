#include "CItemDrop.h"

#include "CCommandAddItem.h"
#include "CDropGhost.h"
#include "CEditorState.h"
#include "CItemImages.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CWidgetLibraryModel.h"
#include "CWidgetModel.h"
#include "ItemDrag.h"
#include "ItemGeometry.h"
#include "ItemNames.h"
#include "ItemOperations.h"
#include "ItemTree.h"
#include "MiddlePlace.h"
#include "PropertyKey.h"

#include <QDataStream>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QUndoStack>
#include <QUrl>

#include <algorithm>

namespace {
const QString CreateMime = QStringLiteral("widget-create");
void set(CItemModel &item, const QString &key, const QVariant &value)
{
    if (item.hasProperty(key)) // it is in no tree yet, so nobody is told
        item.setProperty(key, value, CItemModel::Notify::No);
}

void placeAt(CItemModel &item, const QPointF &position)
{
    const auto x = static_cast<int>(roundedToInteger(position.x()));
    const auto y = static_cast<int>(roundedToInteger(position.y()));
    const auto x2 = static_cast<int>(roundedToInteger(item.x2() + x - item.x()));
    const auto y2 = static_cast<int>(roundedToInteger(item.y2() + y - item.y()));
    set(item, PropertyKey::X, x);
    set(item, PropertyKey::Y, y);
    set(item, PropertyKey::X2, x2);
    set(item, PropertyKey::Y2, y2);
}

void takeImage(CItemModel &item, const CItemImages::SImage &image)
{
    for (auto each = image.values.begin(); each != image.values.end(); ++each)
        set(item, each.key(), each.value());
    if (image.size.isEmpty())
        return;
    set(item, PropertyKey::Width, image.size.width());
    set(item, PropertyKey::Height, image.size.height());
}

QStringList droppedFiles(const QMimeData &data)
{
    QStringList files;
    for (const QUrl &url : data.urls()) {
        const QString file = url.toLocalFile();
        if (!CItemImages::kindFor(file).isEmpty())
            files.append(file);
    }
    return files;
}

bool holdsLock(const CItemModel &item)
{
    return findItem(item, [](const CItemModel &each) { return each.isLocked(); }) != nullptr;
}

/// The kind that a drag from the palette carries: as its text, and streamed under its own format.
QString draggedKind(const QMimeData &data)
{
    if (data.hasText())
        return data.text();
    QDataStream stream(data.data(CreateMime));
    QVariant type;
    stream >> type;
    return type.toString();
}
} // namespace

CItemDrop::CItemDrop(CScreenScene *scene, QWidget *window)
    : QObject(window),
      m_scene(scene),
      m_window(window),
      m_images(new CItemImages(window, this)),
      m_place(*scene)
{
    connect(m_images, &CItemImages::message, this, &CItemDrop::message);
}

CItemDrop::~CItemDrop() = default;

bool CItemDrop::isWelcome(const QMimeData &data)
{
    return data.hasFormat(CreateMime) || data.hasFormat(ItemDrag::Mime) ||
           !droppedFiles(data).isEmpty();
}

void CItemDrop::showPlace(const QMimeData &data, const QPointF &scenePos,
                          Qt::KeyboardModifiers modifiers)
{
    if (!data.hasFormat(CreateMime)) {
        m_place.setItems(movable(data));
        m_place.at(scenePos, modifiers);
        return;
    }
    if (!m_ghost) {
        m_ghost = std::make_unique<CDropGhost>();
        m_scene->addItem(m_ghost.get());
    }
    const QString type = draggedKind(data);
    const CWidgetLibraryModel *library = screen()->project()->library();
    if (!m_ghost->isOf(type) && library && library->contains(type)) {
        auto item = ofKind(type);
        m_place.setNew(*item);
        m_ghost->show(std::move(item));
    }
    m_ghost->moveTo(m_place.at(scenePos, modifiers));
}

void CItemDrop::hidePlace()
{
    m_scene->hideGuides();
    m_ghost.reset();
}

void CItemDrop::place(const QString &type, const QRectF &room, size_t graphicsMemory)
{
    m_memory = graphicsMemory;
    auto item = make(type, QString());
    if (!item)
        return;
    QVector<QRectF> others;
    for (int row = 0; row < screen()->rowCount(); ++row)
        others.append(ItemGeometry::frameOf(*screen()->childItem(row)));
    const QRectF frame = ItemGeometry::frameOf(*item);
    const QRectF middle = MiddlePlace::frame(room, frame.size(), others);
    placeAt(*item, QPointF(item->x(), item->y()) + middle.topLeft() - frame.topLeft());
    Made made;
    made.push_back(std::move(item));
    add(std::move(made));
}

bool CItemDrop::drop(const QMimeData &data, const QPointF &scenePos, size_t graphicsMemory,
                     Qt::KeyboardModifiers modifiers)
{
    m_modifiers = modifiers;
    m_memory = graphicsMemory;
    if (!data.hasFormat(CreateMime))
        return dropItems(data, scenePos) || dropFiles(data, scenePos);
    Made made;
    if (auto item = make(draggedKind(data), scenePos, QString()))
        made.push_back(std::move(item));
    add(std::move(made));
    return true;
}

CScreenModel *CItemDrop::screen() const
{
    return m_scene->screen();
}

QPointF CItemDrop::landing(const QPointF &scenePos)
{
    const QPointF place = m_place.at(scenePos, m_modifiers);
    m_scene->hideGuides();
    return place;
}

/// What of the dragged items can be put here.
QVector<CItemModel *> CItemDrop::movable(const QMimeData &data) const
{
    QVector<CItemModel *> items;
    for (CItemModel *each : ItemDrag::fromMimeData(data, *screen()->project())) {
        // A locked member would stay at its place on another screen.
        if (!(each->parentItem() == screen() ? each->isLocked() : holdsLock(*each)))
            items.append(each);
    }
    return items;
}

/// The first item comes to the place, the others keep their distance from it.
bool CItemDrop::dropItems(const QMimeData &data, const QPointF &scenePos)
{
    const QVector<CItemModel *> items = movable(data);
    if (items.isEmpty())
        return false;
    m_place.setItems(items);
    const QPointF by =
        landing(scenePos) - QPointF(items.constFirst()->x(), items.constFirst()->y());
    QVector<QPointF> positions;
    for (const CItemModel *each : qAsConst(items))
        positions.append(QPointF(each->x(), each->y()) + by);
    const bool areHere = std::all_of(items.begin(), items.end(), [this](const CItemModel *each) {
        return each->parentItem() == screen();
    });
    if (areHere && by.isNull()) {
        Q_EMIT dropped(items);
        return true; // dropped where they are
    }
    QUndoStack &stack = *screen()->project()->undoStack();
    stack.beginMacro(tr("Move Selected Items"));
    const QVector<CItemModel *> moved = ItemOperations::moveToScreen(*screen(), items);
    Q_EMIT movesWanted(moved, positions);
    stack.endMacro();
    Q_EMIT dropped(moved);
    return true;
}

bool CItemDrop::dropFiles(const QMimeData &data, const QPointF &scenePos)
{
    const double apart = CEditorState::instance()->gridSpacing();
    QPointF place = scenePos;
    const QStringList files = droppedFiles(data);
    Made made;
    for (const QString &file : files) {
        if (auto item = make(CItemImages::kindFor(file), place, file))
            made.push_back(std::move(item));
        place += QPointF(apart, apart);
    }
    add(std::move(made));
    return !files.isEmpty();
}

/// Asks for the file of a bitmap or media widget unless it was dropped. Nothing when there is none,
/// or it could not be converted (which has been told).
std::optional<CItemImages::SImage> CItemDrop::imageFor(const CItemModel &item, const QString &file)
{
    const QString source = file.isEmpty() ? m_images->ask(item) : file;
    if (source.isEmpty())
        return {};
    return m_images->take(item, source, CItemImages::formatFor(item, source));
}

bool CItemDrop::fitsMemory(const CItemImages::SImage &image)
{
    if (CItemImages::fits(image, *screen()->project(), m_memory)) {
        m_memory += static_cast<size_t>(image.bytes);
        return true;
    }
    QMessageBox::warning(m_window, tr("RAM_G size is limited!"), tr("File size is too big"),
                         QMessageBox::Ok);
    return false;
}

std::unique_ptr<CItemModel> CItemDrop::ofKind(const QString &type)
{
    CProjectModel *project = screen()->project();
    return std::make_unique<CWidgetModel>(type, project->library(), project);
}

/// Null when there is nothing to add, which has been told.
std::unique_ptr<CItemModel> CItemDrop::make(const QString &type, const QString &file)
{
    const CWidgetLibraryModel *library = screen()->project()->library();
    if (!library || !library->contains(type)) {
        Q_EMIT message(tr("There is no widget kind %1.").arg(type));
        return nullptr;
    }
    auto item = ofKind(type);
    if (CItemImages::isKind(type)) {
        const auto image = imageFor(*item, file);
        if (!image) {
            Q_EMIT message(tr("No image was added."));
            return nullptr;
        }
        if (!fitsMemory(*image))
            return nullptr;
        takeImage(*item, *image);
    }
    return item;
}

std::unique_ptr<CItemModel> CItemDrop::make(const QString &type, const QPointF &scenePos,
                                            const QString &file)
{
    const CWidgetLibraryModel *library = screen()->project()->library();
    if (file.isEmpty() && library && library->contains(type))
        m_place.setNew(*ofKind(type));
    else
        m_place.setNothing();                // a file's size is known when it lies there
    const QPointF place = landing(scenePos); // as it was shown, before anything is asked
    auto item = make(type, file);
    if (item)
        placeAt(*item, place);
    return item;
}

/// All that one drop has brought is one step.
void CItemDrop::add(Made made)
{
    CProjectModel &project = *screen()->project();
    const bool areSeveral = made.size() > 1;
    if (areSeveral)
        project.undoStack()->beginMacro(tr("Add Files"));
    QVector<CItemModel *> added;
    for (auto &each : made) {
        set(*each, PropertyKey::Id, static_cast<int>(project.unusedId()));
        set(*each, PropertyKey::Name, ItemNames::unused(each->name(), ItemNames::below(*screen())));
        added.append(each.release());
        project.undoStack()->push(new CCommandAddItem(m_scene->holder(), added.constLast()));
    }
    if (areSeveral)
        project.undoStack()->endMacro();
    if (!added.isEmpty())
        Q_EMIT dropped(added);
}
