#pragma once

#include <QString>

/// The data files beside the programs, which every program loads at its start: the widget library
/// for all platforms, and the render script.
class CProgramData
{
public:
    /// `folder`: where the programs lie; absolute.
    explicit CProgramData(const QString &folder);

    QString widgetLibraryPath() const;
    QString renderScriptPath() const;

    /// Loads the widget library for every platform. Empty when that went well, otherwise why not.
    QString loadWidgetLibrary() const;
    /// Registers the emulator with the render script. Empty when that went well, otherwise why not.
    QString registerEmulator() const;

private:
    QString m_folder;
};
