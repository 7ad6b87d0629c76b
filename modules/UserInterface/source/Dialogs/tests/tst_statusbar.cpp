#include "CStatusBar.h"

#include <QLabel>
#include <QMainWindow>
#include <QTest>
#include <QTranslator>

/// Says the same for everything.
class COtherLanguage : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *, const char *, const char *, int) const override { return "@"; }
};

class tst_StatusBar : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsOfAllFields();
    void theWindowMayGoFirst();
};

void tst_StatusBar::textsOfAllFields()
{
    QMainWindow window;
    CStatusBar bar(&window);
    QCOMPARE(window.statusBar(), bar.bar());
    const auto labels = bar.bar()->findChildren<QLabel *>();
    const auto texts = [&labels] {
        QStringList all;
        for (const QLabel *label : labels)
            all.append(label->text());
        return all;
    };
    QCOMPARE(texts(), (QStringList{"", "", "", "", ""}));
    bar.receiveMouseMoveUpdate({-3, 7});
    bar.receiveWidgetCountUpdate(12);
    bar.receiveBitmapCountUpdate(0);
    bar.setMemoryBudget(262144);
    bar.receiveMemoryUsage(1024, 2048);
    QCOMPARE(texts(), (QStringList{"Cursor position: -3, 7", "12 widgets", "0 bitmaps",
                                   "1024 bytes RAM_DL used,2048 bytes RAM_G used",
                                   "of 262144 (1 %)"}));
    {
        COtherLanguage other;
        QCoreApplication::installTranslator(&other);
        QCoreApplication::sendPostedEvents();
        QCOMPARE(texts(), (QStringList{"@-3, 7", "12@", "0@", "1024@2048@", "@"}));
    }
    QCoreApplication::sendPostedEvents();
    bar.resetStatusBar();
    QCOMPARE(texts(), (QStringList{"", "", "", "", ""}));
    bar.receiveMouseMoveUpdate({1, 2}); // the count that was reset does not come back
    QCOMPARE(texts(), (QStringList{"Cursor position: 1, 2", "", "", "", ""}));
}

void tst_StatusBar::theWindowMayGoFirst()
{
    auto *window = new QMainWindow;
    new CStatusBar(window);
    delete window;
    window = new QMainWindow;
    new CStatusBar(window);
    window->setStatusBar(nullptr); // deletes the inner bar later
    delete window;
}

QTEST_MAIN(tst_StatusBar)
#include "tst_statusbar.moc"
