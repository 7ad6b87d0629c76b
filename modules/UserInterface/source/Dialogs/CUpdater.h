#pragma once

#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <QWidget>

#include <functional>

class QNetworkReply;

/// Asks a fixed address for the latest version and offers the download page when it is newer.
/// The window stays usable meanwhile, under a wait cursor. At most MaxAnswerBytes are read, and no
/// redirection is followed.
class CUpdater : public QObject
{
    Q_OBJECT

public:
    enum class EMode {
        Silent, ///< says nothing when the version is current
        Answer, ///< always says what came out
    };
    static constexpr int MaxAnswerBytes = 64 * 1024;
    static constexpr int TimeOut = 5000; ///< milliseconds for the whole answer

    /// With the addresses that the program was built with. `installed` is its version, a number.
    CUpdater(const QString &installed, QWidget *window);
    CUpdater(const QString &installed, const QUrl &versionFile, const QUrl &downloadPage,
             QWidget *window);
    ~CUpdater() override;

    /// Whether the program was built with an address to ask.
    bool isConfigured() const { return !m_versionFile.isEmpty(); }
    /// Starts a check, unless one is under way. A silent one without an address does nothing.
    void check(EMode mode);

    // For tests.
    void setTimeOut(int milliseconds) { m_timer.setInterval(milliseconds); }
    void setPageOpener(const std::function<void(const QUrl &)> &open) { m_openPage = open; }

Q_SIGNALS:
    void finished(); ///< a check is over, and what it had to say has been answered

private Q_SLOTS:
    void replyFinished(QNetworkReply *reply);
    void replyTimeout();

private:
    void readMore();
    bool isGood(const QNetworkReply &reply) const;
    void tell(const QString &latest);
    void setWaiting(bool waiting);

    const QString m_installed;
    const QPointer<QWidget> m_window; ///< parent of the boxes
    const QUrl m_versionFile;
    const QUrl m_downloadPage;
    QNetworkAccessManager m_manager;
    QTimer m_timer;
    EMode m_mode = EMode::Silent;
    QPointer<QNetworkReply> m_reply; ///< of the check under way
    QByteArray m_answer;
    bool m_isWaiting = false;
    std::function<void(const QUrl &)> m_openPage;
};
