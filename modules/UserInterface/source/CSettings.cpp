#include "CSettings.h"

#include <QDataStream>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QVariant>

namespace {
namespace Key {
const QString mainWindow = QStringLiteral("mainWindow");
const QString windowState = QStringLiteral("windowState");
const QString zoomPercent = QStringLiteral("zoomPercent");
const QString zoomType = QStringLiteral("zoomType");
const QString showGrid = QStringLiteral("showGrid");
const QString gridSize = QStringLiteral("gridSize");
const QString gridColor = QStringLiteral("gridColor");
const QString gridType = QStringLiteral("gridType");
const QString latestProjects = QStringLiteral("latestProjects");
const QString screenshotDir = QStringLiteral("screenshotDir");
const QString theme = QStringLiteral("theme");
const QString statusBar = QStringLiteral("statusBar");
const QString savingFolderPath = QStringLiteral("savingFolderPath");
const QString autosaveInterval = QStringLiteral("autosaveInterval");
const QString language = QStringLiteral("language");
const QString lastFolder = QStringLiteral("lastFolder");
const QString snapToGrid = QStringLiteral("snapToGrid");
const QString isMaximized = QStringLiteral("isMaximized");
} // namespace Key

constexpr qint64 MaxBytes = 1024 * 1024;
constexpr int MaxZoom = 3000;        // percent
constexpr int MaxSpacing = 200;      // pixels
constexpr int MaxInterval = 2000000; // seconds that a timer can hold as milliseconds
constexpr int MinWindowSide = 200;   // pixels
constexpr int MaxWindowSide = 32000;

void readInt(const QSettings &settings, const QString &key, int smallest, int largest, int *value)
{
    bool isNumber = false;
    const int read = settings.value(key).toInt(&isNumber);
    if (isNumber && read >= smallest && read <= largest)
        *value = read;
}

/// A text such as "maybe" would count as true otherwise.
void readBool(const QSettings &settings, const QString &key, bool *value)
{
    const QString text = settings.value(key).toString().toLower();
    if (text == QLatin1String("true") || text == QLatin1String("1"))
        *value = true;
    else if (text == QLatin1String("false") || text == QLatin1String("0"))
        *value = false;
}

void readRect(const QSettings &settings, const QString &key, QRect *value)
{
    const QRect read = settings.value(key).toRect();
    const auto within = [](int number, int smallest, int largest) {
        return number >= smallest && number <= largest;
    };
    if (within(read.x(), -MaxWindowSide, MaxWindowSide) &&
        within(read.y(), -MaxWindowSide, MaxWindowSide) &&
        within(read.width(), MinWindowSide, MaxWindowSide) &&
        within(read.height(), MinWindowSide, MaxWindowSide))
        *value = read;
}

/// Of binary data that was cut off Qt makes a colour of no known kind: not even a copy of it is
/// defined, so its kind is taken from the bytes that Qt itself would write for it.
bool isRgbColour(const QVariant &value)
{
    if (value.type() != QVariant::Color)
        return false;
    constexpr int kindAt = 5; // after the type's number and the mark for null
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes.size() > kindAt && bytes.at(kindAt) == char(QColor::Rgb);
}

/// Written as text, but one that was written as a colour is taken as well.
void readColour(const QSettings &settings, const QString &key, QColor *value)
{
    const QVariant read = settings.value(key);
    QColor colour(read.type() == QVariant::String ? read.toString() : QString());
    if (isRgbColour(read))
        colour = read.value<QColor>();
    if (colour.isValid() && colour.alpha() > 0)
        *value = colour;
}

/// The file is parsed when its keys are asked for, not before.
bool isSettingsFile(const QString &path)
{
    const QSettings file(path, QSettings::IniFormat);
    file.allKeys();
    return file.status() != QSettings::FormatError;
}
} // namespace

CSettings::CSettings(const QString &folder) : m_folder(folder)
{
}

QString CSettings::path() const
{
    return QDir::fromNativeSeparators(m_folder) + QStringLiteral("/config.ini");
}

QString CSettings::defaultSavingFolder() const
{
    const QString examples = m_folder + QStringLiteral("/examples/");
    return QFileInfo(examples).isDir() ? examples : m_folder;
}

void CSettings::setAsideIfBroken() const
{
    const QFileInfo info(path());
    if (!info.exists())
        return;
    if (info.isFile() && info.size() <= MaxBytes && isSettingsFile(path()))
        return;
    QString aside = path() + QStringLiteral(".broken");
    for (int number = 1; QFile::exists(aside); ++number)
        aside = path() + QStringLiteral(".broken (%1)").arg(number);
    if (QFile::rename(path(), aside))
        qWarning("%s is no settings file; it is now %s", qUtf8Printable(path()),
                 qUtf8Printable(aside));
}

SSettings CSettings::read() const
{
    setAsideIfBroken();
    SSettings values;
    values.savingFolderPath = defaultSavingFolder();
    const QSettings file(path(), QSettings::IniFormat);

    readRect(file, Key::mainWindow, &values.mainWindow);
    values.windowState = file.value(Key::windowState).toByteArray();
    readInt(file, Key::zoomPercent, 1, MaxZoom, &values.zoomPercent);
    readInt(file, Key::zoomType, 0, 2, &values.zoomType);
    readBool(file, Key::showGrid, &values.showGrid);
    readInt(file, Key::gridSize, 1, MaxSpacing, &values.gridSize);
    readColour(file, Key::gridColor, &values.gridColor);
    int gridType = values.gridType;
    readInt(file, Key::gridType, Qt::SolidLine, Qt::DotLine, &gridType);
    values.gridType = static_cast<Qt::PenStyle>(gridType);
    values.latestProjects = file.value(Key::latestProjects).toStringList();
    values.screenshotDir = file.value(Key::screenshotDir).toString();
    values.theme = file.value(Key::theme).toString();
    readBool(file, Key::statusBar, &values.statusBar);
    const QString folder = file.value(Key::savingFolderPath).toString();
    if (!folder.isEmpty())
        values.savingFolderPath = folder;
    readInt(file, Key::autosaveInterval, -MaxInterval, MaxInterval, &values.autosaveInterval);
    values.language = file.value(Key::language).toString();
    values.lastFolder = file.value(Key::lastFolder).toString();
    readBool(file, Key::snapToGrid, &values.snapToGrid);
    readBool(file, Key::isMaximized, &values.isMaximized);
    return values;
}

bool CSettings::write(const SSettings &values) const
{
    QSettings file(path(), QSettings::IniFormat);
    file.setValue(Key::mainWindow, values.mainWindow);
    file.setValue(Key::windowState, values.windowState);
    file.setValue(Key::zoomPercent, values.zoomPercent);
    file.setValue(Key::zoomType, values.zoomType);
    file.setValue(Key::showGrid, values.showGrid);
    file.setValue(Key::gridSize, values.gridSize);
    file.setValue(Key::gridColor, values.gridColor.name(QColor::HexArgb));
    file.setValue(Key::gridType, static_cast<int>(values.gridType));
    file.setValue(Key::latestProjects, values.latestProjects);
    file.setValue(Key::screenshotDir, values.screenshotDir);
    file.setValue(Key::theme, values.theme);
    file.setValue(Key::statusBar, values.statusBar);
    file.setValue(Key::savingFolderPath, values.savingFolderPath);
    file.setValue(Key::autosaveInterval, values.autosaveInterval);
    file.setValue(Key::language, values.language);
    file.setValue(Key::lastFolder, values.lastFolder);
    file.setValue(Key::snapToGrid, values.snapToGrid);
    file.setValue(Key::isMaximized, values.isMaximized);
    file.sync();
    if (file.status() == QSettings::NoError)
        return true;
    qWarning("The settings could not be written into %s", qUtf8Printable(path()));
    return false;
}
