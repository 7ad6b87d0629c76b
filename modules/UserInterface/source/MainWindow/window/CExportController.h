#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>

#include "CProjectExporter.h"

class CEmulatorAdapter;
class CProjectModel;
class IUserQuestions;
class QWidget;

/// What the shown screen has last received from the emulator.
struct SShownScreen
{
    QString name;
    QString text; ///< display list, one command a line
    QByteArray bytes;
    QString findings; ///< what is not drawn as designed or not for the chip, a line each
};

/// The exports of the menu: the file dialog, the progress with its Cancel, the messages.
/// A second export cannot begin while one runs; the window can be used meanwhile.
class CExportController : public QObject
{
    Q_OBJECT

public:
    /// `window`: parent of the dialogs. It, the adapter and the user live longer.
    CExportController(QWidget *window, CEmulatorAdapter *adapter, IUserQuestions *user);

    void exportProjectDL(CProjectModel *project, const QString &folder);
    void exportProjectBin(CProjectModel *project, const QString &folder);
    void exportPackage(CProjectModel *project, const QString &folder);
    /// Of a page that hides items from its canvas: draws it with them, since the chip does. Turns
    /// the event loop. False when that did not come about, and the user was told.
    bool drawHidden(SShownScreen *shown, CProjectModel *project, int row);
    void exportScreenDL(const SShownScreen &screen, const QString &folder);
    void exportScreenBin(const SShownScreen &screen, const QString &folder);

    bool isRunning() const { return m_isRunning; }
    /// Ends the export that runs, as soon as it comes to its next screen.
    void cancel() { m_isCancelled = true; }

Q_SIGNALS:
    /// Of a screen that is exported all the same, a line each.
    void findings(const QString &screen, const QString &errors);
    void finished();

private:
    /// Into the path; the text gets the reason when it fails.
    using Export = std::function<CProjectExporter::EResult(CProjectExporter *, CProjectModel *,
                                                           const QString &, QString *)>;
    struct SDialogTexts
    {
        QString title;
        QString filter;
        QString suffix;
    };

    QString askPath(const SDialogTexts &texts, const QString &folder) const;
    void exportProject(CProjectModel *project, const QString &path, const Export &form);
    CProjectExporter::EResult writePackage(CProjectExporter *exporter, CProjectModel *project,
                                           const QString &folder, QString *reason) const;
    void waitForEmulator() const;
    void writeScreen(const QString &path, const SShownScreen &screen, const QByteArray &bytes);
    void tellExported(const QString &path, bool hasFindings);

    QWidget *const m_window;
    CEmulatorAdapter *const m_adapter;
    IUserQuestions *const m_user;
    bool m_isRunning = false;
    bool m_isCancelled = false;
};
