#include "CBatchNumber.h"

#include "CBatchEditor.h"
#include "CNumberDrag.h"
#include "CNumberEntry.h"
#include "CPendingEdit.h"
#include "CPropertyManager.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

CBatchNumber::CBatchNumber(CBatchEditor *editor, const QString &key, double unit, QWidget *parent)
    : CBatchLine(editor, key, parent), m_unit(unit)
{
    line()->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    line()->setToolTip(CNumberEntry::hint());
    line()->installEventFilter(this);
    pending()->setRest(CPendingEdit::Pause); // steps are seen on the items at once
}

void CBatchNumber::show(const CBatchItems::SProperty &property)
{
    const QVariant &step = property.property.singleStep();
    m_step = step.toDouble() > 0 ? step.toDouble() : 1;
    CBatchLine::show(property);
}

QString CBatchNumber::textOf(const CWidgetProperty &property) const
{
    QString text = CPropertyManager::numberText(property.value().toDouble() / m_unit);
    return text.replace(QLatin1Char('.'), locale().decimalPoint());
}

QString CBatchNumber::take(const QString &text)
{
    return editor()->type(key(), text, m_unit);
}

void CBatchNumber::takePending()
{
    if (m_steps != 0)
        editor()->keep();
    m_steps = 0;
    CBatchLine::takePending();
}

void CBatchNumber::step(int steps)
{
    if (isBeingEdited())
        commit();
    m_steps += steps;
    editor()->tryStep(key(), m_steps * m_step);
    pending()->touch();
}

void CBatchNumber::dragBy(QLabel *label)
{
    new CNumberDrag(label, {[this](const QPoint &) { return isEnabled(); },
                            [this](const QPoint &) { commit(); },
                            [this](int steps) { editor()->tryStep(key(), steps * m_step); },
                            [this](bool isKept) {
                                if (isKept)
                                    editor()->keep();
                                else
                                    editor()->cancel();
                            }});
}

bool CBatchNumber::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return CBatchLine::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    const bool isFar = key->modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    constexpr int manySteps = 10;
    switch (key->key()) {
    case Qt::Key_Escape:
        m_steps = 0;
        return false;
    case Qt::Key_Up:
        step(isFar ? manySteps : 1);
        return true;
    case Qt::Key_Down:
        step(isFar ? -manySteps : -1);
        return true;
    case Qt::Key_PageUp:
        step(manySteps);
        return true;
    case Qt::Key_PageDown:
        step(-manySteps);
        return true;
    default:
        return false;
    }
}
