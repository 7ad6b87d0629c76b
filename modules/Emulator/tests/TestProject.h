#pragma once

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "PropertyKey.h"

#include <memory>

inline CScreenModel *appendTestScreen(CProjectModel *project, const QString &name)
{
    auto *screen = new CScreenModel(project); // the project takes it over
    screen->setProperty(PropertyKey::Name, name);
    project->appendRow(screen);
    return screen;
}

/// A project of 480 x 272 with empty screens of these names.
inline std::unique_ptr<CProjectModel> testProject(const QStringList &screens,
                                                  const QString &platform = "QX110")
{
    auto project = std::make_unique<CProjectModel>();
    project->setProjectProperties({{PropertyKey::Platform, platform},
                                   {PropertyKey::Width, "480"},
                                   {PropertyKey::Height, "272"}});
    for (const QString &name : screens)
        appendTestScreen(project.get(), name);
    return project;
}
