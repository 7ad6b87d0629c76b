#include "CGridComboWidget.h"
#include "CZoomComboWidget.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QInputDialog>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <functional>

Q_DECLARE_METATYPE(std::function<void(CZoomComboWidget &)>)

namespace {

using Step = std::function<void(CZoomComboWidget &)>;

/// Answers the next modal dialog of type D.
template<class D>
void answerDialog(QWidget *parent, const std::function<void(D &)> &answer)
{
    auto *timer = new QTimer(parent);
    QObject::connect(timer, &QTimer::timeout, parent, [timer, answer] {
        if (auto *dialog = qobject_cast<D *>(QApplication::activeModalWidget())) {
            timer->deleteLater();
            timer->stop();
            answer(*dialog);
        }
    });
    timer->start(1);
}

} // namespace

class tst_ZoomGridControls : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qRegisterMetaType<Qt::PenStyle>(); }

    void zoomSteps_data()
    {
        QTest::addColumn<Step>("prepare");
        QTest::addColumn<Step>("step");
        QTest::addColumn<int>("signalCount");
        QTest::addColumn<int>("percent");
        QTest::addColumn<int>("type");
        const Step none = [](CZoomComboWidget &) {};
        const Step page = [](CZoomComboWidget &w) { w.zoomFitToPage(); };
        const Step page150 = [](CZoomComboWidget &w) { w.setZoom(150, 1); };
        const Step combo2 = [](CZoomComboWidget &w) {
            w.findChild<QComboBox *>()->setCurrentIndex(2);
        };
        const Step spin20 = [](CZoomComboWidget &w) { w.findChild<QSpinBox *>()->setValue(20); };

        const auto row = [](const char *name, const Step &prepare, int signalCount, int percent,
                            int type, const Step &step) {
            QTest::newRow(name) << prepare << step << signalCount << percent << type;
        };
        using W = CZoomComboWidget;
        row("setZoom of what holds is announced", none, 1, 100, 0, [](W &w) { w.setZoom(100, 0); });
        row("valueChanged of what holds is not", none, 0, 100, 0,
            [](W &w) { w.valueChanged(100); });
        row("reset of a fit at 100 percent is not", page, 0, 100, 0, [](W &w) { w.resetZoom(); });
        row("reset from another percentage", page150, 1, 100, 0, [](W &w) { w.resetZoom(); });
        row("fit to page", none, 1, 100, 1, page);
        row("fit to page a second time is not", page, 0, 100, 1, page);
        row("fit to width after page", page, 1, 100, 2, [](W &w) { w.zoomFitToWidth(); });
        row("a typed value under the range is the lower end", none, 1, 50, 0, spin20);
        row("a fitted value under the range is kept", page, 1, 20, 1,
            [](W &w) { w.valueChanged(20); });
        row("the combo box changes the type", none, 1, 100, 2, combo2);
    }

    void zoomSteps()
    {
        QFETCH(Step, prepare);
        QFETCH(Step, step);
        QFETCH(int, signalCount);
        CZoomComboWidget widget;
        prepare(widget);
        QSignalSpy spy(&widget, &CZoomComboWidget::zoomChanged);
        step(widget);
        QCOMPARE(spy.count(), signalCount);
        QTEST(widget.zoomPercent(), "percent");
        QTEST(widget.zoomType(), "type");
        if (signalCount > 0) {
            QTEST(spy.last().at(0).toInt(), "percent");
            QTEST(spy.last().at(1).toInt(), "type");
        }
        QCOMPARE(widget.findChild<QComboBox *>()->currentIndex(), widget.zoomType());
        QCOMPARE(widget.findChild<QSpinBox *>()->isEnabled(), widget.zoomType() == 0);
        QCOMPARE(widget.findChild<QSlider *>()->isEnabled(), widget.zoomType() == 0);
    }

    void gridSettings()
    {
        CGridComboWidget widget;
        QSignalSpy spy(&widget, &CGridComboWidget::gridChanged);
        widget.setGrid(true, 35, Qt::green, Qt::DotLine);
        QCOMPARE(spy.count(), 1);
        const QList<QVariant> state = spy.first();
        QCOMPARE(state.at(1).toInt(), 35);
        QCOMPARE(state.at(2).value<QColor>(), QColor(Qt::green));
        QCOMPARE(state.at(3).value<Qt::PenStyle>(), Qt::DotLine);
        QCOMPARE(widget.findChild<QComboBox *>()->currentIndex(), 2);
        QCOMPARE(widget.findChild<QSpinBox *>()->value(), 35);
        QCOMPARE(widget.findChild<QSlider *>()->value(), 35);
        widget.findChild<QSlider *>()->setValue(40);
        QCOMPARE(widget.findChild<QSpinBox *>()->value(), 40);
        QCOMPARE(spy.count(), 2);
    }

    void gridColourDialog()
    {
        CGridComboWidget widget;
        QSignalSpy spy(&widget, &CGridComboWidget::gridChanged);
        answerDialog<QColorDialog>(&widget, [](QColorDialog &dialog) { dialog.reject(); });
        widget.chooseColor();
        QCOMPARE(spy.count(), 0);
        answerDialog<QColorDialog>(&widget, [](QColorDialog &dialog) {
            dialog.setCurrentColor(Qt::cyan);
            dialog.accept();
        });
        widget.chooseColor();
        QCOMPARE(spy.count(), 1);
        QCOMPARE(widget.gridColor(), QColor(Qt::cyan));
    }
};

QTEST_MAIN(tst_ZoomGridControls)
#include "tst_zoomgridcontrols.moc"
