#include "language/LanguageManager.h"

#include "language/LanguageFile.h"
#include "language/LanguageFileLazy.h"
#include "language/NodeText.h"

#include <QDebug>
#include <QDir>
#include <QLocale>

#include <algorithm>

namespace Hmi::Core {

LanguageManager::LanguageManager(QQmlEngine* /*aEngine*/, QJSEngine* /*aScriptEngine*/)
{
}

LanguageManager::~LanguageManager() = default;

void LanguageManager::setLanguagesPath(const QString& aPath)
{
    const QDir directory(aPath);
    QStringList files = directory.entryList({ QStringLiteral("*.glx"), QStringLiteral("*.glx.dat") }, QDir::Files);
    // Binary files first, so that they win over the XML form of the same language.
    std::sort(files.begin(), files.end(), [](const QString& aLeft, const QString& aRight) {
        const bool leftBinary = aLeft.endsWith(QLatin1String(".dat"));
        const bool rightBinary = aRight.endsWith(QLatin1String(".dat"));
        return leftBinary != rightBinary ? leftBinary : aLeft < aRight;
    });

    std::vector<Language> found;
    for (const QString& name : qAsConst(files)) {
        Language language;
        language.path = directory.filePath(name);
        language.file = std::make_shared<LanguageFileLazy>(language.path);
        const QSharedPointer<LanguageFile> catalog = language.file->getFile(true);
        if (!catalog) {
            continue;
        }
        language.identifier = catalog->getLanguage();
        if (language.identifier.isEmpty()) {
            qWarning("WARNING: Language file %s names no language; it is ignored.", qUtf8Printable(language.path));
            continue;
        }
        language.displayName = catalog->getDisplayName();
        language.rightToLeft = catalog->getRightToLeft();
        const bool known = std::any_of(found.cbegin(), found.cend(),
            [&language](const Language& aOther) { return aOther.identifier == language.identifier; });
        if (!known) {
            found.push_back(std::move(language));
        }
    }
    std::sort(found.begin(), found.end(),
        [](const Language& aLeft, const Language& aRight) { return aLeft.identifier < aRight.identifier; });

    QString initial;
    {
        std::lock_guard<std::mutex> lock(mMutex);
        mLanguages = std::move(found);
        if (!mCurrentLanguage.isEmpty() && findLanguage(mCurrentLanguage)) {
            initial = mCurrentLanguage;
        } else if (findLanguage(QLocale::system().name())) {
            initial = QLocale::system().name();
        } else if (!mLanguages.empty()) {
            initial = mLanguages.front().identifier;
        }
    }
    emit languagesChanged();
    if (!initial.isEmpty() && initial != getCurrentLanguage()) {
        setCurrentLanguage(initial);
    }
}

const LanguageManager::Language* LanguageManager::findLanguage(const QString& aIdentifier) const
{
    const auto it = std::find_if(mLanguages.cbegin(), mLanguages.cend(),
        [&aIdentifier](const Language& aLanguage) { return aLanguage.identifier == aIdentifier; });
    return it == mLanguages.cend() ? nullptr : &*it;
}

QVariantList LanguageManager::getLanguages() const
{
    std::lock_guard<std::mutex> lock(mMutex);
    QVariantList languages;
    for (const Language& language : mLanguages) {
        languages.append(QVariantMap { { QStringLiteral("identifier"), language.identifier },
            { QStringLiteral("displayName"), language.displayName },
            { QStringLiteral("rightToLeft"), language.rightToLeft }, { QStringLiteral("path"), language.path } });
    }
    return languages;
}

QStringList LanguageManager::getLanguageIdentifiers() const
{
    std::lock_guard<std::mutex> lock(mMutex);
    QStringList identifiers;
    for (const Language& language : mLanguages) {
        identifiers.append(language.identifier);
    }
    return identifiers;
}

QString LanguageManager::getCurrentLanguage() const
{
    std::lock_guard<std::mutex> lock(mMutex);
    return mCurrentLanguage;
}

QString LanguageManager::getCurrentDisplayName() const
{
    std::lock_guard<std::mutex> lock(mMutex);
    return mCurrentFile ? mCurrentFile->getDisplayName() : QString();
}

bool LanguageManager::getRightToLeft() const
{
    std::lock_guard<std::mutex> lock(mMutex);
    return mCurrentFile && mCurrentFile->getRightToLeft();
}

bool LanguageManager::setCurrentLanguage(const QString& aLanguage)
{
    std::shared_ptr<LanguageFileLazy> lazy;
    {
        std::lock_guard<std::mutex> lock(mMutex);
        if (aLanguage == mCurrentLanguage && mCurrentFile) {
            return true;
        }
        const Language* language = findLanguage(aLanguage);
        if (!language) {
            qWarning("WARNING: Language %s is not available.", qUtf8Printable(aLanguage));
            return false;
        }
        lazy = language->file;
    }
    // Loaded outside the lock: readers keep using the current language meanwhile.
    const QSharedPointer<LanguageFile> file = lazy->getFile(false);
    if (!file) {
        return false;
    }
    QSharedPointer<LanguageFile> previous;
    {
        std::lock_guard<std::mutex> lock(mMutex);
        previous = std::exchange(mCurrentFile, file);
        mCurrentLanguage = aLanguage;
    }
    emit languageChanged();
    emit currentLanguageChanged();
    return true;
}

QSharedPointer<const NodeText> LanguageManager::getNode(const QString& aKey) const
{
    std::lock_guard<std::mutex> lock(mMutex);
    return mCurrentFile ? mCurrentFile->getNode(aKey) : nullptr;
}

QSharedPointer<LanguageFile> LanguageManager::getCurrentFile() const
{
    std::lock_guard<std::mutex> lock(mMutex);
    return mCurrentFile;
}

} // namespace Hmi::Core
