#include "CBatchEditView.h"

#include "CBatchColour.h"
#include "CBatchEditor.h"
#include "CBatchImage.h"
#include "CBatchList.h"
#include "CBatchNumber.h"
#include "CBatchSwitch.h"
#include "CBatchTextBox.h"
#include "CBatchTime.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "ItemGeometry.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFormLayout>
#include <QLabel>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int Margin = 8;
constexpr int Gap = 4;
constexpr int LabelWidth = 110; // at most; the fields are to have their room

QString captionOf(const CBatchItems::SProperty &property)
{
    const QByteArray caption = property.look.caption.toUtf8();
    return QCoreApplication::translate("WidgetLibrary", caption.constData());
}

/// Whether the fields for one fit the other.
bool isSameRow(const CBatchItems::SProperty &left, const CBatchItems::SProperty &right)
{
    return left.property.key() == right.property.key() &&
           left.property.propertyType() == right.property.propertyType() &&
           left.property.isMultiLine() == right.property.isMultiLine() &&
           left.look.editor == right.look.editor && left.look.caption == right.look.caption &&
           left.isCommon == right.isCommon && left.isImage == right.isImage &&
           (left.isCommon || left.count == right.count);
}

QFormLayout *makeForm()
{
    auto *form = new QFormLayout;
    form->setContentsMargins(0, 0, 0, 0);
    form->setHorizontalSpacing(Margin);
    form->setVerticalSpacing(Gap);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    return form;
}
} // namespace

CBatchEditView::CBatchEditView(QWidget *parent)
    : QScrollArea(parent), m_editor(new CBatchEditor(this))
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // A form is made where it stays: one that gets another parent has its style sheet matched anew.
    auto *page = new QWidget;
    (new QVBoxLayout(page))->setContentsMargins(0, 0, 0, 0);
    setWidget(page);
    m_update.setSingleShot(true);
    m_update.setInterval(0);
    connect(&m_update, &QTimer::timeout, this, &CBatchEditView::update);
    connect(m_editor, &CBatchEditor::message, this, &CBatchEditView::message);
    rebuild({});
}

void CBatchEditView::setProject(CProjectModel *project)
{
    if (m_project)
        disconnect(m_project, nullptr, this, nullptr);
    m_project = project;
    m_items.clear();
    m_editor->setProject(project);
    if (project) {
        connect(project, &CProjectModel::propertyChanged, this, [this](const CItemModel *item) {
            if (!m_update.isActive() && m_editor->holds(item))
                m_update.start();
        });
        connect(project, &QAbstractItemModel::rowsAboutToBeRemoved, this, &CBatchEditView::removed);
    }
    outdate();
}

void CBatchEditView::showItems(const QList<CItemModel *> &items)
{
    if (items == m_items && !m_isOutdated)
        return;
    commit();
    m_items = items;
    m_editor->setItems({});
    m_isOutdated = true;
    m_update.start(); // after the step of the user's that it follows, and once for several
}

void CBatchEditView::refresh()
{
    outdate();
}

/// Nothing of the items is touched from here on until they are asked for again.
void CBatchEditView::outdate()
{
    m_editor->setItems({});
    m_isOutdated = true;
    update();
}

void CBatchEditView::setSeen(bool isSeen)
{
    m_isSeen = isSeen;
    if (!isSeen &&
        !m_properties.isEmpty()) { // rows that nobody sees cost their share of each theme
        commit();
        m_editor->setItems({});
        m_isOutdated = true;
        m_properties.clear();
        rebuild({});
    }
    update();
}

void CBatchEditView::removed(const QModelIndex &parent, int first, int last)
{
    const auto isGoing = [&](const QStandardItem *each) {
        for (; each; each = each->parent()) {
            if (each->row() >= first && each->row() <= last && each->index().parent() == parent)
                return true;
        }
        return false;
    };
    if (!std::any_of(m_items.begin(), m_items.end(), isGoing))
        return;
    m_items.clear(); // whoever keeps the selection says later what is left of it
    outdate();
}

void CBatchEditView::update()
{
    if (!isVisible() || !m_isSeen)
        return;
    if (m_isOutdated)
        m_editor->setItems(m_items);
    m_isOutdated = false;
    const QVector<CBatchItems::SProperty> properties = m_editor->items().properties();
    if (std::equal(properties.begin(), properties.end(), m_properties.begin(), m_properties.end(),
                   isSameRow))
        showText();
    else
        rebuild(properties);
    m_properties = properties;
    for (CBatchField *each : qAsConst(m_fields)) {
        const auto shown =
            std::find_if(properties.begin(), properties.end(), [each](const auto &property) {
                return property.property.key() == each->key();
            });
        each->show(*shown);
    }
}

void CBatchEditView::rebuild(const QVector<CBatchItems::SProperty> &properties)
{
    m_fields.clear();
    m_properties = properties;
    m_others = nullptr;
    QWidget *const before = m_form;
    m_form = new QWidget(widget());
    auto *column = new QVBoxLayout(m_form);
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->setSpacing(Margin);
    m_text = new QLabel(m_form);
    m_text->setWordWrap(true);
    column->addWidget(m_text);
    QFormLayout *form = makeForm();
    column->addLayout(form);
    m_labelWidth = widest(properties);
    int others = 0;
    for (const CBatchItems::SProperty &each : properties) {
        if (each.isCommon)
            addRow(form, each);
        else
            ++others;
    }
    m_more = new QToolButton(m_form);
    m_more->setObjectName(QStringLiteral("others"));
    m_more->setText(tr("Only some of them have (%1)").arg(others));
    m_more->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_more->setAutoRaise(true);
    m_more->setVisible(others > 0);
    connect(m_more, &QToolButton::clicked, this, [this] {
        m_areOthersShown = !m_areOthersShown;
        showOthers(m_areOthersShown);
        update();
    });
    column->addWidget(m_more);
    m_others = makeForm();
    column->addLayout(m_others);
    column->addStretch();
    showOthers(m_areOthersShown);
    showText();
    if (before) {
        before->hide();
        before->deleteLater(); // one of its fields may be what has led here
    }
    widget()->layout()->addWidget(m_form);
    m_form->show();
    verticalScrollBar()->setValue(0);
}

/// Of their names, so that all fields stand below each other.
int CBatchEditView::widest(const QVector<CBatchItems::SProperty> &properties) const
{
    int width = 0;
    for (const CBatchItems::SProperty &each : properties)
        width = std::max(width, fontMetrics().horizontalAdvance(captionOf(each)));
    return std::min(width, LabelWidth);
}

/// Their fields are made when they are wanted: of a page with all kinds they are a hundred.
void CBatchEditView::showOthers(bool areShown)
{
    m_more->setArrowType(areShown ? Qt::DownArrow : Qt::RightArrow);
    if (areShown) {
        for (const CBatchItems::SProperty &each : qAsConst(m_properties)) {
            if (!each.isCommon)
                addRow(m_others, each);
        }
        return;
    }
    while (m_others->rowCount() > 0) {
        m_fields.removeAll(
            qobject_cast<CBatchField *>(m_others->itemAt(0, QFormLayout::FieldRole)->widget()));
        m_others->removeRow(0);
    }
}

CBatchField *CBatchEditView::makeField(const CBatchItems::SProperty &property, QWidget *parent)
{
    const QString key = property.property.key();
    if (property.isImage)
        return new CBatchImage(m_editor, key, parent);
    const SPropertyLook::EEditor look = property.look.editor;
    if (look == SPropertyLook::EEditor::Font)
        return new CBatchList(m_editor, key, look, parent);
    switch (property.property.propertyType()) {
    case PropertyType::Int:
    case PropertyType::Float: {
        const bool isSixteenths = look == SPropertyLook::EEditor::Sixteenths;
        return new CBatchNumber(m_editor, key, isSixteenths ? ItemGeometry::PointSizeOfPixel : 1,
                                parent);
    }
    case PropertyType::Bool:
        return new CBatchSwitch(m_editor, key, parent);
    case PropertyType::Rgb:
        return new CBatchColour(m_editor, key, parent);
    case PropertyType::Time:
        return new CBatchTime(m_editor, key, parent);
    case PropertyType::Enum:
        return new CBatchList(m_editor, key, look, parent);
    default:
        break;
    }
    if (property.property.isMultiLine())
        return new CBatchTextBox(m_editor, key, parent);
    return new CBatchLine(m_editor, key, parent);
}

void CBatchEditView::addRow(QFormLayout *form, const CBatchItems::SProperty &property)
{
    CBatchField *field = makeField(property, m_form);
    connect(field, &CBatchField::left, this, [this](bool forward) { focusNextPrevChild(forward); });
    auto *label = new QLabel(captionOf(property), m_form);
    label->setBuddy(field);
    label->setFixedWidth(m_labelWidth);
    label->setToolTip(property.isCommon
                          ? property.property.key()
                          : tr("%1, of %2 items").arg(property.property.key()).arg(property.count));
    if (auto *number = qobject_cast<CBatchNumber *>(field))
        number->dragBy(label);
    form->addRow(label, field);
    m_fields.append(field);
}

void CBatchEditView::showText()
{
    const CBatchItems &items = m_editor->items();
    QString text = tr("Select some items to edit them together.");
    if (items.editable() > 0)
        text = items.editable() == 1 ? tr("1 item") : tr("%1 items").arg(items.editable());
    else if (items.locked() > 0)
        text = tr("What is selected is locked.");
    if (items.editable() > 0 && items.locked() > 0)
        text += QStringLiteral(" \u00b7 ") + tr("%1 locked, left out").arg(items.locked());
    m_text->setText(text);
}

void CBatchEditView::commit()
{
    for (CBatchField *each : qAsConst(m_fields)) {
        if (each->isBeingEdited())
            each->commit();
    }
    m_editor->keep();
}

bool CBatchEditView::isBeingEdited() const
{
    return m_editor->isTrying() ||
           std::any_of(m_fields.begin(), m_fields.end(),
                       [](const CBatchField *each) { return each->isBeingEdited(); });
}

void CBatchEditView::cancel()
{
    m_editor->cancel();
}

CBatchField *CBatchEditView::field(const QString &key) const
{
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                    [&key](const CBatchField *each) { return each->key() == key; });
    return found == m_fields.end() ? nullptr : *found;
}

void CBatchEditView::showEvent(QShowEvent *event)
{
    QScrollArea::showEvent(event);
    update();
}

void CBatchEditView::changeEvent(QEvent *event)
{
    QScrollArea::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    commit();
    rebuild(m_properties);
    update();
}
