#include "CTheme.h"
#include "CThemeIcons.h"
#include "CThemeStyle.h"

#include <QTest>
#include <QtWidgets>

#include <cmath>

namespace {

constexpr CTheme::Kind AllThemes[] = {CTheme::Kind::Dark, CTheme::Kind::Light,
                                      CTheme::Kind::Bright};

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

QRgb windowColour(CTheme::Kind kind)
{
    return kind == CTheme::Kind::Dark    ? qRgb(64, 64, 64)
           : kind == CTheme::Kind::Light ? qRgb(192, 192, 192)
                                         : qRgb(245, 246, 248);
}

/// The contrast of the pixel that stands out most from a ground.
double strongestContrast(const QImage &picture, QRgb ground)
{
    QImage image(picture.size(), QImage::Format_RGB32);
    image.fill(ground);
    QPainter(&image).drawImage(0, 0, picture);
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
    void sheetsAreUnderstood()
    {
        QMainWindow window;
        CTheme theme(&window);
        warnings = 0;
        previousHandler = qInstallMessageHandler(countWarnings);
        for (const auto kind : AllThemes) {
            theme.apply(kind);
            QCOMPARE(CTheme::kindOf(theme.name()), kind);
            window.ensurePolished();
            QCOMPARE(theme.name(), CTheme::nameOf(kind));
            QVERIFY(!window.styleSheet().contains('@'));
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

    /// Texts of every weight, on whatever they stand. What the two old themes have is fixed.
    void textsAreLegible()
    {
        using P = QPalette;
        const std::pair<P::ColorRole, P::ColorRole> pairs[] = {{P::WindowText, P::Window},
                                                               {P::ButtonText, P::Button},
                                                               {P::Text, P::Base},
                                                               {P::Text, P::AlternateBase},
                                                               {P::Link, P::Window},
                                                               {P::Link, P::Base},
                                                               {P::PlaceholderText, P::Base},
                                                               {P::PlaceholderText, P::Window},
                                                               {P::HighlightedText, P::Highlight}};
        for (const auto kind : AllThemes) {
            const P palette = CTheme::palette(kind);
            const double least = kind == CTheme::Kind::Bright ? 4.5 : 3.9;
            QCOMPARE(palette.color(P::Window).rgb(), windowColour(kind));
            for (const auto &[text, ground] : pairs)
                QVERIFY2(contrast(palette.color(text).rgb(), palette.color(ground).rgb()) >= least,
                         qPrintable(CTheme::nameOf(kind) + QString(" %1").arg(text)));
        }
    }

    /// And when it is disabled, weaker than before.
    void iconsAreLegible()
    {
        for (const QString &file : QDir(":/images").entryList({"*.png"})) {
            if (QStringList{"icon.png", "error.png", "warning.png"}.contains(file) ||
                file.contains("@"))
                continue;
            for (const auto theme : AllThemes) {
                CThemeIcons::setTheme(CTheme::nameOf(theme));
                const QIcon icon = CThemeIcons::icon(":/images/" + file);
                const auto seen = [&](QIcon::Mode mode) {
                    return strongestContrast(icon.pixmap(24, 24, mode).toImage(),
                                             windowColour(theme));
                };
                QVERIFY2(seen(QIcon::Normal) >= 3.0, qPrintable(file));
                QVERIFY2(seen(QIcon::Disabled) >= 2.2, qPrintable(file));
                QVERIFY2(seen(QIcon::Disabled) < 0.8 * seen(QIcon::Normal), qPrintable(file));
            }
        }
    }

    void rubberBand()
    {
        QImage picture(100, 60, QImage::Format_RGB32);
        picture.setDevicePixelRatio(2);
        picture.fill(Qt::gray);
        QStyleOptionRubberBand option;
        option.palette = CTheme::palette(CTheme::Kind::Dark);
        option.rect = {5, 5, 40, 20};
        QPainter painter(&picture);
        CThemeStyle().drawControl(QStyle::CE_RubberBand, &option, &painter);
        const QColor inside = picture.pixelColor(50, 30);
        const QColor outside = picture.pixelColor(2, 30);
        int lines = 0; // both sides, each one pixel of the device
        for (int x = 0; x < picture.width(); ++x)
            lines += picture.pixelColor(x, 30) != inside && picture.pixelColor(x, 30) != outside;
        QCOMPARE(lines, 2);
        QVERIFY(inside != outside && std::abs(inside.red() - outside.red()) < 20);
    }

    void dockButtonsAreLargeEnough()
    {
        QMainWindow window;
        window.addDockWidget(Qt::LeftDockWidgetArea, new QDockWidget("Hxm"));
        CTheme(&window).apply(CTheme::Kind::Dark);
        window.show();
        const auto buttons = window.findChildren<QAbstractButton *>();
        QCOMPARE(buttons.size(), 2);
        for (const QAbstractButton *each : buttons)
            QVERIFY(each->width() >= 20 && each->height() >= 20);
        QVERIFY(!buttons[0]->geometry().intersects(buttons[1]->geometry()));
    }

    /// In all themes: the focus is seen and moves nothing, and what is disabled can be read and
    /// told from what is not.
    void controls()
    {
        for (const auto kind : AllThemes)
            check(kind, {new QPushButton("Hxm"), new QCheckBox("Hxm"), new QRadioButton("Hxm"),
                         new QLineEdit("Hxm"), new QSpinBox, new QSlider(Qt::Horizontal),
                         filled(new QComboBox), filled(new QListWidget)});
    }

private:
    template<class Widget>
    static Widget *filled(Widget *list)
    {
        list->addItem("Hxm");
        return list;
    }

    static void check(CTheme::Kind kind, const QVector<QWidget *> &all)
    {
        for (QWidget *control : all) {
            QMainWindow window;
            auto *centre = new QWidget;
            auto *layout = new QVBoxLayout(centre);
            auto *other = new QPushButton("Other");
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
            const QRgb ground = windowColour(kind);
            QImage ring = focused; // what is new, which has to stand out as outlines must
            for (int y = 0; y < plain.height(); ++y) {
                for (int x = 0; x < plain.width(); ++x)
                    ring.setPixel(x, y,
                                  plain.pixel(x, y) == focused.pixel(x, y) ? ground
                                                                           : focused.pixel(x, y));
            }
            QVERIFY(strongestContrast(ring, ground) >= 3.0);

            control->setEnabled(false);
            const QImage disabled = grab();
            QVERIFY(disabled != plain);
            QVERIFY(strongestContrast(disabled, ground) < strongestContrast(plain, ground));
            if (!qobject_cast<QSlider *>(control))
                QVERIFY(strongestContrast(disabled, ground) >=
                        (kind == CTheme::Kind::Bright ? 4.5 : 3.0));
        }
    }
};

QTEST_MAIN(tst_Theme)
#include "tst_theme.moc"
