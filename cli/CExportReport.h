#pragma once

#include "SScreenExport.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

/// What became of one screen.
struct SScreenReport
{
    QString name;
    int widgets = 0;                       ///< all below the screen, groups not counted
    int bitmaps = 0;                       ///< those of the widgets that show a bitmap or a video
    size_t ramDl = 0;                      ///< bytes that the whole screen needs, as all of these
    size_t ramDlBudget = 0;                ///< bytes
    size_t ramG = 0;                       ///< bytes
    size_t ramGBudget = 0;                 ///< bytes
    QList<SGraphicsMemory::SAsset> assets; ///< in RAM_G
    QStringList errors;                    ///< of the render, or that there was no answer

    bool exceedsBudget() const { return ramDl > ramDlBudget || ramG > ramGBudget; }
};

/// Collects what became of all screens. The same project gives the same bytes: the report holds no
/// time and no folder.
class CExportReport
{
public:
    /// `folder`: the project's, from which its files are named.
    CExportReport(const QString &projectFile, const QString &platform, const QString &folder);

    void addError(const QString &message); ///< one that concerns the project
    void add(const SScreenReport &screen);

    /// Nothing to report: no errors and every screen within its budget.
    bool isClean() const;
    /// Another run gives the same bytes: nothing was stopped by the clock.
    bool isRepeatable() const;
    /// {"project", "platform", "errors", "screens": [{"name", "widgets", "bitmaps",
    /// "ram_dl_bytes", "ram_dl_budget", "ram_g_bytes", "ram_g_budget", "ram_g_map", "errors"}]},
    /// UTF-8.
    QByteArray toJson() const;

private:
    QString m_project; ///< the file's name
    QString m_platform;
    QString m_folder;
    QStringList m_errors;
    QList<SScreenReport> m_screens;
};
