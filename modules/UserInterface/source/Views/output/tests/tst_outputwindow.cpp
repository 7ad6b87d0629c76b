#include "COutputWindowView.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>

namespace {
const QString now = QStringLiteral("12:34:56");

QStringList linesOf(const COutputWindowView &view)
{
    QStringList lines;
    for (QTextBlock block = view.document()->begin(); block.isValid(); block = block.next())
        lines.append(block.text());
    return lines;
}
} // namespace

class tst_OutputWindow : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void messagesAreOneLineEach()
    {
        COutputWindowView view;
        view.setClock([] { return now; });
        view.writeMessage("Project saved");
        view.writeMessage("Project saved");
        view.writeMessage("<b>first</b>\nsecond");
        QCOMPARE(linesOf(view), (QStringList{"12:34:56  Project saved", "12:34:56  Project saved",
                                             QStringLiteral("12:34:56  <b>first</b>") +
                                                 QChar(QChar::LineSeparator) + "second"}));
        QVERIFY(view.isReadOnly());
        view.writeRenderErrors(QString(100000, 'N'), QString(100000, 'x')); // not laid out as it is
        QVERIFY(linesOf(view).last().size() < 3000);
    }

    void repeatedErrorsAreCounted()
    {
        COutputWindowView view;
        int second = 0;
        view.setClock([&second] { return QString::number(second++); });
        view.writeRenderErrors("Page 1", {});
        view.writeRenderErrors("Page 1", "Kiv_Text_T 3: no font\nKiv_Text_T 4: no font\n");
        view.writeMessage("between");
        view.writeRenderErrors("Page 1", "Kiv_Text_T 3: no font");
        view.writeRenderErrors("Page 2", "Kiv_Text_T 3: no font");
        view.writeRenderErrors("Page 1", "Kiv_Text_T 3: no font");
        QTRY_COMPARE(linesOf(view), (QStringList{"5  Page 1  Kiv_Text_T 3: no font  (3 times)",
                                                 "1  Page 1  Kiv_Text_T 4: no font", "2  between",
                                                 "4  Page 2  Kiv_Text_T 3: no font"}));
    }

    void onlyTheNewestAreKept()
    {
        COutputWindowView view;
        view.setClock([] { return now; });
        for (int n = 0; n < COutputWindowView::MaxMessages + 3; ++n)
            view.writeMessage(QString::number(n));
        const QStringList lines = linesOf(view);
        QCOMPARE(lines.size(), COutputWindowView::MaxMessages);
        QCOMPARE(lines.first(), "12:34:56  3");
        view.writeRenderErrors("Page 1", "broken");
        view.writeRenderErrors("Page 1", "broken"); // the right line, although lines have gone
        QTRY_COMPARE(linesOf(view).last(), "12:34:56  Page 1  broken  (2 times)");
        QString many;
        for (int n = 0; n < 3000; ++n)
            many += QStringLiteral("Kiv_Text_T %1: no font\n").arg(n);
        view.writeRenderErrors("Page 1", many);
        QCOMPARE(linesOf(view).last(), "12:34:56  Page 1  and 2900 more errors");
        QCOMPARE(linesOf(view).at(COutputWindowView::MaxMessages - 102),
                 "12:34:56  Page 1  broken  (2 times)");
    }

    void theEndStaysInView()
    {
        COutputWindowView view;
        view.resize(600, 300);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
        QScrollBar *bar = view.verticalScrollBar();
        for (int n = 0; n < 9; ++n)
            view.writeMessage("Exported");
        view.resize(600, 40); // as low as the dock may be
        view.writeMessage("Exported");
        QTRY_VERIFY(bar->maximum() > 0 && bar->value() == bar->maximum());
        bar->setValue(0); // reads what came before
        view.resize(600, 50);
        view.writeMessage("Exported");
        QCOMPARE(bar->value(), 0);
    }

    void clickOnAnErrorTellsItsItem()
    {
        COutputWindowView view;
        view.resize(600, 300);
        view.writeMessage("Kiv_Text_T 7: this is no render error");
        view.writeRenderErrors("Page 1",
                               "Kiv_Text_T 12 \"A: b\": no font\nthe script ran out of time");
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));

        QSignalSpy activated(&view, &COutputWindowView::itemActivated);
        const auto click = [&view](int line) {
            const QTextCursor cursor(view.document()->findBlockByNumber(line));
            QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                              view.cursorRect(cursor).center() + QPoint(30, 0));
        };
        click(0);
        click(2);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, QPoint(30, 280)); // below the text
        QCOMPARE(activated.count(), 0);
        click(1);
        QCOMPARE(activated.count(), 1);
        QCOMPARE(activated.first().at(0).toString(), "Page 1");
        QCOMPARE(activated.first().at(1).toUInt(), 12u);
    }
};

QTEST_MAIN(tst_OutputWindow)
#include "tst_outputwindow.moc"
