#include "CFindPanel.h"

#include "CFindDelegate.h"
#include "CItemModel.h"
#include "CProjectModel.h"
#include "CPropertyTest.h"
#include "CThemeIcons.h"
#include "ReplaceStep.h"
#include "SearchChoices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>

namespace {
constexpr int MostColours = 32; // that are offered
constexpr int MaxTyped = 4000;  // characters

QIcon swatch(const QColor &colour)
{
    constexpr int side = 16;
    QPixmap picture(side, side);
    picture.fill(colour);
    return CThemeIcons::untinted(picture);
}

/// "27", or "3 Inter" as CItemFacets tells it.
QStringList fontLabels(const CProjectModel &project)
{
    const CItemFacets facets(project);
    QStringList labels;
    for (const int handle : SearchChoices::fonts(project))
        labels.append(facets.fontText(handle));
    return labels;
}
} // namespace

CFindPanel::CFindPanel(QWidget *parent) : QWidget(parent), m_results(&m_session)
{
    makeFields();
    makeList();
    layOut();
    retranslate();
    setReplacing(false);
    connect(&m_session, &CFindSession::finished, this, &CFindPanel::showResults);
    connect(&m_pictures, &CFindPictures::changed, m_list->viewport(),
            QOverload<>::of(&QWidget::update));
    connect(&m_results, &CFindResults::ticksChanged, this, &CFindPanel::showState);
}

void CFindPanel::makeFields()
{
    const auto makeToggle = [this](const char *name) {
        auto *button = new QToolButton(this);
        button->setObjectName(QLatin1String(name));
        button->setCheckable(true);
        button->setAutoRaise(true);
        return button;
    };
    m_more = makeToggle("findMore");
    m_text = new QLineEdit(this);
    m_text->setObjectName(QStringLiteral("findText"));
    m_text->setClearButtonEnabled(true);
    m_text->setMaxLength(MaxTyped);
    m_text->addAction(CThemeIcons::icon(QStringLiteral(":/images/search.png")),
                      QLineEdit::LeadingPosition);
    m_case = makeToggle("findCase");
    m_case->setText(QStringLiteral("Aa"));
    m_pattern = makeToggle("findPattern");
    m_pattern->setText(QStringLiteral(".*"));
    m_field = new QComboBox(this);
    m_field->setObjectName(QStringLiteral("findField"));
    m_state = new QLabel(this);
    m_state->setObjectName(QStringLiteral("findState"));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    m_replaceRow = new QWidget(this);
    m_by = new QLineEdit(m_replaceRow);
    m_by->setObjectName(QStringLiteral("findBy"));
    m_by->setMaxLength(MaxTyped);
    m_choice = new QComboBox(m_replaceRow);
    m_choice->setObjectName(QStringLiteral("findChoice"));
    m_choice->setInsertPolicy(QComboBox::NoInsert);
    m_replace = new QPushButton(m_replaceRow);
    m_replace->setObjectName(QStringLiteral("findReplace"));
    m_all = new QCheckBox(this);
    m_all->setObjectName(QStringLiteral("findAll"));
    m_all->setTristate(true);
    for (int field = 0; field <= int(ESearchField::Image); ++field)
        m_field->addItem(QString(), field);

    connect(m_more, &QToolButton::toggled, this, &CFindPanel::setReplacing);
    for (const QToolButton *each : {m_case, m_pattern})
        connect(each, &QToolButton::toggled, this, &CFindPanel::search);
    connect(m_text, &QLineEdit::textChanged, this, &CFindPanel::search);
    connect(m_by, &QLineEdit::textChanged, this, &CFindPanel::search);
    connect(m_choice, &QComboBox::currentTextChanged, this, &CFindPanel::search);
    connect(m_field, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &CFindPanel::fieldChanged);
    connect(m_replace, &QPushButton::clicked, this, &CFindPanel::replace);
    connect(m_all, &QCheckBox::clicked, this,
            [this] { m_results.tickAll(m_results.tickedCount() < m_results.tickableCount()); });
    for (QWidget *each : {static_cast<QWidget *>(m_text), static_cast<QWidget *>(m_by)})
        each->installEventFilter(this);
}

void CFindPanel::makeList()
{
    m_list = new QListView(this);
    m_list->setObjectName(QStringLiteral("findResults"));
    m_list->setModel(&m_results);
    auto *delegate = new CFindDelegate(&m_pictures, this);
    m_list->setItemDelegate(delegate);
    m_list->setUniformItemSizes(true); // thousands of rows are laid out without measuring each
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_list->installEventFilter(this);
    const auto chosen = [this, delegate](const QModelIndex &index) {
        if (!delegate->wasOnTick())
            choose(index);
    };
    connect(m_list, &QListView::clicked, this, chosen);
    connect(m_list, &QListView::activated, this, chosen);
}

void CFindPanel::layOut()
{
    constexpr int gap = 4;
    auto *replaceRow = new QHBoxLayout(m_replaceRow);
    replaceRow->setContentsMargins(0, 0, 0, 0);
    replaceRow->setSpacing(gap);
    replaceRow->addWidget(m_by, 1);
    replaceRow->addWidget(m_choice, 1);
    replaceRow->addWidget(m_replace);
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(gap, gap, gap, 0);
    grid->setSpacing(gap);
    grid->addWidget(m_more, 0, 0);
    grid->addWidget(m_text, 0, 1);
    grid->addWidget(m_case, 0, 2);
    grid->addWidget(m_pattern, 0, 3);
    grid->addWidget(m_replaceRow, 1, 1, 1, 3);
    grid->addWidget(m_field, 2, 1, 1, 3);
    grid->addWidget(m_all, 3, 1, 1, 3);
    grid->addWidget(m_state, 4, 1, 1, 3);
    grid->addWidget(m_list, 5, 0, 1, 4);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(5, 1);
    QWidget *before = m_more;
    for (QWidget *each : std::initializer_list<QWidget *>{m_text, m_by, m_choice, m_replace, m_case,
                                                          m_pattern, m_field, m_all, m_list}) {
        setTabOrder(before, each);
        before = each;
    }
}

void CFindPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CFindPanel::retranslate()
{
    const auto name = [](QWidget *widget, const QString &text) {
        widget->setToolTip(text);
        widget->setAccessibleName(text);
    };
    m_text->setPlaceholderText(tr("Find in all pages"));
    m_text->setAccessibleName(m_text->placeholderText());
    m_by->setPlaceholderText(tr("Replace by"));
    m_by->setAccessibleName(m_by->placeholderText());
    m_choice->setAccessibleName(m_by->placeholderText());
    name(m_more, tr("Replace what is found"));
    name(m_case, tr("Capital and small letters differ"));
    name(m_pattern, tr("Regular expression; in the replacement, \\1 stands for the first group"));
    name(m_field, tr("Where to look"));
    const QString fields[] = {tr("Everything"), tr("Name"),     tr("Text"),
                              tr("Kind"),       tr("Property"), tr("Value"),
                              tr("Colour"),     tr("Font"),     tr("Image")};
    for (int field = 0; field < m_field->count(); ++field)
        m_field->setItemText(field, fields[field]);
    m_field->setItemData(int(ESearchField::Property),
                         tr("width, width=120, width>=120 or text:room"), Qt::ToolTipRole);
    m_list->setAccessibleName(tr("What was found"));
    showState();
}

void CFindPanel::setProject(CProjectModel *project)
{
    m_pictures.setProject(project);
    m_session.setProject(project);
    fillChoices();
    showState();
}

bool CFindPanel::hasQuery() const
{
    return !m_text->text().isEmpty();
}

void CFindPanel::startFind()
{
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

void CFindPanel::startReplace()
{
    m_more->setChecked(true);
    startFind();
}

void CFindPanel::setReplacing(bool isReplacing)
{
    m_more->setArrowType(isReplacing ? Qt::DownArrow : Qt::RightArrow);
    m_replaceRow->setVisible(isReplacing);
    m_all->setVisible(isReplacing);
    fieldChanged();
}

void CFindPanel::fieldChanged()
{
    const auto field = ESearchField(m_field->currentData().toInt());
    const bool isChosen = field == ESearchField::Colour || field == ESearchField::Font ||
                          field == ESearchField::Image;
    m_by->setVisible(!isChosen);
    m_choice->setVisible(isChosen);
    m_choice->setEditable(field == ESearchField::Colour);
    fillChoices();
    search();
}

/// What the project has to choose from.
void CFindPanel::fillChoices()
{
    const CProjectModel *project = m_session.project();
    const QString chosen = m_choice->currentText();
    const auto field = ESearchField(m_field->currentData().toInt());
    const QSignalBlocker blocker(m_choice);
    m_choice->clear();
    if (!project || !m_more->isChecked())
        return;
    if (field == ESearchField::Colour) {
        for (const QColor &each : SearchChoices::colours(*project, MostColours))
            m_choice->addItem(swatch(each),
                              each.name(each.alpha() < 255 ? QColor::HexArgb : QColor::HexRgb));
    } else if (field == ESearchField::Font) {
        m_choice->addItems(fontLabels(*project));
    } else if (field == ESearchField::Image) {
        m_choice->addItems(SearchChoices::images(*project));
    }
    const int row = m_choice->findText(chosen);
    m_choice->setCurrentIndex(m_choice->isEditable() ? row : std::max(0, row));
    if (m_choice->isEditable() && row < 0)
        m_choice->setEditText(chosen);
}

QString CFindPanel::replacementText() const
{
    return m_choice->isVisibleTo(m_replaceRow) ? m_choice->currentText() : m_by->text();
}

void CFindPanel::search()
{
    const SSearchQuery query{m_text->text(), ESearchField(m_field->currentData().toInt()),
                             m_pattern->isChecked(), m_case->isChecked()};
    m_session.setQuery(query,
                       m_more->isChecked() ? std::make_optional(replacementText()) : std::nullopt);
}

/// The result that the user was at is kept, and the place where the list is.
void CFindPanel::showResults()
{
    const QModelIndex current = m_list->currentIndex();
    const auto *item = m_results.itemAt(current.row());
    const QString key = current.data(CFindResults::KeyRole).toString();
    const int scroll = m_list->verticalScrollBar()->value();
    m_results.refresh(m_more->isChecked());
    if (const int row = item ? m_results.rowOf(item, key) : -1; row >= 0)
        m_list->setCurrentIndex(m_results.index(row));
    m_list->doItemsLayout();
    m_list->verticalScrollBar()->setValue(scroll);
    showState();
}

void CFindPanel::showState()
{
    const int ticked = m_results.tickedCount();
    m_replace->setText(tr("Replace (%1)").arg(ticked));
    m_replace->setEnabled(ticked > 0);
    const int tickable = m_results.tickableCount();
    m_all->setEnabled(tickable > 0);
    m_all->setCheckState(ticked == 0          ? Qt::Unchecked
                         : ticked == tickable ? Qt::Checked
                                              : Qt::PartiallyChecked);
    m_all->setText(tr("%1 of %2 ticked").arg(ticked).arg(m_results.rowCount()));
    QStringList lines;
    if (!m_session.project())
        lines.append(tr("No project"));
    else if (!m_session.problem().isEmpty())
        lines.append(m_session.problem());
    else if (hasQuery() && m_results.rowCount() == 0)
        lines.append(tr("Nothing found in %1 items").arg(m_session.itemCount()) + propertyHint());
    else if (hasQuery() && !m_more->isChecked())
        lines.append(tr("%1 of %2 items").arg(m_results.rowCount()).arg(m_session.itemCount()));
    if (m_session.cutTexts() > 0)
        lines.append(tr("Of long texts only the beginning was looked at."));
    m_state->setText(lines.join(QLatin1Char('\n')));
    m_state->setVisible(!lines.isEmpty());
}

/// "alignment=center" may be a text as well, so it is taken for a property only where that is said.
QString CFindPanel::propertyHint() const
{
    const CPropertyTest test(m_text->text());
    const bool isMeant = m_field->currentData().toInt() != int(ESearchField::Property) &&
                         !m_pattern->isChecked() && test.hasValue() && !test.key().isEmpty();
    return isMeant ? QLatin1Char('\n') +
                         tr("The values of a property are found with \"%1\".").arg(tr("Property"))
                   : QString();
}

void CFindPanel::choose(const QModelIndex &index)
{
    if (CItemModel *item = m_results.itemAt(index.row()))
        Q_EMIT itemChosen(item);
}

void CFindPanel::step(int by)
{
    m_session.finish();
    const int count = m_results.rowCount();
    if (count == 0)
        return;
    const int current = m_list->currentIndex().row();
    const int next = current < 0 ? (by > 0 ? 0 : count - 1) : (current + by + count) % count;
    m_list->setCurrentIndex(m_results.index(next));
    choose(m_list->currentIndex());
}

void CFindPanel::replace()
{
    m_session.finish(); // what is replaced is what is now in the project
    if (m_session.project())
        ReplaceStep::push(*m_session.project(), m_results.tickedReplacements());
}

void CFindPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_session.setActive(true);
}

void CFindPanel::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_session.setActive(false);
    m_pictures.withdraw();
}

bool CFindPanel::eventFilter(QObject *watched, QEvent *event)
{
    const bool isList = watched == m_list;
    const auto *keyEvent = dynamic_cast<QKeyEvent *>(event);
    // In the list these would be for items on a canvas that is not looked at.
    if (event->type() == QEvent::ShortcutOverride && isList &&
        (keyEvent->key() == Qt::Key_Delete || keyEvent->key() == Qt::Key_Escape)) {
        event->accept();
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (keyEvent->key()) {
    case Qt::Key_Escape:
        Q_EMIT left();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        step(keyEvent->modifiers().testFlag(Qt::ShiftModifier) ? -1 : isList ? 0 : 1);
        return true;
    case Qt::Key_Delete:
        if (isList)
            return true;
        break;
    case Qt::Key_Down:
        if (!isList && m_results.rowCount() > 0) {
            m_list->setFocus();
            if (!m_list->currentIndex().isValid())
                m_list->setCurrentIndex(m_results.index(0));
            return true;
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}
