#include "CTheme.h"
#include "CThemeIcons.h"

#include <QTest>
#include <QtWidgets>

#include <cmath>
#include <functional>

namespace {

const QString dark = QStringLiteral("dark");
const QString light = QStringLiteral("light");

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

using WidgetMaker = std::function<QWidget *()>;
Q_DECLARE_METATYPE(WidgetMaker)

class tst_Theme : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void applyPutsEverythingInForce()
    {
        QMainWindow window;
        CTheme theme(&window);
        warnings = 0;
        previousHandler = qInstallMessageHandler(countWarnings);
        for (const auto kind : {CTheme::Kind::Light, CTheme::Kind::Dark, CTheme::Kind::Light}) {
            theme.apply(kind);
            window.ensurePolished();
            const QString name = kind == CTheme::Kind::Light ? light : dark;
            QCOMPARE(theme.name(), name);
            QCOMPARE(QApplication::style()->objectName().toLower(), "fusion");
            QCOMPARE(QApplication::palette().color(QPalette::Window).rgb(), windowColour(name));
            QVERIFY(window.styleSheet().contains(name) && !window.styleSheet().contains('@'));
        }
        qInstallMessageHandler(previousHandler);
        QCOMPARE(warnings, 0); // a sheet that cannot be parsed is only warned of
    }

    /// A panel whose size was asked for before the window is shown has the first theme's colours,
    /// and is to follow when the settings name the other theme.
    void applyReachesWhatIsPolishedEarly()
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

    void iconIsLegible_data()
    {
        QTest::addColumn<QString>("resource");
        for (const QString &file : QDir(":/images").entryList({"*.png"})) {
            if (!QStringList{"icon.png", "error.png", "warning.png"}.contains(file) &&
                !file.contains("@"))
                QTest::newRow(qPrintable(file)) << ":/images/" + file;
        }
    }

    void iconIsLegible()
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
                QVERIFY2(ink.share > 0.05 && ink.share < 0.6,
                         qPrintable(QString::number(ink.share)));

                const QImage off = icon.pixmap(pixels, pixels, QIcon::Disabled).toImage();
                const Ink offInk = inkOf(off, windowColour(theme));
                QVERIFY2(offInk.contrast >= 2.2, qPrintable(QString::number(offInk.contrast)));
                QVERIFY2(offInk.contrast < 0.7 * ink.contrast, "disabled looks like enabled");
            }
        }
    }

    void iconFollowsTheTheme()
    {
        CThemeIcons::setTheme(dark);
        const QIcon icon = CThemeIcons::icon(":/images/Save.png");
        const QImage before = icon.pixmap(24, 24).toImage();
        CThemeIcons::setTheme(light);
        QVERIFY(inkOf(before, windowColour(light)).contrast < 3.0);
        QVERIFY(inkOf(icon.pixmap(24, 24).toImage(), windowColour(light)).contrast >= 3.0);
        QVERIFY(CThemeIcons::icon(":/images/noSuchIcon.png").isNull());
    }

    void control_data()
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

    /// In both themes: the focus is seen and moves nothing, and what is disabled can be read and
    /// told from what is not.
    void control()
    {
        QFETCH(WidgetMaker, make);
        for (const auto kind : {CTheme::Kind::Dark, CTheme::Kind::Light}) {
            QMainWindow window;
            auto *centre = new QWidget;
            auto *layout = new QVBoxLayout(centre);
            auto *other = new QPushButton("Other");
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
                return window.grab(QRect(control->mapTo(&window, QPoint()), control->size()))
                    .toImage();
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
                        ring = std::max(ring, contrast(focused.pixel(x, y),
                                                       windowColour(CTheme::nameOf(kind))));
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
};

QTEST_MAIN(tst_Theme)
#include "tst_theme.moc"
