#pragma once

#include <QString>

class CPropertyManager;
class QtProperty;
class QtVariantProperty;

/// The rows of a "pointlist": a group "point" for each point, with its "x" and "y". In the model
/// the points are one text, "10,20;30,40".
class CPointListRows
{
public:
    explicit CPointListRows(CPropertyManager *manager);

    /// A new row for the list, without points; it becomes the one that the others speak of.
    QtVariantProperty *makeRow(const QString &key);
    void forget() { m_list = nullptr; }
    bool isList(const QtProperty *row) const { return row && row == m_list; }

    /// The points of the text: rows that are there are kept, missing ones added, surplus ones
    /// deleted.
    void showText(const QString &text);
    QString text() const;

private:
    void addPoint();

    CPropertyManager *const m_manager; ///< not owned
    QtProperty *m_list = nullptr;      ///< belongs to the manager
};
