#include "CVersionDialog.h"

#include "ShownText.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr QSize FirstSize(520, 380); // pixels
}

CVersionDialog::CVersionDialog(const QVector<SChoice> &offered, const QString &projectFile,
                               QWidget *parent)
    : QDialog(parent), m_list(new QListWidget), m_note(new QLabel)
{
    setWindowTitle(tr("Compare With"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_list->setObjectName(QStringLiteral("compareVersions"));
    m_list->setUniformItemSizes(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("Compare"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    for (QAbstractButton *each : buttons->buttons())
        each->setIcon(QIcon());
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("The open project is compared with:")));
    layout->addWidget(m_list, 1);
    layout->addWidget(m_note);
    layout->addWidget(buttons);
    for (const SChoice &each : offered)
        add(each);
    add({EKind::File, tr("A file..."), {}});
    m_list->setCurrentRow(0);
    resize(FirstSize);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    if (projectFile.isEmpty()) {
        m_note->hide();
        return;
    }
    m_note->setText(tr("Looking for versions in git..."));
    auto *git = new CGitVersions(projectFile, this);
    connect(git, &CGitVersions::listed, this, &CVersionDialog::takeVersions);
    git->list();
}

void CVersionDialog::add(const SChoice &choice)
{
    m_choices.append(choice);
    auto *row = new QListWidgetItem(ShownText::name(choice.title), m_list);
    row->setToolTip(ShownText::toolTip(choice.title));
}

void CVersionDialog::takeVersions(const QVector<CGitVersions::SVersion> &versions)
{
    m_note->setText(versions.isEmpty() ? tr("git keeps no version of this project.") : QString());
    m_note->setVisible(versions.isEmpty());
    for (const CGitVersions::SVersion &each : versions)
        add({EKind::Git, tr("%1, in git: %2").arg(each.date, each.subject), each.id});
}

CVersionDialog::SChoice CVersionDialog::choice() const
{
    return m_choices.value(m_list->currentRow());
}
