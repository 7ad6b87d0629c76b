#pragma once

#include "CBatchItems.h"
#include "CEditSteps.h"

#include <QObject>
#include <QPointer>
#include <QSet>

#include <memory>

class CColourChooser;
class CItemImages;
class CLiveEdit;
class CProjectModel;
class QWidget;

/// Carries out what the fields of the batch edit ask for: each is one step of undo for all items.
class CBatchEditor : public QObject
{
    Q_OBJECT

public:
    /// `window`: over which it asks for files.
    explicit CBatchEditor(QWidget *window);
    ~CBatchEditor() override;

    /// Nothing is edited until items are given. Not owned; null for none.
    void setProject(CProjectModel *project);
    void setItems(const QList<CItemModel *> &items);
    CProjectModel *project() const;
    const CBatchItems &items() const { return m_items; }
    /// It or what it is in is edited.
    bool holds(const CItemModel *item) const;

    void set(const QString &key, const QVariant &value);
    /// What was typed into a number field; `unit`: what one of the typed numbers stands for.
    /// The error where nothing could be done, else nothing.
    QString type(const QString &key, const QString &expression, double unit);

    // What is seen at once and is no step yet. Another key ends the one before.
    /// Each number by so much more than it was.
    void tryStep(const QString &key, double by);
    void keep();
    void cancel();
    bool isTrying() const { return m_live != nullptr; }

    /// Opens the dialog beside a widget; what is tried is seen on all items.
    void chooseColour(const QString &key, QWidget *beside);
    /// Asks for a file, and shows it in all that have the property.
    void chooseImage(const QString &key);

    CEditSteps &steps() { return m_steps; }
    void takeStepsBack();

Q_SIGNALS:
    void message(const QString &text); ///< for the output window

private:
    void begin(const QString &key);
    void push(const PropertyStep::Changes &changes, const QString &key);
    void takeImages(const QVector<CItemModel *> &items, const QString &file, const QString &format,
                    const QString &key, PropertyStep::Changes changes);

    CItemImages *const m_images;
    CColourChooser *const m_colours;
    QPointer<CProjectModel> m_project;
    CBatchItems m_items;
    QSet<const CItemModel *> m_selected;
    CEditSteps m_steps;
    std::unique_ptr<CLiveEdit> m_live;
};
