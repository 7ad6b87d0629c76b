#include "CDialogAnswers.h"
#include "CUpdater.h"

#include <QAbstractButton>
#include <QGuiApplication>
#include <QSet>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

namespace {

/// Answers every request with the same bytes, and goes on sending more if it is told to.
class CAnsweringServer : public QTcpServer
{
public:
    enum class Then { Close, KeepOpen, SendForever };

    CAnsweringServer(const QByteArray &answer, Then then) : m_answer(answer), m_then(then)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket *socket = nextPendingConnection();
            ++connections;
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] { serve(socket); });
            connect(socket, &QTcpSocket::bytesWritten, this, [this, socket] {
                if (m_then == Then::SendForever && socket->bytesToWrite() < 100000)
                    sent += socket->write(QByteArray(100000, ' '));
            });
        });
    }
    QUrl url() const { return QUrl(QStringLiteral("http://127.0.0.1:%1/v.xml").arg(serverPort())); }

    int connections = 0;
    QSet<QByteArray> paths; ///< asked for
    qint64 sent = 0;

private:
    void serve(QTcpSocket *socket)
    {
        const QByteArray request = socket->readAll();
        paths.insert(request.split(' ').value(1));
        if (!request.contains("\r\n\r\n"))
            return;
        socket->write(m_answer);
        if (m_then == Then::Close)
            socket->disconnectFromHost();
    }

    const QByteArray m_answer;
    const Then m_then;
};

QByteArray http(const QByteArray &body, const QByteArray &head = "200 OK\r\n")
{
    return "HTTP/1.1 " + head + "Content-Length: " + QByteArray::number(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

QByteArray version(const QByteArray &text)
{
    return "<a><b/><LatestBuildNo>" + text + "</LatestBuildNo></a>";
}

const QString updateTitle = QStringLiteral("Update Available");
const QString currentTitle = QStringLiteral("Application Up-to-date");
const QString failedTitle = QStringLiteral("No Internet Connection");

} // namespace

Q_DECLARE_METATYPE(CAnsweringServer::Then)

class tst_Updater : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data()
    {
        using Then = CAnsweringServer::Then;
        QTest::addColumn<QByteArray>("answer");
        QTest::addColumn<Then>("then");
        QTest::addColumn<QString>("silentTitle"); // of the box that comes; empty: none
        QTest::addColumn<QString>("title");
        const auto row = [](const char *name, const QByteArray &answer, const QString &silent,
                            const QString &asked, Then then = Then::Close) {
            QTest::newRow(name) << answer << then << silent << asked;
        };
        row("newer", http(version("2.07")), updateTitle, updateTitle);
        row("the same", http(version("2.06")), {}, currentTitle);
        row("numbers, not dotted versions", http(version("2.010")), {}, currentTitle);
        row("infinite", http(version("inf")), {}, currentTitle);
        row("malformed", http("<a><LatestBuildNo>9"), {}, currentTitle);
        row("nothing at all", {}, failedTitle, failedTitle);
        row("not found", http(version("9"), "404 Not Found\r\n"), failedTitle, failedTitle);
        row("elsewhere", http(version("9"), "302 Found\r\nLocation: /other.xml\r\n"), failedTitle,
            failedTitle);
        row("larger than is read", http(QByteArray(65 * 1024, ' ') + version("9")), failedTitle,
            failedTitle);
        row("endless", "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + version("9"), failedTitle,
            failedTitle, Then::SendForever);
        row("too slow", "HTTP/1.1 200 OK\r\nContent-Length: 999\r\n\r\n" + version("9"),
            failedTitle, failedTitle, Then::KeepOpen);
    }

    void answers()
    {
        QFETCH(QByteArray, answer);
        QFETCH(CAnsweringServer::Then, then);
        QFETCH(QString, silentTitle);
        QFETCH(QString, title);
        CAnsweringServer server(answer, then);
        QVERIFY(server.isListening());
        for (const auto mode : {CUpdater::EMode::Silent, CUpdater::EMode::Answer}) {
            const QString expected = mode == CUpdater::EMode::Silent ? silentTitle : title;
            CUpdater updater("2.06", server.url(), QUrl("http://127.0.0.1/page"), nullptr);
            QList<QUrl> pages;
            updater.setPageOpener([&pages](const QUrl &page) { pages.append(page); });
            const bool opensPage = mode == CUpdater::EMode::Silent && expected == updateTitle;
            if (then == CAnsweringServer::Then::KeepOpen)
                updater.setTimeOut(150);
            CDialogAnswers boxes;
            if (!expected.isEmpty()) {
                boxes.expect([&expected, opensPage](QDialog *opened) {
                    auto *box = qobject_cast<QMessageBox *>(opened);
                    QVERIFY(box);
                    QCOMPARE(box->windowTitle(), expected);
                    QVERIFY(!QGuiApplication::overrideCursor()); // no wait cursor over a question
                    box->button(opensPage                 ? QMessageBox::Yes
                                : expected == updateTitle ? QMessageBox::No
                                                          : QMessageBox::Ok)
                        ->click();
                });
            }
            QSignalSpy finished(&updater, &CUpdater::finished);
            updater.check(mode);
            QVERIFY(QGuiApplication::overrideCursor());
            QCOMPARE(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
            QVERIFY(finished.wait());
            QVERIFY(!QGuiApplication::overrideCursor());
            QVERIFY(boxes.allGiven());
            QCOMPARE(pages.size(), int(opensPage));
        }
        QCOMPARE(server.paths, QSet<QByteArray>{"/v.xml"}); // also after a redirection
        QVERIFY(server.sent < 20 * 1000 * 1000);
    }

    void withoutAnAddressTheSilentCheckIsSkipped()
    {
        CUpdater updater("2.06", QUrl(), QUrl(), nullptr);
        QVERIFY(!updater.isConfigured());
        CDialogAnswers boxes;
        QSignalSpy finished(&updater, &CUpdater::finished);
        updater.check(CUpdater::EMode::Silent);
        QVERIFY(!QGuiApplication::overrideCursor());
        boxes.expect([](QDialog *dialog) { QCOMPARE(dialog->windowTitle(), failedTitle); });
        updater.check(CUpdater::EMode::Answer);
        QTRY_COMPARE(finished.count(), 1); // of the second check alone
        QVERIFY(boxes.allGiven());
    }

    void aSecondCheckJoinsTheFirst()
    {
        CAnsweringServer server(http(version("2.06")), CAnsweringServer::Then::Close);
        CUpdater updater("2.06", server.url(), QUrl(), nullptr);
        CDialogAnswers boxes;
        boxes.expect([](QDialog *dialog) { QCOMPARE(dialog->windowTitle(), currentTitle); });
        QSignalSpy finished(&updater, &CUpdater::finished);
        updater.check(CUpdater::EMode::Silent);
        updater.check(CUpdater::EMode::Answer);
        QVERIFY(finished.wait());
        QCOMPARE(server.connections, 1);
        QVERIFY(!QGuiApplication::overrideCursor());
        QVERIFY(boxes.allGiven());
    }

    void goingAwayLeavesNoCursor()
    {
        CAnsweringServer server("HTTP/1.1 200 OK\r\n\r\n", CAnsweringServer::Then::KeepOpen);
        {
            CUpdater updater("2.06", server.url(), QUrl(), nullptr);
            updater.check(CUpdater::EMode::Answer);
            QTRY_COMPARE(server.connections, 1);
        }
        QVERIFY(!QGuiApplication::overrideCursor());
    }
};

QTEST_MAIN(tst_Updater)
#include "tst_updater.moc"
