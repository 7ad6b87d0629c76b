#include "CHelpWindow.h"

#include "ProgramInfo.h"

#include <QDesktopServices>
#include <QEvent>
#include <QKeyEvent>
#include <QUrl>
#include <QVBoxLayout>
#include <QWebPage>
#include <QWebView>

namespace {
constexpr QSize FirstSize(960, 720);
}

CHelpWindow::CHelpWindow(const QString &page, QWidget *parent)
    : QWidget(parent, Qt::Window), m_view(new QWebView(this))
{
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(tr("%1 Help").arg(ProgramInfo::Name));
    resize(FirstSize);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    m_view->page()->setLinkDelegationPolicy(QWebPage::DelegateExternalLinks);
    m_view->settings()->setAttribute(QWebSettings::JavascriptEnabled, false);
    m_view->settings()->setAttribute(QWebSettings::PluginsEnabled, false);
    connect(m_view, &QWebView::linkClicked, this, &CHelpWindow::follow);
    m_view->load(QUrl::fromLocalFile(page));
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
