#include "CPictureBox.h"

#include "RomFonts.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cmath>

namespace {
constexpr int Margin = 6; // pixels about text and picture
constexpr int LeastHeight = 26;
constexpr int MostWidth = 420;

/// The text, and the picture behind it at its own size.
class CPictureDelegate : public QStyledItemDelegate
{
public:
    explicit CPictureDelegate(QComboBox *box) : QStyledItemDelegate(box)
    {
        const auto forget = [this] { m_textWidth = -1; };
        connect(box->model(), &QAbstractItemModel::rowsInserted, this, forget);
        connect(box->model(), &QAbstractItemModel::rowsRemoved, this, forget);
        connect(box->model(), &QAbstractItemModel::modelReset, this, forget);
        connect(box->model(), &QAbstractItemModel::dataChanged, this,
                [forget](const QModelIndex &, const QModelIndex &, const QVector<int> &roles) {
                    if (roles.isEmpty() || roles.contains(Qt::DisplayRole))
                        forget();
                });
    }

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        const QSize picture = index.data(CPictureBox::SizeRole).toSize();
        return {
            std::min(MostWidth, textWidth(option, index.model()) + picture.width() + 3 * Margin),
            std::max(LeastHeight, picture.height() + 4)};
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override
    {
        QStyleOptionViewItem row = option;
        initStyleOption(&row, index);
        row.text.clear();
        const QStyle *style = row.widget ? row.widget->style() : QApplication::style();
        style->drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
        const bool isSelected = row.state.testFlag(QStyle::State_Selected);
        const QColor ink =
            row.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
        painter->save();
        painter->setPen(ink);
        const QRect rect = option.rect.adjusted(Margin, 0, -Margin, 0);
        painter->drawText(rect, Qt::AlignVCenter, index.data().toString());
        painter->setClipRect(option.rect);
        const auto coverage = index.data(CPictureBox::PictureRole).value<QImage>();
        if (!coverage.isNull()) {
            QImage picture(coverage.size(), QImage::Format_ARGB32_Premultiplied);
            picture.fill(ink);
            QPainter filler(&picture);
            filler.setCompositionMode(QPainter::CompositionMode_DestinationIn);
            filler.drawImage(0, 0, coverage);
            filler.end();
            painter->drawImage(QPoint(rect.left() + textWidth(option, index.model()) + Margin,
                                      rect.top() + (rect.height() - picture.height()) / 2),
                               picture);
        }
        painter->restore();
    }

private:
    /// Of the widest entry, so that the pictures stand below each other.
    int textWidth(const QStyleOptionViewItem &option, const QAbstractItemModel *model) const
    {
        if (m_textWidth >= 0 && m_font == option.font)
            return m_textWidth;
        int widest = 0;
        for (int row = 0; row < model->rowCount(); ++row)
            widest = std::max(widest, option.fontMetrics.horizontalAdvance(
                                          model->index(row, 0).data().toString()));
        m_font = option.font;
        m_textWidth = std::min(widest, MostWidth / 2);
        return m_textWidth;
    }

    mutable QFont m_font;
    mutable int m_textWidth = -1; ///< not known
};
} // namespace

CPictureBox::CPictureBox(const CProjectModel *project, QWidget *parent)
    : QComboBox(parent), m_sheet(project)
{
    setMaxVisibleItems(14);
    setItemDelegate(new CPictureDelegate(this));
    connect(&m_sheet, &CSampleSheet::drawn, this, [this](int index, const QImage &coverage) {
        setItemData(index, coverage, PictureRole);
    });
}

void CPictureBox::setSample(int index, const CSampleSheet::SSample &sample)
{
    if (m_samples.size() <= index)
        m_samples.resize(index + 1);
    m_samples[index] = sample;
    m_isAsked = false;
    setItemData(index, sample.size, SizeRole);
}

void CPictureBox::showPopup()
{
    if (!m_isAsked)
        m_sheet.ask(m_samples);
    m_isAsked = true;
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + 24); // and the scroll bar
    QComboBox::showPopup();
}

QVector<FontEntries::SEntry> FontEntries::of(const CProjectModel &project)
{
    const QString sample = QStringLiteral("Ag 123");
    QVector<SEntry> entries;
    for (const SProjectFont &each : project.fonts()) {
        const int size = static_cast<int>(std::ceil(each.size));
        const QString text = QCoreApplication::translate("FontEntries", "%1 · %2 px · %3")
                                 .arg(each.handle)
                                 .arg(each.size)
                                 .arg(each.name);
        entries.append({each.handle, text, {sample, each.handle, {size * 5, size * 3 / 2}}});
    }
    for (int font = romfonts::FirstFont; font <= romfonts::LastFont; ++font) {
        const int width = romfonts::textWidth16(font, sample.toStdString()) / 16 + 2;
        const int height = romfonts::height(font);
        const QString text =
            QCoreApplication::translate("FontEntries", "%1 · %2 px").arg(font).arg(height);
        entries.append({font, text, {sample, font, {width, height}}});
    }
    return entries;
}

QString FontEntries::textOf(const QVector<SEntry> &entries, int handle)
{
    for (const SEntry &each : entries) {
        if (each.handle == handle)
            return each.text;
    }
    return QString::number(handle);
}
