#include "CVersionDialog.h"

#include "ShownText.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr QSize FirstSize(520, 380); // pixels

QString titleOf(const CGitVersions::SVersion &version)
{
    constexpr int ShownDigits = 9; // HEAD means another one after a commit, the hash does not
    return CVersionDialog::tr("%1, in git: %2").arg(version.date, version.subject) +
           QStringLiteral(" (%1)").arg(version.id.left(ShownDigits));
}
} // namespace

CVersionDialog::CVersionDialog(const QVector<SChoice> &offered, const QString &projectFile,
                               QWidget *parent)
    : QDialog(parent),
      m_list(new QListWidget),
      m_revisionLabel(new QLabel(tr("git &revision:"))),
      m_revision(new QLineEdit),
      m_note(new QLabel)
{
    setWindowTitle(tr("Compare With"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_list->setObjectName(QStringLiteral("compareVersions"));
    m_list->setUniformItemSizes(true);
    m_revision->setObjectName(QStringLiteral("compareRevision"));
    m_revision->setPlaceholderText(tr("A branch, a tag, a hash, HEAD~3..."));
    m_revisionLabel->setBuddy(m_revision);
    m_note->setTextFormat(Qt::PlainText);
    m_note->setWordWrap(true);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_compare = buttons->button(QDialogButtonBox::Ok);
    m_compare->setText(tr("Compare"));
    buttons->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    for (QAbstractButton *each : buttons->buttons())
        each->setIcon(QIcon());
    auto *typed = new QHBoxLayout;
    typed->addWidget(m_revisionLabel);
    typed->addWidget(m_revision, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(tr("The open project is compared with:")));
    layout->addWidget(m_list, 1);
    layout->addLayout(typed);
    layout->addWidget(m_note);
    layout->addWidget(buttons);
    for (const SChoice &each : offered)
        add(each);
    add({EKind::File, tr("A file..."), {}});
    m_list->setCurrentRow(0);
    m_list->setFocus();
    m_revisionLabel->hide(); // until git says that there is a work tree
    m_revision->hide();
    resize(FirstSize);
    connect(buttons, &QDialogButtonBox::accepted, this, &CVersionDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &CVersionDialog::accept);
    // One of both is chosen, the one that was touched last.
    connect(m_list, &QListWidget::itemPressed, m_revision, &QLineEdit::clear);
    connect(m_list, &QListWidget::currentRowChanged, m_revision, &QLineEdit::clear);
    connect(m_revision, &QLineEdit::textEdited, this, [this](const QString &text) {
        showNote({});
        if (auto *row = m_list->currentItem())
            row->setSelected(text.trimmed().isEmpty());
    });
    if (projectFile.isEmpty()) {
        m_note->hide();
        return;
    }
    showNote(tr("Looking for versions in git..."));
    m_versions = new CGitVersions(projectFile, this);
    m_typed = new CGitVersions(projectFile, this);
    connect(m_versions, &CGitVersions::listed, this, &CVersionDialog::takeVersions);
    connect(m_typed, &CGitVersions::resolved, this, &CVersionDialog::takeRevision);
    connect(m_typed, &CGitVersions::failed, this, [this](const QString &reason) {
        m_compare->setEnabled(true);
        showNote(reason);
        m_revision->setFocus();
        m_revision->selectAll();
    });
    m_versions->list();
}

void CVersionDialog::showNote(const QString &text)
{
    m_note->setText(text);
    m_note->setVisible(!text.isEmpty());
}

void CVersionDialog::add(const SChoice &choice)
{
    m_choices.append(choice);
    auto *row = new QListWidgetItem(ShownText::name(choice.title), m_list);
    row->setToolTip(ShownText::toolTip(choice.title));
}

void CVersionDialog::takeVersions(const QVector<CGitVersions::SVersion> &versions)
{
    showNote(versions.isEmpty() ? tr("git keeps no version of this project.") : QString());
    m_revisionLabel->setVisible(m_versions->isInWorkTree());
    m_revision->setVisible(m_versions->isInWorkTree());
    for (const CGitVersions::SVersion &each : versions)
        add({EKind::Git, titleOf(each), each.id});
}

void CVersionDialog::takeRevision(const CGitVersions::SVersion &version)
{
    m_found = {EKind::Git, m_revision->text().trimmed() + QStringLiteral(": ") + titleOf(version),
               version.id};
    QDialog::accept();
}

void CVersionDialog::accept()
{
    if (!m_typed || m_revision->text().trimmed().isEmpty()) {
        m_found = {};
        QDialog::accept();
        return;
    }
    m_compare->setEnabled(false); // the answer closes the dialog, or says why not
    showNote(tr("git is asked..."));
    m_typed->resolve(m_revision->text());
}

CVersionDialog::SChoice CVersionDialog::choice() const
{
    return m_found.kind == EKind::Git ? m_found : m_choices.value(m_list->currentRow());
}
