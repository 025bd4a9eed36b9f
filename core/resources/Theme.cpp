#include "resources/Theme.h"

#include "resources/ThemeMode.h"
#include "resources/XmlLoader.h"

#include <QDebug>
#include <QFile>
#include <QFileInfo>

namespace Hmi::Core {

namespace {

    // Collects a theme file's content through the same tag dispatch as resource files.
    struct ThemeReader : XmlLoader
    {
        QString themeName;
        bool sawTheme = false;
        QStringList packages;
        QList<QPair<QString, QStringList>> modes;
        bool inMode = false;

        ThemeReader()
        {
            registerTag(QStringLiteral("theme"), { this, [this](const QXmlStreamReader& aReader) {
                sawTheme = true;
                themeName = aReader.attributes().value(QLatin1String("name")).toString();
            }, {} });
            registerTag(QStringLiteral("mode"), { this, [this](const QXmlStreamReader& aReader) {
                inMode = true;
                modes.append({ aReader.attributes().value(QLatin1String("name")).toString(), {} });
            }, [this](const QString&) { inMode = false; } });
            registerTag(QStringLiteral("package"), { this, {}, [this](const QString& aText) {
                const QString package = aText.trimmed();
                if (!package.isEmpty()) {
                    (inMode ? modes.last().second : packages).append(package);
                }
            } });
        }
    };

} // namespace

Theme::Theme(QObject* aParent)
    : QObject(aParent)
{
}

Theme::~Theme() = default;

Theme* Theme::load(const QString& aPath, QObject* aParent)
{
    QFile file(aPath);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("WARNING: Theme file %s could not be opened.", qUtf8Printable(aPath));
        return nullptr;
    }
    ThemeReader reader;
    if (!reader.parse(&file) || !reader.sawTheme) {
        qWarning("WARNING: Theme file %s is not a valid theme.", qUtf8Printable(aPath));
        return nullptr;
    }
    auto* theme = new Theme(aParent);
    // A theme without a name attribute is known by its file name.
    theme->mName = reader.themeName.isEmpty() ? QFileInfo(aPath).completeBaseName() : reader.themeName;
    theme->mFilePath = aPath;
    theme->mPackages = reader.packages;
    for (const auto& mode : qAsConst(reader.modes)) {
        if (mode.first.isEmpty()) {
            qWarning("WARNING: Theme %s has a mode without a name; it is ignored.", qUtf8Printable(theme->mName));
            continue;
        }
        theme->mModes.append(new ThemeMode(mode.first, mode.second, theme));
    }
    return theme;
}

QStringList Theme::getModeNames() const
{
    QStringList names;
    for (const ThemeMode* mode : mModes) {
        names.append(mode->getName());
    }
    return names;
}

ThemeMode* Theme::getMode(const QString& aName) const
{
    for (ThemeMode* mode : mModes) {
        if (mode->getName() == aName) {
            return mode;
        }
    }
    return nullptr;
}

} // namespace Hmi::Core
