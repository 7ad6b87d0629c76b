#include "CStatusBar.h"

#include <QLabel>
#include <QMainWindow>
#include <QTest>

class tst_StatusBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatWasResetDoesNotComeBack()
    {
        QMainWindow window;
        CStatusBar bar(&window);
        bar.receiveMouseMoveUpdate({-3, 7});
        bar.receiveWidgetCountUpdate(12);
        bar.setMemoryBudget(262144);
        bar.receiveMemoryUsage(1024, 2048);
        const auto labels = bar.bar()->findChildren<QLabel *>();
        QCOMPARE(labels.last()->text(), "of 262144 (1 %)");
        bar.resetStatusBar();
        bar.receiveMouseMoveUpdate({1, 2});
        QVERIFY(labels[0]->text().endsWith("1, 2"));
        for (const QLabel *label : labels.mid(1))
            QCOMPARE(label->text(), QString());
    }

    /// The words of the pointer's place go before a figure does, and neither widens the window.
    void aNarrowWindowKeepsTheFigures()
    {
        constexpr int Grip = 40; // to resize the window with, and gaps
        QMainWindow window;
        CStatusBar bar(&window);
        bar.receiveMouseMoveUpdate({123, 45});
        bar.receiveWidgetCountUpdate(26);
        bar.receiveBitmapCountUpdate(0);
        bar.setMemoryBudget(1048576);
        bar.receiveMemoryUsage(2548, 0);
        const auto labels = bar.bar()->findChildren<QLabel *>();
        window.resize(2000, 200);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const int end = labels.last()->geometry().right();
        window.resize(
            end - labels[0]->sizeHint().width() + labels[0]->minimumSizeHint().width() + Grip, 200);
        QTRY_VERIFY(labels.last()->geometry().right() < end);
        for (const QLabel *label : labels.mid(1))
            QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
        QVERIFY(labels[0]->width() < labels[0]->sizeHint().width());
        QVERIFY(window.minimumSizeHint().width() < 100);
    }

    void theWindowMayGoFirst()
    {
        auto *window = new QMainWindow;
        new CStatusBar(window);
        delete window;
        window = new QMainWindow;
        new CStatusBar(window);
        window->setStatusBar(nullptr); // deletes the inner bar later
        delete window;
    }
};

QTEST_MAIN(tst_StatusBar)
#include "tst_statusbar.moc"
