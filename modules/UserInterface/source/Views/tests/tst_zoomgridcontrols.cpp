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
    void zoomSteps_data();
    void zoomSteps();
    void zoomControlsStayInStep();
    void gridSettings();
    void gridToggleDisablesTheControls();
    void gridTypeDialog_data();
    void gridTypeDialog();
    void gridColourDialog();
};

void tst_ZoomGridControls::zoomSteps_data()
{
    QTest::addColumn<Step>("prepare");
    QTest::addColumn<Step>("step");
    QTest::addColumn<int>("signalCount");
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("type");
    const Step none = [](CZoomComboWidget &) {};
    const Step page = [](CZoomComboWidget &w) { w.zoomFitToPage(); };
    const Step page150 = [](CZoomComboWidget &w) { w.setZoom(150, 1); };
    const Step spin20 = [](CZoomComboWidget &w) { w.findChild<QSpinBox *>()->setValue(20); };

    QTest::newRow("setZoom of what holds is announced")
        << none << Step([](CZoomComboWidget &w) { w.setZoom(100, 0); }) << 1 << 100 << 0;
    QTest::newRow("valueChanged of what holds is not")
        << none << Step([](CZoomComboWidget &w) { w.valueChanged(100); }) << 0 << 100 << 0;
    QTest::newRow("reset at 100 percent leaves the fit unannounced")
        << page << Step([](CZoomComboWidget &w) { w.resetZoom(); }) << 0 << 100 << 0;
    QTest::newRow("reset from another percentage")
        << page150 << Step([](CZoomComboWidget &w) { w.resetZoom(); }) << 1 << 100 << 0;
    QTest::newRow("fit to page twice is announced once")
        << none << Step([&page](CZoomComboWidget &w) { w.zoomFitToPage(), w.zoomFitToPage(); }) << 1
        << 100 << 1;
    QTest::newRow("fit to width after page")
        << page << Step([](CZoomComboWidget &w) { w.zoomFitToWidth(); }) << 1 << 100 << 2;
    QTest::newRow("a typed value under the range is the lower end")
        << none << spin20 << 1 << 50 << 0;
    QTest::newRow("a fitted value under the range is kept")
        << page << Step([](CZoomComboWidget &w) { w.valueChanged(20); }) << 1 << 20 << 1;
    QTest::newRow("the combo box changes the type")
        << none << Step([](CZoomComboWidget &w) { w.findChild<QComboBox *>()->setCurrentIndex(2); })
        << 1 << 100 << 2;
}

void tst_ZoomGridControls::zoomSteps()
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

void tst_ZoomGridControls::zoomControlsStayInStep()
{
    CZoomComboWidget widget;
    QSignalSpy spy(&widget, &CZoomComboWidget::zoomChanged);
    widget.findChild<QSpinBox *>()->setValue(220);
    QCOMPARE(widget.findChild<QSlider *>()->value(), 220);
    widget.findChild<QSlider *>()->setValue(75);
    QCOMPARE(widget.findChild<QSpinBox *>()->value(), 75);
    QCOMPARE(spy.count(), 2); // no echo between the two
}

void tst_ZoomGridControls::gridSettings()
{
    CGridComboWidget widget;
    QSignalSpy spy(&widget, &CGridComboWidget::gridChanged);
    widget.setGrid(true, 35, Qt::green, Qt::DotLine);
    QCOMPARE(spy.count(), 1);
    const QList<QVariant> state = spy.first();
    QCOMPARE(state.at(0).toBool(), true);
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

void tst_ZoomGridControls::gridToggleDisablesTheControls()
{
    CGridComboWidget widget;
    QSignalSpy spy(&widget, &CGridComboWidget::gridChanged);
    for (const bool on : {false, true}) {
        widget.toggleGrid();
        QCOMPARE(spy.takeFirst().at(0).toBool(), on);
        QCOMPARE(widget.findChild<QCheckBox *>()->isChecked(), on);
        QCOMPARE(widget.findChild<QComboBox *>()->isEnabled(), on);
        QCOMPARE(widget.findChild<QSpinBox *>()->isEnabled(), on);
        QCOMPARE(widget.findChild<QSlider *>()->isEnabled(), on);
    }
}

void tst_ZoomGridControls::gridTypeDialog_data()
{
    QTest::addColumn<bool>("accept");
    QTest::addColumn<int>("style");
    QTest::newRow("dots") << true << int(Qt::DotLine);
    QTest::newRow("cancelled") << false << int(Qt::SolidLine);
}

void tst_ZoomGridControls::gridTypeDialog()
{
    QFETCH(bool, accept);
    CGridComboWidget widget;
    QSignalSpy spy(&widget, &CGridComboWidget::gridChanged);
    answerDialog<QInputDialog>(&widget, [accept](QInputDialog &dialog) {
        QCOMPARE(dialog.comboBoxItems(), QStringList({"Line", "Dashes", "Dots"}));
        dialog.setTextValue(QStringLiteral("Dots"));
        accept ? dialog.accept() : dialog.reject();
    });
    widget.chooseType();
    QCOMPARE(spy.count(), 1); // announced in both cases
    QTEST(int(spy.first().at(3).value<Qt::PenStyle>()), "style");
}

void tst_ZoomGridControls::gridColourDialog()
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

QTEST_MAIN(tst_ZoomGridControls)
#include "tst_zoomgridcontrols.moc"
