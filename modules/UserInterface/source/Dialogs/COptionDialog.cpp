#include "COptionDialog.h"

#include "CCommandChangeOptions.h"
#include "CPlatformTable.h"
#include "CProblemLabel.h"
#include "FieldChecks.h"
#include "PropertyKey.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QUndoStack>
#include <QVBoxLayout>

namespace {

constexpr int FieldWidth = 320;
constexpr int DefaultInterval = 10; ///< seconds
constexpr int LongestInterval = 3600;
constexpr int LargestNudge = 1000; ///< pixels

} // namespace

COptionDialog::COptionDialog(const CPlatformTable &platforms, IProjectOptionsObserver *observer,
                             QWidget *parent)
    : QDialog(parent),
      m_platforms(platforms),
      m_observer(observer),
      m_name(new QLineEdit(this)),
      m_nameProblem(new CProblemLabel(this)),
      m_platform(new QComboBox(this)),
      m_offered(new QComboBox(this)),
      m_width(new QSpinBox(this)),
      m_height(new QSpinBox(this)),
      m_sizeProblem(new CProblemLabel(this)),
      m_autosave(new QCheckBox(tr("&Enabled"), this)),
      m_interval(new QSpinBox(this)),
      m_nudgeStep(new QSpinBox(this)),
      m_fineNudgeStep(new QSpinBox(this)),
      m_folder(new QLineEdit(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(tr("Options"));
    m_name->setObjectName(QStringLiteral("projectName"));
    m_nameProblem->setObjectName(QStringLiteral("nameProblem"));
    m_platform->setObjectName(QStringLiteral("platform"));
    m_offered->setObjectName(QStringLiteral("offeredSizes"));
    m_width->setObjectName(QStringLiteral("width"));
    m_height->setObjectName(QStringLiteral("height"));
    m_sizeProblem->setObjectName(QStringLiteral("sizeProblem"));
    m_autosave->setObjectName(QStringLiteral("autosave"));
    m_interval->setObjectName(QStringLiteral("autosaveInterval"));
    m_nudgeStep->setObjectName(QStringLiteral("nudgeStep"));
    m_fineNudgeStep->setObjectName(QStringLiteral("fineNudgeStep"));
    m_folder->setObjectName(QStringLiteral("workingDirectory"));
    m_platform->addItems(m_platforms.platforms());
    m_folder->setReadOnly(true); // it is where the project's file lies
    m_interval->setRange(1, LongestInterval);
    m_interval->setSuffix(tr(" seconds"));
    for (QSpinBox *step : {m_nudgeStep, m_fineNudgeStep}) {
        step->setRange(1, LargestNudge);
        step->setSuffix(tr(" px"));
    }
    layOut();

    connect(m_name, &QLineEdit::textChanged, this, &COptionDialog::check);
    connect(m_platform, &QComboBox::currentTextChanged, this, &COptionDialog::platformChanged);
    connect(m_offered, QOverload<int>::of(&QComboBox::activated), this, &COptionDialog::sizeChosen);
    for (QSpinBox *side : {m_width, m_height})
        connect(side, QOverload<int>::of(&QSpinBox::valueChanged), this, &COptionDialog::check);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &COptionDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &COptionDialog::reject);
}

void COptionDialog::layOut()
{
    auto *size = new QHBoxLayout;
    size->setSpacing(4);
    size->addWidget(m_offered, 1);
    size->addWidget(m_width);
    size->addWidget(new QLabel(QStringLiteral("×")));
    size->addWidget(m_height);
    m_width->setAccessibleName(tr("Width"));
    m_height->setAccessibleName(tr("Height"));

    auto *form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setHorizontalSpacing(8);
    form->setVerticalSpacing(4);
    auto *sizeLabel = new QLabel(tr("Screen &Size"));
    sizeLabel->setBuddy(m_offered);
    form->addRow(tr("Project &Name"), m_name);
    form->addRow(nullptr, m_nameProblem);
    form->addRow(tr("&Platform"), m_platform);
    form->addItem(new QSpacerItem(0, 8));
    form->addRow(sizeLabel, size);
    form->addRow(nullptr, m_sizeProblem);
    form->addRow(makeAutosaveGroup());
    form->addRow(makeNudgeGroup());
    form->addItem(new QSpacerItem(0, 8));
    form->addRow(tr("&Working Directory"), m_folder);
    m_folder->setMinimumWidth(FieldWidth);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addLayout(form);
    layout->addWidget(m_buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    const QList<QWidget *> order{m_name,          m_platform, m_offered,  m_width,
                                 m_height,        m_autosave, m_interval, m_nudgeStep,
                                 m_fineNudgeStep, m_folder,   m_buttons};
    for (int i = 1; i < order.size(); ++i)
        setTabOrder(order[i - 1], order[i]);
}

QWidget *COptionDialog::makeAutosaveGroup()
{
    auto *group = new QGroupBox(tr("Autosave"));
    auto *form = new QFormLayout(group);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    auto *label = new QLabel(tr("Autosave &Interval"));
    label->setBuddy(m_interval);
    form->addRow(m_autosave);
    form->addRow(label, m_interval);
    for (QWidget *shown : {static_cast<QWidget *>(label), static_cast<QWidget *>(m_interval)}) {
        QSizePolicy policy = shown->sizePolicy();
        policy.setRetainSizeWhenHidden(true); // the dialog stays as large as it is
        shown->setSizePolicy(policy);
        shown->setVisible(false);
        connect(m_autosave, &QCheckBox::toggled, shown, &QWidget::setVisible);
    }
    return group;
}

QWidget *COptionDialog::makeNudgeGroup()
{
    auto *group = new QGroupBox(tr("Moving with the Arrow Keys"));
    auto *form = new QFormLayout(group);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->addRow(tr("S&tep"), m_nudgeStep);
    form->addRow(tr("With S&hift"), m_fineNudgeStep);
    return group;
}

void COptionDialog::fillNudgeSteps(int step, int fine)
{
    m_nudgeStep->setValue(step);
    m_fineNudgeStep->setValue(fine);
}

void COptionDialog::fill(CProjectModel *project, int autosaveInterval)
{
    m_project = project;
    m_oldInterval = qMax(0, autosaveInterval);
    m_autosave->setChecked(m_oldInterval > 0);
    m_interval->setValue(m_oldInterval > 0 ? m_oldInterval : DefaultInterval);

    for (QWidget *field : {static_cast<QWidget *>(m_name), static_cast<QWidget *>(m_platform),
                           static_cast<QWidget *>(m_offered)})
        field->setEnabled(project != nullptr);
    m_name->setText(project ? project->propertyText(PropertyKey::ProjectName) : QString());
    m_folder->setText(project ? QDir::toNativeSeparators(project->workingDirectory()) : QString());
    if (project) {
        const QSignalBlocker filling(m_platform);
        if (m_platform->findText(project->platform()) < 0) // of a later program; it may stay
            m_platform->addItem(project->platform());
        m_platform->setCurrentText(project->platform());
    }
    platformChanged(m_platform->currentText());
    if (project)
        showSize(project->resolution());
    m_name->setFocus();
    m_name->selectAll();
    check();
}

/// The sizes of a platform. The size that was set stays unless it is too large now.
void COptionDialog::platformChanged(const QString &platform)
{
    const QSize before = chosenSize();
    const QSize largest = m_platforms.isKnown(platform) ? m_platforms.largestSize(platform)
                                                        : QSize(before.width(), before.height());
    m_offered->clear();
    const QList<QSize> offered = m_platforms.offeredSizes(platform);
    for (const QSize &each : offered)
        m_offered->addItem(CPlatformTable::sizeText(each), each);
    m_offered->addItem(tr("Custom"));
    m_width->setRange(0, largest.width());
    m_height->setRange(0, largest.height());
    const bool fits = before.width() <= largest.width() && before.height() <= largest.height();
    showSize(fits || offered.isEmpty() ? before : offered.first());
    check();
}

void COptionDialog::showSize(const QSize &size)
{
    const int offered = m_offered->findData(size);
    m_offered->setCurrentIndex(offered >= 0 ? offered : m_offered->count() - 1);
    if (!m_platforms.isKnown(m_platform->currentText())) {
        m_width->setMaximum(qMax(m_width->maximum(), size.width()));
        m_height->setMaximum(qMax(m_height->maximum(), size.height()));
    }
    m_width->setValue(size.width());
    m_height->setValue(size.height());
    sizeChosen();
}

/// An offered size is not changed in the boxes, a custom one is.
void COptionDialog::sizeChosen()
{
    const QSize offered = m_offered->currentData().toSize();
    const bool isCustom = offered.isEmpty();
    if (!isCustom) {
        m_width->setValue(offered.width());
        m_height->setValue(offered.height());
    }
    m_width->setEnabled(isCustom && m_project);
    m_height->setEnabled(isCustom && m_project);
    check();
}

QSize COptionDialog::chosenSize() const
{
    return {m_width->value(), m_height->value()};
}

int COptionDialog::autosaveInterval() const
{
    return m_autosave->isChecked() ? m_interval->value() : 0;
}

void COptionDialog::check()
{
    m_nameProblem->setProblem(m_project ? FieldChecks::problemOfProjectName(m_name->text())
                                        : QString());
    m_sizeProblem->setProblem(m_project && chosenSize().isEmpty()
                                  ? tr("A screen is at least one pixel wide and high.")
                                  : QString());
    m_buttons->button(QDialogButtonBox::Ok)
        ->setEnabled(!m_nameProblem->hasProblem() && !m_sizeProblem->hasProblem());
}

void COptionDialog::accept()
{
    check();
    if (m_nameProblem->hasProblem() || m_sizeProblem->hasProblem())
        return;
    if (m_project)
        pushOptions();
    if (autosaveInterval() != m_oldInterval)
        Q_EMIT autosaveIntervalChanged(autosaveInterval());
    Q_EMIT nudgeStepsChosen(m_nudgeStep->value(), m_fineNudgeStep->value());
    QDialog::accept();
}

void COptionDialog::pushOptions()
{
    const CCommandChangeOptions::Options options = {
        {PropertyKey::ProjectName, m_name->text()},
        {PropertyKey::Width, QString::number(chosenSize().width())},
        {PropertyKey::Height, QString::number(chosenSize().height())},
        {PropertyKey::Platform, m_platform->currentText()}};
    bool isChanged = false;
    for (auto option = options.begin(); option != options.end(); ++option)
        isChanged = isChanged || m_project->propertyText(option.key()) != option.value();
    if (!isChanged)
        return;
    QUndoStack *stack = m_project->undoStack();
    stack->beginMacro(tr("Change Project Options"));
    stack->push(new CCommandChangeOptions(m_project, options, m_observer));
    stack->endMacro();
}
