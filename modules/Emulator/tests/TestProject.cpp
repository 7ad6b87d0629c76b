#include "TestProject.h"

#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetGroupModel.h"
#include "PropertyKey.h"

std::unique_ptr<CProjectModel> testProject(const QStringList &screens, const QString &platform)
{
    auto project = std::make_unique<CProjectModel>();
    project->setProjectProperties({{PropertyKey::Platform, platform},
                                   {PropertyKey::Width, QStringLiteral("480")},
                                   {PropertyKey::Height, QStringLiteral("272")}});
    for (const QString &name : screens)
        appendTestScreen(project.get(), name);
    return project;
}

CScreenModel *appendTestScreen(CProjectModel *project, const QString &name)
{
    auto *screen = new CScreenModel(project); // the project takes it over
    screen->setProperty(PropertyKey::Name, name);
    project->appendRow(screen);
    return screen;
}

void addTestItems(CItemModel *parent, const QStringList &names)
{
    for (const QString &name : names) {
        auto *group = new CWidgetGroupModel(parent->library(), parent->observer());
        group->setProperty(PropertyKey::Name, name);
        parent->appendRow(group);
    }
}
