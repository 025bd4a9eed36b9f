#include "language/HandleTextResource.h"

#include "language/LanguageManager.h"
#include "language/NodeText.h"

#include <QDebug>
#include <QSet>

#include <mutex>

namespace Hmi::Core {

namespace {

    // Each missing key is reported once per language, not on every read of every handle.
    bool firstMiss(const QString& aKey, const QString& aLanguage)
    {
        static std::mutex sLock;
        static QSet<QString> sReported;
        std::lock_guard<std::mutex> lock(sLock);
        const QString entry = aLanguage + QLatin1Char('\n') + aKey;
        if (sReported.contains(entry)) {
            return false;
        }
        sReported.insert(entry);
        return true;
    }

} // namespace

HandleTextResource::HandleTextResource(QObject* aParent)
    : HandleText(aParent)
{
    connect(&LanguageManager::getInstance(), &LanguageManager::languageChanged, this,
        &HandleTextResource::onLanguageChanged);
}

HandleTextResource::~HandleTextResource() = default;

void HandleTextResource::setName(const QString& aName)
{
    if (aName == mName) {
        return;
    }
    mName = aName;
    mNode.reset();
    emit nameChanged();
    emit nameExistsChanged();
    emit textChanged();
}

bool HandleTextResource::getNameExists() const
{
    return bool(resolve(false));
}

QString HandleTextResource::getText() const
{
    const auto node = resolve(true);
    return node ? node->getText() : QString();
}

void HandleTextResource::onLanguageChanged()
{
    mNode.reset();
    emit nameExistsChanged();
    emit textChanged();
}

QSharedPointer<const NodeText> HandleTextResource::resolve(bool aWarn) const
{
    if (mNode || mName.isEmpty()) {
        return mNode;
    }
    const LanguageManager& languages = LanguageManager::getInstance();
    mNode = languages.getNode(mName);
    if (!mNode && aWarn) {
        const QString language = languages.getCurrentLanguage();
        if (firstMiss(mName, language)) {
            qWarning("WARNING: Text %s was not found in language %s.", qUtf8Printable(mName),
                qUtf8Printable(language));
        }
    }
    return mNode;
}

} // namespace Hmi::Core
