#pragma once

#include "hmicore_export.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace Hmi::Core {

/**
 * Receives the library's performance events ("Hmi/Core/loadConfigStart", ...). Every operation does
 * nothing here; an application derives from it to feed its profiler.
 */
class HMICORE_EXPORT PerfEventPolicyBase : public QObject
{
    Q_OBJECT

public:
    enum PayloadType {
        PAYLOAD_TYPE_NONE,
        PAYLOAD_TYPE_INTEGER,
        PAYLOAD_TYPE_INTEGER_64,
        PAYLOAD_TYPE_DECIMAL,
        PAYLOAD_TYPE_TEXT,
        PAYLOAD_TYPE_BINARY
    };
    Q_ENUM(PayloadType)

    explicit PerfEventPolicyBase(QObject* aParent = nullptr);
    ~PerfEventPolicyBase() override;
    Q_DISABLE_COPY(PerfEventPolicyBase)

    Q_INVOKABLE virtual void raiseEvent(const QString& aEventName);
    Q_INVOKABLE virtual void raiseEventWithBinding(const QString& aEventName, const QVariant& aIdentifier);
    Q_INVOKABLE virtual void raiseEventWithPayload(
        const QString& aEventName, PayloadType aPayloadType, const QVariant& aPayload);
    Q_INVOKABLE virtual void raiseEventWithBindingAndPayload(const QString& aEventName,
        const QVariant& aIdentifier, PayloadType aPayloadType, const QVariant& aPayload);
};

} // namespace Hmi::Core
