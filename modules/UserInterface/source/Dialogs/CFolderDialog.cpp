#include "CFolderDialog.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QLineEdit>
#include <QPushButton>

CFolderDialog::CFolderDialog(QWidget *parent, const QString &title, const QString &folder,
                             const QString &acceptText)
    : QFileDialog(parent, title, folder)
{
    setOption(DontUseNativeDialog);
    setFileMode(Directory);
    setLabelText(Accept, acceptText);
    // The base class takes folders only that are there, and disables the button for others.
    const auto *buttons = findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
    QPushButton *button = buttons ? buttons->button(QDialogButtonBox::Open) : nullptr;
    if (const auto *name = findChild<QLineEdit *>(QStringLiteral("fileNameEdit")); name && button)
        connect(name, &QLineEdit::textChanged, this, [this, button] {
            if (isNew())
                button->setEnabled(true);
        });
}

QString CFolderDialog::ask()
{
    return exec() == Accepted ? selectedFiles().value(0) : QString();
}

bool CFolderDialog::isNew() const
{
    const QString folder = selectedFiles().value(0);
    return !folder.isEmpty() && !QFileInfo::exists(folder);
}

void CFolderDialog::accept()
{
    if (isNew())
        QDialog::accept(); // NOLINT(bugprone-parent-virtual-call): QFileDialog wants it to exist
    else
        QFileDialog::accept();
}
