// Feeds arbitrary bytes to the three readers of resource descriptions. The first byte picks the
// reader, the rest is its input:
//   0 mod 3  BinaryResourceFile::loadData, with the content hash "fuzz";
//   1 mod 3  XmlResourceFile::loadData;
//   2 mod 3  XmlLoader::parseCompressed, through an XmlResourceFile so that nodes are built.

#include "resources/BinaryResourceFile.h"
#include "resources/XmlResourceFile.h"

#include <QByteArray>
#include <QGuiApplication>

#include <cstdint>

namespace {

void dropMessage(QtMsgType, const QMessageLogContext&, const QString&)
{
    // Every rejected input logs; printing it would cost more time than parsing.
}

} // namespace

// fontconfig keeps caches for the life of the process; they are not ours to free.
extern "C" const char* __lsan_default_suppressions()
{
    return "leak:libfontconfig.so\n";
}

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // Fonts need a QGuiApplication, and the fuzzer has no display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int argc = 1;
    static char name[] = "fuzz_binaryresourcefile";
    static char* argv[] = { name, nullptr };
    // Never destroyed: Qt's offscreen platform leaks its screen on shutdown, which LeakSanitizer
    // would report at the end of every run.
    static QGuiApplication* application = new QGuiApplication(argc, argv);
    Q_UNUSED(application)
    qInstallMessageHandler(&dropMessage);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* aData, size_t aSize)
{
    if (aSize == 0) {
        return 0;
    }
    const QByteArray input(reinterpret_cast<const char*>(aData) + 1, int(aSize - 1));
    switch (aData[0] % 3) {
    case 0: {
        Hmi::Core::BinaryResourceFile file;
        file.loadData(input, QStringLiteral("/base/"), QByteArrayLiteral("fuzz"));
        break;
    }
    case 1: {
        Hmi::Core::XmlResourceFile file(QStringLiteral("/base/"));
        file.loadData(input);
        break;
    }
    default: {
        Hmi::Core::XmlResourceFile file(QStringLiteral("/base/"));
        file.parseCompressed(input);
        break;
    }
    }
    return 0;
}
