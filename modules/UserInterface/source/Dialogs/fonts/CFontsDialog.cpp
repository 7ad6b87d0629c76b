#include "CFontsDialog.h"

#include "BackgroundWork.h"
#include "CCommandChangeFonts.h"
#include "CEmulatorAdapter.h"
#include "CFontForm.h"
#include "CFontPreview.h"
#include "CItemModel.h"
#include "CProblemLabel.h"
#include "FontFiles.h"
#include "ItemTree.h"
#include "ShownText.h"

#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QUndoStack>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int PreviewDelay = 120; // ms
constexpr int ListWidth = 240;
const QSize RoomAboutForm(ListWidth + 64, 330); // with some for the axes of a variable font
const QSize RoomForFrame(16, 48);               // of the window
const QSize PreviewSize(460, 96);

bool usesFont(const CItemModel &item, int handle)
{
    const CItemModel::PropertySet &properties = item.properties();
    return std::any_of(properties.begin(), properties.end(), [handle](const CWidgetProperty &each) {
        return each.key().endsWith(QLatin1String("font")) &&
               each.propertyType() == PropertyType::Int && each.value().toInt() == handle;
    });
}
} // namespace

CFontsDialog::CFontsDialog(CEmulatorAdapter *adapter, CProjectModel *project, QWidget *parent)
    : QDialog(parent),
      m_project(project),
      m_fonts(project->fonts()),
      m_preview(new CFontPreview(adapter, project, this)),
      m_list(new QListWidget(this)),
      m_add(new QPushButton(tr("&Add..."), this)),
      m_remove(new QPushButton(tr("&Remove"), this)),
      m_form(new CFontForm(this)),
      m_sample(new QLineEdit(tr("Temperature 21 °C"), this)),
      m_picture(new QLabel(this)),
      m_bytes(new QLabel(this)),
      m_problem(new CProblemLabel(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this))
{
    setWindowTitle(tr("Fonts"));
    m_list->setObjectName(QStringLiteral("fonts"));
    m_add->setObjectName(QStringLiteral("addFont"));
    m_remove->setObjectName(QStringLiteral("removeFont"));
    m_sample->setObjectName(QStringLiteral("fontSample"));
    m_picture->setObjectName(QStringLiteral("fontPicture"));
    m_bytes->setObjectName(QStringLiteral("fontBytes"));
    m_problem->setObjectName(QStringLiteral("fontProblem"));
    m_previewDelay.setSingleShot(true);
    m_previewDelay.setInterval(PreviewDelay);
    layOut();

    connect(m_add, &QPushButton::clicked, this,
            [this] { addFiles(askForFiles(QFileDialog::ExistingFiles, tr("Add Fonts"))); });
    connect(m_form, &CFontForm::fileWanted, this, &CFontsDialog::replaceFile);
    connect(m_remove, &QPushButton::clicked, this, &CFontsDialog::removeCurrent);
    connect(m_list, &QListWidget::currentRowChanged, this, &CFontsDialog::showCurrent);
    connect(m_form, &CFontForm::changed, this, &CFontsDialog::takeForm);
    connect(m_sample, &QLineEdit::textChanged, &m_previewDelay, QOverload<>::of(&QTimer::start));
    connect(&m_previewDelay, &QTimer::timeout, this, [this] {
        if (current() >= 0)
            m_preview->ask(m_fonts, m_fonts[current()].handle, m_sample->text(), PreviewSize);
    });
    connect(m_preview, &CFontPreview::drawn, this, &CFontsDialog::showPreview);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &CFontsDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &CFontsDialog::reject);
    fillList();
    m_list->setCurrentRow(m_fonts.isEmpty() ? -1 : 0);
    showCurrent();
    const QSize wanted = sizeHint().expandedTo(m_form->sizeHint() + RoomAboutForm);
    resize(wanted.boundedTo(QGuiApplication::primaryScreen()->availableSize() - RoomForFrame));
}

void CFontsDialog::layOut()
{
    m_list->setFixedWidth(ListWidth);
    m_add->setAutoDefault(false);
    m_remove->setAutoDefault(false);
    m_picture->setFixedSize(PreviewSize);
    m_picture->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_bytes->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    m_problem->setFixedHeight(2 * fontMetrics().lineSpacing());
    m_problem->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addWidget(m_add);
    buttons->addWidget(m_remove);
    auto *left = new QVBoxLayout;
    left->setSpacing(8);
    left->addWidget(m_list, 1);
    left->addLayout(buttons);
    auto *fields = new QScrollArea(this); // on small displays
    fields->setFrameShape(QFrame::NoFrame);
    fields->setWidgetResizable(true);
    fields->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    fields->setWidget(m_form);
    auto *right = new QVBoxLayout;
    right->setSpacing(8);
    right->addWidget(fields, 1);
    auto *sampleLabel = new QLabel(tr("&Preview"), this);
    sampleLabel->setBuddy(m_sample);
    auto *sample = new QHBoxLayout;
    sample->addWidget(sampleLabel);
    sample->addWidget(m_sample, 1);
    right->addLayout(sample);
    right->addWidget(m_picture);
    right->addWidget(m_bytes);
    right->addWidget(m_problem);
    auto *columns = new QHBoxLayout;
    columns->setSpacing(16);
    columns->addLayout(left);
    columns->addLayout(right, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(16);
    layout->addLayout(columns);
    layout->addWidget(m_buttons);
}

int CFontsDialog::current() const
{
    const int row = m_list->currentRow();
    return row < m_fonts.size() ? row : -1;
}

int CFontsDialog::itemsUsing(int handle) const
{
    int count = 0;
    if (m_project)
        forEachItem(*m_project, [&count, handle](const CItemModel &each) {
            count += usesFont(each, handle) ? 1 : 0;
        });
    return count;
}

void CFontsDialog::fillList()
{
    const QSignalBlocker filling(m_list);
    const int row = m_list->currentRow();
    m_list->clear();
    for (const SProjectFont &each : qAsConst(m_fonts))
        m_list->addItem(QStringLiteral("%1   %2").arg(each.handle).arg(ShownText::name(each.name)));
    m_list->setCurrentRow(qMin(row, m_fonts.size() - 1));
}

void CFontsDialog::showCurrent()
{
    const int index = current();
    m_form->setEnabled(index >= 0);
    m_sample->setEnabled(index >= 0);
    m_remove->setEnabled(index >= 0);
    const bool hasRoom = ProjectFonts::freeHandle(m_fonts) >= 0;
    m_add->setEnabled(hasRoom);
    m_add->setToolTip(hasRoom ? QString()
                              : tr("All %1 handles are taken.").arg(SProjectFont::HandleCount));
    m_picture->clear();
    m_bytes->setText(index < 0 ? tr("Add a TTF, OTF or WOFF2 file; texts can then be drawn in it.")
                               : QString());
    m_form->show(index >= 0 ? m_fonts[index] : SProjectFont(), m_fonts);
    m_ownHandle = m_form->font().handle;
    if (index >= 0 && m_project) {
        readInfo(m_project->absoluteFolder(m_fonts[index].file));
        m_previewDelay.start();
    }
    tellAbandoned();
}

/// A large font takes a while to unpack.
void CFontsDialog::readInfo(const QString &file)
{
    const auto known = m_infos.constFind(file);
    if (known != m_infos.constEnd()) {
        m_form->showInfo(*known);
        return;
    }
    BackgroundWork::run(
        this, [path = QFile::encodeName(file).toStdString()] { return kivemu::readFontInfo(path); },
        [this, file](const kivemu::SFontInfo &info) {
            m_infos.insert(file, info);
            if (current() >= 0 && m_project &&
                m_project->absoluteFolder(m_fonts[current()].file) == file) {
                m_form->showInfo(info);
                check();
            }
        });
}

QStringList CFontsDialog::askForFiles(QFileDialog::FileMode mode, const QString &title)
{
    QFileDialog dialog(this, title, m_project ? m_project->workingDirectory() : QString(),
                       tr("Fonts (*.ttf *.otf *.ttc *.woff2)"));
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setFileMode(mode);
    return dialog.exec() == Accepted ? dialog.selectedFiles() : QStringList();
}

void CFontsDialog::replaceFile()
{
    const QString file = askForFiles(QFileDialog::ExistingFile, tr("Font File")).value(0);
    const int index = current();
    if (file.isEmpty() || index < 0)
        return;
    const kivemu::SFontInfo info = kivemu::readFontInfo(QFile::encodeName(file).toStdString());
    if (!info.error.empty()) {
        tellUnusable(file, info);
        return;
    }
    m_infos.insert(file, info);
    m_fonts[index].file = file;
    m_fonts[index].axes.clear(); // those of another font
    showCurrent();
}

void CFontsDialog::addFiles(const QStringList &files)
{
    for (const QString &file : files) {
        BackgroundWork::run(
            this,
            [path = QFile::encodeName(file).toStdString()] { return kivemu::readFontInfo(path); },
            [this, file](const kivemu::SFontInfo &info) { addFont(file, info); });
    }
}

void CFontsDialog::addFont(const QString &file, const kivemu::SFontInfo &info)
{
    const int handle = ProjectFonts::freeHandle(m_fonts);
    if (handle < 0) {
        check(tr("All %1 handles are taken.").arg(SProjectFont::HandleCount));
        return;
    }
    if (!info.error.empty()) {
        tellUnusable(file, info);
        return;
    }
    SProjectFont font;
    font.handle = handle;
    font.name = CFontForm::fullName(info, file);
    font.file = file;
    m_infos.insert(m_project ? m_project->absoluteFolder(file) : file, info);
    m_fonts.append(font);
    fillList();
    m_list->setCurrentRow(m_fonts.size() - 1);
    showCurrent();
}

void CFontsDialog::tellUnusable(const QString &file, const kivemu::SFontInfo &info)
{
    check(tr("%1: %2").arg(ShownText::message(QFileInfo(file).fileName()),
                           ShownText::message(QString::fromStdString(info.error))));
}

void CFontsDialog::removeCurrent()
{
    if (current() < 0)
        return;
    const int handle = m_fonts[current()].handle;
    m_fonts.remove(current());
    for (SProjectFont &each : m_fonts)
        each.fallback.removeAll(handle);
    fillList();
    showCurrent();
}

void CFontsDialog::takeForm()
{
    const int index = current();
    if (index < 0)
        return;
    m_fonts[index] = m_form->font();
    const int handle = m_fonts[index].handle;
    const auto owners = std::count_if(m_fonts.begin(), m_fonts.end(),
                                      [handle](const auto &each) { return each.handle == handle; });
    if (owners == 1) { // on its way it may meet the handles of others
        for (SProjectFont &each : m_fonts)
            std::replace(each.fallback.begin(), each.fallback.end(), m_ownHandle, handle);
        m_ownHandle = handle;
    }
    m_list->item(index)->setText(QStringLiteral("%1   %2")
                                     .arg(m_fonts[index].handle)
                                     .arg(ShownText::name(m_fonts[index].name)));
    tellAbandoned();
    m_previewDelay.start();
}

/// Widgets keep their number when a font takes another one, or goes.
void CFontsDialog::tellAbandoned()
{
    m_notice.clear();
    for (const SProjectFont &before : m_project ? m_project->fonts() : ProjectFontList()) {
        const bool isThere =
            std::any_of(m_fonts.begin(), m_fonts.end(),
                        [&](const SProjectFont &now) { return now.handle == before.handle; });
        const int users = isThere ? 0 : itemsUsing(before.handle);
        if (users > 0)
            m_notice = tr("Items that still use handle %1: %2").arg(before.handle).arg(users);
    }
    check(m_notice);
}

void CFontsDialog::showPreview(const QImage &picture, size_t bytes, const QString &errors)
{
    if (current() < 0)
        return;
    m_picture->setPixmap(QPixmap::fromImage(picture));
    m_bytes->setText(tr("%1 bytes of graphics memory for this preview; items that use the font: %2")
                         .arg(locale().toString(static_cast<qulonglong>(bytes)))
                         .arg(itemsUsing(m_fonts[current()].handle)));
    QString problem = errors.section(QLatin1Char('\n'), 0, 0);
    problem.remove(CFontPreview::itemLabel()); // the sample is nobody's item
    check(problem.isEmpty() ? m_notice : ShownText::message(problem));
}

/// `problem`: something that is no reason to refuse.
void CFontsDialog::check(const QString &problem)
{
    QString refusal;
    for (int i = 0; i < m_fonts.size() && refusal.isEmpty(); ++i) {
        for (int k = 0; k < i; ++k) {
            if (m_fonts[i].handle == m_fonts[k].handle)
                refusal = tr("Handle %1 belongs to two fonts.").arg(m_fonts[i].handle);
        }
        if (m_fonts[i].name.trimmed().isEmpty())
            refusal = tr("A font needs a name.");
    }
    m_problem->setProblem(refusal.isEmpty() ? problem : refusal);
    m_problem->setToolTip(m_problem->text()); // two lines of a long one are seen
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(refusal.isEmpty());
}

void CFontsDialog::accept()
{
    if (!m_project || !m_buttons->button(QDialogButtonBox::Ok)->isEnabled())
        return;
    ProjectFontList fonts = m_fonts;
    const QString problem = FontFiles::bringIn(*m_project, fonts);
    if (!problem.isEmpty()) {
        check(ShownText::message(problem));
        return;
    }
    std::sort(fonts.begin(), fonts.end(), [](const SProjectFont &one, const SProjectFont &other) {
        return one.handle < other.handle;
    });
    if (!(fonts == m_project->fonts())) {
        QUndoStack *stack = m_project->undoStack();
        stack->beginMacro(tr("Change Fonts"));
        stack->push(new CCommandChangeFonts(m_project, fonts));
        stack->endMacro();
    }
    QDialog::accept();
}
