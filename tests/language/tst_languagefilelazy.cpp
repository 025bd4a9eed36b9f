#include "language/LanguageFile.h"
#include "language/LanguageFileLazy.h"

#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <atomic>
#include <thread>
#include <vector>

using namespace Hmi::Core;

class tst_LanguageFileLazy : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        mDirectory.reset(new QTemporaryDir);
        QVERIFY(mDirectory->isValid());
        mPath = mDirectory->filePath(QStringLiteral("test.glx"));
        QVERIFY(writeXml(mPath, QStringLiteral("en_US")));
    }

    void sameFileWhileHeldThenReload()
    {
        LanguageFileLazy lazy(mPath);
        QWeakPointer<LanguageFile> weak;
        {
            const QSharedPointer<LanguageFile> first = lazy.getFile(false);
            QVERIFY(first);
            weak = first;
            // Changes on disk do not show while the loaded file is held.
            QVERIFY(writeXml(mPath, QStringLiteral("de_DE")));
            const QSharedPointer<LanguageFile> second = lazy.getFile(false);
            QVERIFY(second == first);
            QCOMPARE(second->getLanguage(), QStringLiteral("en_US"));
        }
        QVERIFY2(weak.isNull(), "the lazy file kept a strong reference");

        const QSharedPointer<LanguageFile> reloaded = lazy.getFile(false);
        QVERIFY(reloaded);
        QCOMPARE(reloaded->getLanguage(), QStringLiteral("de_DE"));
    }

    void catalogFileDoesNotServeFullRequests()
    {
        LanguageFileLazy lazy(mPath);
        const QSharedPointer<LanguageFile> catalog = lazy.getFile(true);
        QVERIFY(catalog);
        QVERIFY(!catalog->getIsFullyLoaded());
        QVERIFY(lazy.getFile(true) == catalog);

        const QSharedPointer<LanguageFile> full = lazy.getFile(false);
        QVERIFY(full);
        QVERIFY(full != catalog);
        QVERIFY(full->getIsFullyLoaded());
        // The full file is now the one remembered, and serves catalog requests too.
        QVERIFY(lazy.getFile(true) == full);
    }

    void failure_data()
    {
        QTest::addColumn<QString>("name");
        // Written as the file unless null.
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");

        QTest::newRow("missing XML file") << "missing.glx" << QByteArray() << "unknown error";
        QTest::newRow("missing binary file") << "missing.glx.dat" << QByteArray() << "";
        QTest::newRow("suffix is case-sensitive") << "missing.glx.DAT" << QByteArray() << "unknown error";
        // The reasons tell which reader the suffix chose.
        QTest::newRow("damaged binary file")
            << "damaged.glx.dat" << QByteArray("<catalog/>") << "magic bytes don't match";
    }

    void failure()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);

        const QString path = mDirectory->filePath(name);
        if (!content.isNull()) {
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write(content);
        }
        LanguageFileLazy lazy(path);
        const QByteArray message
            = "Unable to load language file: " + path.toUtf8() + ", reason: " + reason.toUtf8();
        // A failure is not cached: every request tries again and says so.
        for (const bool catalogOnly : { false, false, true }) {
            QTest::ignoreMessage(QtCriticalMsg, message.constData());
            QVERIFY(!lazy.getFile(catalogOnly));
        }
    }

    void concurrentRequestsShareOneFile()
    {
        constexpr int sThreads = 4;
        for (int round = 0; round < 300; ++round) {
            LanguageFileLazy lazy(mPath);
            // Spinning rather than blocking, so that the threads ask within microseconds of each other.
            std::atomic<int> waiting { sThreads };
            std::array<QSharedPointer<LanguageFile>, sThreads> files;
            std::vector<std::thread> threads;
            for (int index = 0; index < sThreads; ++index) {
                threads.emplace_back([&, index] {
                    waiting.fetch_sub(1);
                    while (waiting.load() > 0) {
                        std::this_thread::yield();
                    }
                    files[index] = lazy.getFile(false);
                });
            }
            for (std::thread& thread : threads) {
                thread.join();
            }
            QVERIFY(files[0]);
            for (const QSharedPointer<LanguageFile>& file : files) {
                QVERIFY2(file == files[0], qPrintable(QStringLiteral("round %1").arg(round)));
            }
        }
    }

private:
    // Writes a one-text XML language file; the language tells loads apart.
    static bool writeXml(const QString& aPath, const QString& aLanguage)
    {
        QFile file(aPath);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
            return false;
        }
        return file.write(QStringLiteral("<catalog language=\"%1\"/>").arg(aLanguage).toUtf8()) > 0;
    }

    QScopedPointer<QTemporaryDir> mDirectory;
    QString mPath;
};

QTEST_GUILESS_MAIN(tst_LanguageFileLazy)

#include "tst_languagefilelazy.moc"
