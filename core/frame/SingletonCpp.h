#pragma once

#include "frame/InstanceTracker.h"

#include <QCoreApplication>
#include <QMutex>
#include <QThread>

namespace Hmi::Core {

/**
 * Native singleton: the one instance of T is created on the main thread by the first getInstance().
 *
 * \code
 * class ConfigManager final : public SingletonCpp<ConfigManager> {
 *     friend class SingletonCpp<ConfigManager>;
 *     ConfigManager(QQmlEngine*, QJSEngine*);
 * };
 * ConfigManager::getInstance().addConfig(path);
 * \endcode
 */
template <typename T>
class SingletonCpp
{
public:
    static T& getInstance()
    {
        if (void* instance = sTracker.get()) {
            return *static_cast<T*>(instance);
        }
        QMutexLocker locker(&sInitLock);
        if (void* instance = sTracker.get()) {
            return *static_cast<T*>(instance);
        }
        const QCoreApplication* app = QCoreApplication::instance();
        if (!app || app->thread() != QThread::currentThread()) {
            qFatal("Singleton must be created on main thread");
        }
        T* instance = new T(nullptr, nullptr);
        sTracker.set(instance);
        sTracker.setQmlOwned(false);
        return *instance;
    }

protected:
    SingletonCpp() = default;
    ~SingletonCpp() = default;

    static void deleteInstance(void* aInstance) { delete static_cast<T*>(aInstance); }

    static QMutex sInitLock;
    static InstanceTracker sTracker;
};

template <typename T>
QMutex SingletonCpp<T>::sInitLock;

template <typename T>
InstanceTracker SingletonCpp<T>::sTracker { &SingletonCpp<T>::deleteInstance };

} // namespace Hmi::Core
