#pragma once

#include "CItemModel.h"
#include "SFinding.h"
#include "SScreenExport.h"

#include <QCoreApplication>

class CProjectModel;
struct SPictureState;

/// What the rules share: where findings go, and how they are begun.
class CRuleContext
{
    Q_DECLARE_TR_FUNCTIONS(Checks)

public:
    CRuleContext(const CProjectModel &ofProject, const CItemModel *onScreen, Findings &findings)
        : project(ofProject), screen(onScreen), m_findings(findings)
    {
    }

    /// About an item; null for one about the screen, or the project when there is no screen.
    SFinding &add(ERule rule, ESeverity severity, const CItemModel *item, const QString &text)
    {
        return add(rule, severity, item, text, QString());
    }
    /// About something of the project that is no item.
    SFinding &addAbout(const QString &subject, ERule rule, ESeverity severity, const QString &text)
    {
        return add(rule, severity, nullptr, text, subject);
    }
    /// The same findings, but about another screen.
    CRuleContext on(const CItemModel *other) const { return {project, other, m_findings}; }
    /// A number that the project may set; `otherwise` when it does not, or sets none above 0.
    double setting(const QString &key, double otherwise) const;
    /// The item's name in quotation marks, or its kind when it has none.
    static QString called(const CItemModel &item);
    /// Whether the item is made to be touched and can be.
    static bool isTouched(const CItemModel &item);
    static constexpr int CutOfText = 1; ///< pixels of a text that may stand out of its box
    /// Whether some of a text is seen on the page and some lies beyond.
    bool isCutByEdge(const QRect &ink) const;

    const CProjectModel &project;
    const CItemModel *const screen;

private:
    SFinding &add(ERule rule, ESeverity severity, const CItemModel *item, const QString &text,
                  const QString &subject);

    Findings &m_findings;
};

// A file pair for each subject; each looks at one screen.
void checkPlaces(CRuleContext &context, const SPictureState &picture);
void checkNames(CRuleContext &context);
void checkChip(CRuleContext &context, const SScreenExport &render);
void checkImages(CRuleContext &context);
void checkPictures(CRuleContext &context, const SPictureState &picture);
