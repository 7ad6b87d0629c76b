#pragma once

#include "CItemModel.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetGroupModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetModel.h"
#include "PropertyKey.h"

#include <QRandomGenerator>
#include <QTest>

#include <memory>

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

/// A project with an item of every kind, groups in groups, and awkward texts.
inline std::unique_ptr<CProjectModel> randomProject(uint seed, int items)
{
    QRandomGenerator random(seed);
    auto project = std::make_unique<CProjectModel>();
    project->newProject({{PropertyKey::Platform, QStringLiteral("QX11%1").arg(seed % 4)},
                         {PropertyKey::ProjectName, QStringLiteral("Prüfung <%1>").arg(seed)},
                         {PropertyKey::Width, QStringLiteral("800")}});
    project->appendRow(new CScreenModel(project.get()));
    const QString types[] = {"Test_Box_T",  "Test_Circle_T", "Test_Dot_T",
                             "Test_Line_T", "Test_Poly_T",   "Alien_T"};
    const QString texts[] = {"",    "plain", "a<b>&\"'", "line\nbreak\ttab\r", "ä台\U0001F600",
                             "]]>", "  "};
    const QString extras[] = {"note", "x-1", "zzz", "ä"};
    QVector<CItemModel *> parents = {project->screen(0), project->screen(1)};
    for (int i = 0; i < items; ++i) {
        CItemModel *parent = parents.at(random.bounded(parents.size()));
        CItemModel *item = nullptr;
        if (random.bounded(8) == 0)
            parents.append(item = newGroup(*project, {}));
        else
            item = newWidget(*project, types[random.bounded(6)]);
        const auto set = [&](const QString &key, int value) {
            if (item->hasProperty(key))
                item->setProperty(key, value, CItemModel::Notify::No);
        };
        item->setProperty(PropertyKey::Name, texts[random.bounded(7)], CItemModel::Notify::No);
        for (const QString &key :
             {PropertyKey::X, PropertyKey::Y, PropertyKey::X2, PropertyKey::Y2, PropertyKey::Id})
            set(key, random.bounded(-999, 999));
        set(random.bounded(2) ? PropertyKey::Radius : PropertyKey::PointSize, random.bounded(500));
        set(PropertyKey::Angle, random.bounded(360));
        if (item->geometryMode() == GeometryMode::Box)
            set(PropertyKey::Width, random.bounded(500));
        if (item->hasProperty(QStringLiteral("fill"))) {
            item->setProperty(QStringLiteral("text"), texts[random.bounded(7)]);
            item->setProperty(QStringLiteral("opacity"), random.generateDouble());
            item->setProperty(QStringLiteral("visible"), random.bounded(2));
        }
        if (random.bounded(4) == 0)
            item->setProperty(extras[random.bounded(4)], texts[random.bounded(7)]);
        if (parent->kind() == CItemModel::Kind::Group)
            parent->appendChildren({item});
        else
            parent->insertRow(random.bounded(parent->rowCount() + 1), item);
    }
    return project;
}
