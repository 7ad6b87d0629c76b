#include "CStartScreen.h"

#include "CMainPanels.h"
#include "CProjectPictures.h"
#include "CProjectSession.h"
#include "CScreen.h"
#include "CScreenNavigator.h"
#include "CStartPage.h"

#include <algorithm>

CStartScreen::CStartScreen(CProjectSession *session, CMainPanels *panels, const QString &examples)
    : QObject(panels),
      m_session(session),
      m_panels(panels),
      m_pictures(new CProjectPictures(this)),
      m_page(new CStartPage(examples, panels->screens()))
{
    connect(m_pictures, &CProjectPictures::kept, m_page, &CStartPage::readPictures);
    connect(m_page, &CStartPage::newProjectWanted, this, &CStartScreen::newProjectWanted);
    connect(m_page, &CStartPage::openWanted, this, &CStartScreen::openWanted);
    connect(m_page, &CStartPage::projectWanted, this, &CStartScreen::projectWanted);
    connect(m_page, &CStartPage::exampleWanted, session, &CProjectSession::openCopy);
    connect(m_page, &CStartPage::recoveryWanted, session, &CProjectSession::recover);
    connect(m_page, &CStartPage::forgetWanted, this, [this](const CRecoveryCopy::SLeft &left) {
        m_session->forget(left);
        m_page->setLeftWork(m_session->leftWork());
    });
}

void CStartScreen::show()
{
    m_page->setLeftWork(m_session->leftWork());
    m_page->show();
    showNoHint();
}

/// Laying out its text is work of its own, and another project may be opened at once.
void CStartScreen::showSoon()
{
    showNoHint();
    const auto showUnlessOpen = [this] {
        if (!m_session->project())
            show();
    };
    QMetaObject::invokeMethod(this, showUnlessOpen, Qt::QueuedConnection);
}

void CStartScreen::hide()
{
    m_page->hide();
    m_panels->screens()->setHint(QString());
}

/// What there is to say stands on the start page.
void CStartScreen::showNoHint()
{
    m_panels->screens()->setHint(QStringLiteral(" "));
}

void CStartScreen::setRecentProjects(const QStringList &paths)
{
    m_page->setRecentProjects(paths);
}

void CStartScreen::keepPicture()
{
    const auto pages = m_panels->navigator()->getScreenPixmaps();
    const auto drawn = std::find_if(pages.begin(), pages.end(),
                                    [](const auto &each) { return !each.second.isNull(); });
    if (drawn != pages.end())
        m_pictures->keep(m_session->path(), drawn->second);
}
