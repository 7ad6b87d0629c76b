#pragma once

#include <QColor>
#include <QObject>
#include <QPointer>
#include <QVector>

#include <memory>

class CColourDialog;
class CItemModel;
class CLiveEdit;
class QWidget;

/// Lets the user choose a colour for a property of some items: what is tried is seen on the canvas
/// at once, what is accepted is one step, and anything else leaves all as it was.
class CColourChooser : public QObject
{
    Q_OBJECT

public:
    explicit CColourChooser(QObject *parent = nullptr);
    ~CColourChooser() override;

    /// Opens the dialog beside a widget. The items are of one project and have the property.
    void choose(const QVector<CItemModel *> &items, const QString &key, QWidget *beside);
    /// Gives all back: an item is about to go, or is shown no more.
    void cancel();

private:
    void show(const QColor &colour);
    void end(bool isKept);

    QPointer<CColourDialog> m_dialog; ///< of the window
    std::unique_ptr<CLiveEdit> m_edit;
};
