#pragma once

#include "hmicore_export.h"
#include "resources/Node.h"
#include "resources/ResourceType.h"

#include <QMetaObject>
#include <QSharedPointer>
#include <QString>

#include <functional>

class QObject;

namespace Hmi::Core {

/**
 * What every resource-backed handle shares: the name, the node it resolved to, the connection to
 * the resource manager's resourceChanged() and the frozen flag. The handle owns one and forwards
 * its name, nameExists, freeze and unfreeze to it; the state calls back to emit the handle's
 * signals in the right order.
 */
class HMICORE_EXPORT ResourceHandleState final
{
public:
    struct Signals
    {
        std::function<void()> nameChanged;
        std::function<void()> nameExistsChanged;
        /// The value signals of the handle's kind (colorChanged, fontChanged, ...).
        std::function<void()> valueChanged;
    };

    ResourceHandleState(QObject* aOwner, ResourceType aType, Signals aSignals);
    ~ResourceHandleState();
    Q_DISABLE_COPY(ResourceHandleState)

    const QString& getName() const { return mName; }
    void setName(const QString& aName);
    /// Resolves without the missing-name message.
    bool getNameExists() const { return bool(resolve(false)); }

    /// The node for the name in the current theme; null, with a message when aWarn, if unknown.
    QSharedPointer<const Node> resolve(bool aWarn = true) const;
    template <typename T>
    QSharedPointer<const T> get() const
    {
        return resolve(true).template staticCast<const T>();
    }

    void onResourceChanged();
    void freeze();
    void unfreeze();
    bool isFrozen() const { return mFrozen; }

private:
    QObject* const mOwner;
    const ResourceType mType;
    const Signals mSignals;
    QString mName;
    mutable QSharedPointer<const Node> mNode;
    mutable QMetaObject::Connection mConnection;
    bool mFrozen = false;
};

} // namespace Hmi::Core
