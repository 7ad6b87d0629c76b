// Hundreds of random gestures with real events, each from a state in which nothing is selected, on
// items that are small, turned, locked, grouped and covered. What is under the pointer is worked
// out here from the model; canvas, model and undo stack are held to it. KIV_SEED chooses others.
#include "CItemDocument.h"
#include "CanvasFixture.h"
#include "CanvasRoles.h"
#include "ItemOperations.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QSignalSpy>
#include <QTimer>

#include <random>

namespace {
constexpr int Layouts = 30;
constexpr int GesturesOfLayout = 20;
const QStringList Places = {PropertyKey::X, PropertyKey::X2, PropertyKey::Y, PropertyKey::Y2};

enum Kind { Drag, ControlDrag, ShiftDrag, AltDrag, SecondPress, HandleDrag, Escaped, Disturbed };
const char *const KindNames[] = {"drag",         "Ctrl drag",   "Shift drag",    "Alt drag",
                                 "second press", "handle drag", "drag, escaped", "drag, disturbed"};

struct Facts
{
    QString others; ///< all but the places
    QHash<QString, double> places;
};
using Snapshot = QHash<const CItemModel *, Facts>;

void take(const CItemModel &parent, Snapshot &snapshot)
{
    for (int row = 0; row < parent.rowCount(); ++row) {
        const CItemModel *item = parent.childItem(row);
        Facts &facts = snapshot[item];
        for (const CWidgetProperty *each : CItemDocument::of(*item).saved(*item)) {
            if (Places.contains(each->key()))
                facts.places.insert(each->key(), each->text().toDouble());
            else
                facts.others += each->key() + '=' + each->text() + ' ';
        }
        take(*item, snapshot);
    }
}

bool isOf(const CItemModel *item, const CItemModel *holder)
{
    while (item && item != holder)
        item = item->parentItem();
    return item;
}

bool movesWith(const CItemModel *item, const CItemModel *moved)
{
    while (item && item != moved && !item->isLocked())
        item = item->parentItem();
    return item && item == moved && !moved->isLocked();
}

double distance(const QPointF &p, const QPointF &a, const QPointF &b)
{
    const QPointF ab = b - a;
    const double square = QPointF::dotProduct(ab, ab);
    const double along = square > 0 ? QPointF::dotProduct(p - a, ab) / square : 0;
    return QLineF(p, a + ab * qBound(0.0, along, 1.0)).length();
}

/// By how much a point lies inside of an item; negative outside. Ends of lines may reach further.
double depth(const Canvas &canvas, const CItemModel &item, const QPointF &at)
{
    double most = -1e9;
    for (int row = 0; row < item.rowCount(); ++row)
        most = std::max(most, depth(canvas, *item.childItem(row), at));
    if (item.kind() == CItemModel::Kind::Group)
        return most;
    const QPointF place(item.x(), item.y());
    if (item.geometryMode() == GeometryMode::TwoCorners || item.hasPointList()) {
        QPolygonF points(QVector<QPointF>{place, QPointF(item.x2(), item.y2())});
        if (item.hasPointList()) {
            points.clear();
            for (const QString &each : item.propertyText(PropertyKey::PointList).split(';'))
                points << place + QPointF(each.section(',', 0, 0).toInt(),
                                          each.section(',', 1, 1).toInt());
        }
        const bool isArea = item.itemTypeName() == "Kiv_Polygon_T";
        const double reach = std::max(8.0, item.propertyValue("thickness").toDouble()) / 2;
        for (int index = isArea ? 0 : 1; index < points.size(); ++index) {
            const QPointF &from = points.at(index ? index - 1 : points.size() - 1);
            most = std::max(most, reach - distance(at, from, points.at(index)));
        }
        const bool atEnd = std::min(QLineF(at, points.first()).length(),
                                    QLineF(at, points.last()).length()) < 1.5 * reach;
        return isArea && points.containsPoint(at, Qt::OddEvenFill) ? reach
               : most < 0 && atEnd && !isArea                      ? 0 // their shape is free
                                                                   : most;
    }
    // The unturned frame; texts know their size from their font only. Thin ones are widened.
    const QRectF frame = item.itemTypeName() == "Kiv_Rectangle_T"
                             ? rectOf(&item)
                             : canvas.viewOf(&item)->sceneRect();
    QTransform back;
    back.rotate(item.hasAngle() ? -item.angle() : 0);
    const QPointF own = back.map(at - frame.center());
    const auto half = [](double side) { return side < 8 ? side / 2 + 4 : side / 2; };
    return std::min(half(frame.width()) - std::abs(own.x()),
                    half(frame.height()) - std::abs(own.y()));
}
} // namespace

class tst_RandomGestures : public QObject
{
    Q_OBJECT

private:
    int upTo(int most) { return int(m_random() % unsigned(most + 1)); }
    bool oneOf(int many) { return upTo(many - 1) == 0; }
    CItemModel *makeItem(Canvas &canvas);
    void build(Canvas &canvas);
    QPointF gripOn(const Canvas &canvas, const CItemModel &item);
    bool gesture(Canvas &canvas);
    void disturb(const Canvas &canvas, const QPointF &at);
    void checkAgreement(const Canvas &canvas) const;

    std::mt19937 m_random;
    QStringList m_log;

private Q_SLOTS:
    void initTestCase() { loadWidgetLibrary(); }
    void init() { resetEditorState(); }
    void fromNothingSelected();
};

CItemModel *tst_RandomGestures::makeItem(Canvas &canvas)
{
    static const QStringList types = {"Kiv_Rectangle_T", "Kiv_Rectangle_T", "Kiv_Circle_T",
                                      "Kiv_Line_T",      "Kiv_Toggle_T",    "Kiv_Text_T",
                                      "Kiv_Polyline_T",  "Kiv_Polygon_T"};
    const bool isSmall = oneOf(2);
    const auto side = [&] { return isSmall ? 1 + upTo(9) : 20 + upTo(80); };
    const int x = upTo(500) - 10; // over the edges of the page as well
    const int y = upTo(290) - 10;
    const QHash<QString, QVariant> all{
        {PropertyKey::X, x},
        {PropertyKey::Y, y},
        {PropertyKey::Width, side()},
        {PropertyKey::Height, side()},
        {PropertyKey::Angle, oneOf(2) ? 0 : upTo(359)},
        {PropertyKey::PointSize, 16 * side()},
        {PropertyKey::X2, oneOf(3) ? x : x + side() - 30},
        {PropertyKey::Y2, oneOf(3) ? y : y + side() - 30},
        {PropertyKey::PointList,
         QString("0,0;%1,%2;%3,%4").arg(side()).arg(side()).arg(-side()).arg(side())}};
    CItemModel *item = appendWidget(canvas.screen, types.at(upTo(types.size() - 1)), {});
    for (auto each = all.begin(); each != all.end(); ++each) {
        const bool isDerived =
            item->geometryMode() != GeometryMode::Box &&
            (each.key() == PropertyKey::Width || each.key() == PropertyKey::Height);
        if (item->hasProperty(each.key()) && !isDerived)
            item->setProperty(each.key(), each.value());
    }
    item->setLocked(oneOf(6));
    return item;
}

void tst_RandomGestures::build(Canvas &canvas)
{
    const auto group = [&](const QVector<CItemModel *> &items) {
        const QPoint corner(int(items.first()->x()), int(items.first()->y()));
        CItemModel *made = ItemOperations::group(*canvas.screen, items, corner);
        made->setLocked(oneOf(6));
        return made;
    };
    for (int count = 0; count < 14; ++count) {
        CItemModel *item = makeItem(canvas);
        if (!oneOf(3))
            continue;
        QVector<CItemModel *> members{item, makeItem(canvas), makeItem(canvas)};
        if (oneOf(3))
            members = {group(members), makeItem(canvas)};
        group(members);
    }
    canvas.stack.clear();
}

/// Mostly where its handles will be.
QPointF tst_RandomGestures::gripOn(const Canvas &canvas, const CItemModel &item)
{
    if (item.rowCount() > 0 && !oneOf(4))
        return gripOn(canvas, *item.childItem(upTo(item.rowCount() - 1)));
    const QRectF frame = canvas.viewOf(&item)->sceneRect();
    const auto along = [this] { return oneOf(4) ? upTo(100) / 100.0 - 0.5 : (upTo(2) - 1) / 2.0; };
    QTransform turn;
    turn.rotate(item.hasAngle() ? item.angle() : 0);
    return frame.center() + turn.map(QPointF(frame.width() * along(), frame.height() * along())) +
           QPointF(upTo(6) - 3, upTo(6) - 3);
}

/// What a hand may do besides while it drags; nothing of it reaches the items.
void tst_RandomGestures::disturb(const Canvas &canvas, const QPointF &at)
{
    bool anyMenu = false;
    QTimer::singleShot(0, this, [&anyMenu] {
        QWidget *menu = QApplication::activePopupWidget();
        anyMenu = menu && menu->close();
    });
    canvas.mouse(QEvent::MouseButtonPress, at, Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    const QPoint place = canvas.at(at);
    QContextMenuEvent asked(QContextMenuEvent::Mouse, place,
                            canvas.view->viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(canvas.view->viewport(), &asked);
    QCoreApplication::processEvents();
    QVERIFY(!anyMenu);
    for (const auto key : {Qt::Key_Z, Qt::Key_X, Qt::Key_Delete}) {
        QKeyEvent shortcut(QEvent::ShortcutOverride, key, Qt::ControlModifier);
        shortcut.ignore();
        QCoreApplication::sendEvent(canvas.view.get(), &shortcut);
        QVERIFY(shortcut.isAccepted()); // else the window's action would have it
    }
    QTest::keyClick(canvas.view.get(), Qt::Key_Left);
    QTest::keyClick(canvas.view.get(), Qt::Key_Tab);
    canvas.mouse(QEvent::MouseButtonRelease, at, Qt::RightButton, Qt::LeftButton);
}

void tst_RandomGestures::checkAgreement(const Canvas &canvas) const
{
    for (const CItemView *view : canvas.view->screenScene()->itemViews()) {
        const CItemModel *item = view->item();
        QCOMPARE(view->pos(), QPointF(item->x(), item->y()));
        QCOMPARE(view->shownAngle(), item->hasAngle() ? item->angle() : 0);
        if (item->itemTypeName() == "Kiv_Rectangle_T")
            QCOMPARE(view->sceneRect(), rectOf(item));
        for (int row = 0; row < item->rowCount(); ++row) {
            const QRectF member = canvas.viewOf(item->childItem(row))->sceneRect();
            QVERIFY(member.isEmpty() || view->sceneRect().contains(member));
        }
    }
    QVERIFY(!canvas.view->isGestureActive() && !canvas.view->screenScene()->mouseGrabberItem());
}

/// Whether one was made: not where it is too close to say what the press meets.
bool tst_RandomGestures::gesture(Canvas &canvas)
{
    const CScreenScene *scene = canvas.view->screenScene();
    while (canvas.view->commands()->leaveGroup())
        ;
    canvas.view->commands()->selectNone();
    const Kind kind = Kind(upTo(Disturbed));
    const bool snaps = oneOf(2);
    CEditorState::instance()->setSnapToGrid(snaps);
    canvas.view->zoom(QVector<int>{50, 100, 200, 800, 1600}.at(upTo(4)), 0);
    QPointF from = gripOn(canvas, *canvas.screen->childItem(upTo(canvas.screen->rowCount() - 1)));
    canvas.view->centerOn(from);
    const auto distanceTo = [this] { return (oneOf(2) ? 1 : -1) * (4 + upTo(90)); };
    const QPoint pixels(distanceTo(), distanceTo());
    if (!canvas.view->viewport()->rect().contains(canvas.at(from)))
        return false; // too far off the page
    from = canvas.view->mapToScene(canvas.at(from));
    CItemModel *pressed = nullptr;
    for (int row = 0; row < canvas.screen->rowCount() && !pressed; ++row) {
        const double inside = depth(canvas, *canvas.screen->childItem(row), from);
        if (std::abs(inside) < 0.75 + 1 / canvas.view->scale())
            return false;
        pressed = inside > 0 ? canvas.screen->childItem(row) : nullptr;
    }
    const QVector<CItemModel *> expected =
        pressed ? QVector<CItemModel *>{pressed} : QVector<CItemModel *>();
    m_log << QString::asprintf("%s at %d %%, snap %d, from %g, %g, %d by %d pixels, meets row %d",
                               KindNames[kind], canvas.view->zoomPercent(), int(snaps), from.x(),
                               from.y(), pixels.x(), pixels.y(), pressed ? pressed->row() : -1);

    bool onHandle = false;
    if (kind == SecondPress || kind == HandleDrag) {
        canvas.click(from);
        [&] { QCOMPARE(canvas.view->selectedItems(), expected); }();
        const QPointF middle = pressed ? canvas.viewOf(pressed)->sceneRect().center() : from;
        const bool isFree = !scene->handleAt(middle, canvas.view->viewportTransform());
        [&] { QVERIFY(isFree || pressed->hasPointList()); }(); // also the smallest can be taken
        QVector<QGraphicsItem *> handles;
        for (QGraphicsItem *each :
             pressed ? canvas.viewOf(pressed)->handles() : QVector<QGraphicsItem *>()) {
            if (each->isVisible())
                handles.append(each);
        }
        if (kind == HandleDrag && !handles.isEmpty()) {
            const QGraphicsItem *handle = handles.at(upTo(handles.size() - 1));
            const QPointF centre = handle->shape().boundingRect().center();
            from = canvas.view->mapToScene(
                handle->deviceTransform(canvas.view->viewportTransform()).map(centre).toPoint());
        }
        onHandle = scene->handleAt(from, canvas.view->viewportTransform());
        [&] { QVERIFY(onHandle || kind == SecondPress || handles.isEmpty()); }();
    }
    const QPointF to = canvas.view->mapToScene(canvas.at(from) + pixels);
    const auto modifiers = kind == ControlDrag ? Qt::ControlModifier
                           : kind == ShiftDrag ? Qt::ShiftModifier
                           : kind == AltDrag   ? Qt::AltModifier
                                               : Qt::NoModifier;
    Snapshot start;
    take(*canvas.screen, start);
    const QByteArray before = savedBytes(*canvas.project);
    QSignalSpy redrawn(scene, &CScreenScene::contentChanged);
    canvas.mouse(kind == SecondPress ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress, from,
                 Qt::LeftButton, Qt::LeftButton, modifiers);
    for (int step = 1; step <= 3; ++step) {
        canvas.move(from + (to - from) * step / 3, modifiers);
        if (kind == Disturbed)
            disturb(canvas, from + (to - from) * step / 3);
    }
    if (kind == Escaped)
        QTest::keyClick(canvas.view.get(), Qt::Key_Escape);
    canvas.release(to, modifiers);

    [&] {
        Snapshot end;
        take(*canvas.screen, end);
        const bool changed = savedBytes(*canvas.project) != before;
        const bool mayMove = pressed && !pressed->isLocked() && kind != ShiftDrag &&
                             kind != AltDrag && kind != Escaped;
        QPointF by;
        if (mayMove && !onHandle) {
            const auto moved = [&](const QString &key) {
                return end[pressed].places[key] - start[pressed].places[key];
            };
            by = {moved(PropertyKey::X), moved(PropertyKey::Y)};
            const QPointF off = by - (to - from);
            const double most = snaps ? CEditorState::instance()->gridSpacing() / 2 + 0.5 : 0.5;
            QVERIFY(std::abs(off.x()) <= most && std::abs(off.y()) <= most);
        }
        for (auto each = start.cbegin(); each != start.cend(); ++each) {
            if (onHandle && isOf(each.key(), pressed)) // a group is scaled with what is in it
                continue;
            QCOMPARE(end[each.key()].others, each->others);
            for (const QString &key : each->places.keys()) {
                const double along =
                    key == PropertyKey::X || key == PropertyKey::X2 ? by.x() : by.y();
                QCOMPARE(end[each.key()].places[key],
                         each->places[key] + (movesWith(each.key(), pressed) ? along : 0));
            }
        }
        const bool isBand =
            pressed && pressed->isLocked() && kind != ControlDrag && kind != AltDrag;
        const bool isCopied = kind == AltDrag && pressed && changed;
        if (kind == AltDrag && pressed)
            QVERIFY(changed || snaps || canvas.view->scale() > 8); // or less than a pixel
        if (isCopied)
            QCOMPARE(canvas.view->selectedItems(),
                     QVector<CItemModel *>({canvas.screen->childItem(0)}));
        else if (pressed && kind != Escaped && kind != ShiftDrag && kind != AltDrag && !isBand)
            QCOMPARE(canvas.view->selectedItems(), expected);
        QVERIFY(!changed || ((mayMove || isCopied) && !redrawn.isEmpty()));
        QCOMPARE(canvas.stack.count(), changed ? 1 : 0);
        checkAgreement(canvas);
        if (!changed)
            return;
        canvas.checkOneStep(before);
        checkAgreement(canvas);
        canvas.stack.undo();
        checkAgreement(canvas);
        if (oneOf(2))
            canvas.stack.redo();
        canvas.stack.clear();
    }();
    return true;
}

void tst_RandomGestures::fromNothingSelected()
{
    const int seed =
        qEnvironmentVariableIsSet("KIV_SEED") ? qEnvironmentVariableIntValue("KIV_SEED") : 20;
    m_random.seed(unsigned(seed));
    for (int layout = 0; layout < Layouts; ++layout) {
        Canvas canvas;
        m_log = QStringList{QString("seed %1, layout %2").arg(seed).arg(layout)};
        build(canvas);
        canvas.show();
        for (int count = 0; count < GesturesOfLayout;) {
            count += gesture(canvas) ? 1 : 0;
            if (QTest::currentTestFailed()) {
                qWarning("%s\n%s", qPrintable(m_log.join('\n')),
                         savedBytes(*canvas.project).constData());
                return;
            }
        }
    }
}

QTEST_MAIN(tst_RandomGestures)
#include "tst_randomgestures.moc"
