#include "CUpdater.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QNetworkReply>
#include <QXmlStreamReader>

#include <cmath>

#ifndef KIV_UPDATE_VERSION_URL
#define KIV_UPDATE_VERSION_URL ""
#endif
#ifndef KIV_UPDATE_DOWNLOAD_URL
#define KIV_UPDATE_DOWNLOAD_URL ""
#endif

namespace {

constexpr int LongestVersion = 32; ///< characters; what is longer is no version

/// 0 for what is no finite number.
double versionNumber(const QString &text)
{
    const double number = text.size() <= LongestVersion ? text.toDouble() : 0;
    return std::isfinite(number) ? number : 0;
}

QString latestVersionIn(const QByteArray &xml)
{
    QXmlStreamReader reader(QString::fromUtf8(xml));
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement &&
            reader.name() == QLatin1String("LatestBuildNo"))
            return reader.readElementText().trimmed();
    }
    return {};
}

QMessageBox::StandardButton ask(QWidget *window, QMessageBox::Icon icon, const QString &title,
                                const QString &text, QMessageBox::StandardButtons buttons)
{
    QMessageBox box(icon, title, text, buttons, window);
    box.setTextFormat(Qt::PlainText); // part of it comes from outside
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace

CUpdater::CUpdater(const QString &installed, QWidget *window)
    : CUpdater(installed, QUrl(QStringLiteral(KIV_UPDATE_VERSION_URL)),
               QUrl(QStringLiteral(KIV_UPDATE_DOWNLOAD_URL)), window)
{
}

CUpdater::CUpdater(const QString &installed, const QUrl &versionFile, const QUrl &downloadPage,
                   QWidget *window)
    : QObject(window),
      m_installed(installed),
      m_window(window),
      m_versionFile(versionFile),
      m_downloadPage(downloadPage),
      m_manager(this),
      m_timer(this),
      m_openPage([](const QUrl &page) { QDesktopServices::openUrl(page); })
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(TimeOut);
    connect(&m_manager, &QNetworkAccessManager::finished, this, &CUpdater::replyFinished);
    connect(&m_timer, &QTimer::timeout, this, &CUpdater::replyTimeout);
}

CUpdater::~CUpdater()
{
    disconnect(&m_manager, nullptr, this, nullptr);
    setWaiting(false);
}

void CUpdater::check(EMode mode)
{
    if (mode == EMode::Silent && !isConfigured())
        return;
    if (m_reply) { // the one who asked wants to hear of it
        if (mode == EMode::Answer)
            m_mode = mode;
        return;
    }
    m_mode = mode;
    m_answer.clear();
    setWaiting(true);
    QNetworkRequest request(m_versionFile);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::ManualRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    m_reply = m_manager.get(request);
    m_reply->setReadBufferSize(MaxAnswerBytes);
    connect(m_reply, &QNetworkReply::readyRead, this, &CUpdater::readMore);
    m_timer.start();
}

void CUpdater::setWaiting(bool waiting)
{
    if (m_isWaiting == waiting)
        return;
    m_isWaiting = waiting;
    if (waiting)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

void CUpdater::readMore()
{
    m_answer += m_reply->read(MaxAnswerBytes + 1 - m_answer.size());
    if (m_answer.size() > MaxAnswerBytes)
        m_reply->abort();
}

void CUpdater::replyTimeout()
{
    if (m_reply)
        m_reply->abort();
}

bool CUpdater::isGood(const QNetworkReply &reply) const
{
    constexpr int ok = 200; // a redirection is no error to the reply, but it is no answer either
    return reply.error() == QNetworkReply::NoError && m_answer.size() <= MaxAnswerBytes &&
           reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() == ok;
}

void CUpdater::replyFinished(QNetworkReply *reply)
{
    setWaiting(false);
    m_timer.stop();
    if (reply->isOpen())
        m_answer += reply->read(MaxAnswerBytes + 1 - m_answer.size());
    const bool good = isGood(*reply);
    reply->deleteLater();
    m_reply = nullptr;

    const QPointer<CUpdater> self(this); // a box runs the event loop
    if (good)
        tell(latestVersionIn(m_answer));
    else
        ask(m_window, QMessageBox::Warning, tr("No Internet Connection"),
            tr("Unable to update software!"), QMessageBox::Ok);
    if (self)
        Q_EMIT finished();
}

void CUpdater::tell(const QString &latest)
{
    if (versionNumber(latest) > versionNumber(m_installed)) {
        const QString text =
            tr("A newer version of the Panel Composer is available\nDo you want to download "
               "it?\nInstalled version: ") +
            m_installed + tr("\nLatest version: ") + latest;
        const auto open = m_openPage;
        const QUrl page = m_downloadPage;
        if (ask(m_window, QMessageBox::Question, tr("Update Available"), text,
                QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes)
            open(page);
    } else if (m_mode == EMode::Answer) {
        ask(m_window, QMessageBox::Information, tr("Application Up-to-date"),
            tr("Your version is up to date.\nInstalled version: ") + m_installed, QMessageBox::Ok);
    }
}
