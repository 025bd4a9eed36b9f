#include "StartupTimingPolicy.h"

#include "frame/HmiCoreConfigs.h"
#include "frame/HmiCoreGlobal.h"
#include "frame/HmiCoreInitializer.h"
#include "frame/HmiCoreModule.h"
#include "frame/InstanceTracker.h"
#include "language/LanguageManager.h"
#include "resources/ThemeManager.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickItemGrabResult>
#include <QQuickWindow>
#include <QSGRendererInterface>
#include <QTimer>
#include <QUrl>

#include <cstdio>

namespace {

// Far more than one frame takes, even in software; only a broken scene gets near it.
constexpr int sScreenshotTimeoutMs = 10000;

void printLine(std::FILE* aStream, const QString& aText)
{
    std::fputs(qPrintable(QStringLiteral("showcase: ") + aText + QLatin1Char('\n')), aStream);
    std::fflush(aStream);
}

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

// Next to the executable in a build tree; the source tree when the binary was copied elsewhere.
QString findDataDirectory()
{
    const QString besideBinary = QCoreApplication::applicationDirPath() + QStringLiteral("/data");
    if (QFileInfo::exists(besideBinary + QStringLiteral("/showcase.ini"))) {
        return besideBinary;
    }
    return QDir::cleanPath(QStringLiteral(SHOWCASE_SOURCE_DATA_DIR));
}

QString resolutionText(const QList<QSize>& aSizes)
{
    QStringList parts;
    for (const QSize& size : aSizes) {
        parts.append(QString::number(size.width()) + QLatin1Char('x') + QString::number(size.height()));
    }
    return parts.join(QLatin1Char(' '));
}

// Shows the window and saves what it renders. QQuickWindow::grabWindow() cannot be used: with the
// software renderer on the offscreen platform it returns an empty image. An item grab renders into
// its own buffer on every platform, but leaves out the window's clear colour, which is put back here.
int saveScreenshot(QGuiApplication& aApp, QQuickWindow& aWindow, const QString& aPath)
{
    const QString path = QFileInfo(aPath).absoluteFilePath();
    int exitCode = 1;
    QSharedPointer<QQuickItemGrabResult> grab;

    const auto save = [&] {
        QImage content = grab->image();
        // The software renderer returns the grab as RGB32, yet its pixels carry their coverage in
        // the alpha byte, zero where nothing was drawn. Taken as opaque, those pixels would be
        // copied over the clear colour as they are and come out transparent.
        if (content.format() == QImage::Format_RGB32) {
            content.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
        }
        QImage image(content.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(aWindow.color());
        {
            QPainter painter(&image);
            painter.drawImage(0, 0, content);
        }
        // No alpha channel, since the window is opaque, and the strongest compression: the
        // screenshots are kept in the repository.
        if (content.isNull() || !image.convertToFormat(QImage::Format_RGB32).save(path, "PNG", 0)) {
            printLine(stderr, QStringLiteral("cannot write %1").arg(path));
        } else {
            printLine(stdout, QStringLiteral("wrote %1").arg(path));
            exitCode = 0;
        }
        aApp.quit();
    };

    // An item grab needs a window that renders, so ask for it once the first frame is out.
    QMetaObject::Connection firstFrame;
    firstFrame = QObject::connect(
        &aWindow, &QQuickWindow::frameSwapped, &aApp,
        [&] {
            QObject::disconnect(firstFrame);
            grab = aWindow.contentItem()->grabToImage();
            if (!grab) {
                printLine(stderr, QStringLiteral("the window cannot be grabbed"));
                aApp.quit();
                return;
            }
            QObject::connect(grab.data(), &QQuickItemGrabResult::ready, &aApp, save);
        },
        Qt::QueuedConnection);
    QTimer::singleShot(sScreenshotTimeoutMs, &aApp, [&] {
        printLine(stderr, QStringLiteral("no frame was rendered"));
        aApp.quit();
    });
    aWindow.show();
    aApp.exec();
    return exitCode;
}

struct Options
{
    QCommandLineOption screenshot;
    QCommandLineOption ini;
    QCommandLineOption theme;
    QCommandLineOption mode;
    QCommandLineOption language;
};

// The theme first: switching it selects its first mode, which --mode may then replace.
bool applyThemeOptions(const QCommandLineParser& aParser, const Options& aOptions)
{
    Hmi::Core::ThemeManager& themes = Hmi::Core::ThemeManager::getInstance();
    if (aParser.isSet(aOptions.theme) && !themes.setCurrentTheme(aParser.value(aOptions.theme))) {
        printLine(stderr,
            QStringLiteral("no theme \"%1\"; the themes are: %2")
                .arg(aParser.value(aOptions.theme), themes.getThemes().join(QStringLiteral(", "))));
        return false;
    }
    if (aParser.isSet(aOptions.mode) && !themes.setCurrentMode(aParser.value(aOptions.mode))) {
        printLine(stderr,
            QStringLiteral("theme %1 has no mode \"%2\"; its modes are: %3")
                .arg(themes.getCurrentTheme(), aParser.value(aOptions.mode),
                    themes.getModes().join(QStringLiteral(", "))));
        return false;
    }
    return true;
}

// Without --language the page starts in English when there is English, whatever the system's
// locale, so that screenshots do not depend on the machine that takes them.
bool applyLanguageOption(const QCommandLineParser& aParser, const Options& aOptions)
{
    Hmi::Core::LanguageManager& languages = Hmi::Core::LanguageManager::getInstance();
    const QStringList identifiers = languages.getLanguageIdentifiers();
    if (!aParser.isSet(aOptions.language)) {
        const QString english = QStringLiteral("en_US");
        if (identifiers.contains(english)) {
            languages.setCurrentLanguage(english);
        }
        return true;
    }
    const QString language = aParser.value(aOptions.language);
    if (!identifiers.contains(language) || !languages.setCurrentLanguage(language)) {
        printLine(stderr,
            QStringLiteral("no language \"%1\"; the languages are: %2")
                .arg(language, identifiers.join(QStringLiteral(", "))));
        return false;
    }
    return true;
}

int run(QGuiApplication& aApp, const QCommandLineParser& aParser, const Options& aOptions, bool aHeadless)
{
    const QString dataDirectory = findDataDirectory();
    const QString iniPath = aParser.isSet(aOptions.ini) ? aParser.value(aOptions.ini)
                                                        : dataDirectory + QStringLiteral("/showcase.ini");

    // Start-up as every product runs it: configuration with its placeholders, then the module.
    const auto timing = QSharedPointer<StartupTimingPolicy>::create();
    Hmi::Core::HmiCoreInitializer initializer(timing);
    initializer.configure(iniPath, { { QStringLiteral("DataRoot"), dataDirectory } });
    // Before the page exists, so that its first frame already shows the chosen theme and language.
    if (!applyThemeOptions(aParser, aOptions) || !applyLanguageOption(aParser, aOptions)) {
        return 2;
    }

    const Hmi::Core::HmiCoreConfigs& configs = *Hmi::Core::HmiCoreGlobal::getInstance().configs();
    const QList<QSize> resolutions = configs.getPrimaryDisplayResolution();
    const QSize size = resolutions.isEmpty() ? QSize(800, 480) : resolutions.constFirst();

    QQmlApplicationEngine engine;
    Hmi::Core::HmiCoreModule::prepareEngine(engine);
    engine.setInitialProperties({
        { QStringLiteral("width"), size.width() },
        { QStringLiteral("height"), size.height() },
        { QStringLiteral("configFile"), QFileInfo(iniPath).absoluteFilePath() },
        { QStringLiteral("primaryResolution"), resolutionText(resolutions) },
        { QStringLiteral("startupTimings"), timing->getTimings() },
    });
    engine.load(QUrl(QStringLiteral("qrc:/showcase/main.qml")));
    if (engine.rootObjects().isEmpty()) {
        printLine(stderr, QStringLiteral("the QML page could not be loaded"));
        return 1;
    }
    auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().constFirst());
    if (!window) {
        printLine(stderr, QStringLiteral("the QML page is not a window"));
        return 1;
    }

    if (aHeadless) {
        const QString path = aParser.isSet(aOptions.screenshot) ? aParser.value(aOptions.screenshot)
                                                                : QStringLiteral("showcase.png");
        return saveScreenshot(aApp, *window, path);
    }
    window->setWindowStates(Qt::WindowStates(configs.getWindowState()));
    window->setFlag(Qt::WindowStaysOnTopHint, configs.getWindowStaysOnTopHint());
    window->show();
    return aApp.exec();
}

} // namespace

int main(int argc, char* argv[])
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows what the Hmi.Core library offers a QML application."));
    const QCommandLineOption helpOption(
        { QStringLiteral("h"), QStringLiteral("help") }, QStringLiteral("Displays this help."));
    parser.addOption(helpOption);
    const Options options {
        { QStringLiteral("screenshot"),
            QStringLiteral("Render one frame off-screen, save it as a PNG file and exit."),
            QStringLiteral("FILE") },
        { QStringLiteral("ini"),
            QStringLiteral("The configuration to read (default: data/showcase.ini beside the program)."),
            QStringLiteral("FILE") },
        { QStringLiteral("theme"), QStringLiteral("Start in theme NAME (default: the first theme found)."),
            QStringLiteral("NAME") },
        { QStringLiteral("mode"),
            QStringLiteral("Start in mode NAME of the theme (default: its first mode)."),
            QStringLiteral("NAME") },
        { QStringLiteral("language"),
            QStringLiteral("Start in language ID, e.g. de_DE (default: en_US if there is one)."),
            QStringLiteral("ID") },
    };
    parser.addOptions({ options.screenshot, options.ini, options.theme, options.mode, options.language });

    // The platform plugin is chosen while the application object is built, so look at the command
    // line first. Qt's own options ("-platform") are not known yet and may make this parse fail;
    // the real check follows below.
    QStringList rawArguments;
    for (int index = 0; index < argc; ++index) {
        rawArguments.append(QString::fromLocal8Bit(argv[index]));
    }
    parser.parse(rawArguments);
    const bool headless = parser.isSet(options.screenshot) || !hasDisplay();
    if (headless) {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
        }
        if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND")) {
            QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
        }
    }

    QGuiApplication app(argc, argv);
    QGuiApplication::setApplicationName(QStringLiteral("showcase"));

    // The parser would name the program by its full path.
    const QString help = parser.helpText();
    const QString usage
        = QStringLiteral("Usage: showcase [options]") + help.mid(help.indexOf(QLatin1Char('\n')));
    if (!parser.parse(QCoreApplication::arguments())) {
        printLine(stderr, parser.errorText());
        std::fputs(qPrintable(usage), stderr);
        return 2;
    }
    if (parser.isSet(helpOption)) {
        std::fputs(qPrintable(usage), stdout);
        return 0;
    }
    if (!parser.positionalArguments().isEmpty()) {
        printLine(stderr,
            QStringLiteral("unexpected argument \"%1\"").arg(parser.positionalArguments().constFirst()));
        return 2;
    }

    const int exitCode = run(app, parser, options, headless);
    // The engine is gone; destroy the singletons it did not own while the application still exists.
    Hmi::Core::InstanceTracker::tearDown();
    return exitCode;
}
