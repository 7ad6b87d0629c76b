#include "CHelpWindow.h"

#include "CTheme.h"
#include "CThemeIcons.h"
#include "CWindowPlacement.h"
#include "ProgramInfo.h"

#include <QDesktopServices>
#include <QEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QUrl>
#include <QVBoxLayout>
#include <QWebPage>
#include <QWebView>

namespace {
constexpr QSize FirstSize(1040, 760);
}

CHelpWindow::CHelpWindow(const QString &page, const QString &place, QWidget *parent)
    : QWidget(parent, Qt::Window), m_folder(QFileInfo(page).path()), m_view(new QWebView(this))
{
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(tr("%1 Help").arg(ProgramInfo::Name));
    resize(CWindowPlacement::placed(QRect({}, FirstSize), CWindowPlacement::likelyFrame(*this),
                                    CWindowPlacement::screensOf(*this))
               .size());
    new CWindowPlacement(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    m_view->page()->setLinkDelegationPolicy(QWebPage::DelegateExternalLinks);
    m_view->settings()->setAttribute(QWebSettings::JavascriptEnabled, false);
    m_view->settings()->setAttribute(QWebSettings::PluginsEnabled, false);
    connect(m_view, &QWebView::linkClicked, this, &CHelpWindow::follow);
    connect(qGuiApp, &QGuiApplication::paletteChanged, this, &CHelpWindow::showTheme);
    showTheme(); // before the page is there, so that it never flashes
    QUrl address = QUrl::fromLocalFile(page);
    if (!place.isEmpty())
        address.setFragment(place);
    m_view->load(address);
}

/// The page is light by itself; a second sheet makes it dark.
void CHelpWindow::showTheme()
{
    const bool isDark = CThemeIcons::theme() == CTheme::nameOf(CTheme::Kind::Dark);
    m_view->settings()->setUserStyleSheetUrl(
        isDark ? QUrl::fromLocalFile(m_folder + QStringLiteral("/help-dark.css")) : QUrl());
    QPalette ground = QGuiApplication::palette();
    ground.setColor(QPalette::Base, ground.color(QPalette::Window));
    m_view->page()->setPalette(ground);
}

void CHelpWindow::follow(const QUrl &url)
{
    if (url.isLocalFile())
        m_view->load(url);
    else
        QDesktopServices::openUrl(url);
}

void CHelpWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        setWindowTitle(tr("%1 Help").arg(ProgramInfo::Name));
}

void CHelpWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Cancel) || event->matches(QKeySequence::Close))
        close();
    else
        QWidget::keyPressEvent(event);
}
