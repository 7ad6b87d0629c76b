#include "CFindDelegate.h"

#include "CFindPictures.h"
#include "CFindResults.h"
#include "CItemModel.h"
#include "ShownText.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

namespace {
constexpr QSize PictureSize(56, 36);
constexpr int Space = 8;        // pixels, between parts
constexpr int Border = 4;       // the same, around all
constexpr int TextsBefore = 16; // characters of a text that are shown in front of what was found

/// A run of a line in one of two looks.
struct SRun
{
    QString text;
    bool isFound;
};

/// On one line, however the text is made.
QString oneLine(QString text)
{
    text.truncate(ShownText::MaxName);
    return ShownText::name(text.replace(QLatin1Char('\n'), QChar(0x23ce)));
}

/// What was found, with what is around it.
QVector<SRun> runsOf(const QModelIndex &index)
{
    const QString text = index.data(CFindResults::TextRole).toString();
    const int start = index.data(CFindResults::StartRole).toInt();
    const int length = index.data(CFindResults::LengthRole).toInt();
    if (start < 0 || length == 0)
        return {{oneLine(text), false}};
    QString before = text.left(start);
    if (start > TextsBefore)
        before = QChar(0x2026) + text.mid(start - TextsBefore, TextsBefore);
    return {{oneLine(before), false},
            {oneLine(text.mid(start, length)), true},
            {oneLine(text.mid(start + length, ShownText::MaxName)), false}};
}

/// Draws runs one behind the other and gives what is left of the rectangle.
QRect drawRuns(QPainter *painter, QRect rect, const QVector<SRun> &runs, const QFont &font,
               const QColor &colour, const QColor &found)
{
    for (const SRun &each : runs) {
        QFont used = font;
        used.setBold(each.isFound || font.bold());
        const QFontMetrics metrics(used);
        const QString shown = metrics.elidedText(each.text, Qt::ElideRight, rect.width());
        painter->setFont(used);
        painter->setPen(each.isFound ? found : colour);
        painter->drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
        rect.setLeft(rect.left() + metrics.horizontalAdvance(shown));
        if (rect.width() <= 0)
            break;
    }
    return rect;
}
} // namespace

CFindDelegate::CFindDelegate(CFindPictures *pictures, QObject *parent)
    : QStyledItemDelegate(parent), m_pictures(pictures)
{
}

QSize CFindDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &) const
{
    return {PictureSize.width() * 3,
            std::max(PictureSize.height(), 2 * option.fontMetrics.height()) + 2 * Border};
}

QRect CFindDelegate::tickRect(const QStyleOptionViewItem &option)
{
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    const int side = style->pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget);
    return {option.rect.left() + Border, option.rect.center().y() - side / 2, side, side};
}

void CFindDelegate::paintTick(QPainter *painter, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const
{
    QStyleOptionViewItem tick = option;
    tick.rect = tickRect(option);
    tick.state &= ~(QStyle::State_HasFocus | QStyle::State_Enabled | QStyle::State_On |
                    QStyle::State_Off | QStyle::State_Selected);
    if (index.flags().testFlag(Qt::ItemIsUserCheckable))
        tick.state |= QStyle::State_Enabled;
    tick.state |= index.data(Qt::CheckStateRole).toInt() == Qt::Checked ? QStyle::State_On
                                                                        : QStyle::State_Off;
    option.widget->style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &tick, painter,
                                          option.widget);
}

/// As large as on the chip, or smaller; a faint frame while there is none.
void CFindDelegate::paintPicture(QPainter *painter, const QRect &place,
                                 const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    auto *item = index.data(CFindResults::ItemRole).value<CItemModel *>();
    const QPixmap picture =
        m_pictures->picture(item, place.size() * option.widget->devicePixelRatioF());
    if (picture.isNull()) {
        QColor line = option.palette.color(QPalette::Text);
        line.setAlphaF(0.2);
        painter->setPen(line);
        painter->drawRect(place.adjusted(0, 0, -1, -1));
        return;
    }
    QSize size = picture.size();
    if (size.width() > place.width() || size.height() > place.height())
        size.scale(place.size(), Qt::KeepAspectRatio);
    QRect target(QPoint(), size);
    target.moveCenter(place.center());
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawPixmap(target, picture);
}

void CFindDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const
{
    painter->save();
    option.widget->style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter,
                                          option.widget);
    QRect rest = option.rect.adjusted(Border, Border, -Border, -Border);
    if (index.data(Qt::CheckStateRole).isValid()) {
        paintTick(painter, option, index);
        rest.setLeft(tickRect(option).right() + Space);
    }
    QRect place(rest.topLeft(), PictureSize);
    place.moveTop(rest.center().y() - place.height() / 2);
    paintPicture(painter, place, option, index);
    rest.setLeft(place.right() + Space);

    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const QColor text =
        option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const QColor quiet = isSelected ? text : option.palette.color(QPalette::PlaceholderText);
    const QColor found = isSelected ? text : option.palette.color(QPalette::Link);
    const QString key = index.data(CFindResults::KeyRole).toString();
    const QString caption = index.data(CFindResults::CaptionRole).toString();
    const QString after = index.data(CFindResults::AfterRole).toString();
    const QString refusal = index.data(CFindResults::RefusalRole).toString();
    const bool isReplacing = index.data(Qt::CheckStateRole).isValid();
    const bool isName = key == QLatin1String("name");

    QRect upper = rest;
    upper.setBottom(rest.center().y());
    QRect lower = rest;
    lower.setTop(rest.center().y() + 1);
    const QFont &font = option.font;
    const QVector<SRun> name = {{oneLine(index.data(CFindResults::NameRole).toString()), false}};
    const QRect left = drawRuns(painter, upper, isName ? runsOf(index) : name, font, text, found);
    const QRect right = left.adjusted(Space, 0, 0, 0);
    painter->setFont(font);
    painter->setPen(quiet);
    painter->drawText(
        right, Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine,
        option.fontMetrics.elidedText(oneLine(index.data(CFindResults::PageRole).toString()),
                                      Qt::ElideRight, right.width()));

    if (isName && !isReplacing)
        drawRuns(painter, lower, {{index.data(CFindResults::KindRole).toString(), false}}, font,
                 quiet, found);
    if (!isName && !key.isEmpty())
        lower =
            drawRuns(painter, lower, {{caption + QStringLiteral("  "), false}}, font, quiet, found);
    if (!isName) {
        QRect before = lower;
        if (isReplacing) // there is room for both
            before.setWidth(lower.width() / 2);
        lower.setLeft(drawRuns(painter, before, runsOf(index), font, quiet, found).left());
    }
    const QString gap = isName ? QString() : QStringLiteral("  ");
    if (!after.isNull())
        drawRuns(painter, lower,
                 {{gap + QStringLiteral("\u2192  "), false}, {oneLine(after), true}}, font, quiet,
                 text);
    else if (!refusal.isEmpty())
        drawRuns(painter, lower, {{gap + refusal, false}}, font, text, text);
    painter->restore();
}

bool CFindDelegate::editorEvent(QEvent *event, QAbstractItemModel *model,
                                const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const bool isPress =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    const bool isKey = event->type() == QEvent::KeyPress &&
                       static_cast<QKeyEvent *>(event)->key() == Qt::Key_Space;
    const QRect column(option.rect.topLeft(),
                       QPoint(tickRect(option).right() + Space / 2, option.rect.bottom()));
    const bool isOnTick = isPress && column.contains(static_cast<QMouseEvent *>(event)->pos());
    if (isPress)
        m_wasOnTick = isOnTick && index.data(Qt::CheckStateRole).isValid();
    if (!(isKey || isOnTick) || !index.flags().testFlag(Qt::ItemIsUserCheckable))
        return false;
    const bool isTicked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    model->setData(index, isTicked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    return true;
}
