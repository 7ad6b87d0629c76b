#include "CConfigurationDialog.h"

#include "CPlatformTable.h"
#include "CProblemLabel.h"
#include "CThemeIcons.h"
#include "FieldChecks.h"
#include "PropertyKey.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const QString projectSuffix = QStringLiteral(".nyx");
constexpr int FieldWidth = 360;

/// Makes a folder the current one for as long as it lives. All other relative paths of the program
/// count on the folder that was current before.
class CCurrentFolder
{
public:
    explicit CCurrentFolder(const QString &folder) : m_before(QDir::currentPath())
    {
        QDir::setCurrent(folder);
    }
    ~CCurrentFolder() { QDir::setCurrent(m_before); }
    Q_DISABLE_COPY(CCurrentFolder)

private:
    const QString m_before;
};

} // namespace

CConfigurationDialog::CConfigurationDialog(const CPlatformTable &platforms, const QString &folder,
                                           QWidget *parent)
    : QDialog(parent),
      m_platforms(platforms),
      m_name(new QLineEdit(this)),
      m_nameProblem(new CProblemLabel(this)),
      m_platform(new QComboBox(this)),
      m_resolution(new QComboBox(this)),
      m_folder(new QLineEdit(QDir::toNativeSeparators(folder), this)),
      m_folderProblem(new CProblemLabel(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(tr("Project configuration"));
    m_name->setObjectName(QStringLiteral("projectName"));
    m_platform->setObjectName(QStringLiteral("platform"));
    m_resolution->setObjectName(QStringLiteral("resolution"));
    m_folder->setObjectName(QStringLiteral("workingDirectory"));
    m_nameProblem->setObjectName(QStringLiteral("nameProblem"));
    m_folderProblem->setObjectName(QStringLiteral("folderProblem"));

    connect(m_platform, &QComboBox::currentTextChanged, this,
            &CConfigurationDialog::dropdownResolutions);
    connect(m_resolution, &QComboBox::currentTextChanged, this,
            &CConfigurationDialog::widthHeightChanged);
    m_platform->addItems(m_platforms.platforms());
    m_name->setText(proposedName(folder));

    connect(m_name, &QLineEdit::textChanged, this, &CConfigurationDialog::check);
    connect(m_folder, &QLineEdit::textChanged, this, &CConfigurationDialog::folderChanged);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &CConfigurationDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &CConfigurationDialog::reject);
    layOut();
    m_name->selectAll();
    check();
}

void CConfigurationDialog::layOut()
{
    auto *choose = new QToolButton(this);
    choose->setObjectName(QStringLiteral("chooseFolder"));
    choose->setIcon(CThemeIcons::icon(QStringLiteral(":/images/openProject.png")));
    choose->setToolTip(tr("Choose a folder"));
    connect(choose, &QToolButton::clicked, this, &CConfigurationDialog::chooseFolder);
    auto *folder = new QHBoxLayout;
    folder->setSpacing(4);
    folder->addWidget(m_folder);
    folder->addWidget(choose);

    auto *form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    form->setHorizontalSpacing(8);
    form->setVerticalSpacing(4);
    const auto add = [form](const QString &text, QLayout *field, QWidget *buddy) {
        auto *label = new QLabel(text);
        label->setBuddy(buddy);
        form->addRow(label, field);
    };
    form->addRow(tr("Project &Name"), m_name);
    form->addRow(nullptr, m_nameProblem);
    form->addRow(tr("Hardware &Platform"), m_platform);
    form->addItem(new QSpacerItem(0, 8));
    form->addRow(tr("Screen &Resolution"), m_resolution);
    form->addItem(new QSpacerItem(0, 8));
    add(tr("&Working Directory"), folder, m_folder);
    form->addRow(nullptr, m_folderProblem);
    m_folder->setMinimumWidth(FieldWidth);
    setTabOrder(m_folder, choose);
    setTabOrder(choose, m_buttons);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(8);
    layout->addLayout(form);
    layout->addWidget(m_buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QString CConfigurationDialog::proposedName(const QString &folder)
{
    const QDir dir(folder);
    QString name = QStringLiteral("untitled_project");
    for (int number = 1; dir.exists(name + projectSuffix); ++number)
        name = QStringLiteral("untitled_project(%1)").arg(number);
    return name;
}

void CConfigurationDialog::dropdownResolutions(const QString &platform)
{
    m_resolution->clear();
    const QList<QSize> sizes = m_platforms.offeredSizes(platform);
    for (const QSize &size : sizes)
        m_resolution->addItem(CPlatformTable::sizeText(size), size);
}

void CConfigurationDialog::widthHeightChanged(const QString &resolution)
{
    m_size = m_resolution->itemData(m_resolution->findText(resolution)).toSize();
}

void CConfigurationDialog::chooseFolder()
{
    QFileDialog dialog(this, tr("Choose a folder"), m_folder->text());
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    connect(&dialog, &QFileDialog::fileSelected, this,
            [this](const QString &folder) { m_folder->setText(QDir::toNativeSeparators(folder)); });
    dialog.exec();
}

/// A proposed name that was not touched is proposed anew.
void CConfigurationDialog::folderChanged()
{
    if (!m_name->isModified())
        m_name->setText(proposedName(QDir::fromNativeSeparators(m_folder->text())));
    check();
}

void CConfigurationDialog::check()
{
    m_nameProblem->setProblem(FieldChecks::problemOfProjectName(m_name->text()));
    m_folderProblem->setProblem(
        FieldChecks::problemOfFolder(QDir::fromNativeSeparators(m_folder->text())));
    m_buttons->button(QDialogButtonBox::Ok)
        ->setEnabled(!m_nameProblem->hasProblem() && !m_folderProblem->hasProblem());
}

void CConfigurationDialog::accept()
{
    check(); // a folder may have gone meanwhile
    if (m_nameProblem->hasProblem() || m_folderProblem->hasProblem())
        return;
    const CCurrentFolder current(QDir::fromNativeSeparators(m_folder->text()));
    if (QFileInfo::exists(m_name->text() + projectSuffix)) {
        QMessageBox box(QMessageBox::Warning, tr("File name exists already!"),
                        tr("Change to another project name!"), QMessageBox::Ok, this);
        box.exec();
        m_name->setFocus();
        m_name->selectAll();
        return;
    }
    m_options = {{PropertyKey::ProjectName, m_name->text()},
                 {PropertyKey::Width, QString::number(m_size.width())},
                 {PropertyKey::Height, QString::number(m_size.height())},
                 {PropertyKey::Platform, m_platform->currentText()},
                 {PropertyKey::WorkingDirectory, QDir::currentPath()}};
    QDialog::accept();
}
