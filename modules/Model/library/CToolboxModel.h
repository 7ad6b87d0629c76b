#pragma once

#include <QStandardItemModel>

class QDomDocument;

/// The widget palette: a row per palette group, and under it a row per widget with its caption and
/// icon, in the widget library's order.
class CToolboxModel : public QStandardItemModel
{
    Q_OBJECT

public:
    static constexpr int TypeRole = Qt::UserRole + 1; ///< of a widget's row: its type name

    explicit CToolboxModel(const QDomDocument &document, QObject *parent = nullptr);
};
