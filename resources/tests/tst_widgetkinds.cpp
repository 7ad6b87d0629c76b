#include "CAnswers.h"
#include "CModelIterator.h"
#include "CProjectModel.h"
#include "CScreenModel.h"
#include "CWidgetLibraryManager.h"
#include "CWidgetLibraryModel.h"
#include "CWidgetModel.h"
#include "ItemGeometry.h"
#include "ItemOutline.h"
#include "PlatformFilter.h"
#include "PropertyKey.h"
#include "TestFiles.h"

#include <QDir>
#include <QDomDocument>
#include <QIcon>
#include <QRegularExpression>
#include <QTest>
#include <QTransform>

/// Renders screens through the emulator library and waits for each frame.
namespace FrameRecorder {

struct Answer
{
    QImage frame;
    QString errors; ///< one message a line
};

QString programFile(const QString &name)
{
    return QDir(qEnvironmentVariable("KIV_BIN_DIR")).filePath(name);
}

bool start(quint32 chipCode, const QSize &size)
{
    CAnswers::instance().registerCallbacks();
    return Emu_Start(programFile(QStringLiteral("kiv_render.lua")).toLocal8Bit(), chipCode) &&
           Emu_ConfigScreen(uint32_t(size.width()), uint32_t(size.height()));
}

Answer render(CScreenModel &screen)
{
    CAnswers::instance().clear();
    CModelIterator iterator(&screen);
    Emu_RenderObjects(&iterator, nullptr, 1);
    const SAnswer answer = CAnswers::instance().wait(1).front();
    const QImage frame(reinterpret_cast<const uchar *>(answer.pixels.data()), int(answer.width),
                       int(answer.height), int(answer.width) * 4, QImage::Format_RGB32);
    return {frame.copy(), QString::fromStdString(answer.errors)};
}

} // namespace FrameRecorder

namespace {

const QVector<quint32> ChipCodes = {0x100, 0x101, 0x110, 0x111, 0x112, 0x113};
const QSize FrameSize(512, 512);
const QPoint Place(200, 220);
const QRgb Ground = qRgb(255, 0, 255);

using Values = QVector<QPair<QString, QVariant>>;

QString describe(const QString &type, const Values &values)
{
    QString text = type;
    for (const auto &value : values)
        text += QStringLiteral(" %1=%2").arg(value.first, value.second.toString().left(40));
    return text;
}

/// The kinds as the document has them, apart from the model's way of reading them.
QDomElement libraryRoot()
{
    static QDomDocument document;
    if (document.isNull())
        document.setContent(
            TestFiles::read(FrameRecorder::programFile(QStringLiteral("widget-library.xml"))));
    return document.documentElement();
}

/// One screen with one widget on it, its front left corner or centre at Place.
class Stage
{
public:
    Stage(const QString &type, const CWidgetLibraryModel *library)
        : m_screen(QStringLiteral("stage"), library, nullptr)
    {
        m_screen.setProperty(PropertyKey::Color, QColor(Ground).name());
        m_widget = new CWidgetModel(type, library, nullptr);
        m_widget->setProperty(PropertyKey::Id, 7);
        moveTo(Place);
        m_screen.appendRow(m_widget);
    }

    void set(const Values &values)
    {
        for (const auto &value : values)
            m_widget->setProperty(value.first, value.second);
    }

    CWidgetModel &widget() { return *m_widget; }
    FrameRecorder::Answer render() { return FrameRecorder::render(m_screen); }

private:
    void moveTo(const QPoint &place)
    {
        const QPoint second(m_widget->propertyValue(PropertyKey::X2).toInt(),
                            m_widget->propertyValue(PropertyKey::Y2).toInt());
        m_widget->setProperty(PropertyKey::X, place.x());
        m_widget->setProperty(PropertyKey::Y, place.y());
        if (m_widget->hasProperty(PropertyKey::X2)) {
            m_widget->setProperty(PropertyKey::X2, place.x() + second.x());
            m_widget->setProperty(PropertyKey::Y2, place.y() + second.y());
        }
    }

    CScreenModel m_screen;
    CWidgetModel *m_widget;
};

/// Where a widget may draw and can be touched: one outline for both, so that none is too small.
QRectF allowedBox(const CWidgetModel &widget)
{
    const SItemOutline outline = itemOutline(widget);
    const QPointF middle = outline.box.center();
    QTransform turn;
    turn.translate(middle.x(), middle.y()).rotate(outline.turn);
    return turn.mapRect(outline.box.translated(-middle));
}

/// The pixels that differ from the ground, as the smallest rectangle about them.
QRect drawnBox(const QImage &frame)
{
    QRect box;
    for (int y = 0; y < frame.height(); ++y) {
        const auto *row = reinterpret_cast<const QRgb *>(frame.constScanLine(y));
        for (int x = 0; x < frame.width(); ++x) {
            if ((row[x] & 0xFFFFFF) != (Ground & 0xFFFFFF))
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

/// Settings that the editor allows, each of them alone and some together.
QVector<Values> limitSettings(const QVector<CWidgetProperty> &properties)
{
    QVector<Values> settings = {{}};
    Values lowest, highest;
    for (const CWidgetProperty &property : properties) {
        const QString key = property.key();
        if (property.isInternal() || property.isReadOnly() || key == PropertyKey::X ||
            key == PropertyKey::Y || key == PropertyKey::Id)
            continue;
        QVariantList tried;
        switch (property.propertyType()) {
        case PropertyType::Int:
        case PropertyType::Float:
            if (property.minimum().isValid())
                lowest.append({key, property.minimum()});
            if (property.maximum().isValid())
                highest.append({key, property.maximum()});
            tried = {property.minimum(), property.maximum()};
            break;
        case PropertyType::Bool:
            tried = {false, true};
            break;
        case PropertyType::Enum:
            for (const QString &entry : property.enumerationEntries())
                tried.append(entry);
            break;
        case PropertyType::Rgb:
            tried = {QStringLiteral("#00ffffff"), QStringLiteral("#ff0000")};
            break;
        case PropertyType::Time:
            tried = {QTime(0, 0), QTime(23, 59, 59), QTime()};
            break;
        default:
            tried = {"", QString(3000, 'W'), "jÄg|_,;:.%s\n\\", "jjj", ",;,;;1,2;-5e9,nan"};
            if (key == PropertyKey::PointList)
                tried = {"", "0,0", "0,0;0,0;0,0", "0,0;90,90;90,0;0,90", ";x,y;1;2,3"};
        }
        for (const QVariant &value : qAsConst(tried)) {
            if (value.isValid() || property.propertyType() == PropertyType::Time)
                settings.append({{key, value}});
        }
    }
    settings.append(lowest);
    settings.append(highest);
    return settings;
}

/// Errors without what is truly not drawn as it was meant: no image, characters without a glyph.
QString faultsIn(const QString &errors)
{
    static const QRegularExpression finding(
        QStringLiteral("^(font 0 is not in the project; .*|\\S+( [^ :]+)?( \"[^\"]*\")?: (no image "
                       "is set|no picture or film is set|the format None "
                       "shows no image|no font "
                       "has U\\+000A; .*|seven segments cannot show .*))$"));
    QStringList faults = errors.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    faults.erase(std::remove_if(faults.begin(), faults.end(),
                                [](const QString &line) { return finding.match(line).hasMatch(); }),
                 faults.end());
    return faults.join(QLatin1Char('\n'));
}

/// Small and odd sizes, with the smallest and the largest font.
QVector<Values> sizeSettings(const CWidgetModel &widget)
{
    QVector<Values> settings;
    const auto addWithFonts = [&](const Values &size) {
        if (!widget.hasProperty(PropertyKey::Font)) {
            settings.append(size);
            return;
        }
        for (const int font : {16, 20, 27, 34})
            settings.append(Values(size) << qMakePair(PropertyKey::Font, QVariant(font)));
    };
    const int sizes[] = {1, 3, 7, 16, 31, 90};
    for (const int size : sizes) {
        if (widget.hasProperty(PropertyKey::Radius)) {
            addWithFonts({{PropertyKey::Radius, size}});
        } else if (widget.hasProperty(PropertyKey::PointSize)) {
            addWithFonts({{PropertyKey::PointSize, size * 16}});
        } else if (widget.hasProperty(PropertyKey::Height)) {
            for (const int height : sizes)
                addWithFonts({{PropertyKey::Width, size}, {PropertyKey::Height, height}});
        } else if (widget.isHeightFromFont()) {
            settings.append({{PropertyKey::Width, size}});
        }
    }
    return settings;
}

} // namespace

class tst_WidgetKinds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { Emu_Stop(); }
    void everyKindHasItsParts();
    void propertiesSuitTheirChip();
    void kindsStayInTheirRectangle_data();
    void kindsStayInTheirRectangle();
    void statesAreTold();
    void nothingInAFileRaisesAnError();
    void whatIsNotShownIsReported();
    void workedExampleOfTheDocumentation();
    void examplesAreWhole();

private:
    const CWidgetLibraryModel *library(quint32 chip) const
    {
        return CWidgetLibraryManager::instance().libraryModel(chip);
    }
    /// Visits the properties of all kinds, until one has made the test fail.
    template<class Visit>
    void eachProperty(const QVector<quint32> &chips, Visit visit) const
    {
        for (const quint32 chip : chips)
            for (const QString &kind : library(chip)->typeNames())
                for (const CWidgetProperty &property : library(chip)->properties(kind))
                    if (!QTest::currentTestFailed())
                        visit(kind, property, chip);
    }
};

void tst_WidgetKinds::initTestCase()
{
    auto &manager = CWidgetLibraryManager::instance();
    QVERIFY2(manager.initialise(FrameRecorder::programFile(QStringLiteral("widget-library.xml")),
                                ChipCodes),
             qPrintable(manager.errorText()));
    QVERIFY(!libraryRoot().isNull());
}

void tst_WidgetKinds::everyKindHasItsParts()
{
    QSet<QString> seen;
    const auto groups = libraryRoot().elementsByTagName(QStringLiteral("toolboxgroup"));
    QVERIFY(groups.size() >= 6);
    const auto widgets = libraryRoot().elementsByTagName(QStringLiteral("widget"));
    for (int i = 0; i < widgets.size(); ++i) {
        const QDomElement widget = widgets.at(i).toElement();
        const QString type = widget.attribute(QStringLiteral("type"));
        QVERIFY2(type.startsWith(QLatin1String("Kiv_")) && type.endsWith(QLatin1String("_T")),
                 qPrintable(type));
        QVERIFY2(!seen.contains(type), qPrintable(type));
        seen.insert(type);
        QVERIFY(!widget.attribute(QStringLiteral("name")).isEmpty());
        QVERIFY(!library(0x100)->tooltip(type).isEmpty());
        QVERIFY(!library(0x100)->renderCommands(type).trimmed().isEmpty());
        const QString icon = widget.firstChildElement(QStringLiteral("icon")).text();
        QVERIFY2(!QIcon(icon).pixmap(64, 64).isNull(), qPrintable(icon));
        for (const QString &key :
             {QStringLiteral("name"), PropertyKey::Id, PropertyKey::X, PropertyKey::Y})
            QVERIFY2(library(0x100)->propertyIndex(type, key) >= 0, qPrintable(type + key));
    }
}

void tst_WidgetKinds::propertiesSuitTheirChip()
{
    eachProperty(ChipCodes, [](const QString &kind, const CWidgetProperty &property, quint32 chip) {
        const bool first = chip < 0x110;
        const std::string what = (kind + ' ' + property.key()).toStdString();
        const QVariant low = property.minimum(), high = property.maximum();
        const QStringList entries = property.enumerationEntries();
        const double value = property.value().toDouble();
        if (low.isValid() && high.isValid()) {
            QVERIFY2(low.toInt() < high.toInt(), what.c_str());
            QVERIFY2(value >= low.toInt() && value <= high.toInt(), what.c_str());
        }
        if (property.key() == PropertyKey::Width)
            QCOMPARE(high.toInt(), first ? 512 : 2048);
        if (property.propertyType() == PropertyType::Enum)
            QVERIFY2(entries.contains(property.text()), what.c_str());
        if (property.key() == "format") {
            QCOMPARE(entries.contains("PALETTED"), first);
            QCOMPARE(entries.contains("PALETTED8"), !first);
        }
    });
}

void tst_WidgetKinds::kindsStayInTheirRectangle_data()
{
    QTest::addColumn<quint32>("chip");
    QTest::addColumn<QString>("kind");
    for (const quint32 chip : ChipCodes) {
        for (const QString &kind : library(chip)->typeNames())
            QTest::addRow("%x %s", chip, qPrintable(kind)) << chip << kind;
    }
}

void tst_WidgetKinds::kindsStayInTheirRectangle()
{
    QFETCH(quint32, chip);
    QFETCH(QString, kind);
    static quint32 started = 0;
    if (started != chip) {
        QVERIFY(FrameRecorder::start(chip, FrameSize));
        started = chip;
    }
    Stage probe(kind, library(chip));
    QVector<Values> settings = limitSettings(library(chip)->properties(kind));
    if (chip == 0x100)
        settings += sizeSettings(probe.widget());
    else if (chip != 0x110)
        settings = {{}}; // the limits of the other chips are those of these two
    for (const Values &values : qAsConst(settings)) {
        Stage stage(kind, library(chip));
        stage.set(values);
        const FrameRecorder::Answer answer = stage.render();
        const QString what = describe(kind, values);
        const QString faults = faultsIn(answer.errors);
        QVERIFY2(faults.isEmpty(), qPrintable(what + QLatin1String(": ") + faults));
        const QRect drawn = drawnBox(answer.frame);
        // A pixel more for letters that hang over and for strokes of a fraction of a pixel.
        const QRect allowed = allowedBox(stage.widget()).adjusted(-1, -1, 1, 1).toAlignedRect();
        if (values.isEmpty())
            QVERIFY2(!drawn.isEmpty(), qPrintable(what + QLatin1String(" draws nothing")));
        if (!drawn.isEmpty() && !allowed.contains(drawn)) {
            QString text;
            QDebug(&text) << qPrintable(what) << "draws" << drawn << "outside of" << allowed;
            QFAIL(qPrintable(text));
        }
    }
}

void tst_WidgetKinds::statesAreTold()
{
    QVERIFY(FrameRecorder::start(0x113, FrameSize));
    for (const QString &kind : library(0x113)->typeNames()) {
        for (const char *state : {"pressed", "checked", "enabled", "lit", "open", "focused"}) {
            if (library(0x113)->propertyIndex(kind, QLatin1String(state)) < 0)
                continue;
            Stage off(kind, library(0x113)), on(kind, library(0x113));
            off.set({{QLatin1String(state), false}});
            on.set({{QLatin1String(state), true}});
            QVERIFY2(off.render().frame != on.render().frame,
                     qPrintable(kind + QLatin1String(state)));
        }
    }
}

void tst_WidgetKinds::nothingInAFileRaisesAnError()
{
    QVERIFY(FrameRecorder::start(0x113, FrameSize));
    eachProperty({0x113}, [this](const QString &kind, const CWidgetProperty &property, quint32) {
        // Colours have a fixed form in any file; what names a missing asset is to be reported.
        if (property.propertyType() == PropertyType::Rgb || property.isReadOnly())
            return;
        for (const QVariant &value : std::initializer_list<QVariant>{
                 0, -1, INT32_MAX, INT32_MIN, 1e300, -1e300, "nan", "inf", "bogus", ""}) {
            Stage stage(kind, library(0x113));
            stage.set({{property.key(), value}});
            const QString errors = faultsIn(stage.render().errors);
            QVERIFY2(errors.isEmpty(),
                     qPrintable(describe(kind, {{property.key(), value}}) + errors));
        }
    });
}

void tst_WidgetKinds::whatIsNotShownIsReported()
{
    QVERIFY(FrameRecorder::start(0x113, FrameSize));
    const Values gone = {{PropertyKey::BaseName, "gone"},
                         {PropertyKey::Suffix, "png"},
                         {PropertyKey::BitmapWidth, 8},
                         {PropertyKey::BitmapHeight, 8}};
    const std::tuple<QString, Values, const char *> cases[] = {
        {"Kiv_Bitmap_T", gone, "working directory"},
        {"Kiv_Media_T", gone, "working directory"},
        {"Kiv_ImageButton_T", gone, "working directory"},
        {"Kiv_Bitmap_T", {}, "no image is set"},
        {"Kiv_Bitmap_T", {{PropertyKey::FileName, ".png"}}, "no image is set"},
        {"Kiv_Media_T", {}, "no picture or film is set"},
        {"Kiv_ImageButton_T", {}, "no image is set"},
        {"Kiv_Bitmap_T", {gone[0], {PropertyKey::Suffix, "raw"}}, "image 'gone' are not known"},
        {"Kiv_Bitmap_T", gone + Values{{PropertyKey::Format, "None"}}, "None shows no image"},
        {"Kiv_List_T", {{"entries", QString("w;").repeated(600)}}, "only the first 512 parts"},
        {"Kiv_SevenSegment_T", {{"text", "5K"}}, "seven segments cannot show 'K'"},
    };
    for (const auto &[kind, values, told] : cases) {
        Stage stage(kind, library(0x113));
        stage.set(values);
        const FrameRecorder::Answer answer = stage.render();
        QVERIFY2(answer.errors.startsWith(kind + " 7 \"") && answer.errors.contains(told) &&
                     !answer.errors.contains('\n'),
                 qPrintable(kind + answer.errors));
        const QRect drawn = drawnBox(answer.frame); // something stands in the picture's place
        QVERIFY(!drawn.isEmpty() && allowedBox(stage.widget()).toAlignedRect().contains(drawn));
    }
}

void tst_WidgetKinds::workedExampleOfTheDocumentation()
{
    const QString text = QString::fromUtf8(TestFiles::read(
        qEnvironmentVariable("KIV_SOURCE_DIR") + QStringLiteral("/docs/widget-library.md")));
    const int start = text.indexOf(QLatin1String("```xml\n")) + 7;
    QDomDocument document;
    QVERIFY(document.setContent(
        QStringLiteral("<widgetlibrary><toolboxgroup name=\"G\">%1</toolboxgroup></widgetlibrary>")
            .arg(text.mid(start, text.indexOf(QLatin1String("```"), start) - start))));
    const CWidgetLibraryModel example(document, 0x113);
    const QStringList kinds = example.typeNames();
    QCOMPARE(kinds.size(), 1);
    QVERIFY(FrameRecorder::start(0x113, FrameSize));
    for (const Values &values : limitSettings(example.properties(kinds.first()))) {
        Stage stage(kinds.first(), &example);
        stage.set(values);
        const FrameRecorder::Answer answer = stage.render();
        QVERIFY2(answer.errors.isEmpty(),
                 qPrintable(describe(kinds.first(), values) + answer.errors));
        const QRect drawn = drawnBox(answer.frame);
        QVERIFY2(!drawn.isEmpty() || !values.isEmpty(), "draws nothing");
        QVERIFY2(drawn.isEmpty() || allowedBox(stage.widget()).toAlignedRect().contains(drawn),
                 qPrintable(describe(kinds.first(), values)));
    }
}

/// The example designs: in the form that is saved, each item in its frame, drawn without a
/// complaint.
void tst_WidgetKinds::examplesAreWhole()
{
    const std::pair<QString, QString> examples[] = {
        {"thermostat", "QX110"}, {"ev-charger", "QX112"}, {"coffee-machine", "QX100"}};
    for (const auto &[name, platform] : examples) {
        const QString path =
            FrameRecorder::programFile(QStringLiteral("examples/%1/%1.nyx").arg(name));
        CProjectModel project;
        QString error;
        QVERIFY2(project.loadFromFile(path, &error), qPrintable(error));
        QCOMPARE(project.platform(), platform);
        QCOMPARE(project.screenCount(), 3);
        QCOMPARE(project.saveToBytes(&error, path), TestFiles::read(path));
        const QRectF frame(QPointF(), project.resolution());
        QVERIFY(FrameRecorder::start(chipCodeOfPlatform(platform), project.resolution()));
        QSet<quint32> ids;
        for (int i = 0; i < project.screenCount(); ++i) {
            CScreenModel *screen = project.screen(i);
            CModelIterator walk(screen);
            for (walk.next(); walk.current(); walk.next()) {
                const CItemModel &item = *walk.currentItem();
                if (item.kind() == CItemModel::Kind::Group)
                    continue;
                const QRectF box =
                    ItemGeometry::frameOf(item); // by corners: lines have an empty rectangle
                QVERIFY2(item.id() > 0 && !ids.contains(item.id()) &&
                             frame.contains(box.topLeft()) && frame.contains(box.bottomRight()),
                         qPrintable(screen->name() + QLatin1Char('/') + item.name()));
                ids.insert(item.id());
            }
            const FrameRecorder::Answer answer = FrameRecorder::render(*screen);
            QVERIFY2(answer.errors.isEmpty(), qPrintable(screen->name() + answer.errors));
            QCOMPARE(answer.frame.size(), project.resolution());
            QVERIFY(FrameRecorder::render(*screen).frame == answer.frame);
        }
    }
}

QTEST_MAIN(tst_WidgetKinds)
#include "tst_widgetkinds.moc"
