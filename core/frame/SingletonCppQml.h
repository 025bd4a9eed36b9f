#pragma once

#include "frame/SingletonCpp.h"

#include <QObject>

class QJSEngine;
class QQmlEngine;

namespace Hmi::Core {

/**
 * A native singleton that QML can also reach: registerInstance() is the provider handed to
 * qmlRegisterSingletonType, and it returns the very instance that getInstance() returns.
 *
 * Once an engine asked for it, that engine owns it; the tracker then forgets the instance when
 * the engine deletes it, so a later getInstance() builds a new one instead of handing out a
 * dangling pointer.
 */
template <typename T>
class SingletonCppQml : public SingletonCpp<T>
{
public:
    static T* registerInstance(QQmlEngine* aEngine, QJSEngine* aScriptEngine)
    {
        using Base = SingletonCpp<T>;
        auto* instance = static_cast<T*>(Base::sTracker.get());
        if (!instance) {
            QMutexLocker locker(&Base::sInitLock);
            instance = static_cast<T*>(Base::sTracker.get());
            if (!instance) {
                instance = new T(aEngine, aScriptEngine);
                Base::sTracker.set(instance);
            }
        }
        if (!Base::sTracker.isQmlOwned()) {
            Base::sTracker.setQmlOwned(true);
            QObject::connect(instance, &QObject::destroyed, [] {
                Base::sTracker.set(nullptr);
                Base::sTracker.setQmlOwned(false);
            });
        }
        return instance;
    }

protected:
    SingletonCppQml() = default;
    ~SingletonCppQml() = default;
};

} // namespace Hmi::Core
