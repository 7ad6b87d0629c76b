#include "CTheme.h"

#include "CThemeIcons.h"
#include "CThemeStyle.h"

#include <QApplication>
#include <QErrorMessage>
#include <QFile>
#include <QLabel>
#include <QWidget>

namespace {

struct Colours
{
    QColor window;
    QColor base;
    QColor text;
    QColor highlight;
    QColor link;
    QColor placeholder;
};

Colours coloursOf(CTheme::Kind kind)
{
    if (kind == CTheme::Kind::Bright)
        return {"#f5f6f8", "#ffffff", "#1b2026", "#bbdaf3", "#1a639f", "#5f6975"};
    if (kind == CTheme::Kind::Light)
        return {{192, 192, 192}, {208, 208, 208}, Qt::black,
                {128, 160, 192}, {24, 72, 128},   {88, 88, 88}};
    return {{64, 64, 64}, {48, 48, 48}, Qt::white, {64, 96, 128}, {140, 190, 240}, {168, 168, 168}};
}

} // namespace

CTheme::CTheme(QWidget *window) : m_window(window)
{
}

void CTheme::apply(Kind kind)
{
    if (m_name == nameOf(kind))
        return; // polishing every widget again takes its time
    m_name = nameOf(kind);
    CThemeIcons::setTheme(m_name);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    if (!qobject_cast<CThemeStyle *>(QApplication::style())) // serves all themes
        QApplication::setStyle(new CThemeStyle);
    QApplication::setPalette(palette(kind));
    // Only a polished window hands a new sheet on to children that were polished with the old one,
    // as those are whose size was asked for before the window is shown.
    m_window->ensurePolished();
    m_window->setStyleSheet(
        readStyleSheet(QStringLiteral(":/qss/") + m_name + QStringLiteral(".qss")));
    showErrorIcons();
}

/// An error dialog takes a picture of the plain style when it is made, and keeps it.
void CTheme::showErrorIcons()
{
    constexpr int Pixels = 48;
    const QIcon icon = CThemeIcons::icon(QStringLiteral(":/images/error.png"));
    for (const QErrorMessage *dialog : m_window->findChildren<QErrorMessage *>()) {
        if (auto *label = dialog->findChild<QLabel *>())
            label->setPixmap(icon.pixmap(Pixels));
    }
}

QString CTheme::nameOf(Kind kind)
{
    switch (kind) {
    case Kind::Light:
        return QStringLiteral("light");
    case Kind::Bright:
        return QStringLiteral("bright");
    default:
        return QStringLiteral("dark");
    }
}

CTheme::Kind CTheme::kindOf(const QString &name)
{
    for (const Kind each : {Kind::Light, Kind::Bright}) {
        if (name == nameOf(each))
            return each;
    }
    return Kind::Dark;
}

QPalette CTheme::palette(Kind kind)
{
    const Colours colours = coloursOf(kind);
    // The shades between light and shadow, which the style draws with, follow from these two.
    QPalette palette(colours.window, colours.window);
    palette.setColor(QPalette::Window, colours.window);
    palette.setColor(QPalette::WindowText, colours.text);
    palette.setColor(QPalette::Base, colours.base);
    palette.setColor(QPalette::AlternateBase, colours.window);
    // Both are one colour on purpose; the style sheet colours tool tips.
    palette.setColor(QPalette::ToolTipBase, colours.text);
    palette.setColor(QPalette::ToolTipText, colours.text);
    palette.setColor(QPalette::Text, colours.text);
    palette.setColor(QPalette::Button, colours.window);
    palette.setColor(QPalette::ButtonText, colours.text);
    palette.setColor(QPalette::BrightText, Qt::red);
    palette.setColor(QPalette::Highlight, colours.highlight);
    palette.setColor(QPalette::HighlightedText, colours.text);
    palette.setColor(QPalette::Link, colours.link);
    palette.setColor(QPalette::LinkVisited, colours.link);
    palette.setColor(QPalette::PlaceholderText, colours.placeholder);
    return palette;
}

QString CTheme::readStyleSheet(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}
