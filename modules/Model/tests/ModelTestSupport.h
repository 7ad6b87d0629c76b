#pragma once

#include "CItemModel.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetGroupModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetLibraryModel.h"
#include "CWidgetModel.h"
#include "ItemGeometry.h"
#include "PropertyKey.h"

#include <QTest>

/// Loads the tests' widget library for all platforms, as a program does at its start.
inline void loadTestLibrary()
{
    const QVector<quint32> chipCodes = {0x100, 0x101, 0x110, 0x111, 0x112, 0x113};
    auto &manager = CWidgetLibraryManager::instance();
    QVERIFY2(manager.initialise(QFINDTESTDATA("data/widget-library.xml"), chipCodes),
             qPrintable(manager.errorText()));
}

inline CWidgetModel *newWidget(CProjectModel &project, const QString &type)
{
    return new CWidgetModel(type, project.library(), &project);
}

inline CWidgetGroupModel *newGroup(CProjectModel &project, const QVector<CItemModel *> &members)
{
    auto *group = new CWidgetGroupModel(project.library(), &project);
    group->appendChildren(members);
    return group;
}

/// Everything that tells an item from another: kind, properties with their types, geometry, flags
/// and what lies below it.
inline QString describe(const CItemModel &item, int depth = 0)
{
    QString text = QString(depth, QLatin1Char(' ')) + item.itemTypeName();
    text +=
        QStringLiteral(" text=%1 id=%2/%3").arg(item.text()).arg(item.id()).arg(item.idString());
    const ItemGeometry &g = item.geometry();
    for (const double number : {g.x, g.y, g.x2, g.y2, g.width, g.height, g.angle, g.radius})
        text += QStringLiteral(" %1").arg(number);
    for (const int number :
         {int(g.mode), g.fontHandle, int(g.resizeable), int(g.hasAngle), int(g.hasPointList),
          int(g.heightFromFont), int(item.isLocked()), int(item.isGrouped())})
        text += QStringLiteral(" %1").arg(number);
    QStringList keys = item.properties().keys();
    keys.sort();
    for (const QString &key : qAsConst(keys))
        text += QStringLiteral(" %1:%2=%3")
                    .arg(key)
                    .arg(int(item.properties().value(key).propertyType()))
                    .arg(item.propertyText(key));
    text += QLatin1Char('\n');
    for (int row = 0; row < item.rowCount(); ++row)
        text += describe(*item.childItem(row), depth + 1);
    return text;
}

inline QString describe(const CProjectModel &project)
{
    QString text;
    QStringList keys = project.properties().keys();
    keys.sort();
    for (const QString &key : qAsConst(keys))
        text += key + QLatin1Char('=') + project.propertyText(key) + QLatin1Char('\n');
    for (int row = 0; row < project.screenCount(); ++row)
        text += describe(*project.screen(row));
    return text;
}
