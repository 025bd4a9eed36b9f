// Measures how much faster a binary resource description loads than the XML it was compiled from.
//
// Generates a description the size of a large product theme, compiles it once, then times in
// each repetition: reading the binary file's bytes only (the floor any loader pays), the XML
// parse, and the binary load. Medians are printed, with the two ratios.
//
//   bench_resourcefile [--repeat N] [--scale F]
//
// --scale shrinks or grows every node count, e.g. 0.05 for a run under valgrind.

#include "GeneratedDescription.h"

#include "resources/BinaryResourceFile.h"
#include "resources/XmlResourceFile.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace Hmi::Core;

namespace {

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

    const Bench::Counts counts = Bench::Counts().scaled(scale);
    const int expectedNodes = counts.nodes();

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
        if (!file.open(QIODevice::WriteOnly) || file.write(Bench::Generator(counts).xml()) < 0) {
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
