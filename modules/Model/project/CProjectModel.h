#pragma once

#include "CImagePlaces.h"
#include "CWidgetProperty.h"
#include "IPropertyChangeObserver.h"
#include "ProjectFonts.h"

#include <QDomElement>
#include <QHash>
#include <QSize>
#include <QStandardItemModel>

#include <memory>

class CItemModel;
class CScreenModel;
class CWidgetLibraryModel;
class CXmlWriter;
class QUndoStack;
struct SItemElement;
struct SUnused;

/// A project: its properties, its screens as top-level rows with everything below them, and the
/// undo stack of the commands that change it.
/// Errors:  reading from bytes or files that cannot be a project changes nothing and says why.
/// Threads: the GUI thread only; but one may be made and read in any other, which hands it over.
class CProjectModel : public QStandardItemModel, public IPropertyChangeObserver
{
    Q_OBJECT

public:
    using PropertySet = QHash<QString, CWidgetProperty>;

    static constexpr quint32 SmallGraphicsMemory = 0x40000; ///< bytes
    static constexpr quint32 LargeGraphicsMemory = 0x100000;

    explicit CProjectModel(QObject *parent = nullptr);
    ~CProjectModel() override;

    /// From the thread that has made it, which must not use it any more.
    void handOverTo(QThread *thread);

    /// The open project of the process; null when none is open.
    static CProjectModel *current();
    static void setCurrent(CProjectModel *project);

    QUndoStack *undoStack() const { return m_undoStack.get(); }

    // Project properties.
    const PropertySet &properties() const { return m_properties; }
    QString propertyText(const QString &name) const;
    /// Sets one from its text, and with it what depends on it: "platform" selects the library of
    /// all items, "width" and "height" the resolution.
    void setProjectProperty(const QString &name, const QString &text);
    /// Takes one away; what depends on it is as in a new project.
    void removeProjectProperty(const QString &name);
    void setProjectProperties(const QHash<QString, QString> &texts);
    QString platform() const;
    QString workingDirectory() const;
    void setWorkingDirectory(const QString &folder);
    void setNyxVersion(const QString &version);
    QSize resolution() const { return m_resolution; } ///< pixels
    const CWidgetLibraryModel *library() const { return m_library; }
    const ProjectFontList &fonts() const { return m_fonts; }
    /// Files are called as today, whatever a command calls them.
    void setFonts(const ProjectFontList &fonts);
    /// Size of the chip's general-purpose graphics memory in bytes.
    quint32 graphicsMemorySize() const { return graphicsMemoryOf(platform()); }
    static quint32 graphicsMemoryOf(const QString &platform);

    /// A folder or file as it is kept in documents: relative to the working directory when it lies
    /// in it.
    QString storedFolder(const QString &folder) const;
    /// The folder or file that a document's text means.
    QString absoluteFolder(const QString &stored) const;
    /// A folder or file as an item is to call it from now on: as storedFolder(), unless an older
    /// command means something else by that.
    QString placeText(const QString &place) const;
    /// A value that names a place, as it is called today.
    QVariant today(const QVariant &place) const;
    const CImagePlaces &imagePlaces() const { return m_imagePlaces; }
    void setImagePlaces(const CImagePlaces &places) { m_imagePlaces = places; }

    // Screens and items.
    int screenCount() const { return rowCount(); }
    CScreenModel *screen(int row) const; ///< null when there is none
    /// The first of "Page 1", "Page 2", ... that no screen is called.
    QString unusedScreenName() const;
    /// The smallest number from 1 that no item of the project has as its id.
    quint32 unusedId() const;
    /// Gives a copy that is not in the project yet, and all below it, unused ids. Items without an
    /// "id" property are left alone.
    void assignFreshIds(CItemModel *copy) const;
    /// Builds a screen from an element of a copied-screen or page document, with fresh ids, and
    /// puts it at the row, or behind the last one when there is no such row.
    /// `unused`: for one of several.
    CScreenModel *buildScreen(const SItemElement &element, int row, SUnused *unused = nullptr);

    /// An empty project with one new screen.
    void newProject(const QHash<QString, QString> &texts);

    // The project document.
    void save(QDomDocument &document) const;
    /// Replaces the project by the first project element of a document that passed CXmlGuard.
    /// False, and an empty project, when it has none.
    bool load(const QDomDocument &document);

    /// The document as bytes for a file. Nothing, and the reason, when it could not be read back
    /// because it is too large or too deep.
    /// A working directory that is the folder of `filePath` is written as ".", so that the file is
    /// the same wherever the project lies.
    QByteArray saveToBytes(QString *error, const QString &filePath = {}) const;
    bool loadFromBytes(const QByteArray &xml, QString *error);

    /// The document as a file. The project's working directory becomes the folder of the file that
    /// is loaded.
    bool saveToFile(const QString &filePath, QString *error) const;
    bool loadFromFile(const QString &filePath, QString *error);

    /// Whether the bytes are a project document that can be saved again; otherwise the reason.
    static bool isProjectDocument(const QByteArray &xml, QString *error);

    void onPropertyChanged(CItemModel *item, const QString &key, const QVariant &value) override;
    void onGeometryChanged(CItemModel *item) override;
    void onGuidesChanged(CScreenModel *screen) override;
    CProjectModel *project() override { return this; }

Q_SIGNALS:
    void propertyChanged(CItemModel *item, const QString &key, const QVariant &value);
    void geometryChanged(CItemModel *item);
    void guidesChanged(CScreenModel *screen); ///< which looks as before
    /// All texts may look different from now on.
    void fontsChanged();

private:
    void reset();
    void applyProjectProperty(const QString &name, const QString &text);
    struct SContent;
    static const CWidgetLibraryModel *libraryOf(const QString &platform);
    CScreenModel *makeScreen(const CWidgetLibraryModel *library) const;
    QString read(const QByteArray &xml, SContent &content) const;
    QString savingRefusal(const SContent &content) const;
    void saveFonts(QDomDocument &document, QDomElement &project) const;
    void appendLoadedScreens(const QVector<CScreenModel *> &screens);
    QVector<const CWidgetProperty *> savedProperties() const;
    QString savedText(const CWidgetProperty &property, const QString &filePath) const;
    void takeIn(const QModelIndex &parent, int first, int last);

    PropertySet m_properties;
    CImagePlaces m_imagePlaces;
    QSize m_resolution;
    ProjectFontList m_fonts;
    const CWidgetLibraryModel *m_library = nullptr;
    std::unique_ptr<QUndoStack> m_undoStack;
};
