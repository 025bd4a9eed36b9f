// Measures how much faster a binary resource description loads than the XML it was compiled from.
//
// Generates a description the size of a large product theme, compiles it once, then times in
// each repetition: reading the binary file's bytes only (the floor any loader pays), the XML
// parse, and the binary load. Medians are printed, with the two ratios.
//
//   bench_resourcefile [--repeat N] [--scale F]
//
// --scale shrinks or grows every node count, e.g. 0.05 for a run under valgrind.

#include "resources/BinaryResourceFile.h"
#include "resources/XmlResourceFile.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace Hmi::Core;

namespace {

struct Counts
{
    int colors = 20000;
    int fonts = 2000;
    int defaults = 2000;
    int propertiesPerDefaults = 5;
    int images = 5000;
    int rectangles = 2000;
    int shaders = 200;
};

const char* const sAreas[] = { "home", "media", "climate", "navigation", "phone", "settings", "vehicle",
    "camera", "assist", "charging" };
const char* const sRoles[] = { "background", "text", "textPressed", "textDisabled", "icon", "iconPressed",
    "border", "highlight", "separator", "shadow", "badge", "progress" };

// Fonts that exist here and match exactly: an inexact match costs a warning per node, which is
// not what a shipped theme looks like.
const char* const sFamilies[] = { "DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono" };

class Generator
{
public:
    explicit Generator(const Counts& aCounts)
        : mCounts(aCounts)
    { }

    QByteArray xml()
    {
        mOut.reserve(32 * 1024 * 1024);
        mOut += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<NvkQtResourceFile>\n";
        for (int i = 0; i < mCounts.colors; ++i) {
            color(i);
        }
        for (int i = 0; i < mCounts.fonts; ++i) {
            font(i);
        }
        for (int i = 0; i < mCounts.defaults; ++i) {
            defaults(i);
        }
        for (int i = 0; i < mCounts.images; ++i) {
            image(i);
        }
        for (int i = 0; i < mCounts.rectangles; ++i) {
            rectangle(i);
        }
        for (int i = 0; i < mCounts.shaders; ++i) {
            shader(i);
        }
        mOut += "</NvkQtResourceFile>\n";
        return mOut;
    }

private:
    int random(int aBound) { return int(mRandom.bounded(aBound)); }

    QByteArray name(const char* aKind, int aIndex)
    {
        return QByteArray(sAreas[aIndex % 10]) + '/' + aKind + '/' + sRoles[(aIndex / 10) % 12]
            + QByteArray::number(aIndex);
    }

    void tag(const char* aTag, const QByteArray& aText)
    {
        mOut += "    <";
        mOut += aTag;
        mOut += '>';
        mOut += aText;
        mOut += "</";
        mOut += aTag;
        mOut += ">\n";
    }

    void tag(const char* aTag, int aValue) { tag(aTag, QByteArray::number(aValue)); }

    QByteArray colorText(bool aAlpha)
    {
        QByteArray text = QByteArray::number(random(256), 16) + ',' + QByteArray::number(random(256), 16)
            + ',' + QByteArray::number(random(256), 16);
        if (aAlpha) {
            text += ',' + QByteArray::number(random(256), 16);
        }
        return text;
    }

    void open(const char* aElement, const QByteArray& aName)
    {
        mOut += "  <";
        mOut += aElement;
        mOut += ">\n";
        tag("handle", aName);
    }

    void close(const char* aElement)
    {
        mOut += "  </";
        mOut += aElement;
        mOut += ">\n";
    }

    void color(int aIndex)
    {
        open("color", name("color", aIndex));
        tag("value", colorText(aIndex % 4 == 0));
        close("color");
    }

    void font(int aIndex)
    {
        open("font", name("font", aIndex));
        const int family = random(3);
        tag("family", sFamilies[family]);
        tag("pixelSize", 10 + random(40));
        if (random(3) == 0) {
            tag("bold", "true");
        }
        if (family == 1 && random(4) == 0) {
            tag("italic", "true");
        }
        if (random(10) == 0) {
            tag("underline", "true");
        }
        close("font");
    }

    void defaults(int aIndex)
    {
        open("defaults", name("defaults", aIndex));
        static const char* const sNames[] = { "enabled", "autoRepeat", "repeatInterval", "spacing", "label",
            "visible", "opacity", "clickTone" };
        for (int p = 0; p < mCounts.propertiesPerDefaults; ++p) {
            QByteArray value;
            switch (random(4)) {
            case 0:
                value = "false";
                break;
            case 1:
                value = "true";
                break;
            case 2:
                value = QByteArray::number(random(1000));
                break;
            default:
                value = "tone_" + QByteArray::number(random(50));
                break;
            }
            mOut += "    <property name=\"" + QByteArray(sNames[(aIndex + p) % 8]) + QByteArray::number(p)
                + "\">" + value + "</property>\n";
        }
        close("defaults");
    }

    void imageBody(int aIndex, bool aRequireFile)
    {
        if (aRequireFile || random(2) == 0) {
            tag("file", "img_" + QByteArray::number(aIndex) + ".png");
        }
        const int width = 16 + random(240);
        const int height = 16 + random(240);
        if (random(10) == 0) {
            tag("frameCount", 8);
            tag("frameWidth", width);
            tag("frameHeight", height);
            tag("width", width * 8);
        } else {
            tag("width", width);
        }
        tag("height", height);
        if (random(3) == 0) {
            tag("paddingExternalLeft", random(16));
            tag("paddingExternalTop", random(16));
            tag("paddingExternalRight", random(16));
            tag("paddingExternalBottom", random(16));
        }
        if (random(5) == 0) {
            tag("tileLeftMargin", random(16));
            tag("tileTopMargin", random(16));
            tag("tileRightMargin", random(16));
            tag("tileBottomMargin", random(16));
        }
        if (random(8) == 0) {
            tag("defaultsName", name("defaults", random(qMax(1, mCounts.defaults))));
        }
    }

    void image(int aIndex)
    {
        open("image", name("image", aIndex));
        imageBody(aIndex, true);
        close("image");
    }

    void rectangle(int aIndex)
    {
        open("rectangle", name("rectangle", aIndex));
        if (random(4) == 0) {
            imageBody(aIndex, false);
        }
        tag("value", colorText(false));
        if (random(2) == 0) {
            tag("borderColor", colorText(true));
            tag("borderWidth", 1 + random(3));
        }
        tag("radius", random(16));
        const bool linear = random(3) != 0;
        tag("gradientType", linear ? "linear" : "radial");
        tag("gradientAngle", random(360));
        tag("gradientBeginX", "0");
        tag("gradientBeginY", "0");
        tag("gradientEndX", linear ? "0" : "0.5");
        tag("gradientEndY", "1");
        const int stops = 2 + random(3);
        for (int s = 0; s < stops; ++s) {
            mOut += "    <gradientStop position=\"" + QByteArray::number(double(s) / (stops - 1)) + "\">"
                + colorText(s == stops - 1) + "</gradientStop>\n";
        }
        close("rectangle");
    }

    void shader(int aIndex)
    {
        open("shader", name("shader", aIndex));
        tag("meshResolutionWidth", 1 + random(8));
        tag("meshResolutionHeight", 1 + random(8));
        tag("supportsAtlasTextures", random(2) == 0 ? "true" : "false");
        if (random(4) == 0) {
            mOut += "    <shaderFragment file=\"true\">effect_" + QByteArray::number(aIndex)
                + ".frag</shaderFragment>\n";
        } else {
            mOut += "    <shaderFragment>varying highp vec2 qt_TexCoord0;\n"
                    "uniform sampler2D source;\n"
                    "uniform lowp float qt_Opacity;\n"
                    "uniform lowp float strength;\n"
                    "void main() {\n"
                    "    lowp vec4 c = texture2D(source, qt_TexCoord0);\n"
                    "    lowp float g = dot(c.rgb, vec3(0.299, 0.587, 0.114));\n"
                    "    gl_FragColor = vec4(mix(c.rgb, vec3(g), strength * "
                + QByteArray::number(aIndex % 10) + ".0 / 10.0), c.a) * qt_Opacity;\n}</shaderFragment>\n";
        }
        close("shader");
    }

    Counts mCounts;
    QRandomGenerator mRandom { 20240611 };
    QByteArray mOut;
};

double median(std::vector<qint64> aValues)
{
    std::sort(aValues.begin(), aValues.end());
    const size_t middle = aValues.size() / 2;
    return aValues.size() % 2 ? double(aValues[middle]) : (aValues[middle - 1] + aValues[middle]) / 2.0;
}

int nodeCount(const ResourceFile& aFile)
{
    int count = 0;
    for (int type = 0; type < ResourceTypeCount; ++type) {
        count += aFile.getNodes(ResourceType(type)).size();
    }
    return count;
}

int sMessages = 0;

// The XML load reports fonts without an exact match; count them instead of flooding the terminal.
void countMessage(QtMsgType, const QMessageLogContext&, const QString&)
{
    ++sMessages;
}

} // namespace

int main(int argc, char* argv[])
{
    // Font nodes need a GUI application; nothing is shown.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QGuiApplication app(argc, argv);

    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption repeatOption(QStringLiteral("repeat"),
        QStringLiteral("Repetitions (default 7)."), QStringLiteral("N"), QStringLiteral("7"));
    const QCommandLineOption scaleOption(QStringLiteral("scale"),
        QStringLiteral("Factor on every node count (default 1)."), QStringLiteral("F"), QStringLiteral("1"));
    // For a profiler: run only one loader, so that its samples are not mixed with the others'.
    const QCommandLineOption onlyOption(QStringLiteral("only"),
        QStringLiteral("Time only \"raw\", \"xml\" or \"binary\"; no ratios are printed."),
        QStringLiteral("LOADER"));
    parser.addOptions({ repeatOption, scaleOption, onlyOption });
    parser.process(app);
    const int repeat = qMax(1, parser.value(repeatOption).toInt());
    const double scale = parser.value(scaleOption).toDouble();
    const QString only = parser.value(onlyOption);
    const bool timeRaw = only.isEmpty() || only == QLatin1String("raw");
    const bool timeXml = only.isEmpty() || only == QLatin1String("xml");
    const bool timeBinary = only.isEmpty() || only == QLatin1String("binary");
    if (!timeRaw && !timeXml && !timeBinary) {
        std::fprintf(stderr, "bench_resourcefile: --only takes raw, xml or binary\n");
        return 2;
    }
    if (!(scale > 0)) {
        std::fprintf(stderr, "bench_resourcefile: --scale must be above 0\n");
        return 2;
    }

    Counts counts;
    const auto scaled = [scale](int aCount) { return qMax(1, int(aCount * scale + 0.5)); };
    counts.colors = scaled(counts.colors);
    counts.fonts = scaled(counts.fonts);
    counts.defaults = scaled(counts.defaults);
    counts.images = scaled(counts.images);
    counts.rectangles = scaled(counts.rectangles);
    counts.shaders = scaled(counts.shaders);
    const int expectedNodes
        = counts.colors + counts.fonts + counts.defaults + counts.images + counts.rectangles + counts.shaders;

    QTemporaryDir directory;
    if (!directory.isValid()) {
        std::fprintf(stderr, "bench_resourcefile: no temporary directory\n");
        return 1;
    }
    const QString basePath = directory.path() + QLatin1Char('/');
    const QString xmlPath = basePath + QStringLiteral("theme.xml");
    const QString binaryPath = basePath + QStringLiteral("theme.dat");
    {
        QFile file(xmlPath);
        if (!file.open(QIODevice::WriteOnly) || file.write(Generator(counts).xml()) < 0) {
            std::fprintf(stderr, "bench_resourcefile: cannot write %s\n", qPrintable(xmlPath));
            return 1;
        }
    }

    qInstallMessageHandler(&countMessage);
    {
        XmlResourceFile xml(basePath);
        if (!xml.loadFile(xmlPath) || nodeCount(xml) != expectedNodes
            || !BinaryResourceFile().saveFile(binaryPath, QByteArray(), xml)) {
            qInstallMessageHandler(nullptr);
            std::fprintf(stderr, "bench_resourcefile: cannot compile the generated description\n");
            return 1;
        }
    }
    const int messagesPerXmlLoad = sMessages;

    std::vector<qint64> rawTimes;
    std::vector<qint64> xmlTimes;
    std::vector<qint64> binaryTimes;
    QElapsedTimer timer;
    bool allLoaded = true;
    // Interleaved, so that a burst of load elsewhere on the machine hits all three alike.
    for (int run = 0; run < repeat; ++run) {
        if (timeRaw) {
            timer.start();
            QFile file(binaryPath);
            const bool opened = file.open(QIODevice::ReadOnly);
            const QByteArray bytes = file.readAll();
            rawTimes.push_back(timer.nsecsElapsed());
            allLoaded = allLoaded && opened && !bytes.isEmpty();
        }
        if (timeXml) {
            XmlResourceFile xml(basePath);
            timer.start();
            const bool loaded = xml.loadFile(xmlPath);
            xmlTimes.push_back(timer.nsecsElapsed());
            allLoaded = allLoaded && loaded && nodeCount(xml) == expectedNodes;
        }
        if (timeBinary) {
            BinaryResourceFile binary;
            timer.start();
            const bool loaded = binary.loadFile(binaryPath, basePath, QByteArray());
            binaryTimes.push_back(timer.nsecsElapsed());
            allLoaded = allLoaded && loaded && nodeCount(binary) == expectedNodes;
        }
    }
    qInstallMessageHandler(nullptr);
    if (!allLoaded) {
        std::fprintf(stderr, "bench_resourcefile: a load failed or lost nodes\n");
        return 1;
    }

    const double raw = timeRaw ? median(rawTimes) : 0;
    const double xml = timeXml ? median(xmlTimes) : 0;
    const double binary = timeBinary ? median(binaryTimes) : 0;
    std::printf("nodes: %d colours, %d fonts, %d defaults x %d properties, %d images, %d rectangles, "
                "%d shaders (%d in all)\n",
        counts.colors, counts.fonts, counts.defaults, counts.propertiesPerDefaults, counts.images,
        counts.rectangles, counts.shaders, expectedNodes);
    std::printf(
        "files: XML %.2f MB, binary %.2f MB\n", QFile(xmlPath).size() / 1e6, QFile(binaryPath).size() / 1e6);
    if (messagesPerXmlLoad > 0) {
        std::printf(
            "note: each XML load logged %d messages (fonts without an exact match)\n", messagesPerXmlLoad);
    }
    QStringList times;
    if (timeRaw) {
        times.append(QStringLiteral("raw read %1 ms").arg(raw / 1e6, 0, 'f', 2));
    }
    if (timeXml) {
        times.append(QStringLiteral("XML parse %1 ms").arg(xml / 1e6, 0, 'f', 2));
    }
    if (timeBinary) {
        times.append(QStringLiteral("binary load %1 ms").arg(binary / 1e6, 0, 'f', 2));
    }
    std::printf("median of %d runs: %s\n", repeat, qPrintable(times.join(QStringLiteral(", "))));
    if (only.isEmpty()) {
        std::printf("binary load is %.1fx faster than XML parse\n", xml / binary);
        std::printf("binary load takes %.1fx the raw read of its bytes\n", binary / raw);
    }
    return 0;
}
