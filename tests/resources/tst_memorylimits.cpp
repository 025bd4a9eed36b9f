#include "frame/ConfigManager.h"
#include "language/BinaryLanguageFile.h"
#include "language/XmlLanguageFile.h"
#include "resources/BinaryResourceFile.h"
#include "resources/XmlResourceFile.h"

#include "common/MessageLog.h"

#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

#include <atomic>
#include <cstdlib>
#include <malloc.h>

// Peak heap use while a reader loads a file. Qt's containers allocate through malloc(), so the
// executable interposes the malloc family and forwards to glibc; the sanitizers bring their own
// allocator, which this would bypass, so the cases skip there.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define HMICORE_NO_ALLOCATION_COUNT
#endif
#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
#define HMICORE_NO_ALLOCATION_COUNT
#endif
#endif

namespace {

std::atomic<qint64> sInUse { 0 };
std::atomic<qint64> sPeak { 0 };

void allocated(void* aPointer)
{
    if (aPointer) {
        const qint64 now = sInUse += qint64(malloc_usable_size(aPointer));
        qint64 peak = sPeak.load(std::memory_order_relaxed);
        while (now > peak && !sPeak.compare_exchange_weak(peak, now)) { }
    }
}

void released(void* aPointer)
{
    if (aPointer) {
        sInUse -= qint64(malloc_usable_size(aPointer));
    }
}

} // namespace

#ifndef HMICORE_NO_ALLOCATION_COUNT
extern "C" {
void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);
void* __libc_memalign(size_t, size_t);
void __libc_free(void*);

void* malloc(size_t aSize)
{
    void* pointer = __libc_malloc(aSize);
    allocated(pointer);
    return pointer;
}

void* calloc(size_t aCount, size_t aSize)
{
    void* pointer = __libc_calloc(aCount, aSize);
    allocated(pointer);
    return pointer;
}

void* realloc(void* aPointer, size_t aSize)
{
    released(aPointer);
    void* pointer = __libc_realloc(aPointer, aSize);
    // A failed realloc leaves the old block in place.
    allocated(pointer ? pointer : (aSize ? aPointer : nullptr));
    return pointer;
}

void* memalign(size_t aAlignment, size_t aSize)
{
    void* pointer = __libc_memalign(aAlignment, aSize);
    allocated(pointer);
    return pointer;
}

void* aligned_alloc(size_t aAlignment, size_t aSize)
{
    return memalign(aAlignment, aSize);
}

int posix_memalign(void** aResult, size_t aAlignment, size_t aSize)
{
    void* pointer = memalign(aAlignment, aSize);
    if (!pointer) {
        return ENOMEM;
    }
    *aResult = pointer;
    return 0;
}

void free(void* aPointer)
{
    released(aPointer);
    __libc_free(aPointer);
}
}
#endif

using namespace Hmi::Core;

namespace {

// The content sizes are a few MB: large enough that the reader's copies dominate everything else.
constexpr int sLarge = 4 * 1024 * 1024;
// What a reader may allocate whatever its input: its parser, tables and a first read buffer.
constexpr qint64 sAllowance = 256 * 1024;

QByteArray resourceXml(const QByteArray& aName)
{
    return "<?xml version=\"1.0\"?>\n<NvkQtResourceFile><color><handle>" + aName
        + "</handle><value>1,2,3</value></color></NvkQtResourceFile>\n";
}

QByteArray languageXml(const QByteArray& aStrings)
{
    return "<?xml version=\"1.0\"?>\n<catalog language=\"en_US\"><strings>" + aStrings
        + "</strings></catalog>\n";
}

QByteArray chunk(const QByteArray& aPiece)
{
    const QByteArray compressed = qCompress(aPiece);
    QByteArray length(4, '\0');
    qToBigEndian<quint32>(quint32(compressed.size() - 4), length.data());
    return length + compressed;
}

enum class Reader
{
    ResourceXml,
    CompressedXml,
    BinaryResource,
    LanguageXml,
    BinaryLanguage,
    Ini
};

} // namespace

Q_DECLARE_METATYPE(Reader)

class tst_MemoryLimits : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
#ifdef HMICORE_NO_ALLOCATION_COUNT
        QSKIP("The sanitizer's allocator cannot be counted from here.");
#endif
    }

    void peakAllocation_data()
    {
        QTest::addColumn<Reader>("reader");
        // What the file holds; binary forms are compiled from it, compressed input is its chunks.
        QTest::addColumn<QByteArray>("content");
        // Peak allocation during the load, as a multiple of the input's size (for compressed input,
        // of what it expands to), beyond a fixed allowance for the reader's own state.
        QTest::addColumn<double>("limit");
        QTest::addColumn<int>("warnings");

        const QByteArray large(sLarge, 'a');
        const QByteArray longText
            = "<entry handle=\"A\"><string default=\"true\"><visual>" + large + "</visual></string></entry>";
        QByteArray entries;
        for (int i = 0; entries.size() < sLarge; ++i) {
            entries += "<entry handle=\"H" + QByteArray::number(i)
                + "\"><string default=\"true\"><visual>Text " + QByteArray::number(i)
                + "</visual></string></entry>\n";
        }
        // Every key repeats the section's name: without a bound on it, this 140 KB took 850 MB.
        QByteArray longSection = "<section name=\"" + QByteArray(70000, 'S') + "\">";
        for (int i = 0; i < 3000; ++i) {
            longSection += "<entry handle=\"" + QByteArray::number(i) + "\"/>";
        }
        longSection += "</section>";

        // clang-format off
        QTest::newRow("resource XML, long text") << Reader::ResourceXml << resourceXml(large) << 5.0 << 0;
        QTest::newRow("resource XML, long attribute")
            << Reader::ResourceXml
            << resourceXml("d</handle></color><defaults><handle>d</handle><property name=\"" + large
                           + "\">v</property></defaults><color><handle>e") << 7.0 << 0;
        QTest::newRow("compressed XML, long text") << Reader::CompressedXml << resourceXml(large) << 8.0 << 0;
        QTest::newRow("binary resource file, long name") << Reader::BinaryResource << resourceXml(large) << 2.5 << 0;
        QTest::newRow("language XML, long text") << Reader::LanguageXml << languageXml(longText) << 5.0 << 0;
        QTest::newRow("language XML, long attribute")
            << Reader::LanguageXml << languageXml("<entry handle=\"" + large + "\"/>") << 7.0 << 0;
        QTest::newRow("language XML, many entries") << Reader::LanguageXml << languageXml(entries) << 10.0 << 0;
        QTest::newRow("language XML, long section name") << Reader::LanguageXml << languageXml(longSection) << 10.0 << 1;
        QTest::newRow("binary language file, long text") << Reader::BinaryLanguage << languageXml(longText) << 1.5 << 0;
        QTest::newRow("binary language file, many entries") << Reader::BinaryLanguage << languageXml(entries) << 6.0 << 0;
        QTest::newRow("ini, long value") << Reader::Ini << "[App]\nLong=" + large + "\n" << 4.0 << 0;
        // clang-format on
    }

    void peakAllocation()
    {
        QFETCH(Reader, reader);
        QFETCH(QByteArray, content);
        QFETCH(double, limit);
        QFETCH(int, warnings);

        MessageLog log;
        const QByteArray input = reader == Reader::CompressedXml ? chunk(content) : content;
        const QString path = writeInput(reader, input);
        QVERIFY(!path.isEmpty());
        const qint64 size = reader == Reader::CompressedXml ? content.size() : QFileInfo(path).size();

        const qint64 peak = measure([&] { load(reader, path, input); });
        const double multiple = double(peak) / double(size);
        qInfo("%s: %.2f times the input's %lld bytes", QTest::currentDataTag(), multiple, size);
        QVERIFY2(peak <= sAllowance + limit * double(size), qPrintable(QString::number(multiple)));
        QCOMPARE(log.getCount(), warnings);
    }

    // A chunk that claims more than its zlib data could ever expand to.
    void compressedChunkClaim()
    {
        QByteArray input = chunk("<NvkQtResourceFile/>").left(14);
        qToBigEndian<quint32>(6, input.data());
        qToBigEndian<quint32>(60 * 1024 * 1024, input.data() + 4);
        MessageLog warnings;
        const qint64 peak = measure([&] { load(Reader::CompressedXml, QString(), input); });
        QVERIFY2(peak <= sAllowance, qPrintable(QString::number(peak)));
        QCOMPARE(warnings.getCount(), 1);
    }

private:
    template <typename Load> static qint64 measure(Load aLoad)
    {
        const qint64 before = sInUse.load();
        sPeak = before;
        aLoad();
        return sPeak.load() - before;
    }

    static void load(Reader aReader, const QString& aPath, const QByteArray& aInput)
    {
        switch (aReader) {
        case Reader::ResourceXml: {
            XmlResourceFile file(QString {});
            QVERIFY(file.loadFile(aPath));
            break;
        }
        case Reader::CompressedXml: {
            XmlResourceFile file(QString {});
            file.parseCompressed(aInput);
            break;
        }
        case Reader::BinaryResource: {
            BinaryResourceFile file(QString {});
            QVERIFY(file.loadFile(aPath, QString {}, "h"));
            break;
        }
        case Reader::LanguageXml:
            QVERIFY(XmlLanguageFile::load(aPath, false));
            break;
        case Reader::BinaryLanguage:
            QVERIFY(BinaryLanguageFile::load(aPath, false));
            break;
        case Reader::Ini:
            QVERIFY(ConfigManager::getInstance().addConfig(aPath));
            break;
        }
    }

    // The file that the reader under test opens; binary forms are compiled from the XML content.
    QString writeInput(Reader aReader, const QByteArray& aContent)
    {
        const QString xmlPath = mDirectory.filePath(QStringLiteral("input.xml"));
        QFile file(xmlPath);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)
            || file.write(aContent) != aContent.size()) {
            return {};
        }
        file.close();
        const QString binaryPath = mDirectory.filePath(QStringLiteral("input.dat"));
        switch (aReader) {
        case Reader::BinaryResource: {
            XmlResourceFile source(QString {});
            BinaryResourceFile target(QString {});
            return source.loadFile(xmlPath) && target.saveFile(binaryPath, "h", source) ? binaryPath
                                                                                        : QString();
        }
        case Reader::BinaryLanguage: {
            const auto source = XmlLanguageFile::load(xmlPath, false);
            return source && BinaryLanguageFile::save(binaryPath, *source) ? binaryPath : QString();
        }
        default:
            return xmlPath;
        }
    }

    QTemporaryDir mDirectory;
};

QTEST_GUILESS_MAIN(tst_MemoryLimits)
#include "tst_memorylimits.moc"
