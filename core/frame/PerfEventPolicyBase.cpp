#include "frame/PerfEventPolicyBase.h"

namespace Hmi::Core {

PerfEventPolicyBase::PerfEventPolicyBase(QObject* aParent)
    : QObject(aParent)
{
}

PerfEventPolicyBase::~PerfEventPolicyBase() = default;

void PerfEventPolicyBase::raiseEvent(const QString& /*aEventName*/) { }

void PerfEventPolicyBase::raiseEventWithBinding(const QString& /*aEventName*/, const QVariant& /*aIdentifier*/) { }

void PerfEventPolicyBase::raiseEventWithPayload(
    const QString& /*aEventName*/, PayloadType /*aPayloadType*/, const QVariant& /*aPayload*/)
{
}

void PerfEventPolicyBase::raiseEventWithBindingAndPayload(const QString& /*aEventName*/,
    const QVariant& /*aIdentifier*/, PayloadType /*aPayloadType*/, const QVariant& /*aPayload*/)
{
}

} // namespace Hmi::Core
