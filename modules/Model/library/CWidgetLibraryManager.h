#pragma once

#include <QObject>
#include <QVector>

#include <map>
#include <memory>

class CToolboxModel;
class CWidgetLibraryModel;

/// The widget libraries of all platforms, by chip code. One for the process, see instance().
/// Errors:  a missing or malformed file makes initialise() false; errorText() says why.
/// Owns:    the models. Loading a chip code again deletes its old ones, so it must not be done
///          while a project is open.
class CWidgetLibraryManager : public QObject
{
    Q_OBJECT

public:
    explicit CWidgetLibraryManager(QObject *parent = nullptr);
    ~CWidgetLibraryManager() override;

    static CWidgetLibraryManager &instance();

    /// The codes of all platforms, as the platform table lists them.
    void setChipCodes(const QVector<quint32> &chipCodes);

    /// Loads the file for each chip code; true when there is then a library for each.
    bool initialise(const QString &filePath);
    bool initialise(const QString &filePath, const QVector<quint32> &chipCodes);

    /// The models of a chip code, or null.
    const CWidgetLibraryModel *libraryModel(quint32 chipCode) const;
    CToolboxModel *toolboxModel(quint32 chipCode) const;

    /// Why initialise() failed; empty when it did not.
    const QString &errorText() const { return m_errorText; }

private:
    QVector<quint32> m_chipCodes;
    std::map<quint32, std::unique_ptr<CWidgetLibraryModel>> m_libraries;
    std::map<quint32, std::unique_ptr<CToolboxModel>> m_toolboxes;
    QString m_errorText;
};
