#pragma once

#include "hmicore_export.h"

class QQmlEngine;

namespace Hmi::Core {

/**
 * Publishes the QML module "Hmi.Core" 1.0: its creatable types, its singletons and its
 * uncreatable types, in that fixed order, once per process.
 */
class HMICORE_EXPORT HmiCoreModule final
{
public:
    static constexpr const char* sUri = "Hmi.Core";
    static constexpr int sVersionMajor = 1;
    static constexpr int sVersionMinor = 0;

    /// Registers every type; further calls do nothing.
    static void registerTypes();

    /// Lets aEngine find the module's own QML components, which live in the resource "qrc:///Hmi/Core/",
    /// and serve theme images as "image://resourceImageProvider/<name>".
    static void prepareEngine(QQmlEngine& aEngine);

private:
    static void registerCreatableTypes();
    static void registerSingletons();
    static void registerUncreatableTypes();
};

} // namespace Hmi::Core
