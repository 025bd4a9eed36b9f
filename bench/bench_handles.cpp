// Measures what a theme change costs the colour handles, against reading the nodes directly.
//
// Packs a generated description with N colours into a package, loads it, binds N colour handles
// to its names and resolves each once. Each repetition then triggers resourceChanged() (a search
// order change, which keeps the same nodes) and times:
//   notify       - the emission itself, which makes every handle drop its node and signal;
//   first read   - reading every handle's colour afterwards, which resolves each name anew;
//   cached read  - reading them all again, from the node each handle now holds;
//   node lookup  - the same names looked up in the package's colour table, colour read from the node.
// Medians over the repetitions are printed, per handle, in microseconds.
//
//   bench_handles [--repeat N] [--count N]

#include "handles/HandleColorResource.h"
#include "resources/NodeColor.h"
#include "resources/ResourceManager.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

using namespace Hmi::Core;

namespace {

QString colorName(int aIndex)
{
    return QStringLiteral("color%1").arg(aIndex, 5, 10, QLatin1Char('0'));
}

bool writeFile(const QString& aPath, const QByteArray& aContent)
{
    QFile file(aPath);
    return file.open(QIODevice::WriteOnly) && file.write(aContent) == aContent.size();
}

// Builds <aName>.rcc in aDirectory from a description with aCount colours, as the build does.
bool makePackage(const QString& aDirectory, const QString& aName, int aCount)
{
    QByteArray xml = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<NvkQtResourceFile>\n";
    for (int i = 0; i < aCount; ++i) {
        xml += "<color><handle>" + colorName(i).toLatin1() + "</handle><value>"
            + QByteArray::number(i % 256, 16) + ',' + QByteArray::number((i / 256) % 256, 16)
            + ",80</value></color>\n";
    }
    xml += "</NvkQtResourceFile>\n";
    const QString base = aDirectory + QLatin1Char('/') + aName;
    const QByteArray qrc = "<!DOCTYPE RCC>\n<RCC version=\"1.0\">\n<qresource prefix=\"/\">\n<file alias=\""
        + aName.toUtf8() + ".xml\">" + base.toUtf8() + ".xml</file>\n</qresource>\n</RCC>\n";
    if (!writeFile(base + QStringLiteral(".xml"), xml) || !writeFile(base + QStringLiteral(".qrc"), qrc)) {
        return false;
    }
    QProcess rcc;
    rcc.setProcessChannelMode(QProcess::ForwardedChannels);
    rcc.start(QStringLiteral(HMICORE_RCC),
        { QStringLiteral("-binary"), base + QStringLiteral(".qrc"), QStringLiteral("-o"),
            base + QStringLiteral(".rcc") });
    return rcc.waitForFinished(-1) && rcc.exitStatus() == QProcess::NormalExit && rcc.exitCode() == 0;
}

double median(std::vector<double> aValues)
{
    std::sort(aValues.begin(), aValues.end());
    const size_t middle = aValues.size() / 2;
    return aValues.size() % 2 ? aValues[middle] : (aValues[middle - 1] + aValues[middle]) / 2;
}

// Microseconds per item that aWork takes for aCount items.
double timePerItem(int aCount, const std::function<void()>& aWork)
{
    QElapsedTimer timer;
    timer.start();
    aWork();
    return double(timer.nsecsElapsed()) / 1000.0 / aCount;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Times colour handles after a theme change."));
    parser.addHelpOption();
    const QCommandLineOption repeatOption(QStringLiteral("repeat"),
        QStringLiteral("Repetitions (default 21)."), QStringLiteral("N"), QStringLiteral("21"));
    const QCommandLineOption countOption(QStringLiteral("count"),
        QStringLiteral("Handles and colours (default 10000)."), QStringLiteral("N"), QStringLiteral("10000"));
    parser.addOptions({ repeatOption, countOption });
    parser.process(app);
    const int repeat = std::max(1, parser.value(repeatOption).toInt());
    const int count = std::max(1, parser.value(countOption).toInt());

    QTemporaryDir directory;
    if (!directory.isValid() || !makePackage(directory.path(), QStringLiteral("bench"), count)) {
        std::fprintf(stderr, "bench_handles: could not build the package\n");
        return 1;
    }
    ResourceManager& resources = ResourceManager::getInstance();
    resources.setPackageDirectory(directory.path());
    resources.setCacheDirectory(directory.path() + QStringLiteral("/cache"));
    const QString package = QStringLiteral("bench.rcc");
    if (!resources.loadResource(package)) {
        std::fprintf(stderr, "bench_handles: could not load the package\n");
        return 1;
    }
    const ResourceFile::NodeTable& table = resources.getResourceFile(package)->getNodes(ResourceType::Color);

    QStringList names;
    std::vector<std::unique_ptr<HandleColorResource>> handles;
    for (int i = 0; i < count; ++i) {
        names.append(colorName(i));
        handles.push_back(std::make_unique<HandleColorResource>());
        handles.back()->setName(names.constLast());
    }

    // Summed so that no read can be optimised away; handles and nodes must agree.
    quint64 handleSum = 0;
    quint64 nodeSum = 0;
    const auto readHandles = [&] {
        for (const auto& handle : handles) {
            handleSum += handle->getColor().rgba();
        }
    };
    readHandles(); // resolves and connects every handle

    std::vector<double> notify;
    std::vector<double> firstRead;
    std::vector<double> cachedRead;
    std::vector<double> nodeLookup;
    const QStringList orders[] = { { package }, { package, QStringLiteral("absent.rcc") } };
    for (int run = 0; run < repeat; ++run) {
        notify.push_back(timePerItem(count, [&] { resources.setSearchOrder(orders[run % 2]); }));
        handleSum = 0;
        firstRead.push_back(timePerItem(count, readHandles));
        cachedRead.push_back(timePerItem(count, readHandles));
        nodeSum = 0;
        nodeLookup.push_back(timePerItem(count, [&] {
            for (const QString& name : qAsConst(names)) {
                nodeSum += table.value(name).staticCast<const NodeColor>()->getColor().rgba();
            }
        }));
        if (handleSum != 2 * nodeSum) {
            std::fprintf(stderr, "bench_handles: handles and nodes disagree\n");
            return 1;
        }
    }

    std::printf("%d colour handles, median of %d runs, microseconds per handle\n", count, repeat);
    std::printf("  notify (resourceChanged)    %8.4f\n", median(notify));
    std::printf("  first read after the change %8.4f\n", median(firstRead));
    std::printf("  cached read                 %8.4f\n", median(cachedRead));
    std::printf("  node lookup + getColor      %8.4f\n", median(nodeLookup));
    std::printf("  first read / node lookup    %8.2fx\n", median(firstRead) / median(nodeLookup));
    return 0;
}
