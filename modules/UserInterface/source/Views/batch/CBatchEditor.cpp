#include "CBatchEditor.h"

#include "CColourChooser.h"
#include "CImageChooser.h"
#include "CItemImages.h"
#include "CItemModel.h"
#include "CLiveEdit.h"
#include "CProjectModel.h"
#include "PropertyKey.h"

#include <QDir>
#include <QUndoStack>
#include <QWidget>

CBatchEditor::CBatchEditor(QWidget *window)
    : QObject(window), m_images(new CItemImages(window, this)), m_colours(new CColourChooser(this))
{
    connect(m_images, &CItemImages::message, this, &CBatchEditor::message);
}

CBatchEditor::~CBatchEditor() = default;

void CBatchEditor::setProject(CProjectModel *project)
{
    setItems({});
    m_project = project;
}

CProjectModel *CBatchEditor::project() const
{
    return m_project;
}

void CBatchEditor::setItems(const QList<CItemModel *> &items)
{
    cancel();
    m_items = CBatchItems(items);
    m_selected = QSet<const CItemModel *>(items.begin(), items.end());
}

bool CBatchEditor::holds(const CItemModel *item) const
{
    while (item && !m_selected.contains(item))
        item = item->parentItem();
    return item;
}

void CBatchEditor::push(const PropertyStep::Changes &changes, const QString &key)
{
    if (!m_project)
        return;
    const int before = m_project->undoStack()->index();
    PropertyStep::push(changes, m_items.stepText(key, changes.size()));
    m_steps.pushed(before, m_project->undoStack()->index());
}

void CBatchEditor::set(const QString &key, const QVariant &value)
{
    cancel();
    if (key != PropertyKey::Format) {
        push(m_items.changes(key, value), key);
        return;
    }
    // Another format needs images converted into it; what shows none only gets the value.
    QVector<CItemModel *> converted;
    PropertyStep::Changes changes;
    for (const PropertyStep::SChange &each : m_items.changes(key, value)) {
        const bool isValue =
            CImageChooser::changeOf(*each.item, value.toString()) == CImageChooser::EFormat::Value;
        if (isValue)
            changes.append(each);
        else if (PropertyStep::isChange(*each.item, key, value))
            converted.append(each.item);
    }
    if (converted.isEmpty())
        push(changes, key);
    else
        takeImages(converted, {}, value.toString(), key, changes);
}

QString CBatchEditor::type(const QString &key, const QString &expression, double unit)
{
    cancel();
    QString error;
    const PropertyStep::Changes changes = m_items.changesTo(key, expression, &error, unit);
    if (error.isEmpty())
        push(changes, key);
    return error;
}

void CBatchEditor::begin(const QString &key)
{
    if (m_live && m_live->key() != key)
        keep();
    if (!m_live)
        m_live = std::make_unique<CLiveEdit>(m_items.with(key), key);
}

void CBatchEditor::tryStep(const QString &key, double by)
{
    begin(key);
    for (int index = 0; index < m_live->items().size(); ++index)
        m_live->show(
            index, CBatchItems::stepped(*m_live->items().at(index), key, m_live->start(index), by));
}

void CBatchEditor::keep()
{
    if (!m_live || !m_project)
        return;
    const std::unique_ptr<CLiveEdit> live = std::move(m_live);
    const int before = m_project->undoStack()->index();
    live->keep(m_items.stepText(live->key(), live->items().size()));
    m_steps.pushed(before, m_project->undoStack()->index());
}

void CBatchEditor::cancel()
{
    m_live.reset();
    m_colours->cancel();
}

void CBatchEditor::chooseColour(const QString &key, QWidget *beside)
{
    cancel();
    m_colours->choose(m_items.with(key), key, beside);
}

void CBatchEditor::takeStepsBack()
{
    if (m_project)
        m_steps.takeBack(m_project->undoStack());
}

void CBatchEditor::chooseImage(const QString &key)
{
    cancel();
    const QVector<CItemModel *> items = m_items.with(key);
    const QString file = items.isEmpty() ? QString() : m_images->ask(*items.constFirst());
    if (!file.isEmpty())
        takeImages(items, file, {}, key, {});
}

/// All of them or none. A conversion runs the event loop, so nothing is recorded before the last
/// one is done. `file` and `format`: empty for those that each item has.
void CBatchEditor::takeImages(const QVector<CItemModel *> &items, const QString &file,
                              const QString &format, const QString &key,
                              PropertyStep::Changes changes)
{
    QHash<QString, CItemImages::SImage> taken; // what equal items show, once
    const QPointer<CProjectModel> project = m_project;
    for (CItemModel *each : items) {
        const QString source = file.isEmpty() ? CItemImages::sourceOf(*each) : file;
        const QString into = format.isEmpty() ? CItemImages::formatFor(*each, file) : format;
        const QString name = QStringList{each->itemTypeName(), into, source}.join(QChar(0));
        if (!taken.contains(name)) {
            const auto image =
                source.isEmpty() ? std::nullopt : m_images->take(*each, source, into);
            if (!project || project != m_project || !m_items.with(key).contains(each))
                return; // closed or removed meanwhile
            if (!image || !CItemImages::fits(*image, *project, 0)) {
                Q_EMIT message(tr("%1 stays as it is, and so do the others: its image could not "
                                  "be taken.")
                                   .arg(each->name()));
                return;
            }
            taken.insert(name, *image);
        }
        const QHash<QString, QVariant> &values = taken[name].values;
        for (auto value = values.begin(); value != values.end(); ++value) {
            const bool isName = file.isEmpty() && value.key() == PropertyKey::FileName;
            if (!isName && each->hasProperty(value.key()))
                changes.append({each, value.key(), value.value()});
        }
    }
    push(changes, key);
}
