// Measures what the resource manager costs on top of reading a description, with the generated
// description of bench_resourcefile packed into resource packages by rcc:
//
// - loading the package the first time (XML parse and binary cache write, a fresh cache each run),
//   loading it again from its cache, and loading the same content as a pre-built ".dat" package,
//   packed as rcc packs by default (compressed) and uncompressed;
// - the SHA-1 of the package, which every cached load computes, and its share of that load;
// - node lookups per second through ResourceManager::get<NodeColor>() from one thread and from two
//   threads together, against a bare QHash lookup of the same names.
//
//   bench_resourcemanager [--repeat N] [--scale F] [--seconds S]
//
// Load times are medians over N runs, each package unloaded again after each run. Lookup rates
// are counted over S seconds per measurement.

#include "GeneratedDescription.h"

#include "resources/BinaryResourceFile.h"
#include "resources/NodeColor.h"
#include "resources/ResourceManager.h"
#include "resources/XmlResourceFile.h"

#include <QCommandLineParser>
#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

using namespace Hmi::Core;

namespace {

const QString sXmlPackage = QStringLiteral("bench_xml.rcc");
const QString sDatPackage = QStringLiteral("bench_dat.rcc");
const QString sRawDatPackage = QStringLiteral("bench_raw.rcc");

double median(std::vector<qint64> aValues)
{
    std::sort(aValues.begin(), aValues.end());
    const size_t middle = aValues.size() / 2;
    return aValues.size() % 2 ? double(aValues[middle]) : (aValues[middle - 1] + aValues[middle]) / 2.0;
}

int sMessages = 0;

// The XML load reports fonts without an exact match; count them instead of flooding the terminal.
void countMessage(QtMsgType, const QMessageLogContext&, const QString&)
{
    ++sMessages;
}

bool writeFile(const QString& aPath, const QByteArray& aData)
{
    QFile file(aPath);
    return file.open(QIODevice::WriteOnly) && file.write(aData) == aData.size();
}

/// Packs aFile into the package aPackage as aAlias, as hmicore_add_resource_package() does.
bool pack(const QString& aFile, const QString& aAlias, const QString& aPackage, bool aCompress = true)
{
    const QString qrc = aPackage + QStringLiteral(".qrc");
    const QByteArray text = "<!DOCTYPE RCC><RCC version=\"1.0\"><qresource prefix=\"/\"><file alias=\""
        + aAlias.toUtf8() + "\">" + aFile.toUtf8() + "</file></qresource></RCC>\n";
    if (!writeFile(qrc, text)) {
        return false;
    }
    QProcess rcc;
    QStringList arguments { QStringLiteral("-binary"), qrc, QStringLiteral("-o"), aPackage };
    if (!aCompress) {
        arguments.append(QStringLiteral("-no-compress"));
    }
    rcc.start(QStringLiteral(HMICORE_RCC_PATH), arguments);
    if (!rcc.waitForFinished(120000) || rcc.exitStatus() != QProcess::NormalExit || rcc.exitCode() != 0) {
        std::fprintf(
            stderr, "bench_resourcemanager: rcc failed: %s\n", rcc.readAllStandardError().constData());
        return false;
    }
    return true;
}

/// Nanoseconds that one load and unload of aPackage took, or -1 when the load failed.
qint64 timeLoad(ResourceManager& aManager, const QString& aPackage)
{
    QElapsedTimer timer;
    timer.start();
    const bool loaded = aManager.loadResource(aPackage);
    const qint64 elapsed = timer.nsecsElapsed();
    if (!loaded) {
        return -1;
    }
    aManager.unloadResource(aPackage);
    return elapsed;
}

/**
 * Lookups per second of aLookup over aNames, on aThreads threads at once for aSeconds. Every
 * thread starts at another name, so that two threads do not walk the same bucket in step.
 */
double lookupRate(int aThreads, double aSeconds, const QStringList& aNames,
    const std::function<bool(const QString&)>& aLookup)
{
    std::atomic<bool> go { false };
    std::atomic<qint64> total { 0 };
    std::atomic<int> missing { 0 };
    const qint64 budget = qint64(aSeconds * 1e9);
    std::vector<std::unique_ptr<QThread>> threads;
    for (int index = 0; index < aThreads; ++index) {
        threads.emplace_back(QThread::create([&, index] {
            while (!go.load()) {
                QThread::yieldCurrentThread();
            }
            QElapsedTimer timer;
            timer.start();
            qint64 count = 0;
            int name = (aNames.size() / aThreads) * index;
            // The clock is read once per batch, so that reading it does not show in the rate.
            while (timer.nsecsElapsed() < budget) {
                for (int batch = 0; batch < 1024; ++batch) {
                    if (!aLookup(aNames.at(name))) {
                        ++missing;
                    }
                    if (++name == aNames.size()) {
                        name = 0;
                    }
                }
                count += 1024;
            }
            total += count;
        }));
        threads.back()->start();
    }
    QElapsedTimer wall;
    wall.start();
    go = true;
    for (const auto& thread : threads) {
        thread->wait();
    }
    const double seconds = wall.nsecsElapsed() / 1e9;
    if (missing.load() > 0) {
        std::fprintf(stderr, "bench_resourcemanager: %d lookups found nothing\n", missing.load());
        return 0;
    }
    return total.load() / seconds;
}

const char* verdict(bool aMet)
{
    return aMet ? "met" : "NOT met";
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
        QStringLiteral("Runs per load measurement (default 5)."), QStringLiteral("N"), QStringLiteral("5"));
    const QCommandLineOption scaleOption(QStringLiteral("scale"),
        QStringLiteral("Factor on every node count (default 1)."), QStringLiteral("F"), QStringLiteral("1"));
    const QCommandLineOption secondsOption(QStringLiteral("seconds"),
        QStringLiteral("Duration of each lookup measurement (default 1)."), QStringLiteral("S"),
        QStringLiteral("1"));
    parser.addOptions({ repeatOption, scaleOption, secondsOption });
    parser.process(app);
    const int repeat = qMax(1, parser.value(repeatOption).toInt());
    const double scale = parser.value(scaleOption).toDouble();
    const double seconds = parser.value(secondsOption).toDouble();
    if (!(scale > 0) || !(seconds > 0)) {
        std::fprintf(stderr, "bench_resourcemanager: --scale and --seconds must be above 0\n");
        return 2;
    }

    QTemporaryDir directory;
    if (!directory.isValid()) {
        std::fprintf(stderr, "bench_resourcemanager: no temporary directory\n");
        return 1;
    }
    const QString root = directory.path();
    const QString sources = root + QStringLiteral("/sources/");
    const QString packages = root + QStringLiteral("/packages");
    QDir().mkpath(sources);
    QDir().mkpath(packages);

    // The description, its compiled form, and a package of each.
    const Bench::Counts counts = Bench::Counts().scaled(scale);
    const QString xmlPath = sources + QStringLiteral("bench_xml.xml");
    const QString datPath = sources + QStringLiteral("bench_dat.dat");
    if (!writeFile(xmlPath, Bench::Generator(counts).xml())) {
        std::fprintf(stderr, "bench_resourcemanager: cannot write %s\n", qPrintable(xmlPath));
        return 1;
    }
    qInstallMessageHandler(&countMessage);
    {
        XmlResourceFile xml(sources);
        if (!xml.loadFile(xmlPath) || !BinaryResourceFile().saveFile(datPath, QByteArray(), xml)) {
            qInstallMessageHandler(nullptr);
            std::fprintf(stderr, "bench_resourcemanager: cannot compile the generated description\n");
            return 1;
        }
    }
    if (!pack(xmlPath, QStringLiteral("bench_xml.xml"), packages + QLatin1Char('/') + sXmlPackage)
        || !pack(datPath, QStringLiteral("bench_dat.dat"), packages + QLatin1Char('/') + sDatPackage)
        || !pack(
            datPath, QStringLiteral("bench_raw.dat"), packages + QLatin1Char('/') + sRawDatPackage, false)) {
        qInstallMessageHandler(nullptr);
        return 1;
    }

    ResourceManager& manager = ResourceManager::getInstance();
    manager.setPackageDirectory(packages);

    // Interleaved, so that a burst of load elsewhere on the machine hits all of them alike. Each
    // first load gets a cache directory of its own; the cached loads read the first run's cache.
    std::vector<qint64> firstTimes;
    std::vector<qint64> cachedTimes;
    std::vector<qint64> datTimes;
    std::vector<qint64> rawDatTimes;
    std::vector<qint64> hashTimes;
    const QString cacheOfFirstRun = root + QStringLiteral("/cache-0");
    bool allLoaded = true;
    for (int run = 0; run < repeat; ++run) {
        manager.setCacheDirectory(root + QStringLiteral("/cache-") + QString::number(run));
        firstTimes.push_back(timeLoad(manager, sXmlPackage));

        manager.setCacheDirectory(cacheOfFirstRun);
        cachedTimes.push_back(timeLoad(manager, sXmlPackage));

        datTimes.push_back(timeLoad(manager, sDatPackage));
        rawDatTimes.push_back(timeLoad(manager, sRawDatPackage));

        QElapsedTimer timer;
        timer.start();
        QFile file(packages + QLatin1Char('/') + sXmlPackage);
        QCryptographicHash hash(QCryptographicHash::Sha1);
        allLoaded
            = allLoaded && file.open(QIODevice::ReadOnly) && hash.addData(&file) && !hash.result().isEmpty();
        hashTimes.push_back(timer.nsecsElapsed());

        allLoaded = allLoaded && firstTimes.back() >= 0 && cachedTimes.back() >= 0 && datTimes.back() >= 0
            && rawDatTimes.back() >= 0;
    }
    const int messagesPerRun = sMessages;
    qInstallMessageHandler(nullptr);
    if (!allLoaded) {
        std::fprintf(stderr, "bench_resourcemanager: a load failed\n");
        return 1;
    }

    // Lookups: the colour names of the pre-built package, through the manager and through a
    // plain copy of its table. Both hand out a shared pointer, as a handle would keep one.
    if (!manager.loadResource(sDatPackage)) {
        std::fprintf(stderr, "bench_resourcemanager: cannot load %s\n", qPrintable(sDatPackage));
        return 1;
    }
    const ResourceFile::NodeTable table = manager.getResourceFile(sDatPackage)->getNodes(ResourceType::Color);
    QStringList names = table.keys();
    // Hash order would walk the table bucket by bucket; shuffle as real lookups come.
    QRandomGenerator shuffler(20240611);
    std::shuffle(names.begin(), names.end(), shuffler);
    const auto throughManager
        = [&manager](const QString& aName) { return bool(manager.get<NodeColor>(aName)); };
    const auto throughHash
        = [&table](const QString& aName) { return bool(table.value(aName).staticCast<const NodeColor>()); };
    const double hashRate = lookupRate(1, seconds, names, throughHash);
    const double managerRate = lookupRate(1, seconds, names, throughManager);
    const double managerRate2 = lookupRate(2, seconds, names, throughManager);
    const double hashRate2 = lookupRate(2, seconds, names, throughHash);
    manager.unloadResource(sDatPackage);
    if (hashRate == 0 || managerRate == 0 || managerRate2 == 0 || hashRate2 == 0) {
        return 1;
    }

    const double first = median(firstTimes);
    const double cached = median(cachedTimes);
    const double dat = median(datTimes);
    const double rawDat = median(rawDatTimes);
    const double sha1 = median(hashTimes);
    const auto megabytes = [&packages](const QString& aName) {
        return QFile(packages + QLatin1Char('/') + aName).size() / 1e6;
    };
    std::printf("nodes: %d (%d colours); %d threads available\n", counts.nodes(), counts.colors,
        QThread::idealThreadCount());
    std::printf(
        "files: XML %.2f MB, .dat %.2f MB; packages: XML %.2f MB, .dat %.2f MB, .dat uncompressed %.2f MB\n",
        QFile(xmlPath).size() / 1e6, QFile(datPath).size() / 1e6, megabytes(sXmlPackage),
        megabytes(sDatPackage), megabytes(sRawDatPackage));
    if (messagesPerRun > 0) {
        std::printf(
            "note: the XML loads logged %d messages (fonts without an exact match)\n", messagesPerRun);
    }
    std::printf("\nloads, median of %d runs:\n", repeat);
    std::printf("  first load (XML parse + cache write)  %9.2f ms\n", first / 1e6);
    std::printf("  cached load                           %9.2f ms\n", cached / 1e6);
    std::printf("  pre-built .dat package                %9.2f ms\n", dat / 1e6);
    std::printf("  pre-built .dat package, uncompressed  %9.2f ms\n", rawDat / 1e6);
    std::printf("  SHA-1 of the package alone            %9.2f ms (%.0f%% of the cached load)\n", sha1 / 1e6,
        100.0 * sha1 / cached);
    std::printf("  cached load is %.1fx faster than the first (goal >= 10x: %s)\n", first / cached,
        verdict(first / cached >= 10));
    std::printf("  the .dat package takes %.2fx the cached load, %.2fx when uncompressed\n", dat / cached,
        rawDat / cached);

    std::printf("\nlookups of %d colour names, %.1f s each:\n", int(names.size()), seconds);
    std::printf("  bare QHash, 1 thread                  %9.2f M/s\n", hashRate / 1e6);
    std::printf("  bare QHash, 2 threads together        %9.2f M/s\n", hashRate2 / 1e6);
    std::printf("  ResourceManager, 1 thread             %9.2f M/s\n", managerRate / 1e6);
    std::printf("  ResourceManager, 2 threads together   %9.2f M/s\n", managerRate2 / 1e6);
    std::printf("  1 thread: the bare hash is %.2fx as fast (goal <= 2x: %s)\n", hashRate / managerRate,
        verdict(hashRate / managerRate <= 2));
    std::printf(
        "  2 threads keep %.0f%% of the 1-thread throughput (goal >= 50%%: %s); the bare hash keeps %.0f%%\n",
        100.0 * managerRate2 / managerRate, verdict(managerRate2 / managerRate >= 0.5),
        100.0 * hashRate2 / hashRate);
    return 0;
}
