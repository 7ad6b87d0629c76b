#include "CBudgetResults.h"

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "ItemTree.h"
#include "executor/BitmapFormats.h"

#include <algorithm>
#include <cstring>

namespace {

QImage pictureOf(const SGraphicsMemory &memory, const SGraphicsMemory::SAsset &asset)
{
    const auto decoded = kivemu::decodeBitmap(
        reinterpret_cast<const uint8_t *>(memory.bytes.constData()),
        static_cast<size_t>(memory.bytes.size()), asset.format, asset.address, asset.stride,
        asset.paletteAddress, static_cast<int>(asset.width), static_cast<int>(asset.height));
    if (!decoded)
        return {};
    QImage picture(static_cast<int>(asset.width), static_cast<int>(asset.height),
                   QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < picture.height(); ++y)
        std::memcpy(picture.scanLine(y), decoded->at(0, y),
                    static_cast<size_t>(picture.width()) * sizeof(uint32_t));
    constexpr int Side = CBudgetResults::PictureSide;
    return picture.width() <= Side && picture.height() <= Side
               ? picture
               : picture.scaled(Side, Side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

QString CBudgetResults::keyOf(const SAssetUse &asset)
{
    return QStringLiteral("%1/%2").arg(asset.format).arg(asset.file);
}

void CBudgetResults::setProject(CProjectModel *project)
{
    if (m_project)
        m_project->disconnect(this);
    m_project = project;
    forgetAll();
    m_pictures.clear();
    if (project) {
        connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this, &CBudgetResults::forget);
        connect(project, &QAbstractItemModel::modelAboutToBeReset, this,
                &CBudgetResults::forgetAll);
        connect(project, &QObject::destroyed, this, [this] {
            m_project = nullptr;
            forgetAll();
        });
    }
    Q_EMIT changed();
}

void CBudgetResults::forgetAll()
{
    m_screens.clear();
    m_items.clear();
    m_budget = {};
}

/// Until their screen has been drawn again the sums are those of before; the items are gone.
void CBudgetResults::forget(const QModelIndex &parent, int first, int last)
{
    for (int row = first; row <= last; ++row) {
        const CItemModel *removed =
            CItemModel::fromItem(m_project->itemFromIndex(m_project->index(row, 0, parent)));
        if (!removed)
            continue;
        m_items.remove(removed);
        forEachItem(*removed, [this](const CItemModel &item) { m_items.remove(&item); });
    }
}

void CBudgetResults::takeScreen(const SScreenExport &screen)
{
    if (!m_project)
        return;
    const QModelIndex place = m_project->indexFromItem(screen.screen);
    auto known = std::find_if(m_screens.begin(), m_screens.end(),
                              [&place](const SScreen &each) { return each.place == place; });
    if (known == m_screens.end())
        known = m_screens.insert(m_screens.end(), {place, {}});
    known->budget = ProjectBudget::ofScreen(*screen.screen, screen);
    m_items.insert(screen.screen);
    forEachItem(*screen.screen, [this](const CItemModel &item) { m_items.insert(&item); });
    takePictures(screen.memory);
}

void CBudgetResults::takePictures(const SGraphicsMemory &memory)
{
    for (const SGraphicsMemory::SAsset &asset : memory.assets) {
        SAssetUse use;
        use.file = asset.file;
        use.format = asset.format;
        m_pictures.insert(keyOf(use), ::pictureOf(memory, asset));
    }
}

void CBudgetResults::takeProject()
{
    const auto isGone = [](const SScreen &screen) { return !screen.place.isValid(); };
    m_screens.erase(std::remove_if(m_screens.begin(), m_screens.end(), isGone), m_screens.end());
    std::stable_sort(m_screens.begin(), m_screens.end(), [](const SScreen &a, const SScreen &b) {
        return a.place.row() < b.place.row();
    });
    QVector<SScreenBudget> screens;
    for (const SScreen &screen : qAsConst(m_screens))
        screens.append(screen.budget);
    m_budget = ProjectBudget::ofProject(screens);
    Q_EMIT changed();
}
