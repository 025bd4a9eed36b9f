#include "handles/ResourceHandleState.h"

#include "resources/ResourceManager.h"
#include "resources/ThemeManager.h"

#include <QDebug>

namespace Hmi::Core {

ResourceHandleState::ResourceHandleState(QObject* aOwner, ResourceType aType, Signals aSignals)
    : mOwner(aOwner)
    , mType(aType)
    , mSignals(std::move(aSignals))
{
}

ResourceHandleState::~ResourceHandleState()
{
    QObject::disconnect(mConnection);
}

void ResourceHandleState::setName(const QString& aName)
{
    if (aName == mName) {
        return;
    }
    mName = aName;
    mNode.reset();
    mSignals.nameChanged();
    // A nameChanged handler may have read the value under the new name already; read anew.
    mNode.reset();
    mSignals.nameExistsChanged();
    mSignals.valueChanged();
}

QSharedPointer<const Node> ResourceHandleState::resolve(bool aWarn) const
{
    if (mNode || mName.isEmpty()) {
        return mNode;
    }
    ResourceManager& resources = ResourceManager::getInstance();
    if (!mFrozen && !mConnection) {
        mConnection = QObject::connect(&resources, &ResourceManager::resourceChanged, mOwner,
            [this] { const_cast<ResourceHandleState*>(this)->onResourceChanged(); });
    }
    mNode = resources.getNode(mType, mName);
    if (!mNode && aWarn) {
        // Not remembered: every read reports again until the name resolves.
        const ThemeManager& themes = ThemeManager::getInstance();
        qCritical("Handle name '%s' was not recognized. (Current Theme: \"%s\", Current Mode: \"%s\")",
            qUtf8Printable(mName), qUtf8Printable(themes.getCurrentTheme()), qUtf8Printable(themes.getCurrentMode()));
    }
    return mNode;
}

void ResourceHandleState::onResourceChanged()
{
    mNode.reset();
    mSignals.nameExistsChanged();
    mSignals.valueChanged();
}

void ResourceHandleState::freeze()
{
    if (mFrozen) {
        return;
    }
    mFrozen = true;
    mNode.reset();
    QObject::disconnect(mConnection);
    mConnection = {};
}

void ResourceHandleState::unfreeze()
{
    if (!mFrozen) {
        return;
    }
    mFrozen = false;
    onResourceChanged();
    resolve(true);
}

} // namespace Hmi::Core
