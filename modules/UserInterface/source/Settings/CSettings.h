#pragma once

#include <QByteArray>
#include <QColor>
#include <QRect>
#include <QString>
#include <QStringList>

/// The user's preferences as the settings file keeps them.
struct SSettings
{
    QRect mainWindow;       ///< null: none was kept
    QByteArray windowState; ///< only as write() was given it; else empty
    int zoomPercent = 100;
    int zoomType = 0; ///< CZoomComboWidget::Type
    bool showGrid = true;
    int gridSize = 20; ///< pixels
    QColor gridColor = Qt::white;
    Qt::PenStyle gridType = Qt::SolidLine;
    QStringList latestProjects;
    QString screenshotDir;
    QString theme; ///< as CTheme::name(), or anything else
    bool statusBar = false;
    QString savingFolderPath;
    int autosaveInterval = 10; ///< seconds; 0 or less: off
    QString language;          ///< as the user chose it; empty: the system's
    QString lastFolder;        ///< of the project that was opened or saved last
    int nudgeStep = 20;        ///< pixels
    int fineNudgeStep = 1;     ///< pixels, with Shift
    bool snapToGrid = false;
    bool snapping = true; ///< to the kinds that follow
    bool snapToItems = true;
    bool snapToPage = true;
    bool snapToGuides = true;
    bool snapToGaps = true;
    bool isMaximized = false;
    QStringList closedSections;   ///< of the property panel
    QStringList recentColours;    ///< newest first
    QStringList favouriteWidgets; ///< kinds, in the palette
    QStringList lastWidgets;      ///< kinds, the one that was used last first
    QStringList shortcuts;        ///< texts of CShortcutMap
    QStringList usedActions;      ///< ids, the one that was used last first
    QStringList projectViews;     ///< texts of CProjectViews
    bool showGuides = true;
    bool gridFaint = false;
};

/// The settings file. A key that is missing, or whose value makes no sense, gets its default and
/// leaves the other keys alone. A file that is no settings file at all is renamed, so that nothing
/// in it is lost when the settings are written.
class CSettings
{
public:
    /// `folder`: where the programs lie, absolute.
    explicit CSettings(const QString &folder);

    QString path() const;
    /// `aside`: the new path of a file that was no settings file.
    SSettings read(QString *aside = nullptr) const;
    /// False when the file could not be written.
    bool write(const SSettings &values) const;
    /// Renames the file, so that there are none but the defaults. Its new path; empty when there
    /// is none.
    QString setAside() const;

    /// Where new projects are offered to be saved: the examples beside the programs, if there are
    /// any, otherwise the programs' folder.
    QString defaultSavingFolder() const;

private:
    QString m_folder;
};
