#include "RuleSupport.h"

#include "CProjectModel.h"
#include "CWidgetLibraryModel.h"
#include "PropertyKey.h"
#include "Rules.h"

SFinding &CRuleContext::add(ERule rule, ESeverity severity, const CItemModel *item,
                            const QString &text, const QString &subject)
{
    SFinding finding;
    finding.rule = rule;
    finding.severity = severity;
    finding.text = text;
    finding.screen = screen;
    finding.item = item;
    const QString ignored = item     ? item->propertyText(Rules::IgnoredKey)
                            : screen ? screen->propertyText(Rules::IgnoredKey)
                                     : project.propertyText(Rules::IgnoredKey);
    finding.subject = subject;
    finding.ignoredBecause = Rules::ignoredBecause(ignored, rule, subject);
    m_findings.append(finding);
    return m_findings.last();
}

double CRuleContext::setting(const QString &key, double otherwise) const
{
    const double value = project.propertyText(key).toDouble();
    return value > 0 && value < 1e6 ? value : otherwise;
}

QString CRuleContext::called(const CItemModel &item)
{
    return item.name().isEmpty() ? item.itemTypeName()
                                 : QLatin1Char('"') + item.name() + QLatin1Char('"');
}

bool CRuleContext::isTouched(const CItemModel &item)
{
    const QString enabled = QStringLiteral("enabled");
    return item.kind() == CItemModel::Kind::Widget && item.library() &&
           item.library()->isTouched(item.itemTypeName()) &&
           (!item.hasProperty(enabled) || item.propertyValue(enabled).toBool());
}

bool CRuleContext::isCutByEdge(const QRect &ink) const
{
    const QRect page(QPoint(), project.resolution());
    return page.intersects(ink) &&
           !page.adjusted(-CutOfText, -CutOfText, CutOfText, CutOfText).contains(ink);
}
