#pragma once

#include "CProjectModel.h"
#include "IModelIterator.h"

#include <QImage>
#include <QObject>
#include <QPointer>

#include <memory>
#include <vector>

class CEmulatorAdapter;

/// A page of samples that belongs to no project's screens: what the chip would draw of them, for
/// previews. The items have commands of their own and depend on no widget kind.
/// Requests: only the newest is answered; one that is not answered yet goes with this object.
class CSamplePage final : public QObject, private IModelIterator
{
    Q_OBJECT

public:
    /// The project tells the folder of relative files; neither is owned.
    CSamplePage(CEmulatorAdapter *adapter, const CProjectModel *project, QObject *parent = nullptr);
    ~CSamplePage() override;

    static CWidgetProperty text(const char *name, const QString &text);
    static CWidgetProperty colour(const char *name, const QString &colour);
    static CWidgetProperty number(const char *name, int value);

    /// An empty page; what was asked for is not wanted any more.
    void begin(const QString &colour, const ProjectFontList &fonts);
    /// `commands` must live as long as this.
    void add(const QString &type, const char *commands, std::vector<CWidgetProperty> properties);
    void ask();
    void withdraw();

Q_SIGNALS:
    /// `frame`: null when the emulator was stopped; `bytes`: of graphics memory; `errors`: one a
    /// line.
    void drawn(const QImage &frame, size_t bytes, const QString &errors);

private:
    class CItem;

    void next() override;
    IModelItem *current() override;

    CEmulatorAdapter *const m_adapter;
    const QPointer<const CProjectModel> m_project;
    std::vector<std::unique_ptr<CItem>> m_items; ///< the screen, then samples
    size_t m_current = 0;
    size_t m_bytes = 0;
    QString m_errors;
};
