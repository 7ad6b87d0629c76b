#include "CTheme.h"
#include "CThemeIcons.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileIconProvider>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSlider>
#include <QSpinBox>
#include <QStyle>
#include <QTest>
#include <QVBoxLayout>

#include <cmath>
#include <functional>

namespace {

const QString dark = QStringLiteral("dark");
const QString light = QStringLiteral("light");

/// Every icon name of the menus, the tool bar and the dialogs.
const char *const iconNames[] = {
    "newProject", "openProject", "closeProject",  "Save",        "saveAs",         "Add",
    "exportproj", "exporttab",   "exportprojbin", "print",       "Exit",           "bringfront",
    "sendback",   "Cut",         "Copy",          "Paste",       "Selection",      "Clear",
    "invert",     "cut",         "Lock",          "Undo",        "Redo",           "Test line",
    "grid",       "RGB",         "screenres",     "Search text", "Spell checking", "Settings",
    "help",       "Up"};

QString resourceName(const char *name)
{
    return QStringLiteral(":/images/%1.png").arg(QLatin1String(name));
}

double luminance(QRgb colour)
{
    const auto linear = [](int channel) {
        const double value = channel / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour));
}

double contrast(QRgb a, QRgb b)
{
    const double first = luminance(a);
    const double second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QRgb windowColour(const QString &theme)
{
    return theme == dark ? qRgb(64, 64, 64) : qRgb(192, 192, 192);
}

/// What of a picture is seen on a ground: mean contrast of the pixels that are at least half
/// covered, and their share of the picture.
struct Ink
{
    double contrast = 0;
    double share = 0;
};

Ink inkOf(const QImage &picture, QRgb ground)
{
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    double sum = 0;
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            const int alpha = qAlpha(pixel);
            if (alpha < 128)
                continue;
            const auto over = [alpha](int above, int below) {
                return (above * alpha + below * (255 - alpha)) / 255;
            };
            sum +=
                contrast(qRgb(over(qRed(pixel), qRed(ground)), over(qGreen(pixel), qGreen(ground)),
                              over(qBlue(pixel), qBlue(ground))),
                         ground);
            ++count;
        }
    }
    return {count ? sum / count : 0, double(count) / (image.width() * image.height())};
}

/// The contrast of the pixel that stands out most from a ground.
double strongestContrast(const QImage &image, QRgb ground)
{
    double strongest = 1;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            strongest = std::max(strongest, contrast(image.pixel(x, y), ground));
    }
    return strongest;
}

int warnings = 0;
QtMessageHandler previousHandler = nullptr;

void countWarnings(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtWarningMsg)
        ++warnings;
    previousHandler(type, context, text);
}

} // namespace

class tst_Theme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void unreadableStyleSheetIsEmpty();
    void styleSheetIsComplete_data();
    void styleSheetIsComplete();
    void applyPutsEverythingInForce();
    void applyReachesWhatIsPolishedEarly();
    void filesHaveThePicturesOfTheTheme();
    void iconIsLegible_data();
    void iconIsLegible();
    void iconsAreDifferent();
    void plainNamesExist();
    void iconFollowsTheTheme();
    void otherNames();
    void control_data();
    void control();
};

void tst_Theme::unreadableStyleSheetIsEmpty()
{
    QCOMPARE(CTheme::readStyleSheet(QStringLiteral(":/qss/none.qss")), QString());
    QCOMPARE(CTheme::readStyleSheet(QStringLiteral(":/qss")), QString());
}

void tst_Theme::styleSheetIsComplete_data()
{
    QTest::addColumn<QString>("theme");
    QTest::newRow("dark") << dark;
    QTest::newRow("light") << light;
}

void tst_Theme::styleSheetIsComplete()
{
    QFETCH(QString, theme);
    const QString sheet = CTheme::readStyleSheet(QStringLiteral(":/qss/%1.qss").arg(theme));
    QVERIFY(!sheet.isEmpty());
    QVERIFY2(!sheet.contains(QLatin1Char('@')), "a colour of the template has no value");
    QVERIFY2(!sheet.contains(QStringLiteral("font-size")), "the system's font size is to be kept");

    int pictures = 0;
    auto matches = QRegularExpression(QStringLiteral("url\\(([^)]*)\\)")).globalMatch(sheet);
    while (matches.hasNext()) {
        const QString picture = matches.next().captured(1);
        QVERIFY2(QFile::exists(picture), qPrintable(picture));
        QVERIFY2(picture.contains(theme), qPrintable(picture));
        ++pictures;
    }
    QVERIFY(pictures > 0);
    // No value, an unknown colour: what the parser drops, or what comes out of an empty variable.
    QVERIFY(!QRegularExpression(QStringLiteral(":\\s*;")).match(sheet).hasMatch());
}

void tst_Theme::applyPutsEverythingInForce()
{
    QMainWindow window;
    CTheme theme(&window);
    QCOMPARE(theme.name(), QString());
    warnings = 0;
    previousHandler = qInstallMessageHandler(countWarnings);
    for (const auto kind : {CTheme::Kind::Light, CTheme::Kind::Dark, CTheme::Kind::Light}) {
        theme.apply(kind);
        window.ensurePolished();
        const QString name = kind == CTheme::Kind::Light ? light : dark;
        QCOMPARE(theme.name(), name);
        QCOMPARE(CThemeIcons::theme(), name);
        QCOMPARE(QApplication::style()->objectName().toLower(), QStringLiteral("fusion"));
        QCOMPARE(QApplication::palette().color(QPalette::Window).rgb(), windowColour(name));
        QFile sheet(QStringLiteral(":/qss/%1.qss").arg(name));
        QVERIFY(sheet.open(QIODevice::ReadOnly));
        QCOMPARE(window.styleSheet(), QString::fromUtf8(sheet.readAll()));
    }
    qInstallMessageHandler(previousHandler);
    QCOMPARE(warnings, 0); // a sheet that cannot be parsed is only warned of
}

/// A panel whose size was asked for before the window is shown has the first theme's colours, and
/// is to follow when the settings name the other theme.
void tst_Theme::applyReachesWhatIsPolishedEarly()
{
    QMainWindow window;
    CTheme theme(&window);
    theme.apply(CTheme::Kind::Dark);
    auto *list = new QListWidget(&window);
    list->ensurePolished();
    theme.apply(CTheme::Kind::Light);
    const QPalette expected = CTheme::palette(CTheme::Kind::Light);
    for (const auto role : {QPalette::Base, QPalette::Text})
        QCOMPARE(list->palette().color(role).name(), expected.color(role).name());
}

void tst_Theme::filesHaveThePicturesOfTheTheme()
{
    QMainWindow window;
    CTheme(&window).apply(CTheme::Kind::Light);
    const QFileIconProvider provider;
    using Provider = QFileIconProvider;
    for (const auto type : {Provider::Folder, Provider::File, Provider::Computer}) {
        const QIcon icon = provider.icon(type);
        for (const QString &theme : {dark, light}) {
            CThemeIcons::setTheme(theme);
            const QImage picture = icon.pixmap(24, 24).toImage();
            QVERIFY(inkOf(picture, windowColour(theme)).contrast >= 3.0);
        }
    }
}

void tst_Theme::iconIsLegible_data()
{
    QTest::addColumn<QString>("resource");
    for (const char *name : iconNames)
        QTest::newRow(name) << resourceName(name);
}

void tst_Theme::iconIsLegible()
{
    QFETCH(QString, resource);
    for (const QString &theme : {dark, light}) {
        CThemeIcons::setTheme(theme);
        const QIcon icon = CThemeIcons::icon(resource);
        QVERIFY(!icon.isNull());
        for (const int pixels : {16, 24, 32, 48}) {
            const QImage picture = icon.pixmap(pixels, pixels).toImage();
            QCOMPARE(picture.size(), QSize(pixels, pixels));
            const Ink ink = inkOf(picture, windowColour(theme));
            QVERIFY2(ink.contrast >= 3.0, qPrintable(QString::number(ink.contrast)));
            QVERIFY2(ink.share > 0.05 && ink.share < 0.6, qPrintable(QString::number(ink.share)));

            const QImage off = icon.pixmap(pixels, pixels, QIcon::Disabled).toImage();
            const Ink offInk = inkOf(off, windowColour(theme));
            QVERIFY2(offInk.contrast >= 2.2, qPrintable(QString::number(offInk.contrast)));
            QVERIFY2(offInk.contrast < 0.7 * ink.contrast, "disabled looks like enabled");
        }
    }
}

void tst_Theme::iconsAreDifferent()
{
    CThemeIcons::setTheme(dark);
    constexpr int pixels = 16;
    QVector<QImage> pictures;
    for (const char *name : iconNames)
        pictures << CThemeIcons::icon(resourceName(name))
                        .pixmap(pixels, pixels)
                        .toImage()
                        .convertToFormat(QImage::Format_ARGB32);
    for (int i = 0; i < pictures.size(); ++i) {
        for (int j = i + 1; j < pictures.size(); ++j) {
            int different = 0;
            for (int y = 0; y < pixels; ++y) {
                for (int x = 0; x < pixels; ++x) {
                    const int difference =
                        qAlpha(pictures[i].pixel(x, y)) - qAlpha(pictures[j].pixel(x, y));
                    different += std::abs(difference) > 64;
                }
            }
            QVERIFY2(different >= 12,
                     qPrintable(QStringLiteral("%1 and %2 look alike: %3")
                                    .arg(QLatin1String(iconNames[i]), QLatin1String(iconNames[j]))
                                    .arg(different)));
        }
    }
}

void tst_Theme::plainNamesExist()
{
    for (const char *name : iconNames) {
        QCOMPARE(QImage(resourceName(name)).size(), QSize(24, 24));
        QString doubled = resourceName(name);
        doubled.replace(QStringLiteral(".png"), QStringLiteral("@2x.png"));
        QCOMPARE(QImage(doubled).size(), QSize(48, 48));
    }
}

void tst_Theme::iconFollowsTheTheme()
{
    CThemeIcons::setTheme(dark);
    const QIcon icon = CThemeIcons::icon(resourceName("Save"));
    const QIcon copy = icon;
    const QImage before = icon.pixmap(24, 24).toImage();
    CThemeIcons::setTheme(light);
    for (const QIcon &each : {icon, copy}) {
        const QImage after = each.pixmap(24, 24).toImage();
        QVERIFY(inkOf(before, windowColour(light)).contrast < 3.0);
        QVERIFY(inkOf(after, windowColour(light)).contrast >= 3.0);
    }
    CThemeIcons::setTheme(QStringLiteral("anything else"));
    QCOMPARE(icon.pixmap(24, 24).toImage(), before);
}

void tst_Theme::otherNames()
{
    QVERIFY(CThemeIcons::icon(QStringLiteral(":/images/noSuchIcon.png")).isNull());
    QVERIFY(CThemeIcons::icon(QString()).isNull());
    const QIcon mark = CThemeIcons::icon(resourceName("icon"));
    QCOMPARE(mark.pixmap(16, 16).size(), QSize(16, 16));
    QCOMPARE(mark.pixmap(256, 256).size(), QSize(256, 256));
    // A picture without variants for the themes is shown as it is.
    const QIcon control = CThemeIcons::icon(QStringLiteral(":/controls/dark/check.png"));
    QCOMPARE(control.pixmap(16, 16).size(), QSize(16, 16));
}

using WidgetMaker = std::function<QWidget *()>;
Q_DECLARE_METATYPE(WidgetMaker)

void tst_Theme::control_data()
{
    QTest::addColumn<WidgetMaker>("make");
    const QString text = QStringLiteral("Hxm");
    QTest::newRow("push button") << WidgetMaker([=] { return new QPushButton(text); });
    QTest::newRow("check box") << WidgetMaker([=] { return new QCheckBox(text); });
    QTest::newRow("radio button") << WidgetMaker([=] { return new QRadioButton(text); });
    QTest::newRow("line edit") << WidgetMaker([=] { return new QLineEdit(text); });
    QTest::newRow("spin box") << WidgetMaker([] { return new QSpinBox; });
    QTest::newRow("slider") << WidgetMaker([] { return new QSlider(Qt::Horizontal); });
    QTest::newRow("combo box") << WidgetMaker([=] {
        auto *box = new QComboBox;
        box->addItem(text);
        return box;
    });
    QTest::newRow("list") << WidgetMaker([=] {
        auto *list = new QListWidget;
        list->addItem(text);
        return list;
    });
}

/// In both themes: the focus is seen and moves nothing, and what is disabled can be read and told
/// from what is not.
void tst_Theme::control()
{
    QFETCH(WidgetMaker, make);
    for (const auto kind : {CTheme::Kind::Dark, CTheme::Kind::Light}) {
        QMainWindow window;
        auto *centre = new QWidget;
        auto *layout = new QVBoxLayout(centre);
        auto *other = new QPushButton(QStringLiteral("Other"));
        QWidget *control = make();
        layout->addWidget(other);
        layout->addWidget(control);
        window.setCentralWidget(centre);
        CTheme(&window).apply(kind);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QApplication::setCursorFlashTime(0);

        // Taken from the window, because corners and labels show its ground.
        const auto grab = [&] {
            return window.grab(QRect(control->mapTo(&window, QPoint()), control->size())).toImage();
        };

        other->setFocus();
        const QImage plain = grab();
        const QSize size = control->sizeHint();
        control->setFocus(Qt::TabFocusReason);
        QTRY_VERIFY(control->hasFocus());
        const QImage focused = grab();
        QVERIFY(focused != plain);
        QCOMPARE(control->sizeHint(), size);
        // Something of the ring stands out from the window as strongly as outlines must.
        double ring = 1;
        for (int y = 0; y < plain.height(); ++y) {
            for (int x = 0; x < plain.width(); ++x) {
                if (plain.pixel(x, y) != focused.pixel(x, y))
                    ring = std::max(
                        ring, contrast(focused.pixel(x, y), windowColour(CTheme::nameOf(kind))));
            }
        }
        QVERIFY2(ring >= 3.0, qPrintable(QString::number(ring)));

        control->setEnabled(false);
        const QImage disabled = grab();
        const QRgb ground = windowColour(CTheme::nameOf(kind));
        QVERIFY(disabled != plain);
        QVERIFY(strongestContrast(disabled, ground) < strongestContrast(plain, ground));
        if (!qobject_cast<QSlider *>(control))
            QVERIFY(strongestContrast(disabled, ground) >= 3.0);
    }
}

QTEST_MAIN(tst_Theme)
#include "tst_theme.moc"
