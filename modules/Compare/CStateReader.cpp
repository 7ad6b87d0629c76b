#include "CStateReader.h"

#include "CItemDocument.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"

#include <QElapsedTimer>

#include <algorithm>
#include <limits>

namespace {

SItemState::Values valuesOf(const CItemModel &item)
{
    SItemState::Values values;
    const auto saved = CItemDocument::of(item).saved(item);
    values.reserve(saved.size());
    for (const CWidgetProperty *property : saved)
        values.append(
            {property->key(), CItemDocument::savedTextUtf8(item, *property, FolderForm::Relative)});
    return values;
}

SItemState::Values valuesOf(const CProjectModel &project)
{
    SItemState::Values values;
    for (const CWidgetProperty &property : project.properties()) {
        const QString &key = property.key();
        if (key != PropertyKey::WorkingDirectory && key != PropertyKey::NyxVersion &&
            key != PropertyKey::Fonts)
            values.append({key, property.textUtf8()});
    }
    std::sort(values.begin(), values.end());
    const QVector<ItemAttributes> fonts = ProjectFonts::attributes(project.fonts());
    for (int i = 0; i < fonts.size(); ++i)
        for (const ItemAttribute &attribute : fonts[i])
            values.append(
                {QStringLiteral("font %1 %2").arg(project.fonts()[i].handle).arg(attribute.name),
                 attribute.text.toUtf8()});
    return values;
}

std::unique_ptr<SItemState> stateOf(const CItemModel &item, const SItemState *parent, int row)
{
    auto state = std::make_unique<SItemState>();
    state->item = &item;
    state->kind = item.kind();
    state->typeName = item.itemTypeName();
    state->idString = item.idString();
    state->id = item.id();
    state->name = item.name();
    state->parent = parent;
    state->row = row;
    if (item.kind() != CItemModel::Kind::Screen)
        state->box = ItemGeometry::frameOf(item).toAlignedRect();
    return state;
}

} // namespace

CStateReader::CStateReader(const CProjectModel &project)
    : m_state(std::make_shared<SProjectState>())
{
    m_state->values = valuesOf(project);
    for (int row = 0; row < project.screenCount(); ++row)
        if (const CScreenModel *screen = project.screen(row)) {
            m_state->screens.push_back(stateOf(*screen, nullptr, int(m_state->screens.size())));
            m_tasks.push_back({screen, m_state->screens.back().get()});
        }
}

bool CStateReader::read(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!m_tasks.empty()) {
        const STask task = m_tasks.front();
        m_tasks.pop_front();
        read(task);
        if (timer.hasExpired(milliseconds))
            break;
    }
    return m_tasks.empty();
}

/// The children of an item are noted at once, so that a page of thousands is taken in pieces too.
void CStateReader::read(const STask &task)
{
    task.state->values = valuesOf(*task.item);
    const int rows = task.item->rowCount();
    task.state->children.reserve(size_t(rows));
    for (int row = 0; row < rows; ++row)
        if (const CItemModel *child = task.item->childItem(row)) {
            task.state->children.push_back(
                stateOf(*child, task.state, int(task.state->children.size())));
            m_tasks.push_back({child, task.state->children.back().get()});
        }
}

ProjectState CStateReader::read(const CProjectModel &project)
{
    CStateReader reader(project);
    reader.read(std::numeric_limits<int>::max());
    return reader.take();
}
