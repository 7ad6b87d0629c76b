#pragma once

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetGroupModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetLibraryModel.h"
#include "CWidgetModel.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"

#include <QTest>

#include <memory>

/// The library that the program comes with.
inline void loadWidgetLibrary()
{
    const QString file =
        qEnvironmentVariable("KIV_BIN_DIR") + QStringLiteral("/widget-library.xml");
    auto &manager = CWidgetLibraryManager::instance();
    QVERIFY2(manager.initialise(file, {0x100, 0x101, 0x110, 0x111, 0x112, 0x113}),
             qPrintable(manager.errorText()));
}

inline std::unique_ptr<CProjectModel> newTestProject(int screens = 1)
{
    auto project = std::make_unique<CProjectModel>();
    project->newProject({{PropertyKey::Platform, QStringLiteral("QX110")},
                         {PropertyKey::Width, QStringLiteral("480")},
                         {PropertyKey::Height, QStringLiteral("272")}});
    while (project->screenCount() < screens)
        project->appendRow(new CScreenModel(project.get()));
    return project;
}

/// A widget behind all others of its parent.
inline CItemModel *appendWidget(CItemModel *parent, const QString &type,
                                const QHash<QString, QVariant> &values)
{
    auto *item = new CWidgetModel(type, parent->library(), parent->observer());
    for (auto each = values.begin(); each != values.end(); ++each)
        item->setProperty(each.key(), each.value(), CItemModel::Notify::No);
    parent->appendRow(item);
    return item;
}

/// The same on a screen, with the values of its definition.
inline CWidgetModel *addWidget(CProjectModel &project, const QString &type, int screen = 0)
{
    return static_cast<CWidgetModel *>(appendWidget(project.screen(screen), type, {}));
}

inline CItemModel *appendBox(CItemModel *parent, int x, int y, int width, int height)
{
    return appendWidget(parent, QStringLiteral("Kiv_Rectangle_T"),
                        {{PropertyKey::X, x},
                         {PropertyKey::Y, y},
                         {PropertyKey::Width, width},
                         {PropertyKey::Height, height}});
}

inline QByteArray savedBytes(const CProjectModel &project)
{
    QString error;
    const QByteArray bytes = project.saveToBytes(&error);
    return error.isEmpty() ? bytes : QByteArray();
}
