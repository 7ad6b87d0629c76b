#include "CItemDrop.h"

#include "CBitmapFormatTable.h"
#include "CCommandAddItem.h"
#include "CEditorState.h"
#include "CImageFileConverter.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CScreenScene.h"
#include "CWidgetLibraryModel.h"
#include "CWidgetModel.h"
#include "ItemDrag.h"
#include "ItemNames.h"
#include "ItemOperations.h"
#include "PropertyKey.h"

#include <QDataStream>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QUndoStack>

#include <algorithm>

namespace {
const QString CreateMime = QStringLiteral("widget-create");
const QString BitmapType = QStringLiteral("Kiv_Bitmap_T");
const QString MediaType = QStringLiteral("Kiv_Media_T");
const QString NoFormat = QStringLiteral("None");

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

void takeImage(CItemModel &item, const SConvertedImage &image)
{
    set(item, PropertyKey::BitmapWidth, image.bwidth);
    set(item, PropertyKey::BitmapHeight, image.bheight);
    if (image.bwidth > 0 && image.bheight > 0) {
        set(item, PropertyKey::Width, image.bwidth);
        set(item, PropertyKey::Height, image.bheight);
    }
    set(item, PropertyKey::BaseName, image.basename);
    set(item, PropertyKey::Suffix, image.suffix);
    set(item, PropertyKey::BitmapFolder, image.bfolder);
    set(item, PropertyKey::Format, image.suffix == QLatin1String("raw") ? NoFormat : image.format);
    set(item, PropertyKey::Video, image.video);
}

bool isMediaFile(const QString &file)
{
    return QFileInfo(file).suffix().compare(QLatin1String("avi"), Qt::CaseInsensitive) == 0;
}

bool isImageFile(const QString &file)
{
    static const QStringList suffixes = {QStringLiteral("png"), QStringLiteral("jpg"),
                                         QStringLiteral("bmp"), QStringLiteral("raw")};
    return suffixes.contains(QFileInfo(file).suffix().toLower());
}

QStringList droppedFiles(const QMimeData &data)
{
    QStringList files;
    for (const QUrl &url : data.urls()) {
        const QString file = url.toLocalFile();
        if (isImageFile(file) || isMediaFile(file))
            files.append(file);
    }
    return files;
}

bool holdsLock(const CItemModel &item)
{
    for (int row = 0; row < item.rowCount(); ++row) {
        const CItemModel *member = item.childItem(row);
        if (member && (member->isLocked() || holdsLock(*member)))
            return true;
    }
    return false;
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
    : QObject(window), m_scene(scene), m_window(window), m_converter(new CImageFileConverter(this))
{
    connect(m_converter, &CImageFileConverter::failed, this, &CItemDrop::message);
    connect(m_converter, &CImageFileConverter::warned, this, &CItemDrop::message);
}

bool CItemDrop::isWelcome(const QMimeData &data)
{
    return data.hasFormat(CreateMime) || data.hasFormat(ItemDrag::Mime) ||
           !droppedFiles(data).isEmpty();
}

void CItemDrop::showPlace(const QPointF &scenePos)
{
    if (CEditorState::instance()->isSnapToGrid())
        m_scene->snapped(scenePos);
}

bool CItemDrop::drop(const QMimeData &data, const QPointF &scenePos, size_t graphicsMemory)
{
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

QPointF CItemDrop::landing(const QPointF &scenePos, const QVector<CItemModel *> &moving)
{
    const bool snaps = CEditorState::instance()->isSnapToGrid();
    const QPointF place = snaps ? m_scene->snapped(scenePos, moving) : scenePos;
    m_scene->hideGuides();
    return place;
}

/// The first item comes to the place, the others keep their distance from it.
bool CItemDrop::dropItems(const QMimeData &data, const QPointF &scenePos)
{
    QVector<CItemModel *> items;
    for (CItemModel *each : ItemDrag::fromMimeData(data, *screen()->project())) {
        // A locked member would stay at its place on another screen.
        if (!each->isLocked() && (each->parentItem() == screen() || !holdsLock(*each)))
            items.append(each);
    }
    if (items.isEmpty())
        return false;
    const QPointF by =
        landing(scenePos, items) - QPointF(items.constFirst()->x(), items.constFirst()->y());
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
        if (auto item = make(isMediaFile(file) ? MediaType : BitmapType, place, file))
            made.push_back(std::move(item));
        place += QPointF(apart, apart);
    }
    add(std::move(made));
    return !files.isEmpty();
}

/// Asks for the file of a bitmap or media widget unless it was dropped. Nothing when there is none,
/// or it could not be converted (which the converter tells).
std::optional<SConvertedImage> CItemDrop::imageFor(CItemModel &item, QString file)
{
    const bool isMedia = item.itemTypeName() == MediaType;
    if (file.isEmpty()) {
        const QString folder = screen()->project()->workingDirectory();
        file = isMedia
                   ? QFileDialog::getOpenFileName(m_window, tr("Select media file to use"), folder,
                                                  tr("Media Files (*.jpg *.png *.avi)"))
                   : QFileDialog::getOpenFileName(m_window, tr("Select image file to use"), folder,
                                                  tr("Image Files (*.png *.jpg *.bmp *.raw)"));
    }
    if (file.isEmpty())
        return {};
    set(item, PropertyKey::FileName, file);
    if (isMedia)
        return m_converter->mediaImage(file);
    const QString usual = item.propertyText(PropertyKey::Format);
    return m_converter->convertedImage(file, CImageFileConverter::usualFormat(file, usual));
}

bool CItemDrop::fitsMemory(const SConvertedImage &image)
{
    const auto needed = static_cast<size_t>(QFileInfo(image.path).size());
    if (needed + m_memory < screen()->project()->graphicsMemorySize()) {
        m_memory += needed;
        return true;
    }
    QMessageBox::warning(m_window, tr("RAM_G size is limited!"), tr("File size is too big"),
                         QMessageBox::Ok);
    return false;
}

/// Null when there is nothing to add, which has been told.
std::unique_ptr<CItemModel> CItemDrop::make(const QString &type, const QPointF &scenePos,
                                            const QString &file)
{
    CProjectModel *project = screen()->project();
    if (!project->library() || !project->library()->contains(type)) {
        Q_EMIT message(tr("There is no widget kind %1.").arg(type));
        return nullptr;
    }
    auto item = std::make_unique<CWidgetModel>(type, project->library(), project);
    placeAt(*item, landing(scenePos, {}));
    if (type == BitmapType || type == MediaType) {
        const std::optional<SConvertedImage> image = imageFor(*item, file);
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
        project.undoStack()->push(new CCommandAddItem(screen(), added.constLast()));
    }
    if (areSeveral)
        project.undoStack()->endMacro();
    if (!added.isEmpty())
        Q_EMIT dropped(added);
}
