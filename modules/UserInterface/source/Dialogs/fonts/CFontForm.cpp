#include "CFontForm.h"

#include "CElidedLabel.h"
#include "CThemeIcons.h"
#include "ShownText.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScopedValueRollback>
#include <QSpinBox>
#include <QToolButton>

#include <algorithm>

namespace {
constexpr int FallbackRows = 3;
constexpr int RowPadding = 10; // pixels, of a row with a check box
constexpr int LongestName = 80;
constexpr int LongestExtra = 2000;

QString text(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}
} // namespace

CFontForm::CFontForm(QWidget *parent)
    : QWidget(parent),
      m_form(new QFormLayout(this)),
      m_name(new QLineEdit(this)),
      m_handle(new QSpinBox(this)),
      m_file(new CElidedLabel(Qt::ElideMiddle, this)),
      m_chooseFile(new QToolButton(this)),
      m_size(new QDoubleSpinBox(this)),
      m_bits(new QComboBox(this)),
      m_fallback(new QListWidget(this)),
      m_extra(new QLineEdit(this)),
      m_licence(new CElidedLabel(Qt::ElideRight, this)),
      m_embedding(new QLabel(this)),
      m_axes(new QWidget(this))
{
    m_name->setObjectName(QStringLiteral("fontName"));
    m_handle->setObjectName(QStringLiteral("fontHandle"));
    m_chooseFile->setObjectName(QStringLiteral("chooseFontFile"));
    m_size->setObjectName(QStringLiteral("fontSize"));
    m_bits->setObjectName(QStringLiteral("fontBits"));
    m_fallback->setObjectName(QStringLiteral("fontFallback"));
    m_extra->setObjectName(QStringLiteral("fontExtra"));
    m_licence->setObjectName(QStringLiteral("fontLicence"));
    m_embedding->setObjectName(QStringLiteral("fontEmbedding"));
    m_name->setMaxLength(LongestName);
    m_extra->setMaxLength(LongestExtra);
    m_handle->setRange(0, SProjectFont::HandleCount - 1);
    m_size->setRange(SProjectFont::SmallestSize, SProjectFont::LargestSize);
    m_size->setDecimals(1);
    m_size->setSuffix(tr(" px"));
    m_bits->addItem(tr("8 bit, 256 levels"), 8);
    m_bits->addItem(tr("4 bit, 16 levels"), 4);
    m_bits->addItem(tr("2 bit, 4 levels"), 2);
    m_bits->addItem(tr("1 bit, none"), 1);
    for (CElidedLabel *each : {m_file, m_licence})
        each->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // long ones are cut
    m_embedding->setTextFormat(Qt::PlainText);
    m_embedding->setWordWrap(true);
    layOut();

    connect(m_chooseFile, &QToolButton::clicked, this, &CFontForm::fileWanted);
    connect(m_name, &QLineEdit::textEdited, this, &CFontForm::take);
    connect(m_extra, &QLineEdit::textEdited, this, &CFontForm::take);
    connect(m_handle, QOverload<int>::of(&QSpinBox::valueChanged), this, &CFontForm::take);
    connect(m_size, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, &CFontForm::take);
    connect(m_bits, QOverload<int>::of(&QComboBox::activated), this, &CFontForm::take);
    connect(m_fallback, &QListWidget::itemChanged, this, &CFontForm::take);
    // A drag moves a row, or puts it in anew and takes the old one away.
    connect(m_fallback->model(), &QAbstractItemModel::rowsMoved, this, &CFontForm::take);
    connect(m_fallback->model(), &QAbstractItemModel::rowsRemoved, this, &CFontForm::take);
}

void CFontForm::layOut()
{
    m_form->setContentsMargins(0, 0, 0, 0);
    m_form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_form->setHorizontalSpacing(8);
    m_form->setVerticalSpacing(4);
    m_handle->setToolTip(tr("The number by which the \"font\" of a widget means this font"));
    m_fallback->setDragDropMode(QAbstractItemView::InternalMove);
    m_fallback->setToolTip(tr("Fonts that are asked, from top to bottom, for characters that this "
                              "font lacks; drag them into their order"));
    m_fallback->ensurePolished();
    const int row = m_fallback->fontMetrics().height() + RowPadding;
    m_fallback->setFixedHeight(FallbackRows * row + 2 * m_fallback->frameWidth());
    m_chooseFile->setIcon(CThemeIcons::icon(QStringLiteral(":/images/openProject.png")));
    m_chooseFile->setToolTip(tr("Take another file for this font"));
    auto *file = new QHBoxLayout;
    file->setSpacing(4);
    file->addWidget(m_file, 1);
    file->addWidget(m_chooseFile);
    m_extra->setPlaceholderText(QStringLiteral("0-9 , . -"));
    m_extra->setToolTip(tr("Characters for what the firmware writes later, parted by blanks; "
                           "\"0-9\" means all from 0 to 9"));
    auto *axes = new QFormLayout(m_axes);
    axes->setContentsMargins(0, 0, 0, 0);
    axes->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    axes->setVerticalSpacing(4);

    m_form->addRow(tr("&Name"), m_name);
    m_form->addRow(tr("&Handle"), m_handle);
    m_form->addRow(tr("File"), file);
    m_form->addRow(tr("&Size"), m_size);
    m_form->addRow(tr("&Variation"), m_axes);
    m_form->addRow(tr("S&moothing"), m_bits);
    m_form->addRow(tr("&Fallback"), m_fallback);
    m_form->addRow(tr("E&xtra characters"), m_extra);
    m_form->addRow(tr("Licence"), m_licence);
    m_form->addRow(tr("Embedding"), m_embedding);
}

void CFontForm::show(const SProjectFont &font, const ProjectFontList &others)
{
    const QScopedValueRollback<bool> filling(m_isFilling, true);
    m_font = font;
    m_name->setText(font.name);
    m_handle->setValue(font.handle);
    m_size->setValue(font.size);
    m_bits->setCurrentIndex(m_bits->findData(font.bits));
    m_extra->setText(font.extra);
    m_file->setText(ShownText::message(QFileInfo(font.file).fileName()));
    m_file->setToolTip(font.file);
    showFallback(others);
    showInfo({});
}

/// Those that are chosen come first, in their order.
void CFontForm::showFallback(const ProjectFontList &others)
{
    m_fallback->clear();
    ProjectFontList sorted = others;
    const auto rank = [this](const SProjectFont &font) {
        const int index = m_font.fallback.indexOf(font.handle);
        return index < 0 ? SProjectFont::HandleCount + font.handle : index;
    };
    std::sort(sorted.begin(), sorted.end(),
              [&](const auto &one, const auto &other) { return rank(one) < rank(other); });
    for (const SProjectFont &each : qAsConst(sorted)) {
        if (each.handle == m_font.handle)
            continue;
        auto *item = new QListWidgetItem(
            QStringLiteral("%1  %2").arg(each.handle).arg(ShownText::name(each.name)), m_fallback);
        item->setData(Qt::UserRole, each.handle);
        item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsUserCheckable |
                       Qt::ItemIsDragEnabled);
        item->setCheckState(m_font.fallback.contains(each.handle) ? Qt::Checked : Qt::Unchecked);
    }
}

void CFontForm::showInfo(const kivemu::SFontInfo &info)
{
    const QScopedValueRollback<bool> filling(m_isFilling, true);
    if (!info.family.empty())
        m_file->setText(ShownText::message(QFileInfo(m_font.file).fileName() +
                                           QStringLiteral(" (") + fullName(info, m_font.file) +
                                           QLatin1Char(')')));
    showAxes(info.axes);
    showLicence(info);
}

void CFontForm::showAxes(const std::vector<kivemu::SFontAxis> &axes)
{
    auto *form = qobject_cast<QFormLayout *>(m_axes->layout());
    while (form->rowCount() > 0)
        form->removeRow(0);
    m_axisFields.clear();
    QWidget *before = m_size;
    const QStringList set = m_font.axes.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const kivemu::SFontAxis &axis : axes) {
        auto *value = new QDoubleSpinBox(m_axes);
        value->setObjectName(QStringLiteral("fontAxis_") + text(axis.tag));
        value->setDecimals(axis.maximum - axis.minimum > 20 ? 0 : 2);
        value->setRange(axis.minimum, axis.maximum);
        value->setValue(axis.standard);
        for (const QString &each : set) {
            if (each.section(QLatin1Char('='), 0, 0).trimmed() == text(axis.tag))
                value->setValue(each.section(QLatin1Char('='), 1).toDouble());
        }
        connect(value, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                &CFontForm::take);
        form->addRow(ShownText::name(text(axis.name)), value);
        setTabOrder(before, value);
        before = value;
        m_axisFields.push_back({text(axis.tag), axis.standard, value});
    }
    setTabOrder(before, m_bits);
    m_axes->setVisible(!axes.empty());
    if (QWidget *label = m_form->labelForField(m_axes))
        label->setVisible(!axes.empty());
}

void CFontForm::showLicence(const kivemu::SFontInfo &info)
{
    QString licence = text(info.licence);
    if (licence.isEmpty())
        licence = text(info.copyright);
    constexpr int most = 160;
    m_licence->setText(ShownText::message(licence.simplified().left(most)));
    m_licence->setToolTip(licence);
    QString embedding;
    switch (info.embedding) {
    case kivemu::EFontEmbedding::Installable:
        embedding = info.error.empty() && info.glyphCount > 0 ? tr("Allowed") : QString();
        break;
    case kivemu::EFontEmbedding::Editable:
        embedding = tr("Allowed in documents that are edited; ask its maker for devices");
        break;
    case kivemu::EFontEmbedding::PreviewAndPrint:
        embedding = tr("Allowed in documents for reading only; ask its maker for devices");
        break;
    case kivemu::EFontEmbedding::Restricted:
        embedding = tr("Forbidden without its maker's consent");
        break;
    }
    if (info.noSubsetting)
        embedding += QLatin1String("; ") + tr("parts of it may not be taken");
    if (info.bitmapOnly)
        embedding += QLatin1String("; ") + tr("only as bitmaps");
    const bool isForbidden =
        info.embedding == kivemu::EFontEmbedding::Restricted || info.noSubsetting;
    m_embedding->setText((isForbidden ? QStringLiteral("\u26a0 ") : QString()) + embedding);
}

QString CFontForm::fullName(const kivemu::SFontInfo &info, const QString &file)
{
    if (info.family.empty())
        return QFileInfo(file).completeBaseName();
    const QString style = text(info.style);
    const bool isPlain = style.isEmpty() || style == QLatin1String("Regular");
    return isPlain ? text(info.family) : text(info.family) + QLatin1Char(' ') + style;
}

QString CFontForm::axesText() const
{
    if (m_axisFields.empty())
        return m_font.axes; // the file was not read yet, or is not there
    QStringList parts;
    for (const SAxisField &each : m_axisFields) {
        if (each.value->value() != each.standard)
            parts.append(each.tag + QLatin1Char('=') + QString::number(each.value->value()));
    }
    return parts.join(QLatin1Char(','));
}

void CFontForm::take()
{
    if (m_isFilling)
        return;
    m_font.name = m_name->text();
    m_font.handle = m_handle->value();
    m_font.size = m_size->value();
    m_font.bits = m_bits->currentData().toInt();
    m_font.extra = m_extra->text();
    m_font.axes = axesText();
    m_font.fallback.clear();
    for (int row = 0; row < m_fallback->count(); ++row) {
        if (m_fallback->item(row)->checkState() == Qt::Checked)
            m_font.fallback.append(m_fallback->item(row)->data(Qt::UserRole).toInt());
    }
    Q_EMIT changed();
}
