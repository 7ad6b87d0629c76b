#pragma once

#include "CItemModel.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetGroupModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetModel.h"
#include "PropertyKey.h"

#include <QTest>

/// Loads the program's own widget library for all platforms.
inline void loadProgramLibrary()
{
    auto &manager = CWidgetLibraryManager::instance();
    const QString file = qEnvironmentVariable("KIV_SOURCE_DIR") + "/resources/widget-library.xml";
    QVERIFY2(manager.initialise(file, {0x100, 0x101, 0x110, 0x111, 0x112, 0x113}),
             qPrintable(manager.errorText()));
}

/// An empty project for the platform, with one screen.
inline std::unique_ptr<CProjectModel> newProject(const QString &platform = "QX110")
{
    auto project = std::make_unique<CProjectModel>();
    project->newProject({{PropertyKey::ProjectName, "panels"},
                         {PropertyKey::Platform, platform},
                         {PropertyKey::Width, "480"},
                         {PropertyKey::Height, "272"}});
    return project;
}

inline CWidgetModel *addWidget(CProjectModel &project, const QString &type, int screen = 0)
{
    auto *widget = new CWidgetModel(type, project.library(), &project);
    project.screen(screen)->appendRow(widget);
    return widget;
}

inline QByteArray document(const CProjectModel &project)
{
    return project.saveToBytes(nullptr);
}
