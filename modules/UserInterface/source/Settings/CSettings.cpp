#include "CSettings.h"

#include "CFileWriter.h"
#include "CIniText.h"
#include "ShownText.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

namespace {
namespace Key {
constexpr char mainWindow[] = "mainWindow";
constexpr char windowState[] = "windowState";
constexpr char windowStateCheck[] = "windowStateCheck";
constexpr char zoomPercent[] = "zoomPercent";
constexpr char zoomType[] = "zoomType";
constexpr char showGrid[] = "showGrid";
constexpr char gridSize[] = "gridSize";
constexpr char gridColor[] = "gridColor";
constexpr char gridType[] = "gridType";
constexpr char latestProjects[] = "latestProjects";
constexpr char screenshotDir[] = "screenshotDir";
constexpr char theme[] = "theme";
constexpr char statusBar[] = "statusBar";
constexpr char savingFolderPath[] = "savingFolderPath";
constexpr char autosaveInterval[] = "autosaveInterval";
constexpr char language[] = "language";
constexpr char lastFolder[] = "lastFolder";
constexpr char nudgeStep[] = "nudgeStep";
constexpr char fineNudgeStep[] = "fineNudgeStep";
constexpr char snapToGrid[] = "snapToGrid";
constexpr char snapping[] = "snapping";
constexpr char snapToItems[] = "snapToItems";
constexpr char snapToPage[] = "snapToPage";
constexpr char snapToGuides[] = "snapToGuides";
constexpr char snapToGaps[] = "snapToGaps";
constexpr char isMaximized[] = "isMaximized";
constexpr char closedSections[] = "closedSections";
constexpr char recentColours[] = "recentColours";
constexpr char favouriteWidgets[] = "favouriteWidgets";
constexpr char lastWidgets[] = "lastWidgets";
constexpr char shortcuts[] = "shortcuts";
constexpr char usedActions[] = "usedActions";
constexpr char projectViews[] = "projectViews";
constexpr char showGuides[] = "showGuides";
constexpr char gridFaint[] = "gridFaint";
} // namespace Key

constexpr qint64 MaxBytes = qint64{1} << 20;
constexpr int MaxZoom = 3000;        // percent
constexpr int MaxSpacing = 200;      // pixels
constexpr int MaxNudge = 1000;       // pixels
constexpr int MaxInterval = 2000000; // seconds that a timer can hold as milliseconds
constexpr int MinWindowSide = 200;   // pixels
constexpr int MaxWindowSide = 32000;
constexpr int MaxTextLength = 4096; // of a path; longer ones no system has
constexpr int MaxProjects = 10;
constexpr int MaxSections = 100;
constexpr int MaxColours = 64;
constexpr int MaxKinds = 100;  ///< of widgets in a list
constexpr int MaxTexts = 1000; // of a list whose reader has limits of its own

void readInt(const CIniText &file, const char *key, int smallest, int largest, int *value)
{
    bool isNumber = false;
    const int read = file.text(key).value_or(QString()).toInt(&isNumber);
    if (isNumber && read >= smallest && read <= largest)
        *value = read;
}

/// A text such as "maybe" would count as true otherwise.
void readBool(const CIniText &file, const char *key, bool *value)
{
    const QString text = file.text(key).value_or(QString()).toLower();
    if (text == QLatin1String("true") || text == QLatin1String("1"))
        *value = true;
    else if (text == QLatin1String("false") || text == QLatin1String("0"))
        *value = false;
}

/// Whether it may name a file, a theme, a language.
bool isPlain(const QString &text)
{
    return text.size() <= MaxTextLength && std::none_of(text.begin(), text.end(), [](QChar each) {
               return each.category() == QChar::Other_Control;
           });
}

void readText(const CIniText &file, const char *key, QString *value)
{
    const QString read = file.text(key).value_or(QString());
    if (!read.isEmpty() && isPlain(read))
        *value = read;
}

QStringList readTexts(const CIniText &file, const char *key, int most)
{
    QStringList texts = file.list(key);
    texts.erase(std::remove_if(texts.begin(), texts.end(),
                               [](const QString &each) { return !isPlain(each); }),
                texts.end());
    return texts.mid(0, most);
}

/// Written as "@Rect(x y width height)".
void readRect(const CIniText &file, const char *key, QRect *value)
{
    static const QRegularExpression form(
        QStringLiteral(R"(^@Rect\((-?\d{1,5}) (-?\d{1,5}) (\d{1,5}) (\d{1,5})\)$)"));
    const auto match = form.match(file.text(key).value_or(QString()));
    const auto number = [&match](int index) { return match.capturedRef(index).toInt(); };
    const QRect read(number(1), number(2), number(3), number(4));
    const auto within = [](int given, int smallest, int largest) {
        return given >= smallest && given <= largest;
    };
    if (match.hasMatch() && within(read.x(), -MaxWindowSide, MaxWindowSide) &&
        within(read.y(), -MaxWindowSide, MaxWindowSide) &&
        within(read.width(), MinWindowSide, MaxWindowSide) &&
        within(read.height(), MinWindowSide, MaxWindowSide))
        *value = read;
}

QString rectText(const QRect &rect)
{
    return QStringLiteral("@Rect(%1 %2 %3 %4)")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height());
}

/// A colour as Qt streams it: the type's number, the kind RGB, and five numbers of two bytes, of
/// which the first four are alpha, red, green and blue.
QColor streamedColour(const QString &text)
{
    const QString start = QStringLiteral("@Variant(") + QChar(u'\0') + QChar(u'\0') + QChar(u'\0') +
                          QLatin1Char('C') + QChar(u'\1');
    const int size = start.size() + 10 + 1; // and the bracket
    if (!text.startsWith(start) || text.size() != size || !text.endsWith(QLatin1Char(')')))
        return {};
    const auto part = [&](int index) { return text.at(start.size() + 2 * index).unicode() & 0xff; };
    return {part(1), part(2), part(3), part(0)};
}

/// Written as text, but one that was written as a colour is taken as well.
void readColour(const CIniText &file, const char *key, QColor *value)
{
    const QString text = file.text(key).value_or(QString());
    const QColor streamed = streamedColour(text);
    const QColor colour = streamed.isValid() || !isPlain(text) ? streamed : QColor(text);
    if (colour.isValid() && colour.alpha() > 0)
        *value = colour;
}

/// To be raised when the window's parts change so that a layout of before does not fit them.
const QByteArray StateVersion = "1";

/// What stands beside a layout that this program has written, so that no other is taken.
QByteArray checkOf(const QByteArray &state)
{
    return StateVersion + ':' +
           QCryptographicHash::hash(StateVersion + state, QCryptographicHash::Sha256).toHex();
}

/// Qt believes what it reads of a layout, and comes to grief over one that was changed.
QByteArray readState(const CIniText &file)
{
    const QByteArray state = file.bytes(Key::windowState);
    const QString check = file.text(Key::windowStateCheck).value_or(QString());
    return check == QLatin1String(checkOf(state)) ? state : QByteArray();
}

std::optional<CIniText> readFile(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray bytes = file.read(MaxBytes + 1);
    return bytes.size() > MaxBytes ? std::nullopt : CIniText::parse(bytes);
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

QString CSettings::setAside() const
{
    QString aside = path() + QStringLiteral(".broken");
    for (int number = 1; QFileInfo::exists(aside); ++number)
        aside = path() + QStringLiteral(".broken (%1)").arg(number);
    return QFile::rename(path(), aside) ? aside : QString();
}

SSettings CSettings::read(QString *aside) const
{
    SSettings values;
    values.savingFolderPath = defaultSavingFolder();
    const auto found = readFile(path());
    if (!found) {
        const QString renamed = setAside();
        if (aside)
            *aside = renamed;
        return values;
    }
    const CIniText &file = *found;
    readRect(file, Key::mainWindow, &values.mainWindow);
    values.windowState = readState(file);
    readInt(file, Key::zoomPercent, 1, MaxZoom, &values.zoomPercent);
    readInt(file, Key::zoomType, 0, 2, &values.zoomType);
    readBool(file, Key::showGrid, &values.showGrid);
    readInt(file, Key::gridSize, 1, MaxSpacing, &values.gridSize);
    readColour(file, Key::gridColor, &values.gridColor);
    int gridType = values.gridType;
    readInt(file, Key::gridType, Qt::SolidLine, Qt::DotLine, &gridType);
    values.gridType = static_cast<Qt::PenStyle>(gridType);
    values.latestProjects = readTexts(file, Key::latestProjects, MaxProjects);
    readText(file, Key::screenshotDir, &values.screenshotDir);
    readText(file, Key::theme, &values.theme);
    readBool(file, Key::statusBar, &values.statusBar);
    readText(file, Key::savingFolderPath, &values.savingFolderPath);
    readInt(file, Key::autosaveInterval, -MaxInterval, MaxInterval, &values.autosaveInterval);
    readText(file, Key::language, &values.language);
    readText(file, Key::lastFolder, &values.lastFolder);
    readInt(file, Key::nudgeStep, 1, MaxNudge, &values.nudgeStep);
    readInt(file, Key::fineNudgeStep, 1, MaxNudge, &values.fineNudgeStep);
    readBool(file, Key::snapToGrid, &values.snapToGrid);
    readBool(file, Key::snapping, &values.snapping);
    readBool(file, Key::snapToItems, &values.snapToItems);
    readBool(file, Key::snapToPage, &values.snapToPage);
    readBool(file, Key::snapToGuides, &values.snapToGuides);
    readBool(file, Key::snapToGaps, &values.snapToGaps);
    readBool(file, Key::isMaximized, &values.isMaximized);
    values.closedSections = readTexts(file, Key::closedSections, MaxSections);
    values.recentColours = readTexts(file, Key::recentColours, MaxColours);
    values.favouriteWidgets = readTexts(file, Key::favouriteWidgets, MaxKinds);
    values.lastWidgets = readTexts(file, Key::lastWidgets, MaxKinds);
    values.shortcuts = readTexts(file, Key::shortcuts, MaxTexts);
    values.usedActions = readTexts(file, Key::usedActions, MaxTexts);
    values.projectViews = readTexts(file, Key::projectViews, MaxTexts);
    readBool(file, Key::showGuides, &values.showGuides);
    readBool(file, Key::gridFaint, &values.gridFaint);
    return values;
}

bool CSettings::write(const SSettings &values) const
{
    CIniText file = readFile(path()).value_or(CIniText());
    const auto setInt = [&file](const char *key, int value) {
        file.setText(key, QString::number(value));
    };
    const auto setBool = [&file](const char *key, bool value) {
        file.setText(key, value ? QStringLiteral("true") : QStringLiteral("false"));
    };
    file.setObject(Key::mainWindow, rectText(values.mainWindow));
    file.setBytes(Key::windowState, values.windowState);
    file.setText(Key::windowStateCheck, QString::fromLatin1(checkOf(values.windowState)));
    setInt(Key::zoomPercent, values.zoomPercent);
    setInt(Key::zoomType, values.zoomType);
    setBool(Key::showGrid, values.showGrid);
    setInt(Key::gridSize, values.gridSize);
    file.setText(Key::gridColor, values.gridColor.name(QColor::HexArgb));
    setInt(Key::gridType, values.gridType);
    file.setList(Key::latestProjects, values.latestProjects);
    file.setText(Key::screenshotDir, values.screenshotDir);
    file.setText(Key::theme, values.theme);
    setBool(Key::statusBar, values.statusBar);
    file.setText(Key::savingFolderPath, values.savingFolderPath);
    setInt(Key::autosaveInterval, values.autosaveInterval);
    file.setText(Key::language, values.language);
    file.setText(Key::lastFolder, values.lastFolder);
    setInt(Key::nudgeStep, values.nudgeStep);
    setInt(Key::fineNudgeStep, values.fineNudgeStep);
    setBool(Key::snapToGrid, values.snapToGrid);
    setBool(Key::snapping, values.snapping);
    setBool(Key::snapToItems, values.snapToItems);
    setBool(Key::snapToPage, values.snapToPage);
    setBool(Key::snapToGuides, values.snapToGuides);
    setBool(Key::snapToGaps, values.snapToGaps);
    setBool(Key::isMaximized, values.isMaximized);
    file.setList(Key::closedSections, values.closedSections);
    file.setList(Key::recentColours, values.recentColours);
    file.setList(Key::favouriteWidgets, values.favouriteWidgets);
    file.setList(Key::lastWidgets, values.lastWidgets);
    file.setList(Key::shortcuts, values.shortcuts);
    file.setList(Key::usedActions, values.usedActions);
    file.setList(Key::projectViews, values.projectViews);
    setBool(Key::showGuides, values.showGuides);
    setBool(Key::gridFaint, values.gridFaint);
    const QString problem = CFileWriter::write(path(), file.toText());
    if (problem.isEmpty())
        return true;
    qWarning("%s", qUtf8Printable(ShownText::message(problem)));
    return false;
}
