#include "CProgramData.h"

#include "CEmulatorAdapter.h"
#include "CPlatformTable.h"
#include "CWidgetLibraryManager.h"

#include <QCoreApplication>
#include <QDir>

CProgramData::CProgramData(const QString &folder) : m_folder(folder)
{
}

QString CProgramData::widgetLibraryPath() const
{
    return QDir(m_folder).filePath(QStringLiteral("widget-library.xml"));
}

QString CProgramData::renderScriptPath() const
{
    return QDir(m_folder).filePath(QStringLiteral("kiv_render.lua"));
}

QString CProgramData::loadWidgetLibrary() const
{
    CWidgetLibraryManager &manager = CWidgetLibraryManager::instance();
    if (manager.initialise(widgetLibraryPath(), CPlatformTable().chipCodes()))
        return {};
    return manager.errorText();
}

QString CProgramData::registerEmulator() const
{
    if (CEmulatorAdapter::instance()->registerEmulator(renderScriptPath()))
        return {};
    return QCoreApplication::translate("CProgramData", "The render script %1 is missing.")
        .arg(renderScriptPath());
}
