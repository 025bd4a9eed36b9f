#include "frame/ConfigManager.h"

#include "common/MessageLog.h"

#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

using Hmi::Core::ConfigManager;

namespace {

const QString sName100(100, QLatin1Char('n'));
const QString sName101(101, QLatin1Char('n'));

void installPlaceholders()
{
    ConfigManager::getInstance().setPlaceholders({
        { QStringLiteral("Placeholder1"), QStringLiteral("test1") },
        { QStringLiteral("Placeholder2"), QStringLiteral("2") },
        { QStringLiteral("Placeholder4"), QStringLiteral("4") },
        { QStringLiteral("Long"), QStringLiteral("a long replacement") },
        { QStringLiteral("Empty"), QString() },
        { sName100, QStringLiteral("hundred") },
        // Present so that a too generous name pattern would visibly replace it.
        { sName101, QStringLiteral("too long") },
    });
}

QByteArray missingPlaceholderWarning(const QString& aName)
{
    return "WARNING: Found placeholder, " + aName.toUtf8() + ", but no corresponding value to replace it.";
}

} // namespace

// ConfigManager is a process-wide singleton whose placeholder table only ever grows, so the slots
// run in a fixed order: everything that needs an empty table comes first.
class tst_ConfigManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        mBaseFile = QFINDTESTDATA("../data/frame/config/base.ini");
        mOverrideFile = QFINDTESTDATA("../data/frame/config/override/override.ini");
        mPlaceholderFile = QFINDTESTDATA("../data/frame/config/placeholders.ini");
        QVERIFY(!mBaseFile.isEmpty() && !mOverrideFile.isEmpty() && !mPlaceholderFile.isEmpty());

        ConfigManager& config = ConfigManager::getInstance();
        config.setDefault(QStringLiteral("Test/RelativePath"), QStringLiteral("default/rel"), true);
        config.setDefault(QStringLiteral("Test/AbsolutePath"), QStringLiteral("/default/abs"), true);
        config.setDefault(QStringLiteral("Test/NotAPath"), QStringLiteral("default"), false);
        config.setDefault(QStringLiteral("Test/BasePath"), QStringLiteral("default/base"), true);
        config.setDefault(QStringLiteral("Test/DefaultOnly"), QStringLiteral("default/only"), true);
    }

    void withoutPlaceholderTableNothingIsScanned()
    {
        ConfigManager& config = ConfigManager::getInstance();
        const MessageLog warnings;

        QString text = QStringLiteral("%%NotInTable%%");
        QVERIFY(!config.substitutePlaceholders(text));
        QCOMPARE(text, QStringLiteral("%%NotInTable%%"));

        QVERIFY(config.addConfig(mPlaceholderFile));
        QCOMPARE(
            config.getConfig(QStringLiteral("Test/Single")), QVariant(QStringLiteral("%%Placeholder1%%")));
        // A scan would have complained about every name it could not find.
        QCOMPARE(warnings.getCount(), 0);
    }

    void readFile_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("resolvePath");
        QTest::addColumn<QVariant>("expectedConfig");
        QTest::addColumn<QVariant>("expectedValue");

        const QString dir = directoryOf(QFINDTESTDATA("../data/frame/config/base.ini"));
        const QVariant none;

        // clang-format off
        QTest::newRow("relative path resolves against the file's directory")
            << "Test/RelativePath" << true << QVariant(dir + "sub/dir") << QVariant(dir + "sub/dir");
        QTest::newRow("relative path left alone on request")
            << "Test/RelativePath" << false << QVariant("sub/dir") << QVariant("sub/dir");
        QTest::newRow("absolute path kept")
            << "Test/AbsolutePath" << true << QVariant("/abs/dir") << QVariant("/abs/dir");
        QTest::newRow("default that is no path")
            << "Test/NotAPath" << true << QVariant("sub/dir") << QVariant("sub/dir");
        QTest::newRow("key without default is no path")
            << "Test/Shared" << true << QVariant("from base") << QVariant("from base");
        QTest::newRow("default is never resolved") << "Test/DefaultOnly" << true << QVariant("default/only") << none;
        QTest::newRow("unknown key") << "Test/NoSuchKey" << true << none << none;
        QTest::newRow("section is part of the key") << "RelativePath" << true << none << none;
        // clang-format on
    }

    void readFile()
    {
        QFETCH(QString, key);
        QFETCH(bool, resolvePath);
        QFETCH(QVariant, expectedConfig);
        QFETCH(QVariant, expectedValue);

        ConfigManager& config = ConfigManager::getInstance();
        QVERIFY(config.addConfig(mBaseFile));
        QCOMPARE(config.getConfig(key, resolvePath), expectedConfig);
        QCOMPARE(config.getConfigValue(key, resolvePath), expectedValue);
    }

    void laterFileOverridesKeyByKey()
    {
        ConfigManager& config = ConfigManager::getInstance();
        const QTemporaryDir dir;
        const QString missing = dir.filePath(QStringLiteral("missing.ini"));
        QTest::ignoreMessage(QtWarningMsg,
            qPrintable(
                QStringLiteral("WARNING: The config file, %1, could not be loaded because it does not exist.")
                    .arg(missing)));
        QVERIFY(!config.addConfig(missing));
        QCOMPARE(config.getConfig(QStringLiteral("Test/Shared")), QVariant(QStringLiteral("from base")));
        QCOMPARE(config.getConfigValue(QStringLiteral("Test/DefaultOnly")), QVariant());

        QVERIFY(config.addConfig(mOverrideFile));
        QCOMPARE(config.getConfig(QStringLiteral("Test/Shared")), QVariant(QStringLiteral("from override")));
        QCOMPARE(config.getConfig(QStringLiteral("Test/RelativePath")),
            QVariant(directoryOf(mOverrideFile) + "other"));
        // Keys the later file does not mention keep their value and the directory they came from.
        QCOMPARE(
            config.getConfig(QStringLiteral("Test/BasePath")), QVariant(directoryOf(mBaseFile) + "kept"));
        QCOMPARE(config.getConfig(QStringLiteral("Test/AbsolutePath")), QVariant(QStringLiteral("/abs/dir")));
    }

    void valueWithComma_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<bool>("isPath");
        // The default is installed after the file was read, as HmiCoreConfigs does at start-up.
        QTest::addColumn<bool>("defaultAfterFile");
        QTest::addColumn<QVariant>("expected");

        const QVariant fallback(QStringLiteral("/default/path"));
        // clang-format off
        QTest::newRow("path") << QByteArray("/opt/hmi/a,b") << true << false << fallback;
        QTest::newRow("path, default installed later") << QByteArray("/opt/hmi/a,b") << true << true << fallback;
        // Read back as the same list as the row before: the path as written is lost.
        QTest::newRow("path, blank after comma") << QByteArray("/opt/hmi/a, b") << true << false << fallback;
        QTest::newRow("quoted path kept")
            << QByteArray("\"/opt/hmi/a,b\"") << true << false << QVariant(QStringLiteral("/opt/hmi/a,b"));
        QTest::newRow("no path stays a list")
            << QByteArray("a, b") << false << false << QVariant(QStringList { "a", "b" });
        // clang-format on
    }

    void valueWithComma()
    {
        QFETCH(QByteArray, line);
        QFETCH(bool, isPath);
        QFETCH(bool, defaultAfterFile);
        QFETCH(QVariant, expected);

        ConfigManager& config = ConfigManager::getInstance();
        const QString key = QStringLiteral("Comma/") + QString::number(mCommaKeys++);
        const QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("comma.ini"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[Comma]\n" + key.mid(6).toLatin1() + '=' + line + '\n');
        file.close();

        const bool warns = expected.toString() == QLatin1String("/default/path");
        if (warns) {
            QTest::ignoreMessage(QtWarningMsg,
                qPrintable(
                    QStringLiteral("WARNING: The path in %1 has an unquoted comma, which makes it a list; "
                                   "using the default instead. Put the value in double quotes to keep "
                                   "the comma.")
                        .arg(key)));
        }
        const MessageLog warnings;
        const auto setDefault = [&] { config.setDefault(key, QStringLiteral("/default/path"), isPath); };
        if (!defaultAfterFile) {
            setDefault();
        }
        QVERIFY(config.addConfig(path));
        if (defaultAfterFile) {
            setDefault();
        }
        QCOMPARE(config.getConfig(key), expected);
        QCOMPARE(config.getConfig(key, false), expected);
        QCOMPARE(config.getConfigValue(key).isValid(), !warns);
        QCOMPARE(warnings.getCount(), warns ? 1 : 0);
    }

    void substitute_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<bool>("replaced");
        QTest::addColumn<QStringList>("missing");

        const QString percent = QStringLiteral("%%");
        const QStringList none;

        const QString long100 = percent + sName100 + percent;
        const QString long101 = percent + sName101 + percent;
        // clang-format off
        QTest::newRow("whole value") << "%%Placeholder1%%" << "test1" << true << none;
        QTest::newRow("shorter replacements shift later matches")
            << "1%%Placeholder2%%3%%Placeholder4%%5" << "12345" << true << none;
        QTest::newRow("longer replacements shift later matches")
            << "<%%Long%%|%%Long%%>" << "<a long replacement|a long replacement>" << true << none;
        QTest::newRow("adjacent") << "%%Placeholder2%%%%Placeholder4%%" << "24" << true << none;
        QTest::newRow("stray percent sign before") << "%%%Placeholder1%%" << "%test1" << true << none;
        QTest::newRow("name of 100 characters") << long100 << "hundred" << true << none;
        QTest::newRow("name of 101 characters") << long101 << long101 << false << none;
        QTest::newRow("name with !") << "%%Place!holder1%%" << "%%Place!holder1%%" << false << none;
        QTest::newRow("unknown name") << "%%Unknown%%" << "%%Unknown%%" << false << QStringList { "Unknown" };
        QTest::newRow("empty replacement counts as missing")
            << "a%%Empty%%b" << "a%%Empty%%b" << false << QStringList { "Empty" };
        QTest::newRow("unknown name before a known one") << "%%Unknown%%-%%Placeholder2%%-%%Other%%-%%Placeholder4%%"
            << "%%Unknown%%-2-%%Other%%-4" << true << QStringList { "Unknown", "Other" };
        QTest::newRow("no placeholder") << "plain % text %%" << "plain % text %%" << false << none;
        // clang-format on
    }

    void substitute()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QFETCH(bool, replaced);
        QFETCH(QStringList, missing);

        installPlaceholders();
        for (const QString& name : qAsConst(missing)) {
            QTest::ignoreMessage(QtWarningMsg, missingPlaceholderWarning(name).constData());
        }
        const MessageLog warnings;
        QCOMPARE(ConfigManager::getInstance().substitutePlaceholders(text), replaced);
        QCOMPARE(text, expected);
        QCOMPARE(warnings.getCount(), missing.size());
    }

    void latestPlaceholderEntryWins()
    {
        ConfigManager& config = ConfigManager::getInstance();
        config.setPlaceholders({ { QStringLiteral("Twice"), QStringLiteral("first") } });
        config.setPlaceholders({ { QStringLiteral("Twice"), QStringLiteral("second") } });

        QString text = QStringLiteral("%%Twice%% %%Placeholder1%%");
        QVERIFY(config.substitutePlaceholders(text));
        // Entries of earlier calls stay in the table.
        QCOMPARE(text, QStringLiteral("second test1"));
    }

    void placeholdersInFileValues()
    {
        ConfigManager& config = ConfigManager::getInstance();
        installPlaceholders();
        QTest::ignoreMessage(
            QtWarningMsg, missingPlaceholderWarning(QStringLiteral("NotInTable")).constData());
        QVERIFY(config.addConfig(mPlaceholderFile));

        QCOMPARE(config.getConfig(QStringLiteral("Test/Single")), QVariant(QStringLiteral("test1")));
        QCOMPARE(config.getConfig(QStringLiteral("Test/Offsets")), QVariant(QStringLiteral("12345")));
        QCOMPARE(
            config.getConfig(QStringLiteral("Test/Unknown")), QVariant(QStringLiteral("%%NotInTable%%")));
    }

private:
    static QString directoryOf(const QString& aFile)
    {
        return QFileInfo(aFile).absolutePath() + QLatin1Char('/');
    }

    QString mBaseFile;
    QString mOverrideFile;
    QString mPlaceholderFile;
    int mCommaKeys = 0;
};

QTEST_GUILESS_MAIN(tst_ConfigManager)

#include "tst_configmanager.moc"
