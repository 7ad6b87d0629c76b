#include "CActionFinder.h"

#include "CFoundDelegate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr int MaxWidth = 680; // pixels
constexpr int Gap = 48;       // to the window's edges
constexpr int MaxRows = 12;   // that are seen at a time
} // namespace

CActionFinder::CActionFinder(QWidget *window)
    : QFrame(window),
      m_line(new QLineEdit(this)),
      m_list(new QListView(this)),
      m_none(new QLabel(this)),
      m_found(new CFoundList(this))
{
    setObjectName(QStringLiteral("actionFinder"));
    m_line->setObjectName(QStringLiteral("actionFinderLine"));
    m_list->setObjectName(QStringLiteral("actionFinderList"));
    m_none->setContentsMargins(8, 4, 8, 4);
    m_list->setModel(m_found);
    m_list->setItemDelegate(new CFoundDelegate(m_list));
    m_list->setUniformItemSizes(true);
    m_list->setFocusPolicy(Qt::NoFocus);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusProxy(m_line);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(8);
    layout->addWidget(m_line);
    layout->addWidget(m_list);
    layout->addWidget(m_none);
    connect(m_line, &QLineEdit::textChanged, this, [this](const QString &typed) {
        m_found->setTyped(typed);
        place();
        mark(0);
    });
    connect(m_list, &QListView::clicked, this, &CActionFinder::choose);
    m_line->installEventFilter(this);
    window->installEventFilter(this);
    hide();
    retranslate();
}

void CActionFinder::retranslate()
{
    m_line->setPlaceholderText(tr("Search for actions, pages and items"));
    m_line->setAccessibleName(m_line->placeholderText());
    m_none->setText(tr("No match"));
}

void CActionFinder::open(const QVector<CFoundList::SEntry> &entries)
{
    m_before.clear();
    for (QWidget *each = window()->focusWidget(); each; each = each->parentWidget())
        m_before.append(each);
    m_line->clear();
    m_found->setEntries(entries, m_lastUsed);
    place();
    mark(0);
    show();
    raise();
    m_line->setFocus();
}

void CActionFinder::close()
{
    if (isHidden())
        return;
    if (m_line->hasFocus())
        giveKeysBack();
    hide();
    m_found->setEntries({}, {}); // items may go from now on
}

/// An editor of a cell is gone by now; then its list gets them.
void CActionFinder::giveKeysBack()
{
    const auto found =
        std::find_if(m_before.begin(), m_before.end(), [](const QPointer<QWidget> &each) {
            return each && each->isVisible() && each->isEnabled() &&
                   each->focusPolicy() != Qt::NoFocus;
        });
    if (found != m_before.end())
        (*found)->setFocus();
}

void CActionFinder::place()
{
    const QRect window = parentWidget()->rect();
    const int rows = std::min(std::max(1, m_found->rowCount()), MaxRows);
    m_list->setVisible(m_found->rowCount() > 0);
    m_none->setVisible(m_found->rowCount() == 0);
    m_list->setFixedHeight(rows * std::max(1, m_list->sizeHintForRow(0)) +
                           2 * m_list->frameWidth());
    const int width = std::min(MaxWidth, window.width() - Gap);
    const int height = std::min(sizeHint().height(), window.height() - Gap);
    setGeometry((window.width() - width) / 2, Gap, width, height);
}

void CActionFinder::mark(int row)
{
    const int last = m_found->rowCount() - 1;
    m_list->setCurrentIndex(m_found->index(std::min(std::max(0, row), last)));
}

bool CActionFinder::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == parentWidget()) {
        if (event->type() == QEvent::Resize && isVisible())
            place();
    } else if (event->type() == QEvent::FocusOut) {
        const auto reason = static_cast<QFocusEvent *>(event)->reason();
        if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason)
            QMetaObject::invokeMethod(
                this,
                [this] {
                    if (!m_line->hasFocus())
                        close();
                },
                Qt::QueuedConnection);
    } else if (event->type() == QEvent::KeyPress) {
        return keyPressed(static_cast<QKeyEvent *>(event)->key());
    } else if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter ||
            key == Qt::Key_Tab) {
            event->accept(); // whatever they are for elsewhere
            return true;
        }
    }
    return QFrame::eventFilter(watched, event);
}

bool CActionFinder::keyPressed(int key)
{
    const int row = m_list->currentIndex().row();
    switch (key) {
    case Qt::Key_Escape:
        close();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose();
        return true;
    case Qt::Key_Down:
        mark(row + 1);
        return true;
    case Qt::Key_Up:
        mark(row - 1);
        return true;
    case Qt::Key_PageDown:
        mark(row + MaxRows - 1);
        return true;
    case Qt::Key_PageUp:
        mark(row - MaxRows + 1);
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true; // there is nowhere to go
    default:
        return false;
    }
}

/// As from a menu: what had the keys has them again when the action runs.
void CActionFinder::choose()
{
    const int row = m_list->currentIndex().row();
    if (row < 0 || !m_found->canChoose(row))
        return;
    const CFoundList::SEntry chosen = m_found->entry(row);
    close();
    if (chosen.item) {
        Q_EMIT itemChosen(chosen.item);
        return;
    }
    const QString id = chosen.action->objectName();
    if (!id.isEmpty()) {
        m_lastUsed.removeAll(id);
        m_lastUsed.prepend(id);
        setLastUsed(m_lastUsed);
    }
    chosen.action->trigger();
}
