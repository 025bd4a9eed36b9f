#pragma once

class QJSEngine;
class QQmlEngine;

namespace Hmi::Core {

/// QML-only singleton: every engine that asks gets its own instance, owned by that engine.
template <typename T>
class SingletonQml
{
public:
    static T* registerInstance(QQmlEngine* aEngine, QJSEngine* aScriptEngine)
    {
        return new T(aEngine, aScriptEngine);
    }

protected:
    SingletonQml() = default;
    ~SingletonQml() = default;
};

} // namespace Hmi::Core
