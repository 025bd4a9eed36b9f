// Compares our language files with Qt's own translation system on the same texts.
//
// Generates N texts in a dozen sections and writes them three ways: the XML form (".glx"), the
// binary form compiled from it (".glx.dat") and a Qt ".ts" file (context = section, source = key)
// that lrelease compiles to ".qm". A second language with the same keys is compiled too, for the
// language switch. Each repetition then times, interleaved:
//   binary load + lookups - BinaryLanguageFile::load in full, then getNode(key)->getText() of
//                           every text (the two parts are printed as well);
//   qm load + translate   - QTranslator::load, then translate(section, key) of every text;
//   XML parse             - XmlLanguageFile::load in full, for reference;
// and per read, everything loaded, both warm (passes of one kind back to back) and after other
// work (each pass after a pass of each other kind, which evicts much of its data first):
//   handle read           - HandleTextResource::getText() of N handles that resolved once;
//   file lookup           - LanguageFile::getNode(key)->getText();
//   translate             - QTranslator::translate(section, key);
//   QHash floor           - QHash<QString, QString>::value(key).
// Keys are looked up in generation order, not in the files' order.
// and the cold path of the handles: a language switch (the load of the other language, the
// languageChanged() emission to N handles and the release of the previous texts), then the first
// read of every handle. Medians are printed, with the ratios.
//
//   bench_language [--repeat N] [--count N] [--only binary|qm|xml]
//
// --only times one loader and nothing else, for a profiler.

#include "language/BinaryLanguageFile.h"
#include "language/HandleTextResource.h"
#include "language/LanguageManager.h"
#include "language/NodeText.h"
#include "language/XmlLanguageFile.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTranslator>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <iterator>
#include <memory>
#include <vector>

using namespace Hmi::Core;

namespace {

const char* const sSections[] = { "MENU", "MEDIA", "CLIMATE", "NAVIGATION", "PHONE", "SETTINGS", "VEHICLE",
    "CAMERA", "ASSIST", "CHARGING", "DIAGNOSIS", "MESSAGES" };
const char* const sKinds[] = { "TITLE", "BUTTON", "LABEL", "HINT", "POPUP_TEXT", "LIST_ITEM", "STATUS",
    "ERROR", "CONFIRM", "TOOLTIP" };
const char* const sGerman[] = { "Einstellungen", "Lautstärke", "Verbindung", "Fahrzeug", "Zurück",
    "Bestätigen", "Abbrechen", "Ziel", "Route", "berechnen", "Klimaanlage", "Sitzheizung", "Telefon",
    "Nachricht", "wird", "geladen", "nicht", "verfügbar", "Ladestand", "Reichweite", "bitte", "warten",
    "Kamera", "aktivieren", "deaktivieren", "Fehler", "aufgetreten", "Software", "Aktualisierung",
    "Verkehrsmeldungen", "Straße", "gesperrt", "Temperatur", "Gebläse", "für", "und", "die", "der", "mit",
    "über", "Spurhalteassistent", "Abstand", "Warnung", "Medien", "Titel", "Künstler" };
const char* const sEnglish[] = { "Settings", "Volume", "Connection", "Vehicle", "Back", "Confirm", "Cancel",
    "Destination", "Route", "calculate", "Air conditioning", "Seat heating", "Phone", "Message", "is",
    "loading", "not", "available", "Charge level", "Range", "please", "wait", "Camera", "enable", "disable",
    "Error", "occurred", "Software", "update", "Traffic reports", "Road", "closed", "Temperature", "Fan",
    "for", "and", "the", "with", "over", "Lane assist", "Distance", "Warning", "Media", "Title", "Artist" };
const char* const sPlaceholders[] = { "{1:20}", "{1}", "{2:8}", "{1:4} km", "{3:12}" };

struct Text
{
    int section = 0;
    QString handle;
    QString key;
    // As the application sees it: line feeds, not the XML form's backslash-n.
    QString text;
    QString pronunciation;
};

// N texts of 20 to 60 characters; about one in seven has a placeholder, one in fifty a line break
// and one in ten a pronunciation. The same seed gives the same keys in every language.
std::vector<Text> generate(int aCount, bool aGerman)
{
    QRandomGenerator keys(20240611);
    QRandomGenerator words(aGerman ? 7 : 11);
    const auto word = [&words, aGerman] {
        return aGerman ? QString::fromUtf8(sGerman[words.bounded(int(std::size(sGerman)))])
                       : QString::fromUtf8(sEnglish[words.bounded(int(std::size(sEnglish)))]);
    };
    std::vector<Text> texts(static_cast<size_t>(aCount));
    for (int i = 0; i < aCount; ++i) {
        Text& text = texts[size_t(i)];
        text.section = keys.bounded(int(std::size(sSections)));
        text.handle = QString::fromLatin1(sKinds[keys.bounded(int(std::size(sKinds)))]) + QLatin1Char('_')
            + QString::number(i);
        text.key = QStringLiteral("STR_") + QLatin1String(sSections[text.section]) + QLatin1Char('_')
            + text.handle;

        const int length = 20 + words.bounded(41);
        QString visual = word();
        while (visual.size() < length) {
            visual += QLatin1Char(' ') + word();
        }
        visual = visual.left(length).trimmed();
        if (words.bounded(7) == 0) {
            // At a word boundary, as translators place them.
            const int space = visual.indexOf(QLatin1Char(' '), words.bounded(visual.size()));
            const QString placeholder
                = QLatin1String(sPlaceholders[words.bounded(int(std::size(sPlaceholders)))]);
            if (space < 0) {
                visual += QLatin1Char(' ') + placeholder;
            } else {
                visual.insert(space, QLatin1Char(' ') + placeholder);
            }
        }
        if (words.bounded(50) == 0) {
            visual.insert(visual.size() / 2, QLatin1Char('\n'));
        }
        text.text = visual;
        if (words.bounded(10) == 0) {
            text.pronunciation = visual.toLower();
        }
    }
    return texts;
}

bool writeGlx(const QString& aPath, const std::vector<Text>& aTexts, bool aGerman)
{
    QFile file(aPath);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    QXmlStreamWriter xml(&file);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("catalog"));
    xml.writeAttribute(QStringLiteral("codepage"), QStringLiteral("UTF-8"));
    xml.writeAttribute(QStringLiteral("direction"), QStringLiteral("0"));
    xml.writeAttribute(
        QStringLiteral("language"), aGerman ? QStringLiteral("de_DE") : QStringLiteral("en_US"));
    xml.writeAttribute(
        QStringLiteral("display_name"), aGerman ? QStringLiteral("Deutsch") : QStringLiteral("English"));
    xml.writeAttribute(QStringLiteral("file_version"), QStringLiteral("1.0"));
    xml.writeStartElement(QStringLiteral("strings"));
    for (int section = 0; section < int(std::size(sSections)); ++section) {
        xml.writeStartElement(QStringLiteral("section"));
        xml.writeAttribute(QStringLiteral("name"), QLatin1String(sSections[section]));
        for (const Text& text : aTexts) {
            if (text.section != section) {
                continue;
            }
            xml.writeStartElement(QStringLiteral("entry"));
            xml.writeAttribute(QStringLiteral("handle"), text.handle);
            xml.writeStartElement(QStringLiteral("string"));
            xml.writeAttribute(QStringLiteral("default"), QStringLiteral("true"));
            QString visual = text.text;
            xml.writeTextElement(
                QStringLiteral("visual"), visual.replace(QLatin1Char('\n'), QLatin1String("\\n")));
            if (!text.pronunciation.isEmpty()) {
                xml.writeTextElement(QStringLiteral("pronunciation"), text.pronunciation);
                xml.writeEmptyElement(QStringLiteral("usage"));
                xml.writeAttribute(QStringLiteral("tts"), QStringLiteral("true"));
            }
            xml.writeEndElement(); // string
            xml.writeEndElement(); // entry
        }
        xml.writeEndElement(); // section
    }
    xml.writeEndElement(); // strings
    xml.writeEndElement(); // catalog
    xml.writeEndDocument();
    return !xml.hasError() && file.flush();
}

bool writeTs(const QString& aPath, const std::vector<Text>& aTexts)
{
    QFile file(aPath);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    QXmlStreamWriter xml(&file);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeDTD(QStringLiteral("<!DOCTYPE TS>"));
    xml.writeStartElement(QStringLiteral("TS"));
    xml.writeAttribute(QStringLiteral("version"), QStringLiteral("2.1"));
    xml.writeAttribute(QStringLiteral("language"), QStringLiteral("de_DE"));
    for (int section = 0; section < int(std::size(sSections)); ++section) {
        xml.writeStartElement(QStringLiteral("context"));
        xml.writeTextElement(QStringLiteral("name"), QLatin1String(sSections[section]));
        for (const Text& text : aTexts) {
            if (text.section != section) {
                continue;
            }
            xml.writeStartElement(QStringLiteral("message"));
            xml.writeTextElement(QStringLiteral("source"), text.key);
            xml.writeTextElement(QStringLiteral("translation"), text.text);
            xml.writeEndElement(); // message
        }
        xml.writeEndElement(); // context
    }
    xml.writeEndElement(); // TS
    xml.writeEndDocument();
    return !xml.hasError() && file.flush();
}

bool runLrelease(const QString& aTs, const QString& aQm)
{
    QProcess lrelease;
    lrelease.setProcessChannelMode(QProcess::ForwardedChannels);
    lrelease.start(
        QStringLiteral(HMICORE_LRELEASE), { QStringLiteral("-silent"), aTs, QStringLiteral("-qm"), aQm });
    return lrelease.waitForFinished(-1) && lrelease.exitStatus() == QProcess::NormalExit
        && lrelease.exitCode() == 0;
}

// The ".glx" through XmlLanguageFile, then BinaryLanguageFile::save, as `hmicore language compile`.
bool compile(const QString& aGlx, const QString& aDat)
{
    const QSharedPointer<XmlLanguageFile> xml = XmlLanguageFile::load(aGlx, false);
    return xml && BinaryLanguageFile::save(aDat, *xml);
}

// glibc merges the small chunks that a released file left behind at the next large request.
// That request is made here, before a timer starts, so that no load is charged with the release
// of the file before it.
void settleHeap()
{
    const QByteArray large(64 * 1024, '\0');
    Q_UNUSED(large)
}

double median(std::vector<double> aValues)
{
    if (aValues.empty()) {
        return 0;
    }
    std::sort(aValues.begin(), aValues.end());
    const size_t middle = aValues.size() / 2;
    return aValues.size() % 2 ? aValues[middle] : (aValues[middle - 1] + aValues[middle]) / 2;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Compares language files with Qt's .qm translations."));
    parser.addHelpOption();
    const QCommandLineOption repeatOption(QStringLiteral("repeat"),
        QStringLiteral("Repetitions (default 21)."), QStringLiteral("N"), QStringLiteral("21"));
    const QCommandLineOption countOption(QStringLiteral("count"),
        QStringLiteral("Texts and handles (default 10000)."), QStringLiteral("N"), QStringLiteral("10000"));
    const QCommandLineOption onlyOption(QStringLiteral("only"),
        QStringLiteral("Time only \"binary\", \"qm\" or \"xml\" loading; no handles, no ratios."),
        QStringLiteral("LOADER"));
    parser.addOptions({ repeatOption, countOption, onlyOption });
    parser.process(app);
    const int repeat = std::max(1, parser.value(repeatOption).toInt());
    const int count = std::max(1, parser.value(countOption).toInt());
    const QString only = parser.value(onlyOption);
    const bool timeBinary = only.isEmpty() || only == QLatin1String("binary");
    const bool timeQm = only.isEmpty() || only == QLatin1String("qm");
    const bool timeXml = only.isEmpty() || only == QLatin1String("xml");
    if (!timeBinary && !timeQm && !timeXml) {
        std::fprintf(stderr, "bench_language: --only takes binary, qm or xml\n");
        return 2;
    }

    QTemporaryDir directory;
    if (!directory.isValid()) {
        std::fprintf(stderr, "bench_language: no temporary directory\n");
        return 1;
    }
    const QString base = directory.path() + QLatin1Char('/');
    const QString glxPath = base + QStringLiteral("de_DE.glx");
    const QString datPath = base + QStringLiteral("de_DE.glx.dat");
    const QString tsPath = base + QStringLiteral("de_DE.ts");
    const QString qmPath = base + QStringLiteral("de_DE.qm");
    const std::vector<Text> texts = generate(count, true);
    const std::vector<Text> otherTexts = generate(count, false);
    if (!writeGlx(glxPath, texts, true) || !compile(glxPath, datPath) || !writeTs(tsPath, texts)
        || !runLrelease(tsPath, qmPath) || !writeGlx(base + QStringLiteral("en_US.glx"), otherTexts, false)
        || !compile(base + QStringLiteral("en_US.glx"), base + QStringLiteral("en_US.glx.dat"))) {
        std::fprintf(stderr, "bench_language: could not write or compile the generated files\n");
        return 1;
    }

    // What each side is handed: our keys as QString, Qt's context and source as C strings.
    QStringList keys;
    std::vector<QByteArray> contexts;
    std::vector<QByteArray> sources;
    QHash<QString, QString> floorTable;
    qint64 expectedSize = 0;
    for (const Text& text : texts) {
        keys.append(text.key);
        contexts.push_back(QByteArray(sSections[text.section]));
        sources.push_back(text.key.toUtf8());
        // A key of its own, as in any loaded table: keys that share their data with the ones
        // looked up would compare by pointer.
        floorTable.insert(QString(text.key.constData(), text.key.size()), text.text);
        expectedSize += text.text.size();
    }

    // Both sides must hand out exactly the generated texts, or the comparison means nothing.
    {
        const QSharedPointer<BinaryLanguageFile> file = BinaryLanguageFile::load(datPath, false);
        QTranslator translator;
        if (!file || file->getNodes().size() != count || !translator.load(qmPath)) {
            std::fprintf(stderr, "bench_language: the generated files do not load\n");
            return 1;
        }
        for (size_t i = 0; i < texts.size(); ++i) {
            const QSharedPointer<const NodeText> node = file->getNode(keys.at(int(i)));
            const QString translated = translator.translate(contexts[i].constData(), sources[i].constData());
            if (!node || node->getText() != texts[i].text || translated != texts[i].text) {
                std::fprintf(stderr, "bench_language: text %s differs between the forms\n",
                    qPrintable(keys.at(int(i))));
                return 1;
            }
        }
    }

    std::vector<double> binaryTotal, binaryLoad, binaryLookups;
    std::vector<double> qmTotal, qmLoad, qmTranslate;
    std::vector<double> xmlLoad;
    QElapsedTimer timer;
    // Summed so that no lookup can be optimised away; every pass must see every text.
    qint64 size = 0;
    bool allFound = true;
    const auto check = [&size, &allFound, expectedSize] {
        allFound = allFound && size == expectedSize;
        size = 0;
    };
    // Interleaved, so that a burst of load elsewhere on the machine hits all of them alike.
    for (int run = 0; run < repeat; ++run) {
        if (timeBinary) {
            settleHeap();
            timer.start();
            const QSharedPointer<BinaryLanguageFile> file = BinaryLanguageFile::load(datPath, false);
            const qint64 loaded = timer.nsecsElapsed();
            for (const QString& key : qAsConst(keys)) {
                size += file->getNode(key)->getText().size();
            }
            const qint64 done = timer.nsecsElapsed();
            binaryTotal.push_back(double(done));
            binaryLoad.push_back(double(loaded));
            binaryLookups.push_back(double(done - loaded));
            check();
        }
        if (timeQm) {
            QTranslator translator;
            settleHeap();
            timer.start();
            const bool loadedOk = translator.load(qmPath);
            const qint64 loaded = timer.nsecsElapsed();
            for (size_t i = 0; i < contexts.size(); ++i) {
                size += translator.translate(contexts[i].constData(), sources[i].constData()).size();
            }
            const qint64 done = timer.nsecsElapsed();
            qmTotal.push_back(double(done));
            qmLoad.push_back(double(loaded));
            qmTranslate.push_back(double(done - loaded));
            allFound = allFound && loadedOk;
            check();
        }
        if (timeXml) {
            settleHeap();
            timer.start();
            const QSharedPointer<XmlLanguageFile> file = XmlLanguageFile::load(glxPath, false);
            xmlLoad.push_back(double(timer.nsecsElapsed()));
            allFound = allFound && file && file->getNodes().size() == count;
        }
    }
    if (!allFound) {
        std::fprintf(stderr, "bench_language: a load failed or lost texts\n");
        return 1;
    }

    std::printf("%d texts in %d sections; files: .glx %.2f MB, .glx.dat %.2f MB, .qm %.2f MB\n", count,
        int(std::size(sSections)), QFile(glxPath).size() / 1e6, QFile(datPath).size() / 1e6,
        QFile(qmPath).size() / 1e6);
    std::printf("load, median of %d runs, ms:\n", repeat);
    if (timeBinary) {
        std::printf("  binary load + look up all  %7.3f  (load %.3f, lookups %.3f)\n",
            median(binaryTotal) / 1e6, median(binaryLoad) / 1e6, median(binaryLookups) / 1e6);
    }
    if (timeQm) {
        std::printf("  qm load + translate all    %7.3f  (load %.3f, translate %.3f)\n",
            median(qmTotal) / 1e6, median(qmLoad) / 1e6, median(qmTranslate) / 1e6);
    }
    if (timeXml) {
        std::printf("  XML parse (reference)      %7.3f\n", median(xmlLoad) / 1e6);
    }
    if (!only.isEmpty()) {
        return 0;
    }

    // Steady state and cold path through the handles, with both languages in one directory.
    LanguageManager& languages = LanguageManager::getInstance();
    languages.setLanguagesPath(directory.path());
    if (!languages.setCurrentLanguage(QStringLiteral("de_DE"))) {
        std::fprintf(stderr, "bench_language: the language manager did not take the files\n");
        return 1;
    }
    std::vector<std::unique_ptr<HandleTextResource>> handles;
    handles.reserve(size_t(count));
    for (const QString& key : qAsConst(keys)) {
        handles.push_back(std::make_unique<HandleTextResource>());
        handles.back()->setName(key);
    }
    const QSharedPointer<LanguageFile> file = BinaryLanguageFile::load(datPath, false);
    QTranslator translator;
    if (!file || !translator.load(qmPath)) {
        std::fprintf(stderr, "bench_language: the generated files do not load\n");
        return 1;
    }
    const auto readHandles = [&] {
        for (const auto& handle : handles) {
            size += handle->getText().size();
        }
    };
    const auto perItem = [count, &timer] { return double(timer.nsecsElapsed()) / count; };
    readHandles(); // every handle resolves once
    size = 0;

    // Warm: passes of one kind back to back, after one untimed pass. After other work: each pass
    // follows a pass of each of the other kinds, which pushes much of its data out of the caches
    // first, as the rest of a frame does between two reads of a text.
    constexpr int sPasses = 5;
    std::vector<double> warm[4], afterOther[4];
    const std::function<void()> passes[4] = {
        readHandles,
        [&] {
            for (const QString& key : qAsConst(keys)) {
                size += file->getNode(key)->getText().size();
            }
        },
        [&] {
            for (size_t i = 0; i < contexts.size(); ++i) {
                size += translator.translate(contexts[i].constData(), sources[i].constData()).size();
            }
        },
        [&] {
            for (const QString& key : qAsConst(keys)) {
                size += floorTable.value(key).size();
            }
        },
    };
    std::vector<double> notifyTimes, switchTimes, firstRead;
    const QString languageCycle[] = { QStringLiteral("en_US"), QStringLiteral("de_DE") };
    qint64 otherSize = 0;
    for (const Text& text : otherTexts) {
        otherSize += text.text.size();
    }
    for (int run = 0; run < repeat; ++run) {
        for (int kind = 0; kind < 4; ++kind) {
            passes[kind]();
            check();
            for (int pass = 0; pass < sPasses; ++pass) {
                timer.start();
                passes[kind]();
                warm[kind].push_back(perItem());
                check();
            }
        }
        for (int pass = 0; pass < sPasses; ++pass) {
            for (int kind = 0; kind < 4; ++kind) {
                timer.start();
                passes[kind]();
                afterOther[kind].push_back(perItem());
                check();
            }
        }

        // The notification alone, as a switch sends it, for the share of the switch it takes.
        timer.start();
        emit languages.languageChanged();
        notifyTimes.push_back(double(timer.nsecsElapsed()));
        readHandles();
        check();

        // Cold: switch away and back, so that the passes above always read German.
        for (const QString& language : languageCycle) {
            timer.start();
            const bool switched = languages.setCurrentLanguage(language);
            switchTimes.push_back(double(timer.nsecsElapsed()));
            timer.start();
            readHandles();
            firstRead.push_back(perItem());
            allFound
                = allFound && switched && size == (language == languageCycle[0] ? otherSize : expectedSize);
            size = 0;
        }
    }
    if (!allFound) {
        std::fprintf(stderr, "bench_language: a handle or lookup lost its text\n");
        return 1;
    }

    const char* const names[4]
        = { "HandleTextResource::getText (resolved)", "LanguageFile::getNode + getText",
              "QTranslator::translate", "QHash<QString, QString>::value (floor)" };
    std::printf(
        "per read, %d texts, median of %d passes, ns:   warm  after other work\n", count, repeat * sPasses);
    for (int kind = 0; kind < 4; ++kind) {
        std::printf("  %-40s %7.1f  %7.1f\n", names[kind], median(warm[kind]), median(afterOther[kind]));
    }
    std::printf("cold path, median of %d switches:\n", 2 * repeat);
    std::printf(
        "  language switch (load, notify %d handles, release)  %7.3f ms\n", count, median(switchTimes) / 1e6);
    std::printf(
        "    of which languageChanged() to the handles         %7.3f ms\n", median(notifyTimes) / 1e6);
    std::printf("  first read of each handle after the switch          %7.1f ns\n", median(firstRead));
    std::printf("ratios:\n");
    std::printf("  binary load + look up all / qm load + translate all  %5.2f  (goal <= 1)\n",
        median(binaryTotal) / median(qmTotal));
    std::printf("  XML parse / binary load + look up all                %5.2f\n",
        median(xmlLoad) / median(binaryTotal));
    std::printf("  translate / handle read, warm                        %5.2f  (goal >= 2)\n",
        median(warm[2]) / median(warm[0]));
    std::printf("  translate / handle read, after other work            %5.2f  (goal >= 2)\n",
        median(afterOther[2]) / median(afterOther[0]));
    std::printf(
        "  handle read / QHash floor, warm                      %5.2f\n", median(warm[0]) / median(warm[3]));
    std::printf("  first read after a switch / translate after other work %3.2f\n",
        median(firstRead) / median(afterOther[2]));
    return 0;
}
